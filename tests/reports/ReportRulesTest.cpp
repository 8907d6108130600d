#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "reports/Labels.h"
#include "reports/Reports.h"
#include "store/Attendance.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;
using Op = RecordingSurface::Op;

namespace {

std::string Num2(int i) { return (i < 10 ? "0" : "") + std::to_string(i); }

// People 1001 up, named Person01 up, printed from the preview with the list the test sets.
struct Sheet {
    TestCrusade c;
    RecordingSurface& out = c.host.printer;
    ~Sheet() { c.host.Verify(); }

    static MasterRecord Person(int i, const std::string& attendance = "1---------------------------------------") {
        MasterRecord r = MakePerson(std::to_string(1000 + i), "Ann", "Person" + Num2(i), attendance);
        CountAttendance(r);
        return r;
    }
    void Load(const std::vector<MasterRecord>& people, int meeting) {
        c.ShowOnEditScreen(people);
        c.p.MeetingNumber = meeting;
        for (int i = 1; i <= 40; ++i) c.p.SermonTitles[static_cast<std::size_t>(i)] = "Night " + std::to_string(i);
        c.p.PrintingFromPreview = true;
        out.Clear();
    }
    // Entries of record numbers 1.. with each key between number and pointer.
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
    void Accept() {
        c.host.ExpectPrinter([](PrinterDialog& d) {
            d.FromPage = 1;
            return true;
        });
    }
    // The page the line of person i went to, 0 when it was not printed.
    int PageOf(int i) const {
        const Op* op = out.FindText(" " + std::to_string(1000 + i) + " ");
        return op ? op->page : 0;
    }
};

}  // namespace

// Both list routines show the 28 meetings up to the current one.
TEST(ListReportRules, AttendanceWindowSlidesPastMeeting28) {
    const std::string att = "1234567890abcdefghijklmnopqrstuvwxyzABCD";
    struct Case { bool team; int meeting; std::string window; } cases[] = {
        {false, 28, att.substr(0, 28)}, {false, 29, att.substr(1, 28)}, {false, 40, att.substr(12, 28)},
        {true, 28, att.substr(0, 28)},  {true, 29, att.substr(1, 28)},  {true, 40, att.substr(12, 28)},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.team) + " at " + std::to_string(k.meeting));
        Sheet s;
        s.Load({Sheet::Person(1, att)}, k.meeting);
        s.SetList(k.team ? "wcalpha" : "alphafilter", {k.team ? "00PERSON" : "PERSON"});
        s.Accept();
        k.team ? PrintWCReport(s.c.p, 1) : PrintOneLineReport(s.c.p, 1);
        const Op* op = s.out.FindText(k.window + " ");
        ASSERT_NE(op, nullptr);
        EXPECT_EQ(op->font, Fonts::fntCourier7B);
    }
}

// A page ends after the first line that leaves the pen below 24.9: lines are
// 0.45 apart, a new address adds an empty line of 0.28 and a level heading 0.52.
// The first `groups` people each open a group (an address, or a level by team).
TEST(ListReportRules, PageEndsOnlyOncePastTheLimit) {
    struct Case { bool team; int groups; int lastOnPage1; float penAfter; } cases[] = {
        {false, 3, 51, 24.86f},   // line 50 ends at 24.86: still room for one more
        {false, 8, 47, 24.91f},   // line 47 ends at 24.91: the page is full
        {true, 7, 44, 24.89f},
        {true, 1, 50, 24.92f},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.team) + " pen " + std::to_string(k.penAfter));
        Sheet s;
        std::vector<MasterRecord> people;
        std::vector<std::string> keys;
        for (int i = 1; i <= 60; ++i) {
            const int group = std::min(i, k.groups);
            MasterRecord r = Sheet::Person(i);
            r.Address = std::to_string(group) + " Oak St";
            r.WorkerCode = "01";
            people.push_back(r);
            keys.push_back(k.team ? "01" + std::string(1, static_cast<char>('A' + group)) : "PERSON" + Num2(i));
        }
        s.Load(people, 3);
        s.SetList(k.team ? "interest" : "DupAddress", keys);
        s.Accept();
        k.team ? PrintWCReport(s.c.p, 7) : PrintOneLineReport(s.c.p, 10);
        EXPECT_EQ(1, s.PageOf(k.lastOnPage1));
        EXPECT_EQ(2, s.PageOf(k.lastOnPage1 + 1));
    }
}

