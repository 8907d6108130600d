// The preferences: the last-meeting questions with the Erase pass, the checks of
// what the crusade file could not hold, and the values reaching the other screens.
#include <gtest/gtest.h>

#include "edit/CardCrusade.h"
#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/Info.h"
#include "tables/frmTab.h"

using namespace forms;

namespace {
std::string Att(const std::string& marks) { return marks + std::string(40 - marks.size(), '-'); }

std::vector<MasterRecord> Nights() {
    MasterRecord gone = MakePerson("0003", "Cy", "Dunn", Att("1----6"));
    gone.WorkerCode = "##";
    std::vector<MasterRecord> people{MakePerson("0001", "Ann", "Able", Att("12345")),
                                     MakePerson("0002", "Bob", "Late", Att("-----6")), gone,
                                     MakePerson("0004", "Di", "Four", Att("-2-4"))};
    for (MasterRecord& r : people) CountAttendance(r);
    return people;
}

class Prefs : public CardCrusade {
protected:
    Prefs() : CardCrusade(Nights()) { p.MeetingNumber = 6; }
    // Opens the dialog from a menu and runs the script while it is up.
    void Open(Menu& menu, std::function<void(frmTab&)> script) {
        c.host.OnModal("frmTab", [script](Form& f) { script(static_cast<frmTab&>(f)); });
        menu.UserClick();
    }
    std::string Person(long n) const {
        MasterRecord r = c.ReadRecord(n);
        return r.Attendance.str().substr(0, 8) + " " + vb::Trim(r.Attend.str()) + " " + std::to_string(r.Last);
    }
};
}  // namespace

TEST_F(Prefs, LastMeetingLoweredErasesRaisedByOneAsksNothing) {
    struct Case {
        std::string typed;
        std::vector<std::pair<std::string, int>> boxes;   // text part and answer, in order
        int meeting;
        std::vector<std::string> people;   // records 1 to 4 after Save
    };
    const std::vector<std::string> untouched{"12345--- 5 5", "-----6-- 1 6", "1----6-- 2 6", "-2-4---- 2 4"};
    const std::vector<Case> cases{
        {"7", {}, 7, untouched},
        {"9", {{"You have entered Meeting Number: 9.", host::vbYes}}, 9, untouched},
        {"3", {{"The Attendance Record past Meeting Number: 3 will be erased", host::vbNo}}, 6, untouched},
        // Bob came only at 6: one mark at 3 and a word about him; Last keeps the old counter.
        {"3",
         {{"The Attendance Record past Meeting Number: 3 will be erased", host::vbYes},
          {"0002 Bob Late\r\nHad not attended before meeting number 6\r\nThis record has been adjusted to show  "
           "attendance for meeting number: 3",
           host::vbOK}},
         3,
         {"123----- 3 3", "--3----- 1 6", "1------- 1 1", "-2------ 1 2"}},
    };
    for (const Case& t : cases) {
        SCOPED_TRACE(t.typed + " with " + std::to_string(t.boxes.size()) + " boxes");
        c.WriteRecords(Nights());
        p.MeetingNumber = 6;
        bool stayedOpen = false;
        Open(e.mnuPref, [&](frmTab& f) {
            EXPECT_EQ(frmTab::TabGeneral, f.tabPref.SelectedTab());
            f.LastMeetingBox.SetText(t.typed);
            for (const auto& [text, answer] : t.boxes) c.host.ExpectBox(text, answer);
            f.btnSave.UserClick();
            stayedOpen = f.Visible();
            if (stayedOpen) {
                EXPECT_EQ("6", f.LastMeetingBox.Text());
                EXPECT_TRUE(f.LastMeetingBox.HasFocus());
                c.host.ExpectBox("Are you sure you want to leave without saving your changes?", host::vbYes);
                f.btnCancel.UserClick();
            }
        });
        EXPECT_EQ(t.meeting == 6, stayedOpen);
        EXPECT_EQ(t.meeting, p.MeetingNumber);
        for (long n = 1; n <= 4; ++n) EXPECT_EQ(t.people[static_cast<std::size_t>(n - 1)], Person(n)) << n;
        if (t.meeting != 6) {
            EXPECT_NE(std::string::npos,
                      c.ReadFile(c.p.CrusadeFile("inf")).find("\r\n " + std::to_string(t.meeting) + "\r\n"));
        }
    }
}

