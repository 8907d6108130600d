#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "reports/Reports.h"
#include "store/Records.h"
#include "support/TestCrusade.h"

using Kind = RecordingSurface::OpKind;

namespace {

// The printed stream as lines: "x y font|text" for texts (trailing blanks
// dropped, as on paper), page ends and documents; moves and font changes show
// through the texts they place.
std::vector<std::string> Dump(const RecordingSurface& out) {
    std::vector<std::string> lines;
    char buf[64];
    for (const auto& op : out.ops) {
        if (op.kind == Kind::Text) {
            std::snprintf(buf, sizeof buf, "%.2f %.2f %s%s%s|", op.x, op.y, op.font.Name.substr(0, 5).c_str(),
                          std::to_string(static_cast<int>(op.font.Size)).c_str(),
                          op.font.Bold ? "B" : (op.font.Underline ? "U" : ""));
            lines.push_back(buf + op.text.substr(0, op.text.find_last_not_of(' ') + 1));
        } else if (op.kind == Kind::NewPage || op.kind == Kind::EndDoc || op.kind == Kind::KillDoc) {
            lines.push_back(op.kind == Kind::NewPage ? "NewPage" : op.kind == Kind::EndDoc ? "EndDoc" : "KillDoc");
        }
    }
    return lines;
}

// Expects `want` to stand in `lines` in order, each right after the one before.
void ExpectRun(const std::vector<std::string>& lines, const std::vector<std::string>& want) {
    auto it = std::find(lines.begin(), lines.end(), want.front());
    for (const std::string& w : want) {
        ASSERT_NE(it, lines.end()) << w;
        EXPECT_EQ(*it++, w);
    }
}

std::string Name2(int i) { return (i < 10 ? "0" : "") + std::to_string(i); }

// A crusade on the edit screen, printed from the preview with the list the test sets.
struct Crusade {
    TestCrusade c;
    RecordingSurface& out = c.host.printer;

    void Load(const std::vector<MasterRecord>& people, int meeting) {
        c.ShowOnEditScreen(people);
        c.p.MeetingNumber = meeting;
        for (int i = 1; i <= 40; ++i) c.p.SermonTitles[static_cast<std::size_t>(i)] = "Night " + std::to_string(i);
        c.p.TeamNames[1] = "Team #1: North";
        c.p.TeamNames[2] = "Team #2: South";
        c.p.PrintingFromPreview = true;
        out.Clear();
    }
    // Entries of record numbers 1.. with the key of each between number and pointer.
    void SetList(const std::string& kind, const std::vector<std::string>& keys) {
        c.p.SortName = kind;
        c.p.SortIndex.assign(1, kind);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            long n = static_cast<long>(i) + 1;
            c.p.SortIndex.push_back(c.ReadRecord(n).RNum.str() + keys[i] + RecordPointer(n));
        }
        c.p.IndexCount = static_cast<int>(keys.size());
        c.p.CurrentIndex = 1;
    }
    // 55 people, the first 30 present at meeting 3, the rest last seen at meeting 2,
    // the first `team1` on team 1; listed as `kind`, with the team first in "wcattend".
    void FiftyFive(int team1, const std::string& kind) {
        std::vector<MasterRecord> people;
        std::vector<std::string> keys;
        for (int i = 1; i <= 55; ++i) {
            MasterRecord& r = people.emplace_back(MakePerson(std::to_string(1000 + i), "Ann", "Person" + Name2(i),
                                                             i <= 30 ? "1-3-------------------------------------"
                                                                     : "12--------------------------------------"));
            r.WorkerCode = i <= team1 ? "01" : "02";
            keys.push_back((kind == "wcattend" ? r.WorkerCode.str() : "") + (i <= 30 ? "996" : "997") + "PERSON" +
                           Name2(i));
        }
        Load(people, 3);
        SetList(kind, keys);
        Accept();
    }
    void Accept(int fromPage = 1) {
        c.host.ExpectPrinter([fromPage](host::PrinterDialog& d) {
            d.Flags |= fromPage > 1 ? 2 : 0;
            d.FromPage = fromPage;
            d.ToPage = 1000;
            return true;
        });
    }
};

struct Printing : ::testing::Test, Crusade {};