// "*" comes from the baptism decision and "(r)" from the unite decision, on
// the baptism dates and on the baptized of the interest list only; the name is
// bold for a date or an interview not yet baptized, never on the dates list.
TEST(ListReportRules, BaptismMarksAndBoldEachFromTheirOwnField) {
    struct Person { const char* level; const char* decisions; bool interview; };
    const Person people[] = {
        {"G", "XXXX-XXXX", false}, {"G", "XXXXXXXX-", false}, {"G", "XXXX-XXX-", false},
        {"G", "XXXXXXXXX", false}, {"A", "XXXX-XXX-", true},  {"B", "XXXX-XXX-", false},
    };
    struct Case { int code; const char* kind; std::vector<std::string> lines; } cases[] = {
        {5, "date", {"*|", "(r)|", "*(r)|", "|", "*(r)|", "*(r)|"}},
        {6, "interest", {"*|", "(r)|", "*(r)|", "|", "|B", "|"}},
        {1, "alphafilter", {"|", "|", "|", "|", "|B", "|"}},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.code);
        Sheet s;
        std::vector<MasterRecord> recs;
        std::vector<std::string> keys;
        for (int i = 0; i < 6; ++i) {
            MasterRecord r = Sheet::Person(i + 1);
            r.IntLevel = people[i].level;
            r.Decisions = people[i].decisions;
            r.Class = people[i].interview ? 1 : 0;
            r.BaptDate = "01/05/27";
            if (r.IntLevel == "B") r.BaptDate = "";
            recs.push_back(r);
            keys.push_back(k.code == 6 ? std::string(people[i].level) + "PERSON" : "PERSON");
        }
        s.Load(recs, 3);
        s.SetList(k.kind, keys);
        s.Accept();
        PrintOneLineReport(s.c.p, k.code);
        for (int i = 0; i < 6; ++i) {
            const Op* op = s.out.FindText("00 " + std::to_string(1001 + i) + " Person0" + std::to_string(i + 1));
            ASSERT_NE(op, nullptr) << i;
            std::string marks = op->text.substr(op->text.find("Ann") + 3);
            marks = marks.substr(0, marks.find_last_not_of(' ') + 1);
            EXPECT_EQ(k.lines[static_cast<std::size_t>(i)], marks + "|" + (op->font.Bold ? "B" : "")) << i;
        }
    }
}

namespace {

// Interest cards for people whose attendance gives Attend and Last, on the team given.
struct Cards : Sheet {
    struct Who { const char* team; std::string attendance; };
    explicit Cards(const std::vector<Who>& who) {
        std::vector<MasterRecord> recs;
        for (std::size_t i = 0; i < who.size(); ++i) {
            MasterRecord r = Person(static_cast<int>(i) + 1, who[i].attendance);
            r.WorkerCode = who[i].team;
            recs.push_back(r);
        }
        c.ShowOnEditScreen(recs);
        c.p.MeetingNumber = 30;
        c.p.PrintCutOff = 10;
        RebuildAlpha(c.p);
        out.Clear();
    }
    std::string Printed() const {
        std::string s;
        for (int i = 1; i <= c.p.RecordCount; ++i)
            if (out.FindText("Ann Person" + Num2(i))) s += std::to_string(i);
        return s;
    }
};

std::string Attended(std::initializer_list<int> meetings) {
    std::string a(40, '-');
    for (int m : meetings) a[static_cast<std::size_t>(m - 1)] = static_cast<char>('0' + m % 10);
    return a;
}

}  // namespace

TEST(InterestCardRules, OnlyThoseSeenAfterTheCutOffGetACard) {
    // The cut-off is meeting 10: a last meeting of 10 is not enough.
    Cards s({{"01", Attended({9})}, {"01", Attended({10})}, {"01", Attended({11})}, {"01", Attended({2, 30})}});
    s.c.p.SortName = "attend";
    s.c.host.ExpectBox("Is this the list that you want to print interest card labels for?", vbYes)
        .ExpectBox("attended 4 or more times?", vbNo)
        .ExpectBox("assigned Team Code?", vbNo);
    s.Accept();
    s.c.host.ExpectBox("There will be 2 Cards printed.", vbYes);
    InterestCard2x4(s.c.p);
    EXPECT_EQ("34", s.Printed());
}

