#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
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
using Kind = RecordingSurface::OpKind;

namespace {

std::string Num2(int i) { return (i < 10 ? "0" : "") + std::to_string(i); }
std::string Trimmed(const std::string& t) { return t.substr(0, t.find_last_not_of(' ') + 1); }

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
    // With a kind, listed as it with `keys` and the printer dialog accepted.
    void Load(const std::vector<MasterRecord>& people, int meeting, const std::string& kind = "",
              const std::vector<std::string>& keys = {}) {
        c.ShowOnEditScreen(people);
        c.p.MeetingNumber = meeting;
        for (int i = 1; i <= 40; ++i) c.p.SermonTitles[static_cast<std::size_t>(i)] = "Night " + std::to_string(i);
        c.p.PrintingFromPreview = true;
        out.Clear();
        if (kind.empty()) return;
        SetList(kind, keys);
        c.host.AcceptPrinter();
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
    // The page the line of person i went to, 0 when it was not printed.
    int PageOf(int i) const {
        const Op* op = out.FindText(" " + std::to_string(1000 + i) + " ");
        return op ? op->page : 0;
    }
    // The texts printed as "x|text", trailing blanks dropped as on paper.
    std::vector<std::string> Texts() const {
        std::vector<std::string> t;
        char x[16];
        for (const Op* op : out.TextOps()) {
            std::snprintf(x, sizeof x, "%.2f|", op->x);
            t.push_back(x + Trimmed(op->text));
        }
        return t;
    }
};

void ExpectAll(const std::vector<std::string>& printed, const std::vector<std::string>& want) {
    for (const std::string& t : want) EXPECT_NE(std::find(printed.begin(), printed.end(), t), printed.end()) << t;
}

}  // namespace

// The list routines show the 28 meetings up to the current one; the decision
// list widens to 35 from meeting 36.
TEST(ListReportRules, AttendanceWindowSlidesPastMeeting28) {
    const std::string att = "1234567890abcdefghijklmnopqrstuvwxyzABCD";
    struct Case { int report; int meeting; std::string window; } cases[] = {   // 0 list, 1 team, 2 decision
        {0, 28, att.substr(0, 28) + " "}, {0, 29, att.substr(1, 28) + " "}, {0, 40, att.substr(12, 28) + " "},
        {1, 28, att.substr(0, 28) + " "}, {1, 29, att.substr(1, 28) + " "}, {1, 40, att.substr(12, 28) + " "},
        {2, 35, att.substr(0, 28) + "  /"}, {2, 36, att.substr(1, 35) + "  /"}, {2, 40, att.substr(5, 35) + "  /"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.report) + " at " + std::to_string(k.meeting));
        Sheet s;
        MasterRecord r = Sheet::Person(1, att);
        r.Decisions = "XXXXXXXXX";
        s.Load({r}, k.meeting, k.report == 1 ? "wcalpha" : k.report == 2 ? "decisions3" : "alphafilter",
                  {k.report == 1 ? "00PERSON" : "PERSON"});
        std::int16_t n = 0;
        k.report == 2 ? PrintDecisions(s.c.p, n) : k.report ? PrintWCReport(s.c.p, 1) : PrintOneLineReport(s.c.p, 1);
        const Op* op = s.out.FindText(k.window);
        ASSERT_NE(op, nullptr);
        if (k.report == 2) {
            EXPECT_EQ(std::make_pair(3, 11.8f), std::make_pair(int{n}, op->x));
        } else {
            EXPECT_EQ(op->font, Fonts::fntCourier7B);
        }
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
        s.Load(people, 3, k.team ? "interest" : "DupAddress", keys);
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
        s.Load(recs, 3, k.kind, keys);
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

// The card list's answers come as 1 for "active only", plus 2 for any team or 4 for an assigned team
// only. The cut-off is meeting 10: person 4, last seen there, never gets a card.
TEST(InterestCardRules, CardListAnswersLimitToTheActiveAndToAssignedTeams) {
    const std::pair<const char*, std::string> who[] = {
        {"00", "----------1234"}, {"02", "----------1---"}, {"01", "----------1234"}, {"01", "------7890----"}};
    std::vector<MasterRecord> recs;
    for (const auto& [team, attendance] : who) {
        recs.push_back(Sheet::Person(static_cast<int>(recs.size()) + 1, attendance + std::string(26, '-')));
        recs.back().WorkerCode = team;
    }
    struct Case { const char* answer; const char* printed; const char* box; } cases[] = {
        {"2", "123", "InterestCard Labels for all names are"},
        {"3", "13", "Interest Card Labels for all Active names are"},
        {"4", "23", "Interest Card Labels for all names Assigned to Teams"},
        {"5", "3", "Interest Card Labels for all Active names Assigned to Teams"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.answer);
        Sheet s;
        s.c.ShowOnEditScreen(recs);
        s.c.p.MeetingNumber = 30, s.c.p.PrintCutOff = 10, s.c.p.SortName = "IntCard", s.c.p.ScratchValue = k.answer;
        s.c.host.AcceptPrinter();
        s.c.host.ExpectBox(k.box, vbYes);
        InterestCard2x4(s.c.p);
        std::string printed;
        for (int i = 1; i <= 4; ++i) printed += s.out.FindText("Ann Person" + Num2(i)) ? std::to_string(i) : "";
        EXPECT_EQ(k.printed, printed);
    }
}

// Each title once, the crusade's name in front; a team's pages put the team first.
TEST(ListReportRules, TitlesByCodeAndKind) {
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
    // The first text of page 1 of a report on one person, after the title typed, if asked.
    auto first = [](bool team, int code, const std::string& kind, const std::string& key, const char* typed) {
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
        s.SetList(kind, {key});
        if (kind == "alpha") s.c.host.ExpectInput("Enter the Title you desire for this report.", typed);
        if (code == 6 && team) s.c.host.ExpectBox("Separate the Teams with a page break?", vbYes);
        s.c.host.AcceptPrinter();
        team ? PrintWCReport(s.c.p, code) : PrintOneLineReport(s.c.p, code);
        const std::vector<std::string> texts = s.out.TextsOnPage(1);
        // Without page breaks the team's heading stands under the title.
        const bool heading = team && (code == 4 || code == 8);
        EXPECT_EQ(heading, heading && s.out.FindText("Team 01  North") != nullptr);
        return texts.empty() ? std::string("nothing") : texts[0];
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::string(k.kind) + " " + std::to_string(k.code));
        EXPECT_EQ(k.team ? std::string(k.title) : "Riverside Hope" + std::string(k.title),
                  first(k.team, k.code, k.kind, k.key, k.title));
    }
    // A typed title: the crusade's name printed once, and never run into the first word.
    const std::pair<const char*, const char*> typed[] = {
        {"Riverside Hope Master List", "Riverside Hope Master List"},
        {"riverside hope: Visitors", "Riverside Hope: Visitors"},
        {"Visitors", "Riverside Hope Visitors"},
        {"Riverside Hope", "Riverside Hope "},
    };
    for (const auto& [answer, title] : typed) EXPECT_EQ(title, first(false, 10, "alpha", "PERSON", answer)) << answer;
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
        s.Load({r}, 3, "decisions" + std::to_string(k.decision), {"PERSON"});
        std::int16_t n = 0;
        PrintDecisions(s.c.p, n);
        const Op* right = nullptr;
        for (const Op* op : s.out.TextOps())
            if (op->x == 18.6f) right = op;
        EXPECT_EQ(k.right ? k.right : "none", right ? right->text : "none");
        EXPECT_NE(s.out.FindText("---------  p04"), nullptr);
    }
}

