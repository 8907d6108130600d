#include <gtest/gtest.h>

#include "lists/Lists.h"
#include "lists/frmFilters.h"
#include "reports/SelIntFm.h"
#include "reports/PrintReports.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;
using forms::vbCtrlMask;
using forms::vbKeyReturn;
using forms::vbLeftButton;
constexpr auto npos = std::string::npos;

namespace {

// Three people on the preview, in the alphabetical list, at meeting 5.
struct Preview {
    TestCrusade c;
    PrintReports* pr = nullptr;
    Preview() {
        std::vector<MasterRecord> people{MakePerson("0101", "Cy", "Adams", "1-345-----"),
                                         MakePerson("0102", "Di", "Baker", "12--------"),
                                         MakePerson("0103", "Ed", "Cole", "----5-----")};
        c.ShowOnEditScreen(people);
        c.p.MeetingNumber = 5;
        c.p.Edit().mnuPreAlpha_Click();
        pr = &c.p.Reports();
    }
    ~Preview() { c.host.Verify(); }
    // Changes person n on disk, as an earlier session on the edit screen would have.
    template <class F>
    void Change(long n, F f) {
        MasterRecord r = c.ReadRecord(n);
        f(r);
        c.p.MasterRec = r;
        PutRecord(c.p, n);
    }
    // The texts printed, one a line.
    std::string Printed() const {
        std::string t;
        for (const auto& op : c.host.printer.ops)
            if (op.kind == RecordingSurface::OpKind::Text) t += op.text + "\n";
        return t;
    }
    std::string Line(int i) const {
        std::string t = pr->Info.Text();
        for (int k = 1; k < i; ++k) t = t.substr(t.find("\r\n") + 2);
        return t.substr(0, t.find("\r\n"));
    }
};

struct PreviewScreen : ::testing::Test, Preview {};

MasterRecord Person() {
    MasterRecord r = MakePerson("0042", "Mary", "Lamb", "1-3-5-7-9-1-3-5-7-9-1-3-5-7-9-1-3-5-7-9-");
    r.WorkerCode = "07";
    r.IntLevel = "B";
    r.Visits = "h03p04";
    r.Decisions = "X--------";
    r.Notes = "Call after six";
    r.Advertising = "....P-Radio";
    r.Attend = "20";
    r.Last = 39;
    return r;
}

}  // namespace

TEST(Preview, LineFormatsOfEveryKind) {
    TestCrusade c;
    ProgramState& p = c.p;
    DefaultLists(p);
    p.MeetingNumber = 25;
    p.WeekDays[2] = "Monday";
    p.HourLabels[5] = "7:00 PM";
    const reports::DecisionMarks marks{1, 2};
    struct Case {
        const char* kind;
        void (*tweak)(MasterRecord&);
        std::string line;
    } cases[] = {
        // Meeting 25 shows positions 2 to 25.
        {"alpha", nullptr, "07 0042  Lamb, Mary             -3-5-7-9-1-3-5-7-9-1-3-5/B  X--------/h03p04      "},
        {"attend", [](MasterRecord& r) { r.BaptDate = "12/01/26"; },
         "07 0042 #Lamb, Mary(r)          -3-5-7-9-1-3-5-7-9-1-3-5/B  X--------/h03p04      "},
        {"alpha", [](MasterRecord& r) { r.IntLevel = "G"; r.Decisions = "-U-------"; },
         "07 0042  Lamb, Mary*            -3-5-7-9-1-3-5-7-9-1-3-5/G  -U-------/h03p04      "},
        {"alpha", [](MasterRecord& r) { r.Class = -1; r.LName = "Montgomery-Fitzgerald"; },
         "07 0042 @Montgomery-Fitzgeral,  -3-5-7-9-1-3-5-7-9-1-3-5/B  X--------/h03p04      "},
        {"decisions9", [](MasterRecord& r) { r.Class = -1; r.BaptDate = "12/01/26"; },
         "07 0042 #Lamb, Mary(r)          -3-5-7-9-1-3-5-7-9-1-3-5/B  X--------  p04 Apt-CL"},
        // An old file's "12:00AM" is no date: an appointment, not a baptism class.
        {"decisions9", [](MasterRecord& r) { r.Class = -1; r.BaptDate = "12:00AM"; },
         "07 0042 @Lamb, Mary             -3-5-7-9-1-3-5-7-9-1-3-5/B  X--------  p04 Apt"},
        {"religion", nullptr, "07 0042  Lamb, Mary             -3-5-7-9-1-3-5-7-9-1-3-5 B  (Baptist)"},
        {"BaptClass", nullptr, "07 0042  Lamb, Mary             -3-5-7-9-1-3-5-7-9-1-3-5 B  (Monday:    7:00 PM)"},
        {"zip", nullptr, "07 0042  Lamb, Mary             (62701Sprin) 12 Oak St                   -3-5-7-9-1"},
        {"PreCrusade", nullptr, "07 0042  Lamb, Mary             (Radio       )    -3-5-7-9-1-3-5-7-9-1-3-5 /B"},
        {"notes", nullptr, "07 0042  Lamb, Mary             Call after six                        -3-5-7-9-1"},
        {"mail", nullptr, " Lamb, Mary          (ML)   (Spr62701) 12 Oak St                 T=20 LM=39/  30-39"},
        {"DupAddress", [](MasterRecord& r) { r.MailList = 0; r.Last = 4; },
         "07 0042  Lamb, Mary             (Spr) 12 Oak St                 T=20 LM=04/  30-39"},
        {"CleanMailList", nullptr,
         "07 0042  Lamb, Mary             *Spr* 12 Oak St                 T=20 LM=39/  30-39"},
    };
    for (const Case& k : cases) {
        MasterRecord r = Person();
        if (k.tweak) k.tweak(r);
        EXPECT_EQ(PreviewLine(p, r, k.kind, "0042A205", marks), k.line) << k.kind;
    }
    p.MeetingNumber = 24;
    EXPECT_EQ(PreviewLine(p, Person(), "alpha", "", marks).substr(32, 24), "1-3-5-7-9-1-3-5-7-9-1-3-");
}