// The card list's answers come as 1 for "active only", plus 2 for any team or 4
// for an assigned team only.
TEST(InterestCardRules, CardListAnswersLimitToTheActiveAndToAssignedTeams) {
    const std::string active = Attended({11, 12, 13, 14}), once = Attended({12});
    struct Case { const char* answer; const char* printed; const char* box; } cases[] = {
        {"2", "123", "InterestCard Labels for all names are"},
        {"3", "13", "Interest Card Labels for all Active names are"},
        {"4", "23", "Interest Card Labels for all names Assigned to Teams"},
        {"5", "3", "Interest Card Labels for all Active names Assigned to Teams"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.answer);
        Cards s({{"00", active}, {"02", once}, {"01", active}});
        s.c.p.SortName = "IntCard";
        s.c.p.ScratchValue = k.answer;
        s.Accept();
        s.c.host.ExpectBox(k.box, vbYes);
        InterestCard2x4(s.c.p);
        EXPECT_EQ(k.printed, s.Printed());
    }
}

// Each title once, the crusade's name in front; a team's pages put the team first.
TEST(ListReportRules, TitlesByCodeAndKind) {
    const std::string ask = "Enter the Title you desire for this report.";
    struct Case { bool team; int code; const char* kind; const char* key; const char* title; } cases[] = {
        {false, 1, "alphafilter", "PERSON", " Master Alphabetical List"},
        {false, 2, "attend", "996PERSON", " Master Attendance List:  Night 3  (Sab. AM)(1 present)"},
        {false, 3, "map", "996PERSON", " Attendance Report by MapCode"},
        {false, 4, "zip", "PERSON", " Names by Zipcode"},
        {false, 5, "date", "PERSON", " All Baptism Dates Set"},
        {false, 6, "interest", "APERSON", " Priority Interest List"},
        {false, 7, "BaptClass", "PERSON", " Bible School (1 Names)"},
        {false, 8, "PreCrusade", "PERSON", " Pre-Crusade Invitations (1 Names)"},
        {false, 9, "map", "PERSON", " Names Selected to Visit Arranged by MapCode"},
        {false, 11, "religion", "PERSON", " Adventist Names"},
        {false, 12, "attendnight03", "PERSON", " Attending Meeting 3"},
        {false, 13, "TotalAttend", "04PERSON", " Attending at Least 4 Meetings"},
        {false, 14, "wcalpha", "PERSON", " Master Report"},
        {false, 10, "mail", "PERSON", " Mail List"},
        {false, 10, "TDupAddress", "PERSON", " Addresses with Multiple Teams Assigned"},
        {false, 10, "NDupAddress", "PERSON", " Duplicate Address with Different Last Name"},
        {false, 10, "DupAddress", "PERSON", " Duplicate Addresses- All Names"},
        {false, 10, "WCNeedInterview", "APERSON", " Need Baptism Interview (1)"},
        {false, 10, "BaptClass", "N01PERSON", " Baptism Interview Set"},
        {false, 10, "InterviewRemain", "N01PERSON", " Baptism Interviews Remaining"},
        {false, 10, "NeedDate", "APERSON", " Need Baptism Date"},
        {false, 10, "FutureBapDateSet", "PERSON", " Future Baptism Dates Set"},
        {false, 10, "notes", "PERSON", ": Notes and Comments "},
        {false, 10, "religion", "PERSON", " Adventists"},
        {false, 10, "attendnight05", "PERSON", ", Meeting: 5: Night 5"},
        {false, 10, "missednight03", "PERSON", ", Missed Last 3 Meetings"},
        {false, 10, "needsabvis", "PERSON", ", Need Sabbath Visit"},
        {false, 10, "SelWCAttend02", "PERSON", ", Team 2"},
        {false, 10, "NoAssignedInterest", "PERSON", ", Need Interest Level Assigned  (1)"},
        {false, 10, "alpha", "PERSON", " Names Selected From the Main File"},
        {true, 1, "wcalpha", "01PERSON", "North      Team 01:  Riverside Hope Team Alphabetical List"},
        {true, 2, "wcattend", "01996PERSON", "North      Team 01:  Riverside Hope Attendance: Night 3"},
        {true, 3, "wcattend", "01PERSON", "North      Team 01:  Riverside Hope Attendance Report by MapCode"},
        {true, 4, "wcattend", "01PERSON", "Riverside Hope Master Attendance List by Team: Night 3"},
        {true, 5, "TotalAttend", "01PERSON", "North      Team 01:  Riverside Hope Attending at Least 4 Meetings"},
        {true, 6, "baptism", "01PERSON", "North      Team 01:  Riverside Hope Baptisms by Team"},
        {true, 7, "interest", "01APERSON", "North      Team 01:  Riverside Hope Priority List by Team"},
        {true, 8, "WCNeedInterview", "01PERSON", "Riverside Hope Needs Baptism Interview List by Team"},
        {true, 9, "wcattend", "01PERSON", "North      Team 01:  Riverside Hope Master Attendance Report"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::string(k.kind) + " " + std::to_string(k.code));
        Sheet s;
        MasterRecord r = Sheet::Person(1);
        r.WorkerCode = "01";
        r.IntLevel = "A";
        r.BaptDate = "01/05/27";
        s.Load({r}, 3);
        s.c.p.CrusadeName = "Riverside Hope";
        s.c.p.TeamNames[1] = "North";
        s.c.p.SabAM[4] = 3;
        s.c.p.FilterTotalAttend = 4;
        s.SetList(k.kind, {k.key});
        if (std::string(k.kind) == "alpha") s.c.host.ExpectInput(ask, k.title);
        if (k.code == 6 && k.team) s.c.host.ExpectBox("Separate the Teams with a page break?", vbYes);
        s.Accept();
        k.team ? PrintWCReport(s.c.p, k.code) : PrintOneLineReport(s.c.p, k.code);
        const std::vector<std::string> texts = s.out.TextsOnPage(1);
        ASSERT_FALSE(texts.empty());
        EXPECT_EQ(k.team ? std::string(k.title) : "Riverside Hope" + std::string(k.title), texts[0]);
        // Without page breaks the team's heading stands under the title.
        if (k.team && (k.code == 4 || k.code == 8)) { EXPECT_NE(s.out.FindText("Team 01  North"), nullptr); }
    }
    // A typed title: the crusade's name printed once, and never run into the first word.
    const std::pair<const char*, const char*> typed[] = {
        {" Names Selected From the Main File", "Riverside Hope Names Selected From the Main File"},
        {"Riverside Hope Master List", "Riverside Hope Master List"},
        {"riverside hope: Visitors", "Riverside Hope: Visitors"},
        {"Visitors", "Riverside Hope Visitors"},
        {"Riverside Hope", "Riverside Hope "},
    };
    for (const auto& [answer, title] : typed) {
        SCOPED_TRACE(answer);
        Sheet s;
        s.Load({Sheet::Person(1)}, 3);
        s.c.p.CrusadeName = "Riverside Hope";
        s.SetList("alpha", {"PERSON"});
        s.c.host.ExpectInput(ask, answer);
        s.Accept();
        PrintOneLineReport(s.c.p, 10);
        ASSERT_FALSE(s.out.TextsOnPage(1).empty());
        EXPECT_EQ(title, s.out.TextsOnPage(1)[0]);
    }
}

