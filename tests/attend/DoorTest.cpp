// A night at the door: tickets keyed on the attendance screen, corrections, undo.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "attend/AttendF.h"
#include "attend/AttendFieldUpdate.h"
#include "platform/vb/Strings.h"
#include "support/TestCrusade.h"

using namespace forms;
using vb::RTrim;

namespace {
std::string Att(const std::string& marks) { return vb::Left(marks + std::string(40, '-'), 40); }

// Ten people at meeting 3; the door screen open on meeting 3.
class Door : public ::testing::Test {
protected:
    TestCrusade c;
    AttendF& a = Open();
    AttendF& Open() {
        std::vector<MasterRecord> people = {MakePerson("0012", "Ann", "Baker", Att("1")), MakePerson("0100", "Bob", "Bell", Att("12")),
            MakePerson("0101", "Cy", "Adams", Att("1")), MakePerson("0102", "Di", "Cole", Att("-2")), MakePerson("0103", "Ed", "Brown", Att("1")),
            MakePerson("0104", "Flo", "Burke", Att("1")), MakePerson("0105", "Gus", "Cruz", Att("--3")), MakePerson("0106", "Hal", "Avery", Att("1")),
            MakePerson("4567", "Ian", "Baker", Att("12")), MakePerson("0108", "Jo", "Dunn", Att("1"))};
        people[3].Phone = "Unknown";
        c.ShowOnEditScreen(people);
        c.p.MeetingNumber = 3;
        c.p.MemberList = {"", "7777" "Member         " "Mary           "};
        c.p.MemberCount = 1;
        c.host.ExpectInput("Enter the Meeting Number for which you are updating the Attendance", "3");
        c.p.Edit().mnuAttendUpdate_Click();
        return c.p.Attend();
    }
    void TearDown() override { c.host.Verify(); }
    void Key(const std::string& ticket) {
        a.SearchBox.SetFocus();
        a.SearchBox.SetText(ticket);
        a.PressKey(vbKeyReturn);
    }
    // A record as written: its marks up to the last one, its total and its last meeting.
    std::string Disk(long n) const {
        MasterRecord m = c.ReadRecord(n);
        const std::string marks = m.Attendance.str();
        return marks.substr(0, marks.find_last_not_of('-') + 1) + " " + RTrim(m.Attend) + " " + std::to_string(m.Last);
    }
    bool Played(const std::string& tail) const {
        return std::any_of(c.host.sounds.begin(), c.host.sounds.end(),
                           [&](const std::string& s) { return s.ends_with(tail); });
    }
};
}  // namespace