TEST_F(PreviewScreen, TitlesByKindWithTheCountAndTheEmptyList) {
    ProgramState& p = c.p;
    p.TeamNames[5] = "Team 5: North";
    p.DecisionNames[2] = "Sabbath";
    p.FilterTotalAttend = 4;
    const std::pair<const char*, const char*> cases[] = {
        {"alphafilter", "Master Alphabetical List (3)"}, {"SelWCAttend05", "5- Team 5 North  (3)"},
        {"missednight03", "Missed Last 3 Night(s) (3)"},  {"attendnight07", "Fall: Meeting: 7 (3)"},
        {"decisions2", "Fall: Sabbath (3)"},              {"TotalAttend", "Attended at least 4 Meetings (3)"},
        {"religion", "Church Preference (3)"},            {"age", "Need a Filter (3)"},
    };
    for (const auto& [kind, title] : cases) {
        p.SortName = kind;
        pr->PreviewReport();
        EXPECT_EQ(pr->CrTitleBox.Text(), title) << kind;
    }
    c.host.ExpectBox("Vestrel does not print this list by Team");
    pr->chkTeam.UserClick();
    EXPECT_FALSE(pr->chkTeam.Value());
    p.SortName = "baptism";
    p.IndexCount = 0;
    pr->PreviewReport();
    EXPECT_EQ(pr->CrTitleBox.Text(), "Baptism List (0)");
    EXPECT_EQ(pr->Info.Text(), "There are no names in this filter to view.\r\n"
                                 "Either select a lower Cut Off point or a different Filter.");
}

TEST(Preview, ClicksOnTheColumnsChangeThePersonOnTheLine) {
    // A click at x 100 is on the team column, at 7500 on the visits.
    struct Case {
        const char* what;
        float x, y;
        int shift;
        std::string visits;   // Visits before the click
        std::string input;    // answer to "Enter Team Code"
        const char* box;      // a box the click shows, if any
        std::string expect;   // the field clicked, afterwards
    } cases[] = {
        {"visit", 7500, 10, 0, "h01", "", nullptr, "h01h05      "},
        {"visit when full", 7500, 10, 0, "h01h02h03h04", "", nullptr, "h02h03h04h05"},
        {"ctrl removes", 7500, 10, vbCtrlMask, "h01h02", "", nullptr, "h01         "},
        {"ctrl on empty", 7500, 10, vbCtrlMask, "", "", nullptr, "            "},
        {"team", 100, 10, 0, "", "7", nullptr, "07"},
        {"bad team", 100, 10, 0, "", "41", "It must be a number between 00 and 40", "  "},
        {"empty team", 100, 10, 0, "", "", nullptr, "  "},
        {"below the list", 7500, 215 * 3 + 10, 0, "", "", nullptr, "            "},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        Preview v;
        v.Change(1, [&k](MasterRecord& r) { r.Visits = k.visits, r.WorkerCode = ""; });
        v.pr->OptVisit.UserClick();
        const bool team = k.x < 1000;
        if (team) v.c.host.ExpectInput("Enter Team Code", k.input);
        if (k.box) v.c.host.ExpectBox(k.box);
        v.pr->Info.UserMouseDown(vbLeftButton, k.shift, k.x, k.y);
        const MasterRecord r = v.c.ReadRecord(1);
        EXPECT_EQ(team ? r.WorkerCode.str() : r.Visits.str(), k.expect);
        // The list is redrawn with the change.
        if (!team) { EXPECT_NE(v.Line(1).find(vb::RTrim(r.Visits)), npos); }
    }
}