// The far right of the baptism decision's list: "Apt" for an interview set,
// "Apt-CL" once a baptism date is set; an old file's "12:00AM" is no date.
TEST(DecisionReport, AppointmentColumnOfTheBaptismDecisionOnly) {
    struct Case { std::int16_t decision; short interview; const char* date; const char* right; } cases[] = {
        {9, 0, "", ""},         {9, 1, "", "Apt"},         {9, 0, "01/05/27", "Apt-CL"},
        {9, 1, "01/05/27", "Apt-CL"}, {9, 1, "12:00AM", "Apt"}, {9, 0, "12:00AM", ""},
        {3, 1, "01/05/27", nullptr},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.decision) + k.date + std::to_string(k.interview));
        Sheet s;
        MasterRecord r = Sheet::Person(1);
        r.Class = k.interview;
        r.BaptDate = k.date;
        r.Visits = "p04";
        s.Load({r}, 3);
        s.SetList("decisions" + std::to_string(k.decision), {"PERSON"});
        s.Accept();
        std::int16_t n = 0;
        PrintDecisions(s.c.p, n);
        const Op* right = nullptr;
        for (const Op* op : s.out.TextOps())
            if (op->x == 18.6f) right = op;
        if (!k.right) {
            EXPECT_EQ(right, nullptr);
            EXPECT_NE(s.out.FindText("---------  p04"), nullptr);
            continue;
        }
        ASSERT_NE(right, nullptr);
        EXPECT_EQ(k.right, right->text);
        EXPECT_NE(s.out.FindText("---------  p04"), nullptr);
    }
}