TEST_F(Door, AStackOfTicketsIsMarkedAndWritten) {
    EXPECT_FALSE(c.p.Edit().Visible());
    // Video 1: selected. DecA: pending decision option, -1 none, -2 left. Answers: to the name questions.
    // Ident: the start of SDAIdent. Sound: a wave file that must play. Record: the one now on screen.
    struct Step { std::string typed; int video, decA; std::vector<int> answers; std::string entInd, ident, sound; long record; };
    const std::vector<Step> steps = {
        {"0100", 0, -1, {}, "", "", "", 2},
        {"100", 0, -2, {}, "?", "100 Not in file", "/S02.wav", 2},   // not padded: 0100 is not "100"
        {"98760012", 0, -2, {}, "", "", "", 1},                      // a long ticket by its last four digits
        {"bak", 0, -2, {host::vbNo, host::vbYes}, "", "", "", 9},
        {"0101", 1, -2, {}, "", "", "", 3},
        {"0103", 1, 1, {}, "", "", "", 5},                           // the letter wins over Video
        {"0104", 0, -2, {}, "", "", "", 6},                          // and stays in force
        {"0100", 0, -1, {}, "E", "", "", 2},                         // the same ticket again
        {"7777", 0, -2, {}, "SDA", "7777 M. Member", "chimes.wav", 2},
        {"ba", 0, -2, {}, "?", "BA Not in file", "/S02.wav", 2},     // two letters find nobody
        {"cole", 0, -2, {host::vbCancel}, "", "", "", 2},
        {"0102", 0, -2, {}, "", "", "/ring.wav", 4},
    };
    for (const Step& s : steps) {
        c.host.sounds.clear();
        a.optVid[s.video].SetValue(true);
        if (s.decA == -1 && a.PendingDecision != "-") {
            a.DecA[0].UserMouseDown(vbLeftButton, 0, 0, 0);
            for (int i = 0; i <= 8; ++i) ASSERT_FALSE(a.DecA[i].Value());
        } else if (s.decA >= 0) {
            a.DecA[s.decA].UserClick();
        }
        for (int answer : s.answers) c.host.ExpectBox("Is this the Correct Name?", answer, "Searching for Last Name");
        Key(s.typed);
        EXPECT_EQ(std::make_tuple(s.entInd, s.ident, s.record, true, std::string()),
                  std::make_tuple(a.EntInd.Text(), a.SDAIdent.Text().substr(0, s.ident.size()), c.p.RecordPos,
                                  s.sound.empty() || Played(s.sound), a.SearchBox.Text()))
            << s.typed;
    }
    EXPECT_EQ(vbRed, a.Phone.BackColor());
    EXPECT_EQ("Attendance: 7", a.Caption());

    const char* const disk[] = {"1-3 2 3", "123 3 3", "1-V 2 3", "-23 2 3", "1-S 2 3", "1-S 2 3", "--3 1 3", "1 1 1", "123 3 3", "1 1 1"};
    for (long n = 1; n <= 10; ++n) EXPECT_EQ(disk[n - 1], Disk(n)) << n;
    // Leaving puts the edit screen back on the person last keyed, as written.
    a.PressKey(vbKeyEscape);
    EXPECT_FALSE(c.p.AttendLoaded());
    EXPECT_TRUE(c.p.Edit().Visible());
    EXPECT_EQ(Att("-23"), c.p.Edit().Attendance.Text());
}

TEST_F(Door, UndoAsksAboutTheDecisionsItMayHaveEntered) {
    a.ED[0].SetValue(vbChecked);   // "Accept Christ" on every name keyed
    Key("0100");
    EXPECT_EQ(std::make_pair(static_cast<int>(vbChecked), std::string("C--------")), std::make_pair(a.Dec[0].Value(), RTrim(c.ReadRecord(2).Decisions)));
    c.host.ExpectBox("Do you want to undo the Accept Christ decision now?", host::vbYes, "Remove the Accept Christ Decision?", host::vbYesNo);
    a.Undo.UserClick();
    EXPECT_EQ(std::make_tuple(Att("12"), static_cast<int>(vbUnchecked), std::string("Attendance Update")),
              std::make_tuple(c.ReadRecord(2).Attendance.str(), a.Dec[0].Value(), a.Caption()));
    a.NextRecord_Button.UserClick();   // the undone decision reaches the disk with the next save
    EXPECT_EQ("---------", RTrim(c.ReadRecord(2).Decisions));

    // The only mark taken away keeps the meeting as the last one, with no total.
    a.ED[0].SetValue(vbUnchecked);
    Key("0105");
    a.Undo.UserClick();
    EXPECT_EQ(" 0 3", Disk(7));
}

TEST_F(Door, TheMeetingBoxTakesOnlyAMeeting) {
    for (const std::string bad : {"abc", "41", "0", ""}) {
        a.MtgNum.SetFocus();
        a.MtgNum.SetText(bad);
        c.host.ExpectBox("The Meeting Number must be a number from 1 to 40.", host::vbOK, "Meeting Number");
        a.SearchBox.SetFocus();
        EXPECT_EQ("3", a.MtgNum.Text()) << bad;
    }
    // Past the counter: the counter rises when the box is left, and the ticket marks meeting 5.
    a.MtgNum.SetFocus();
    a.MtgNum.SetText("5");
    a.PressKey(vbKeyReturn, 0, vbKeyReturn);
    ASSERT_EQ(5, c.p.MeetingNumber);
    Key("0012");
    EXPECT_EQ(Att("1---5"), c.ReadRecord(1).Attendance.str());
    // Stepped down to 0 the box holds no meeting: the ticket is refused and nobody is marked.
    a.MtgNum.SetText("1");
    c.host.ExpectBox("You have just changed the meeting number");
    a.btnVScrollDn.UserClick();
    c.host.ExpectBox("The Meeting Number must be a number from 1 to 40.");
    Key("0100");
    EXPECT_EQ(Att("12"), c.ReadRecord(2).Attendance.str());
}