TEST_F(PreviewScreen, ClickColumnsFollowTheMeasuredFontAndTheAttendanceAndInterestModes) {
    // A face twice as wide and lines 300 twips high, with the text inset.
    pr->Info.Metrics = {210, 300, 90, 45};
    auto at = [](int column, int line) { return std::pair<float, float>(90 + 210 * (column - 0.5f), 45 + 300 * (line - 0.5f)); };
    // Meeting 5 of line 2 (Baker, not there): the attendance columns after the question.
    c.host.ExpectBox("update the attendance record for meeting #5", vbOK, "Automatic Attendance Update");
    auto [x, y] = at(40, 2);
    pr->Info.UserMouseDown(vbLeftButton, 0, x, y);
    EXPECT_EQ(c.ReadRecord(2).Attendance.str().substr(0, 6), "12--5-");
    EXPECT_EQ(c.ReadRecord(2).Last, 5);
    EXPECT_TRUE(pr->optEd.Value());   // the function chosen before the click is back
    // Again on the same person: asked again, then the mark is taken back after the sound and the question.
    c.host.ExpectBox("update the attendance record for meeting #5", vbOK, "Automatic Attendance Update");
    c.host.ExpectBox("This Will Undo the Attendance for Night 5", vbOK, "Undo the Attendance Update");
    pr->Info.UserMouseDown(vbLeftButton, 0, x, y);
    EXPECT_EQ(c.ReadRecord(2).Attendance.str().substr(0, 6), "12----");
    EXPECT_EQ(c.ReadRecord(2).Last, 2);
    // The interest column of line 3 opens the interest dialog for Cole; the line shows the level.
    c.host.OnModal("SelIntFm", [](forms::Form& f) { static_cast<SelIntFm&>(f).btnInt_Click(3); });
    std::tie(x, y) = at(58, 3);
    pr->Info.UserMouseDown(vbLeftButton, 0, x, y);
    EXPECT_EQ(c.ReadRecord(3).IntLevel, "C");
    EXPECT_NE(Line(3).find("/C "), npos) << Line(3);
    EXPECT_TRUE(pr->optEd.Value());
    // The visit column without a visit code chosen.
    c.host.ExpectBox("You must select 'Visit'");
    std::tie(x, y) = at(75, 1);
    pr->Info.UserMouseDown(vbLeftButton, 0, x, y);
}

TEST_F(PreviewScreen, VisitCodeKeysAndTheWayToTheEditScreenAndBack) {
    pr->OptVisit.UserClick();
    EXPECT_EQ(pr->OptVisit.Caption(), "Visit h05");
    for (int k : {'P', '+', '-', '-', 'm', '=', '=', '=', 'x'}) pr->OptVisit_KeyPress(k);
    EXPECT_EQ(pr->VisitCode, "m05");   // never past the meeting
    pr->optEd.UserClick();
    pr->Info.UserMouseDown(vbLeftButton, 0, 3000, 215 + 10);
    EditForm& e = c.p.Edit();
    auto shown = [&] {
        return e.LName.Text() + (pr->Visible() ? " preview" : "") +
               (e.ReturnToPreviewMsg.Visible() ? " return" : "") + (e.mnuFile.Enabled() ? " file" : "") +
               (e.ChgRec[2].Visible() ? " step" : "") + (e.btnViewFile.Enabled() ? " view" : "");
    };
    EXPECT_EQ("Baker return view", shown());
    e.Phone.SetText("555-0199");
    e.btnViewFile.UserClick();
    EXPECT_EQ("Baker preview file step view", shown());
    EXPECT_EQ(vb::Trim(c.ReadRecord(2).Phone), "555-0199");
}