TEST_F(Printing, AttendanceListGroupsByLastMeetingAndNumbersPagesFromTwo) {
    FiftyFive(55, "attend");
    PrintOneLineReport(c.p, 2);

    const std::vector<std::string> d = Dump(out);
    const std::string title = "Fall Master Attendance List:  Night 3 (30 present)";
    ExpectRun(d, {"0.60 0.30 Arial14|" + title, "18.50 0.00 Arial28B| 3", "17.00 1.07 Times8|Sunday, November 22, 2026",
                  "0.60 1.80 Arial10U|Missing Since Meeting # 3: Night 3     (30)",
                  "0.60 2.32 Times8|01 1001 Person01, Ann", "4.71 2.32 Times8|12 Oak St",
                  "8.50 2.32 Times8|Spr (62701) 555-0100", "11.70 2.32 Couri7B|Bap/3/",
                  "12.58 2.32 Couri7B|1-3-------------------------  /---------",
                  "0.60 2.77 Times8|01 1002 Person02, Ann"});
    // The second group's heading, then a page break after the line at 24.89: no
    // footer on page 1, the header again at the top, and the footer on page 2.
    ExpectRun(d, {"0.60 15.82 Arial10U|Missing Since Meeting # 2: Night 2     (25)"});
    ExpectRun(d, {"12.58 24.89 Couri7B|12--------------------------  /---------", "NewPage",
                  "0.60 0.30 Arial14|" + title});
    ExpectRun(d, {"1.00 25.40 Couri7B|" + title + ": Page 2", "EndDoc"});
}

TEST_F(Printing, TeamAttendanceBreaksPerTeamWithItsOwnPageNumbers) {
    FiftyFive(52, "wcattend");
    PrintWCReport(c.p, 2);

    const std::vector<std::string> d = Dump(out);
    const std::string north = "Team #1  North      Team 01:  Fall Attendance: Night 3";
    const std::string south = "Team #2  South      Team 02:  Fall Attendance: Night 3";
    ExpectRun(d, {"0.60 0.30 Arial14|" + north, "18.50 0.00 Arial28B| 3", "17.00 1.07 Times8|Sunday, November 22, 2026",
                  "0.80 1.90 Arial10U|Missing Since Meeting # 3: Night 3", "0.80 2.42 Times8|01 1001",
                  "1.95 2.42 Times8|Person01, Ann", "4.91 2.42 Times8|12 Oak St", "8.10 2.42 Times8|Spr62701 (555-0100)",
                  "11.20 2.42 Couri7B|Bap/3/ 1-3-------------------------  /---------"});
    // Past 24.9 the page ends without a footer on page 1; page 2 of the team
    // ends at the team change with its footer at 25.5, and team 2 starts again at 1.
    ExpectRun(d, {"11.20 24.54 Couri7B|Bap/3/ 12--------------------------  /---------", "NewPage",
                  "0.60 0.30 Arial14|" + north});
    ExpectRun(d, {"11.20 2.80 Couri7B|Bap/3/ 12--------------------------  /---------",
                  "1.00 25.50 Times8|" + north + ": Page 2", "NewPage", "0.60 0.30 Arial14|" + south});
    ExpectRun(d, {"11.20 3.32 Couri7B|Bap/3/ 12--------------------------  /---------", "EndDoc"});
}

TEST_F(Printing, BaptismTotalsCountBothMarks) {
    std::vector<MasterRecord> people;
    // Decisions at 5 (baptism) and 9 (unite): "-" there marks * and (r).
    for (const char* dec : {"XXXX-XXX-", "XXXX-XXXX", "XXXXXXXX-", "XXXXXXXXX"}) {
        MasterRecord r = MakePerson(std::to_string(2000 + people.size()), "Bo", "Name" + std::to_string(people.size()));
        r.IntLevel = "G";
        r.Decisions = dec;
        people.push_back(r);
    }
    Load(people, 5);
    SetList("baptism", {"A", "B", "C", "D"});
    Accept();
    PrintBaptisms(c.p);

    const std::vector<std::string> d = Dump(out);
    ExpectRun(d, {"0.80 2.80 Times8|1.  Name0, Bo*(r)"});
    ExpectRun(d, {"0.80 3.29 Times8|2.  Name1, Bo*"});
    ExpectRun(d, {"0.80 3.78 Times8|3.  Name2, Bo(r)"});
    ExpectRun(d, {"16.50 4.76 Times8|_______________________", "16.50 5.08 Times8|Total Additions:",
                  "19.50 5.08 Times8| 4", "16.50 5.40 Times8|Baptisms:", "19.50 5.40 Times8| 0",
                  "16.50 5.72 Times8|Profession of Faith:", "19.50 5.72 Times8| 2",
                  "16.50 6.04 Times8|Re-baptisms:", "19.50 6.04 Times8| 2",
                  "1.00 6.36 Times8|Note:  The * indicates a Profession of Faith, (r) indicates Re-Baptisms or "
                  "Reclaimations",
                  "EndDoc"});
    EXPECT_EQ(out.PagesPrinted(), 1);
}