// The middle columns of a one-line report by kind, and the groups of the zip
// and baptism date lists with their totals.
TEST(ListReportRules, ColumnsAndGroupsByKind) {
    const std::string notes150(150, 'n');
    struct Case {
        int code;
        const char* kind;
        std::function<void(Sheet&, MasterRecord&, int)> set;
        std::vector<std::string> texts;   // each printed, as "x|text"
        std::vector<std::string> absent;
    } cases[] = {
        {10, "notes", [&](Sheet&, MasterRecord& r, int i) { r.Notes = i == 1 ? notes150 : "Call after six"; },
         {"4.71|" + notes150, "4.71|Call after six"}, {notes150 + "-"}},
        {8, "PreCrusade", [](Sheet&, MasterRecord& r, int) { r.Advertising = " Rd-Radio"; }, {"4.71|(Radio)"}, {}},
        {1, "alphafilter", [](Sheet&, MasterRecord& r, int i) { r.MapCode = i == 1 ? "xxxx" : "N12"; },
         {"8.50|Spr (62701) 555-0100", "8.50|Spr (N12) 555-0100"}, {}},
        // Canadian zips group by their first three characters.
        {4, "zip",
         [](Sheet& s, MasterRecord& r, int i) {
             s.c.p.CanadaSorter = true;
             r.Zip = i == 1 ? "K1A 0B1" : "K1A 9Z9";
             r.City = i == 1 ? "Ottawa" : "Hull";
         },
         {"0.60|Zipcode # K1A        (Ottawa)"}, {"Zipcode # K1A        (Hull)"}},
        {4, "zip", [](Sheet&, MasterRecord& r, int i) { r.Zip = i == 1 ? "K1A 0B1" : "K1A 9Z9"; },
         {"0.60|Zipcode # K1A 0B1    (Springfield)", "0.60|Zipcode # K1A 9Z9    (Springfield)"}, {}},
        {5, "date",
         [](Sheet&, MasterRecord& r, int) {
             r.BaptDate = "01/05/27";
             r.IntLevel = "A";
         },
         {"0.60|Baptisms for: 01/05/27  (2)", "1.00|Total Baptism Dates Set: ", "1.00|Total Baptized to date: ",
          "1.00|Total to be Baptized: ", "4.50| 2| 0| 2"},
         {}},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.code) + k.kind);
        Sheet s;
        std::vector<MasterRecord> people;
        for (int i = 1; i <= 2; ++i) {
            MasterRecord r = Sheet::Person(i);
            k.set(s, r, i);
            people.push_back(r);
        }
        s.Load(people, 3);
        for (int i = 1; i <= 2; ++i) k.set(s, people[static_cast<std::size_t>(i) - 1], i);
        s.SetList(k.kind, {"PERSON", "PERSON"});
        s.Accept();
        PrintOneLineReport(s.c.p, k.code);
        std::vector<std::string> printed;
        std::string totals = "4.50";   // the numbers of the totals, in order
        for (const Op* op : s.out.TextOps()) {
            char x[16];
            std::snprintf(x, sizeof x, "%.2f|", op->x);
            printed.push_back(x + op->text);
            if (op->x == 4.5f) totals += "|" + op->text;
        }
        printed.push_back(totals);
        for (const std::string& t : k.texts)
            EXPECT_NE(std::find(printed.begin(), printed.end(), t), printed.end()) << t;
        for (const std::string& t : k.absent) EXPECT_EQ(s.out.FindText(t), nullptr) << t;
    }
}