TEST_F(PreviewScreen, ACutOffOnTheMasterListIsTheAttendanceListUntilThePreviewCloses) {
    pr->PrintCutOffBox.SetText("2");   // Baker came last at meeting 2
    // Named for what it holds: the searches and the save read an "alpha" list as
    // alphabetical entries, so the master list's own name is not kept.
    EXPECT_EQ("attend", c.p.SortName);
    EXPECT_EQ(2, c.p.IndexCount);
    EXPECT_NE(npos, Line(1).find("Adams")) << pr->Info.Text();
    EXPECT_NE(npos, Line(2).find("Cole")) << pr->Info.Text();
    pr->CloseBut.UserClick();
    EditForm& e = c.p.Edit();
    c.host.ExpectBox("Ed Cole", vbYes);
    e.SearchBox.SetFocus();
    e.TypeText("cole");
    e.PressKey(vbKeyReturn, 0, vbKeyReturn);
    EXPECT_EQ("Cole", e.LName.Text());
    EXPECT_EQ(std::make_pair(std::string("alpha"), 3), std::make_pair(c.p.SortName, c.p.IndexCount));
}

TEST_F(PreviewScreen, NothingSetOnOnePreviewShowsInTheNext) {
    Change(1, [](MasterRecord& r) { r.IntLevel = "A"; });
    Change(2, [](MasterRecord& r) { r.IntLevel = "F"; });
    c.p.ReligionList[1] = "Baptist";
    pr->PrintCutOffBox.SetText("1");
    pr->CkIncludeF.UserClick();
    pr->PVDecisions.UserClick();
    pr->PVDecisions.UserClick();   // the churches
    pr->btnSelect[1].UserClick();
    EXPECT_EQ("Baptist", pr->Church);
    pr->MasterListButton.UserClick();
    pr->chkDisableCutoff.UserClick();
    pr->btnTeamSel.UserClick();
    pr->OptVisit.UserClick();
    pr->chkPrnMailLabels.UserClick();
    pr->chkMailOpt.UserClick();
    pr->chkTeam.UserClick();
    EXPECT_EQ("wcattend", c.p.SortName);   // the cut-off made the master list the attendance list
    pr->CloseBut.UserClick();
    EXPECT_EQ(1, c.p.PrintCutOff);   // "Disable" held only while the preview was open
    // The edit screen's interest list goes without level F again.
    ASSERT_TRUE(lists::BuildList(c.p, "interest"));
    EXPECT_EQ(1, c.p.IndexCount);

    c.p.MeetingNumber = 6;
    c.p.Edit().mnuPreInt_Click();
    auto on = [](const forms::Control& k) { return k.Value() ? "1" : "0"; };
    const std::string state =
        pr->Caption() + "|" + pr->CrTitleBox.Text() + "|" + on(pr->CkIncludeF) + on(pr->chkDisableCutoff) +
        on(pr->chkPrnMailLabels) + on(pr->chkMailOpt) + on(pr->chkTeam) + "|" +
        (pr->PrintCutOffBox.Enabled() ? "cut-off" : "") + "|" + pr->btnTeamSel.Caption() + " " +
        pr->btnTeam[1].Caption() + (pr->btnTeam[21].Visible() ? " All" : "") + "|" + pr->OptVisit.Caption() +
        pr->VisitCode + "|" + (pr->optAt.Visible() ? "Attend " : "") + pr->OptIntML.Caption() + "|" +
        pr->boxMailLabelIndicator.Text() + "|" + pr->Church;
    EXPECT_EQ("Preview Fall Meeting Number: 6|Priority Interest List (1)|00000|cut-off|21-40 01 All|Visit|"
              "Attend Interest||",
              state);
}

TEST_F(PreviewScreen, ATeamInEitherOrderAndItsReportGroupedByLastMeeting) {
    c.p.TeamNames[7] = "Team #7: West";
    for (long n : {2L, 3L}) Change(n, [](MasterRecord& r) { r.WorkerCode = "07"; });
    const std::pair<int, const char*> cases[] = {{0, "Bake Cole"}, {1, "Cole Bake"}};
    for (const auto& [option, order] : cases) {
        SCOPED_TRACE(option);
        pr->optSortOpt[option].UserClick();
        pr->btnTeam[7].UserClick();
        EXPECT_EQ("Team- 7 (2)", pr->CrTitleBox.Text());
        const std::string shown = Line(1).substr(9, 4) + " " + Line(2).substr(9, 4);
        EXPECT_EQ(order, shown);
        c.host.printer.Clear();
        c.host.AcceptPrinter();
        pr->btnPrint.UserClick();
        const std::string printed = Printed();
        EXPECT_NE(npos, printed.find("Missing Since Meeting # 5")) << printed;
        EXPECT_NE(npos, printed.find("Missing Since Meeting # 2")) << printed;
        EXPECT_EQ(npos, printed.find("# 999")) << printed;
        // The list on screen stays in the order chosen.
        EXPECT_EQ(order, Line(1).substr(9, 4) + " " + Line(2).substr(9, 4));
    }
}