TEST_F(Printing, InterviewListShowsEachDayWithItsFreeHours) {
    Load({MakePerson("5001", "Al", "Ames"), MakePerson("5002", "Bo", "Best"), MakePerson("5003", "Cy", "Cole")}, 6);
    for (int h = 0; h <= 13; ++h) c.p.HourLabels[static_cast<std::size_t>(h)] = "Hour" + std::to_string(h);
    SetList("BaptClass", {"A101AMES", "A103BEST", "A103COLE"});
    Accept();
    PrintOneLineReport(c.p, 10);
    std::vector<std::string> shown;
    for (const std::string& line : Dump(out))
        if (line.rfind("1.00 ", 0) == 0 || line.rfind("2.00 ", 0) == 0 || line.rfind("4.00 ", 0) == 0)
            shown.push_back(line.substr(line.find('|') + 1));
    EXPECT_EQ(shown, (std::vector<std::string>{"Sunday", "Hour0", "Hour1", "00 Ames, Al", "Hour2", "Hour3",
                                               "00 Best, Bo", "00 Cole, Cy"}));
}

TEST(DecisionReport, AttendanceWindowWidensAtMeeting36) {
    const std::string att = "123456789012345678901234567890123456789-";
    struct Case { int meeting; std::string window; } cases[] = {
        {35, att.substr(0, 28)}, {36, att.substr(1, 35)}, {40, att.substr(5, 35)}};
    for (const Case& k : cases) {
        SCOPED_TRACE(k.meeting);
        Crusade t;
        MasterRecord r = MakePerson("3001", "Cy", "Dee", att);
        r.Decisions = "XXXXXXXXX";
        t.Load({r}, k.meeting);
        t.c.p.DecisionNames[3] = "Keep Sabbath";
        t.SetList("decisions3", {"DEE"});
        t.Accept();
        std::int16_t n = 0;
        PrintDecisions(t.c.p, n);
        EXPECT_EQ(n, 3);
        ASSERT_NE(t.out.FindText(k.window + "  /"), nullptr);
        EXPECT_EQ(t.out.FindText(k.window + "  /")->x, 11.8f);
    }
}

TEST_F(Printing, BadInputEndsWithoutADocument) {
    MasterRecord longName = MakePerson("4001", "Bartholomew", "Featherstonehaugh-Whitcombe");
    longName.IntLevel = "G";
    longName.Decisions = "XXXX-XXX-";
    Load({longName}, 4);

    SetList("interest", {});
    c.host.ExpectBox("There are no names in this list to print");
    PrintOneLineReport(c.p, 6);

    SetList("interest", {"G"});
    c.host.ExpectPrinter([](host::PrinterDialog&) { return false; });
    PrintOneLineReport(c.p, 6);
    EXPECT_EQ(out.Documents(), 0);

    // A first page past the end, also in the reports that count pages themselves.
    for (const char* kind : {"interest", "baptism"}) {
        SetList(kind, {"G"});
        Accept(2);
        c.host.ExpectBox("The page you selected to begin with", host::vbOK, "Print Error", host::vbCritical);
        kind == std::string("baptism") ? PrintBaptisms(c.p) : PrintOneLineReport(c.p, 6);
        EXPECT_EQ(out.Documents(), 0) << kind;
        EXPECT_FALSE(out.DocumentOpen());
    }

    // The name is cut at the 30th character, and its marks with it.
    SetList("interest", {"G"});
    Accept();
    PrintOneLineReport(c.p, 6);
    const auto* name = out.FindText("00 4001 Featherstonehaugh-Wh");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text, "00 4001 Featherstonehaugh-Wh, ");
}

TEST(ReportMenus, AlphabeticalReportPrintsTheRebuiltListAndKeepsThePersonOnScreen) {
    TestCrusade c;
    EditForm& e = c.ShowOnEditScreen({MakePerson("0002", "Zed", "Young"), MakePerson("0001", "Al", "Able")});
    c.host.ExpectPrinter([](host::PrinterDialog&) { return true; });
    e.mnuPrRptSubAlpha.UserClick();
    std::vector<std::string> names;
    for (const auto* op : c.host.printer.TextOps())
        if (op->x == 0.6f && op->font.Size == 8) names.push_back(op->text.substr(0, 16));
    EXPECT_EQ(names, (std::vector<std::string>{"00 0001 Able, Al", "00 0002 Young, Z"}));
    EXPECT_EQ(e.LName.Text(), "Able");
    EXPECT_EQ(c.p.MasterRec.LName.str().substr(0, 4), "Able");
}

TEST(ReportMenus, AReportThatFindsNobodySaysSoAndTheEditScreenShowsEveryoneAgain) {
    TestCrusade c;
    EditForm& e = c.ShowOnEditScreen({MakePerson("0002", "Zed", "Young"), MakePerson("0001", "Al", "Able")});
    c.host.ExpectBox("There were no names in the file that match");
    e.mnuPrintBaptClass.UserClick();
    EXPECT_EQ(c.p.SortName, "alpha");
    EXPECT_EQ(c.p.IndexCount, 2);
    EXPECT_TRUE(c.host.printer.TextOps().empty());
}

}  // namespace