// Two pages of the baptism and decision lists: the fields of a line, the
// footer of page 2 and the totals.
TEST(DecisionReport, LinesFootersAndTotalsOverTwoPages) {
    struct Case { bool baptisms; std::vector<std::string> texts; } cases[] = {
        {true,
         {"0.80|1.  Person01, Ann", "9.10|Springfield, IL  62701", "13.00|555-0100", "18.40|06/07/90",
          "1.00|Baptisms: Page 2", "16.50|Baptisms:", "19.50| 60"}},
        {false,
         {"1.00|Riverside Hope Crusade Decision: Keep Sabbath (60)", "0.80|00 1001 Person01, Ann",
          "8.10|Spr62701      (555-0100)", "1.00|Keep Sabbath: Page 2", "0.80|Total Keep Sabbath Decisions: 60"}},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.baptisms);
        Sheet s;
        std::vector<MasterRecord> people;
        for (int i = 1; i <= 60; ++i) {
            MasterRecord r = Sheet::Person(i);
            r.IntLevel = "G";
            r.Decisions = "XXXXXXXXX";
            r.BirthDate = "06/07/90";
            people.push_back(r);
        }
        s.Load(people, 3);
        s.c.p.CrusadeName = "Riverside Hope";
        s.c.p.DecisionNames[3] = "Keep Sabbath";
        s.SetList(k.baptisms ? "baptism" : "decisions3", std::vector<std::string>(60, "PERSON"));
        s.Accept();
        std::int16_t n = 0;
        k.baptisms ? PrintBaptisms(s.c.p) : PrintDecisions(s.c.p, n);
        EXPECT_EQ(s.out.PagesPrinted(), 2);
        std::vector<std::string> printed;
        for (const Op* op : s.out.TextOps()) {
            char x[16];
            std::snprintf(x, sizeof x, "%.2f|", op->x);
            printed.push_back(x + op->text.substr(0, op->text.find_last_not_of(' ') + 1));
            if (op->text.find(": Page 2") != std::string::npos) { EXPECT_FLOAT_EQ(op->y, 26.1f); }
        }
        for (const std::string& t : k.texts)
            EXPECT_NE(std::find(printed.begin(), printed.end(), t), printed.end()) << t;
        // The decision list's date ends at the right edge, to the point.
        if (const Op* date = s.out.FindText("Sunday, November 22, 2026"); !k.baptisms) {
            ASSERT_NE(date, nullptr);
            EXPECT_FLOAT_EQ(date->x + s.out.TextWidth(date->text), 20.0f);
        }
    }
}

// Each team counts its own pages, and a name with a baptism date is bold.
TEST(ListReportRules, TeamPagesRestartAndBaptismDatesStandOut) {
    Sheet s;
    std::vector<MasterRecord> people;
    std::vector<std::string> keys;
    for (int i = 1; i <= 120; ++i) {
        MasterRecord r = Sheet::Person(i);
        r.WorkerCode = i <= 60 ? "01" : "02";
        if (i == 2) r.BaptDate = "01/05/27";
        people.push_back(r);
        keys.push_back(r.WorkerCode.str() + "PERSON");
    }
    s.Load(people, 3);
    s.c.p.TeamNames[1] = "North";
    s.c.p.TeamNames[2] = "South";
    s.SetList("wcalpha", keys);
    s.Accept();
    PrintWCReport(s.c.p, 1);
    const std::string title = "      Team 02:  Fall Team Alphabetical List: Page 2";
    const Op* footer = s.out.FindText("South" + title);
    ASSERT_NE(footer, nullptr);
    EXPECT_EQ(footer->y, 25.4f);
    EXPECT_EQ(s.out.FindText("South      Team 02:  Fall Team Alphabetical List: Page 4"), nullptr);
    EXPECT_TRUE(s.out.FindText("Person02, Ann")->font.Bold);
    EXPECT_FALSE(s.out.FindText("Person03, Ann")->font.Bold);
}

// What an interest card says, row by row.
TEST(InterestCardRules, CardTexts) {
    MasterRecord r = MakePerson("1234", "Ann", "Lee");
    r.WorkerCode = "07";
    r.Age = "NIF";
    r.Advertising = "Rd-Radio";
    r.Visits = "p04";
    struct Case { const char* map; const char* level; std::size_t row; const char* left; const char* right; } cases[] = {
        {"none", "", 1, "Map Code:  ", "Visits: p04"},
        {"xxxx", "B", 1, "Map Code:  ", "B/ Visits: p04"},
        {"N12", "B", 1, "Map Code:N12", "B/ Visits: p04"},
        {"N12", "B", 0, "Ann Lee                     ", "07/ 1234"},
        {"N12", "B", 2, "12 Oak St", "Age: NIF"},
        {"N12", "B", 3, "Springfield, IL  62701", "Religion: Baptist"},
        {"N12", "B", 4, "555-0100", "Adv: Rd-Radio"},
        {"N12", "B", 5, "1---------------------------------------    Decisions: ---------", ""},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.row);
        r.MapCode = k.map;
        r.IntLevel = k.level;
        const auto rows = CardTexts(r);
        ASSERT_GT(rows.size(), k.row);
        auto trimmed = [](std::string t) { return t.substr(0, t.find_last_not_of(' ') + 1); };
        EXPECT_EQ(trimmed(k.left), trimmed(rows[k.row].first));
        EXPECT_EQ(k.right, trimmed(rows[k.row].second));
    }
}