TEST_F(Door, TheCorrectionDialogRefusesAndFills) {
    Key("0105");   // Gus: meeting 3 only
    struct Click { int atd; std::string box, after; };
    const std::vector<Click> clicks = {{2, "You must show at least one meeting attended.", Att("--3")},   // the only mark
                                       {4, "greater than the Last Meeting Number", Att("--3")}, {0, "", Att("1-3")}, {2, "", Att("1")}};
    c.host.OnModal("AttendFieldUpdate", [&](Form& f) {
        auto& u = static_cast<AttendFieldUpdate&>(f);
        EXPECT_EQ("Gus Cruz", u.lblName.Caption());
        for (const Click& k : clicks) {
            if (!k.box.empty()) c.host.ExpectBox(k.box, host::vbOK, "Attendance Update");
            u.ATD[k.atd].UserClick();
            EXPECT_EQ(k.after, u.Attendance.Text()) << k.atd;
        }
        c.host.ExpectBox("Do you want to fill the attendance record", host::vbYes);
        u.btnFill.UserClick();
        EXPECT_EQ(Att("123") + "3", u.Attendance.Text() + u.Attend.Caption());
        c.host.ExpectBox("Do you want to erase the attendance record", host::vbYes);
        u.btnClearAttend.UserClick();
        EXPECT_EQ(Att("--3"), u.Attendance.Text());
        u.optAtDe[5].UserClick();
        u.ATD[1].UserClick();
        EXPECT_EQ(Att("-B3"), u.Attendance.Text());
        u.ExitAttendUpdate.UserClick();
    });
    a.Attendance.UserClick();
    forms::ActivateForm(c.p.host, &a);   // the new string stays until the next save writes it
    a.NextRecord_Button.UserClick();
    EXPECT_EQ("-B3 2 3", Disk(7));
}

TEST_F(Door, CorrectionsOnTheCardFollowTheEditScreensRulesAndReachTheDisk) {
    Key("0012");
    c.host.ExpectBox("You must enter a letter between A and G or the Space Bar", host::vbOK, "Incorret Interest Level");
    a.IntLevel.SetText("x");
    EXPECT_EQ("", a.IntLevel.Text());
    a.BaptDate.SetFocus();
    struct Key { std::string before; int key; std::string after; };
    for (const Key& k : std::vector<Key>{{"01/31/26", 187, "02/01/26"}, {"03/10/26", 189, "03/09/26"}, {"", 'P', "05/23/09"}}) {
        a.BaptDate.SetText(k.before);
        a.PressKey(k.key);
        EXPECT_EQ(k.after, a.BaptDate.Text()) << k.before;
    }
    EXPECT_EQ("A", a.IntLevel.Text());   // a date sets A, the box then G
    a.Baptized.UserClick();
    EXPECT_EQ("G", a.IntLevel.Text());
    a.NextRecord_Button.UserClick();
    MasterRecord m = c.ReadRecord(1);
    EXPECT_EQ(std::make_tuple(std::string("G"), std::string("05/23/09"), Att("1-3")),
              std::make_tuple(RTrim(m.IntLevel), RTrim(m.BaptDate), m.Attendance.str()));
}