// The middle columns of a one-line report by kind, and the groups of the zip
// and baptism date lists with their totals.
TEST(ListReportRules, ColumnsAndGroupsByKind) {
    const std::string notes150(150, 'n');
    auto zip = [](MasterRecord& r, int i) { r.Zip = i == 1 ? "K1A 0B1" : "K1A 9Z9"; };
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
         [&](Sheet& s, MasterRecord& r, int i) {
             s.c.p.CanadaSorter = true, zip(r, i), r.City = i == 1 ? "Ottawa" : "Hull";
         },
         {"0.60|Zipcode # K1A        (Ottawa)"}, {"Zipcode # K1A        (Hull)"}},
        {4, "zip", [&](Sheet&, MasterRecord& r, int i) { zip(r, i); },
         {"0.60|Zipcode # K1A 0B1    (Springfield)", "0.60|Zipcode # K1A 9Z9    (Springfield)"}, {}},
        {5, "date", [](Sheet&, MasterRecord& r, int) { r.BaptDate = "01/05/27", r.IntLevel = "A"; },
         {"0.60|Baptisms for: 01/05/27  (2)", "1.00|Total Baptism Dates Set:", "1.00|Total Baptized to date:",
          "1.00|Total to be Baptized:", "4.50| 2| 0| 2"},
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
        s.Load(people, 3, k.kind, {"PERSON", "PERSON"});
        for (int i = 1; i <= 2; ++i) k.set(s, people[static_cast<std::size_t>(i) - 1], i);
        PrintOneLineReport(s.c.p, k.code);
        std::vector<std::string> printed = s.Texts();
        std::string totals = "4.50";   // the numbers of the totals, in order
        for (const Op* op : s.out.TextOps())
            if (op->x == 4.5f) totals += "|" + op->text;
        printed.push_back(totals);
        ExpectAll(printed, k.texts);
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
        s.Load(people, 3, k.baptisms ? "baptism" : "decisions3", std::vector<std::string>(60, "PERSON"));
        s.c.p.CrusadeName = "Riverside Hope";
        s.c.p.DecisionNames[3] = "Keep Sabbath";
        std::int16_t n = 0;
        k.baptisms ? PrintBaptisms(s.c.p) : PrintDecisions(s.c.p, n);
        EXPECT_EQ(s.out.PagesPrinted(), 2);
        ExpectAll(s.Texts(), k.texts);
        for (const Op* op : s.out.TextOps())
            if (op->text.find(": Page 2") != std::string::npos) { EXPECT_FLOAT_EQ(op->y, 26.1f); }
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
    s.Load(people, 3, "wcalpha", keys);
    s.c.p.TeamNames[1] = "North";
    s.c.p.TeamNames[2] = "South";
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
        EXPECT_EQ(std::make_pair(Trimmed(k.left), std::string(k.right)),
                  std::make_pair(Trimmed(rows[k.row].first), Trimmed(rows[k.row].second)));
    }
}

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