TEST_F(Prefs, WhatTheFileCouldNotHoldIsRefusedAndTheDialogStays) {
    struct Case {
        std::function<Control&(frmTab&)> box;
        std::string typed, said;
        int tab;
        std::string after;   // the box's text once refused
    };
    const std::string badMeeting = "The Meeting number you entered is invalid.";
    const std::string badNumber = "The Reserved Number must be a whole number from 0 to 9999.";
    const std::vector<Case> cases{
        {[](frmTab& f) -> Control& { return f.Team[3]; }, "North: Oak", "team 3 holds a colon", frmTab::TabTeams, "North: Oak"},
        {[](frmTab& f) -> Control& { return f.prefSerm[7]; }, "Death, Hell", "Sermon title 7 holds a comma", frmTab::TabSermons, "Death, Hell"},
        {[](frmTab& f) -> Control& { return f.prefDecCode[4]; }, "", "Decision 4 needs a code of one letter", frmTab::TabDecisions, ""},
        {[](frmTab& f) -> Control& { return f.LastMeetingBox; }, "0", badMeeting, frmTab::TabGeneral, "6"},
        {[](frmTab& f) -> Control& { return f.LastMeetingBox; }, "41", badMeeting, frmTab::TabGeneral, "6"},
        {[](frmTab& f) -> Control& { return f.LastMeetingBox; }, "ten", badMeeting, frmTab::TabGeneral, "6"},
        {[](frmTab& f) -> Control& { return f.ResNumMM; }, "10000", badNumber, frmTab::TabGeneral, "10000"},
        {[](frmTab& f) -> Control& { return f.ResNumMM; }, "-1", badNumber, frmTab::TabGeneral, "-1"},
        {[](frmTab& f) -> Control& { return f.ResNumMM; }, "12a", badNumber, frmTab::TabGeneral, "12a"},
    };
    const std::string infBefore = c.ReadFile(c.p.CrusadeFile("inf"));
    for (const Case& t : cases) {
        SCOPED_TRACE(t.said + " / " + t.typed);
        Open(e.mnuPref, [&](frmTab& f) {
            Control& box = t.box(f);
            box.SetText(t.typed);
            c.host.ExpectBox(t.said);
            f.btnSave.UserClick();
            EXPECT_TRUE(f.Visible());
            EXPECT_EQ(t.tab, f.tabPref.SelectedTab());
            EXPECT_TRUE(box.HasFocus());
            EXPECT_EQ(t.after, box.Text());
            c.host.ExpectBox("Are you sure you want to leave without saving your changes?", host::vbNo);
            f.btnCancel.UserClick();
            EXPECT_TRUE(f.Visible());
            c.host.ExpectBox("Are you sure you want to leave without saving your changes?", host::vbYes);
            f.btnCancel.UserClick();
        });
        EXPECT_EQ(6, p.MeetingNumber);
        EXPECT_EQ("Team #  3", p.TeamNames[3]);
        EXPECT_EQ(infBefore, c.ReadFile(c.p.CrusadeFile("inf")));
    }
}

TEST_F(Prefs, SavedValuesReachTheFileAndTheScreens) {
    const std::string longTitle(200, 'S');
    Open(e.mnuEditTeamNames, [&](frmTab& f) {
        EXPECT_EQ(frmTab::TabTeams, f.tabPref.SelectedTab());
        EXPECT_TRUE(f.fraTab[frmTab::FrameTeams2].Visible());
        EXPECT_FALSE(f.fraTab[frmTab::FrameGeneral].Visible());
        // Fixed decisions say why and hand the focus to Help; the others take typing.
        for (auto [box, said] : std::vector<std::pair<Control*, std::string>>{
                 {&f.prefDec[1], "You cannot change Decision numbers 1, 2 or 9."},
                 {&f.prefDecCode[9], "You cannot change this field."}}) {
            f.tabPref.SetSelectedTab(frmTab::TabDecisions);
            c.host.ExpectBox(said);
            box->UserClick();
            EXPECT_TRUE(f.HelpButton.HasFocus());
        }
        f.prefDec[4].UserClick();
        EXPECT_TRUE(f.prefDec[4].HasFocus());
        f.prefDec[4].SetText("Health");
        // Enter walks the sermon titles and stops at the last.
        for (int i : {39, 40}) {
            f.tabPref.SetSelectedTab(frmTab::TabSermons);
            f.prefSerm[i].SetFocus();
            f.PressKey(vbKeyReturn, 0, vbKeyReturn);
            EXPECT_TRUE(f.prefSerm[40].HasFocus()) << i;
        }
        c.host.ExpectBox("Team # 12");
        f.Team[12].UserDblClick();
        f.prefSerm[7].SetText(longTitle);
        f.Team[5].SetText("Ortiz");
        f.TmPhone[5].SetText("555-0101");
        f.Team[6].SetText("");
        // The team list prints what the boxes hold.
        f.tabPref.SetSelectedTab(frmTab::TabTeams);
        c.host.ExpectPrinter([](host::PrinterDialog&) { return true; });
        f.btnPrintTeams.UserClick();
        std::string printed;
        for (const auto* op : c.host.printer.TextOps()) printed += op->text + "|";
        EXPECT_NE(std::string::npos, printed.find("Fall Vistiation Teams|Team #|Name|Phone|1|Team #  1||"));
        EXPECT_NE(std::string::npos, printed.find("|5|Ortiz|555-0101|6|||7|"));
        f.prefReligion[3].SetText("Catholic Church");
        f.ResDirMM[0].UserClick();
        f.ckSoundOff.UserClick();
        f.bxLabelTop.SetText("2.5");
        f.btnSave.UserClick();
        EXPECT_FALSE(f.Visible());
    });
    EXPECT_EQ("Ortiz:555-0101", p.TeamNames[5]);
    EXPECT_EQ("Team #  6", p.TeamNames[6]);
    EXPECT_EQ("UP", p.NumberDirection);
    EXPECT_FALSE(p.SoundOn);
    EXPECT_EQ(2, p.LabelTop);
    EXPECT_EQ("Health", e.Dec[3].Caption());
    EXPECT_EQ("Catholic Church", e.RelPref.List()[2]);
    // Read back from the file as the next opening reads it.
    p.SermonTitles[7].clear();
    p.TeamNames[5].clear();
    LoadInfo(p);
    EXPECT_EQ(longTitle, p.SermonTitles[7]);
    EXPECT_EQ("Ortiz:555-0101", p.TeamNames[5]);
    EXPECT_EQ("Health", p.DecisionNames[4]);
}