TEST(DoorStart, TheMeetingOpenedRaisesTheCounterAndClosingNeverLowersIt) {
    // Preview: the list preview open first; left open, a click on one of its lines would mark
    // whoever the rebuilt list put there, so it closes before the door opens.
    struct Case { int counter; std::string entry; bool skipQuestion, preview; int opened; };
    for (const Case& k : {Case{3, "4", false, false, 4}, Case{3, "6", true, false, 6}, Case{5, "2", false, false, 5},
                          Case{0, "1", false, false, 1}, Case{3, "3", false, true, 3}}) {
        SCOPED_TRACE(k.entry);
        TestCrusade c;
        EditForm& e = c.ShowOnEditScreen({MakePerson("0012", "Ann", "Baker"), MakePerson("0100", "Bob", "Bell"),
                                          MakePerson("0101", "Cy", "Adams")});
        c.p.MeetingNumber = k.counter;
        if (k.preview) e.btnViewFile.UserClick();
        ASSERT_EQ(k.preview, c.p.ReportsLoaded());
        c.host.ExpectInput("Enter the Meeting Number for which you are updating the Attendance", k.entry);
        if (k.skipQuestion) c.host.ExpectBox("Is this what you want to do?", host::vbYes);
        e.btnAttend.UserClick();
        ASSERT_TRUE(c.p.AttendLoaded());
        EXPECT_EQ(std::make_tuple(k.opened, k.entry, false, std::string("alpha")),
                  std::make_tuple(c.p.MeetingNumber, c.p.Attend().MtgNum.Text(), c.p.ReportsLoaded(), c.p.SortName));
        c.p.Attend().Exit.UserClick();
        EXPECT_EQ(k.opened, c.p.MeetingNumber);
        c.host.Verify();
    }
}

TEST_F(Door, LiveComesBackGlobalSearchKeepsThePlaceAndLeavingHandsNoMeeting) {
    a.optVid[1].UserClick();
    c.host.OnModal("AttendFieldUpdate", [](Form& f) { static_cast<AttendFieldUpdate&>(f).CancelAttendUpdate.UserClick(); });
    a.Attendance.UserClick();
    forms::ActivateForm(c.p.host, &a);   // back from the dialog
    EXPECT_TRUE(a.optVid[0].Value());
    Key("0012");
    EXPECT_EQ(Att("1-3"), c.ReadRecord(1).Attendance.str());
    a.SearchBox.SetFocus();
    a.TypeText("12-34");
    EXPECT_EQ("12-34", a.SearchBox.Text());
    for (int answer : {host::vbCancel, host::vbNo}) {   // Cancel stops the search without a word
        c.host.ExpectInput("You can search for all or part of the First Name", "bell");
        c.host.ExpectBox("Is this the correct name?", answer, "Global Search for: bell");
        if (answer == host::vbNo) c.host.ExpectBox("Search item: bell- not found");
        a.btnGlobal.UserClick();
        c.host.Verify();
        EXPECT_EQ(1, c.p.RecordPos) << answer;
    }
    // Leaving hands no meeting to the handler a double click on the caption reruns.
    a.PressKey(vbKeyEscape);
    c.host.ExpectInput("Select a Meeting to View", "");
    c.p.Edit().mnuFilterSelMtg_Click();
    EXPECT_EQ("alpha", c.p.SortName);
    // A refused entry and a list left empty (a filter that kept nobody) open nothing.
    c.host.ExpectInput("Enter the Meeting Number for which you are updating the Attendance", "");
    c.p.Edit().mnuAttendUpdate_Click();
    c.p.IndexCount = 0;
    c.host.ExpectBox("There is nobody in the file to take attendance for.");
    c.p.Edit().btnAttend.UserClick();
    EXPECT_FALSE(c.p.AttendLoaded());
}

TEST_F(Door, TheRingForAMissingPhoneComesOnlyOnArrival) {
    struct Step { std::function<void()> act; bool rings; };
    const std::vector<Step> steps = {{[&] { Key("0102"); }, true}, {[&] { Key("0999"); }, false},   // Cole shown again
                                     {[&] { a.NextRecord_Button.UserClick(); }, false}, {[&] { a.PreviousRecord.UserClick(); }, true}};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        c.host.sounds.clear();
        steps[i].act();
        EXPECT_EQ(steps[i].rings, Played("ring.wav")) << i;
    }
}