TEST(Preview, TeamsFirstAskAboutAddressesWithMoreThanOneTeam) {
    // Answer, then the kind shown and whether "Teams" stays checked.
    const std::tuple<int, const char*, bool> cases[] = {{vbNo, "wcalpha", true}, {vbYes, "TDupAddress", false}};
    for (const auto& [answer, kind, checked] : cases) {
        SCOPED_TRACE(kind);
        Preview v;
        v.Change(1, [](MasterRecord& r) { r.WorkerCode = "01"; });
        v.Change(2, [](MasterRecord& r) { r.WorkerCode = "02"; });
        v.c.host.ExpectBox("addresses with more than one team assigned.", answer, "Conflicting Team Assignments");
        v.pr->chkTeam.UserClick();
        EXPECT_EQ(kind, v.c.p.SortName);
        EXPECT_EQ(checked, v.pr->chkTeam.Value() != 0);
    }
}

TEST(Preview, AnEmptyMeetingOrTotalReportPrintsNothing) {
    auto meeting = [](Preview& v) { v.c.host.ExpectInput("Enter the Meeting number", "6"); };
    auto total = [](Preview& v) {
        v.c.host.OnModal("frmFilters", [](forms::Form& f) {
            static_cast<frmFilters&>(f).txtTotalAttend.SetText("5");
            static_cast<frmFilters&>(f).btnSave_Click();
        });
    };
    const char* none = "There were no names in the file that match your search criteria.";
    const std::tuple<void (*)(Preview&), forms::Menu EditForm::*, const char*, const char*> cases[] = {
        {meeting, &EditForm::mnuPrRptSelectedMtg, "There are no records for this filter.", none},
        {total, &EditForm::mnuPrnTotalAttended, "There are no names to view.", none},
        {total, &EditForm::mnuPrnTotalAttendedWC, "There are no names to view.", "There are no names in this list to print"},
    };
    for (const auto& [ask, menu, builderSays, reportSays] : cases) {
        SCOPED_TRACE(builderSays);
        Preview v;
        v.pr->CloseBut.UserClick();
        v.c.p.MeetingNumber = 6;
        v.c.host.printer.Clear();
        ask(v);
        v.c.host.ExpectBox(builderSays);
        v.c.host.ExpectBox(reportSays);
        (v.c.p.Edit().*menu).UserClick();
        EXPECT_EQ("", v.Printed());
    }
}

TEST_F(PreviewScreen, ACutOffRebuildsWithTheAnswersTheListWasBuiltWith) {
    int asked = 0;
    c.host.OnModal("frmFilters", [&asked](forms::Form& f) {
        auto& d = static_cast<frmFilters&>(f);
        ++asked;
        d.txtTotalAttend.SetText("4");
        d.optTotal[1].UserClick();   // equal to
        d.btnSave_Click();
    });
    pr->mnuTotalAttendance.UserClick();
    pr->PrintCutOffBox.SetText("1");
    EXPECT_EQ(1, asked);
    EXPECT_EQ(1, c.p.IndexCount);   // Adams alone came four times

    // Decision 9 arranged by level: Baker (A) before Adams (B), also after the cut-off.
    Change(1, [](MasterRecord& r) { r.IntLevel = "B", r.Decisions = "--------X"; });
    Change(2, [](MasterRecord& r) { r.IntLevel = "A", r.Decisions = "--------X"; });
    c.host.ExpectBox("Do you want to arrange these decisions by Interest Level?", vbYes);
    pr->btnSelect[9].UserClick();
    pr->PrintCutOffBox.SetText("0");
    EXPECT_EQ("decisions9", c.p.SortName);
    EXPECT_EQ("Bake Adam", Line(1).substr(9, 4) + " " + Line(2).substr(9, 4));
}