// 55 people, the first 30 present at meeting 3, the rest last seen at meeting 2,
// the first `team1` on team 1; listed as `kind`, with the team first in "wcattend".
struct Printing : ::testing::Test, Sheet {
    void FiftyFive(int team1, const std::string& kind) {
        std::vector<MasterRecord> people;
        std::vector<std::string> keys;
        for (int i = 1; i <= 55; ++i) {
            MasterRecord& r = people.emplace_back(MakePerson(std::to_string(1000 + i), "Ann", "Person" + Num2(i),
                                                             i <= 30 ? "1-3-------------------------------------"
                                                                     : "12--------------------------------------"));
            r.WorkerCode = i <= team1 ? "01" : "02";
            keys.push_back((kind == "wcattend" ? r.WorkerCode.str() : "") + (i <= 30 ? "996" : "997") + "PERSON" +
                           Num2(i));
        }
        Load(people, 3, kind, keys);
        c.p.TeamNames[1] = "Team #1: North";
        c.p.TeamNames[2] = "Team #2: South";
    }
};

}  // namespace

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
    Load(people, 5, "baptism", {"A", "B", "C", "D"});
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
    Load({MakePerson("5001", "Al", "Ames"), MakePerson("5002", "Bo", "Best"), MakePerson("5003", "Cy", "Cole")}, 6,
         "BaptClass", {"A101AMES", "A103BEST", "A103COLE"});
    for (int h = 0; h <= 13; ++h) c.p.HourLabels[static_cast<std::size_t>(h)] = "Hour" + std::to_string(h);
    PrintOneLineReport(c.p, 10);
    std::vector<std::string> shown;
    for (const std::string& line : Dump(out))
        if (line.rfind("1.00 ", 0) == 0 || line.rfind("2.00 ", 0) == 0 || line.rfind("4.00 ", 0) == 0)
            shown.push_back(line.substr(line.find('|') + 1));
    EXPECT_EQ(shown, (std::vector<std::string>{"Sunday", "Hour0", "Hour1", "00 Ames, Al", "Hour2", "Hour3",
                                               "00 Best, Bo", "00 Cole, Cy"}));
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
        c.host.AcceptPrinter(2);
        c.host.ExpectBox("The page you selected to begin with", host::vbOK, "Print Error", host::vbCritical);
        kind == std::string("baptism") ? PrintBaptisms(c.p) : PrintOneLineReport(c.p, 6);
        EXPECT_EQ(out.Documents(), 0) << kind;
        EXPECT_FALSE(out.DocumentOpen());
    }

    // The name is cut at the 30th character, and its marks with it.
    SetList("interest", {"G"});
    c.host.AcceptPrinter();
    PrintOneLineReport(c.p, 6);
    const auto* name = out.FindText("00 4001 Featherstonehaugh-Wh");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text, "00 4001 Featherstonehaugh-Wh, ");
}

// From the menus: the alphabetical report prints the rebuilt list and keeps the person on screen; a
// report that finds nobody says so and the edit screen shows everyone again.
TEST(ReportMenus, AlphabeticalReportAndAReportThatFindsNobody) {
    TestCrusade c;
    EditForm& e = c.ShowOnEditScreen({MakePerson("0002", "Zed", "Young"), MakePerson("0001", "Al", "Able")});
    c.host.AcceptPrinter();
    e.mnuPrRptSubAlpha.UserClick();
    std::vector<std::string> names;
    for (const auto* op : c.host.printer.TextOps())
        if (op->x == 0.6f && op->font.Size == 8) names.push_back(op->text.substr(0, 16));
    EXPECT_EQ(names, (std::vector<std::string>{"00 0001 Able, Al", "00 0002 Young, Z"}));
    EXPECT_EQ(e.LName.Text() + " " + c.p.MasterRec.LName.str().substr(0, 4), "Able Able");
    c.host.printer.Clear();
    c.host.ExpectBox("There were no names in the file that match");
    e.mnuPrintBaptClass.UserClick();
    EXPECT_EQ(std::make_pair(std::string("alpha"), 2), std::make_pair(c.p.SortName, c.p.IndexCount));
    EXPECT_TRUE(c.host.printer.TextOps().empty());
}
