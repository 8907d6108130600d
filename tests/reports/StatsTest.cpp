#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "reports/BlankFrm.h"
#include "reports/Stats.h"
#include "store/Attendance.h"
#include "store/Records.h"
#include "support/RecordingSurface.h"
#include "support/TestCrusade.h"

using namespace reports;

namespace {

std::string Nights(const std::string& marks) { return marks + std::string(40 - marks.size(), '-'); }

MasterRecord Person(const std::string& first, const std::string& marks, const std::string& age, const std::string& church,
                    const std::string& level, const std::string& team) {
    MasterRecord r = MakePerson("1000", first, "Doe", Nights(marks));
    CountAttendance(r);
    r.Age = age, r.RelPref = church, r.IntLevel = level, r.WorkerCode = team;
    r.MailList = 0;
    return r;
}

// Five people at meeting 6, one of them a couple and one deleted; every figure
// below is worked out by hand from these cards.
struct SmallCrusade : ::testing::Test {
    TestCrusade c;
    void SetUp() override {
        MasterRecord couple = Person("John & Mary", "111111", "3", "Baptist", "G", "01");
        couple.Advertising = "N.R....", couple.Decisions = "CS--B---U", couple.Class = 1, couple.MailList = -1;
        MasterRecord ann = Person("Ann", "1-1", "N", "", "A", "01");
        ann.Class = 1;
        MasterRecord bob = Person("Bob", "--11C1", "5", "Catholic", "B", "25");
        bob.BaptDate = "05/01/26";
        MasterRecord gone = Person("Del & Gone", "111111", "4", "Baptist", "G", "##");
        gone.Class = 1, gone.MailList = -1, gone.Advertising = "NMRTPOI";
        MasterRecord cy = Person("Cy", "1", "X", "Other", " ", "00");
        cy.BaptDate = "12:00AM", cy.Advertising = "......I";
        std::vector<MasterRecord> people{couple, ann, bob, gone, cy};
        for (std::size_t i = 0; i < people.size(); ++i) people[i].RNum = std::to_string(1001 + i);
        c.WriteRecords(people);
        c.p.Loaded = true;
        c.Open();
        c.p.MeetingNumber = 6;
        c.p.CrusadeName = "Fall";
    }
};

}  // namespace

TEST_F(SmallCrusade, EveryCounterAsWorkedOutByHand) {
    c.p.ReligionList[5] = "";   // a blank entry catches no blank preference
    const StatsCounts s = CountCrusade(c.p).stats;
    // The couple counts twice in the total only; the deleted record nowhere.
    const std::pair<const char*, int> figures[] = {
        {"TotalNames", s.TotalNames},     {"CurrentNames", s.CurrentNames},     {"ClassCount", s.ClassCount},
        {"ClassBaptized", s.ClassBaptized}, {"DateSet", s.DateSet},             {"InterviewsLeft", s.InterviewsLeft},
        {"LevelA", s.LevelA},             {"LevelB", s.LevelB},                 {"LevelC", s.LevelC},
        {"Baptisms", s.Baptisms},         {"MailCount", s.MailCount},           {"ActiveNames", s.ActiveNames}};
    const int want[] = {5, 2, 2, 1, 1, 1, 1, 1, 0, 1, 1, 2};
    for (std::size_t i = 0; i < std::size(want); ++i) EXPECT_EQ(want[i], figures[i].second) << figures[i].first;

    using Row = std::array<int, 41>;
    auto first = [](const Row& r, int n) { return std::vector<int>(r.begin() + 1, r.begin() + 1 + n); };
    EXPECT_EQ(first(s.Present, 7), (std::vector<int>{3, 1, 3, 2, 2, 2, 0}));
    EXPECT_EQ(first(s.NewAt, 7), (std::vector<int>{3, 0, 1, 0, 0, 0, 0}));
    EXPECT_EQ(first(s.AllNights, 7), (std::vector<int>{3, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(first(s.Losses, 7), (std::vector<int>{1, 0, 1, 0, 0, 2, 0}));
    EXPECT_EQ(std::vector<int>(s.TotalHist.begin(), s.TotalHist.begin() + 7), (std::vector<int>{0, 1, 1, 0, 1, 0, 1}));

    // Tables: all names, then the baptized.
    const std::tuple<const char*, std::vector<int>, std::vector<int>> tables[] = {
        {"Religion", {0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0}, {0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {"Advert", {0, 1, 0, 1, 0, 0, 0, 1}, {0, 1, 0, 1, 0, 0, 0, 0}},
        {"Decision", {0, 2, 1, 0, 0, 1, 0, 0, 0, 1}, {0, 1, 1, 0, 0, 1, 0, 0, 0, 1}},
        {"Age", {2, 0, 0, 1, 0, 1, 0, 0}, {0, 0, 0, 1, 0, 0, 0, 0}}};
    const std::vector<int> got[][2] = {
        {{s.Religion.begin(), s.Religion.end()}, {s.ReligionBapt.begin(), s.ReligionBapt.end()}},
        {{s.Advert.begin(), s.Advert.end()}, {s.AdvertBapt.begin(), s.AdvertBapt.end()}},
        {{s.Decision.begin(), s.Decision.end()}, {s.DecisionBapt.begin(), s.DecisionBapt.end()}},
        {{s.Age.begin(), s.Age.end()}, {s.AgeBapt.begin(), s.AgeBapt.end()}}};
    for (std::size_t t = 0; t < std::size(tables); ++t) {
        EXPECT_EQ(std::get<1>(tables[t]), got[t][0]) << std::get<0>(tables[t]);
        EXPECT_EQ(std::get<2>(tables[t]), got[t][1]) << std::get<0>(tables[t]) << " baptized";
    }
    // Ages 30-39 and 50-59 count 35 and 55; "N" and "X" give none.
    const std::pair<int, const char*> ages[] = {{1, "35"}, {2, "35"}, {3, "45"}, {6, "45"}, {7, "na"}};
    for (const auto& [i, a] : ages) EXPECT_EQ(a, s.AverageAge(i)) << "meeting " << i;
    EXPECT_EQ("30-39", s.AverageBaptismAge(c.p.AgeGroups));
    EXPECT_EQ((std::vector<std::pair<std::string, int>>{{" Attended every night- ", 1},
                                                        {" Missed 1 night- ", 0},
                                                        {" Missed 2 nights- ", 1},
                                                        {" Missed 3 nights- ", 0},
                                                        {" Missed 4 nights- ", 1}}),
              SpecialLines(s));
}

TEST(TeamCounting, TeamsVisitsAndTheGospelAndSabbathMeetings) {
    CountSettings set;
    set.MeetingNumber = 6;
    set.SermonTitles[3] = "The Gospel Call";
    set.SermonTitles[5] = "The Sabbath Rest";
    set.SermonTitles[9] = "Another Sabbath";
    struct Card {
        const char* team;
        const char* marks;
        const char* visits;
        const char* decisions;
        const char* level;
    };
    const Card cards[] = {
        {"01", "111111", "h02m05", "CS-------", "G"},   // after both meetings
        {"01", "1-1", "H07", "---------", "A"},         // capital letter, not current
        {"25", "--11C1", "p04l06", "---------", "B"},   // team 21-40: out of the Sabbath sums
        {"02", "11-1", "h02", "C--------", "C"},        // a visit before the Gospel meeting only
        {"02", "1111", "h01h02m02p04", "C--------", ""},   // the fourth, newest visit is after it
        {"02", "11", "a24", "C--------", ""},            // an appointment is no visit
        {"57", "111111", "m06", "---------", ""},        // damaged team: the totals only
        {"##", "111111", "m06", "CS-------", "G"}};      // deleted
    StatsCounter counter(set);
    for (const Card& k : cards) {
        MasterRecord r = Person("Al", k.marks, "3", "Baptist", k.level, k.team);
        r.Visits = k.visits, r.Decisions = k.decisions;
        counter.Add(r);
    }
    const TeamCounts& t = counter.Teams();
    EXPECT_EQ(5, t.SabbathMeeting);
    EXPECT_EQ(3, t.GospelMeeting);
    using A = std::array<int, 41> TeamCounts::*;
    const std::pair<const char*, A> names[] = {
        {"Count", &TeamCounts::TeamCount},   {"Vis", &TeamCounts::TeamVis},       {"Active", &TeamCounts::TeamActive},
        {"ActiveVis", &TeamCounts::TeamActiveVis}, {"Current", &TeamCounts::TeamCurrent},
        {"CurrentVis", &TeamCounts::TeamCurrentVis}, {"Gospel", &TeamCounts::TeamGospel},
        {"GospelVis", &TeamCounts::TeamGospelVis}, {"Sab", &TeamCounts::TeamSab}, {"SabVis", &TeamCounts::TeamSabVis},
        {"A", &TeamCounts::TeamA}, {"B", &TeamCounts::TeamB}, {"C", &TeamCounts::TeamC}, {"Bapt", &TeamCounts::TeamBapt},
        {"H", &TeamCounts::TeamH}, {"M", &TeamCounts::TeamM}, {"P", &TeamCounts::TeamP}, {"L", &TeamCounts::TeamL},
        {"Last", &TeamCounts::TeamLast}};
    // Teams 1, 2 and 25, counter by counter in the order above.
    const int team1[] = {2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 1, 2, 1, 0, 0, 7};
    const int team2[] = {3, 3, 1, 1, 2, 2, 3, 1, 0, 0, 0, 0, 1, 0, 3, 1, 1, 0, 24};
    const int team25[] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 0, 0, 0, 0, 1, 1, 6};
    for (std::size_t k = 0; k < std::size(names); ++k) {
        EXPECT_EQ(team1[k], (t.*names[k].second)[1]) << "team 1 " << names[k].first;
        EXPECT_EQ(team2[k], (t.*names[k].second)[2]) << "team 2 " << names[k].first;
        EXPECT_EQ(team25[k], (t.*names[k].second)[25]) << "team 25 " << names[k].first;
    }
    // Seven live people; the damaged team is in the totals and in no team.
    const std::pair<int, int> totals[] = {{7, t.AllNames},  {7, t.AllVisits},  {4, t.AllActive},
                                          {4, t.AllActiveVis}, {5, t.AllCurrent}, {5, t.AllCurrentVis}};
    for (const auto& [want, got] : totals) EXPECT_EQ(want, got);
    int teamed = 0;
    for (int n : t.TeamCount) teamed += n;
    EXPECT_EQ(6, teamed);
    EXPECT_EQ(1, t.SabbathNames());
    EXPECT_EQ(1, t.SabbathVisits());

    // Titles that name neither: Sabbath is meeting 8, and any visit counts as after the Gospel.
    StatsCounter untitled{CountSettings{}};
    MasterRecord r = Person("Al", "11", "3", "", "", "03");
    r.Visits = "h01", r.Decisions = "C--------";
    untitled.Add(r);
    EXPECT_EQ(8, untitled.Teams().SabbathMeeting);
    EXPECT_EQ(1, untitled.Teams().TeamGospelVis[3]);
}

namespace {

// The texts printed as "x|text" (x in tenths of a centimetre), on one page.
std::vector<std::string> Placed(const RecordingSurface& out, int page = 1) {
    std::vector<std::string> t;
    for (const auto* op : out.TextOps())
        if (op->page == page) t.push_back(std::to_string(static_cast<int>(op->x * 10 + 0.5f)) + "|" + op->text);
    return t;
}
bool Has(const std::vector<std::string>& texts, const std::string& t) {
    return std::find(texts.begin(), texts.end(), t) != texts.end();
}
// The texts on the line of the first text that starts with `lead` at x.
std::vector<std::string> LineOf(const RecordingSurface& out, float x, const std::string& lead) {
    std::vector<std::string> t;
    for (const auto* op : out.TextOps())
        if (std::abs(op->x - x) < 0.01f && op->text.rfind(lead, 0) == 0) {
            for (const auto* o : out.TextOps())
                if (o->page == op->page && std::abs(o->y - op->y) < 0.01f && !o->text.empty())
                    t.push_back(std::to_string(static_cast<int>(o->x * 10 + 0.5f)) + "|" + o->text);
            break;
        }
    return t;
}

}  // namespace

TEST_F(SmallCrusade, PagesPutEachFigureInItsColumn) {
    const CrusadeCounts counts = CountCrusade(c.p);
    RecordingSurface out;
    PrintStats(c.p, counts.stats, out);
    const auto page = Placed(out);
    for (const char* t : {"15|Total Names: ", "50|5  (Mail List: 1)", "60|(40%)", "50|50%", "60|(20%)", "48|All",
                          "73|Losses", "125|Age Groups", "174|Baptisms", "125|Avg Baptism Age:", "174|30-39",
                          "125|Religious Preference", "125|Advertising Information", "125|Decisions",
                          "15| Special Attendance Stats", "55| 1", "10|NOTES: Active Names are those who have "
                          "attended 4 or more meetings."})
        EXPECT_TRUE(Has(page, t)) << t;
    // Meeting rows: attendance and its share of the first night, all nights, new, losses, average age.
    EXPECT_EQ(LineOf(out, 1.5f, "1 "),
              (std::vector<std::string>{"15|1 ", "25| 3    100% / ", "50|3", "63|3", "76| 1", "90|35"}));
    EXPECT_EQ(LineOf(out, 1.5f, "2 "), (std::vector<std::string>{"15|2 ", "25| 1    33% / ", "50|1", "76| 0",
                                                                 "90|35"}));
    // Nobody has missed the current meeting yet: no losses in its row.
    EXPECT_EQ(LineOf(out, 1.5f, "6 "), (std::vector<std::string>{"15|6 ", "25| 2    67% / ", "50|1", "90|45"}));
    EXPECT_EQ(LineOf(out, 12.5f, "30-39"), (std::vector<std::string>{"125|30-39", "164|1", "174|1", "181|(100% - 100%)"}));
    EXPECT_EQ(LineOf(out, 12.5f, "Other"), (std::vector<std::string>{"125|Other          ", "164|2"}));
    EXPECT_EQ(LineOf(out, 12.5f, "Mail"), (std::vector<std::string>{"125|Mail", "164|1", "174|1", "181|(100%)"}));

    out.Clear();
    c.p.TeamNames[1] = "Smith:555-0101";
    PrintTeamStats(c.p, counts.teams, out);
    EXPECT_EQ(LineOf(out, 1.3f, "01"),
              (std::vector<std::string>{"13|01", "18|Smith", "45| 2", "53| 0", "65| 1", "74| 0", "95| 0", "108| 1",
                                        "117| 0", "133| 1", "143| 0", "155| 1", "163| 0", "171| 0", "180| 1",
                                        "86|1", "189| 0"}));
    // Team 25 prints; the Sabbath sum leaves it out.
    EXPECT_EQ(LineOf(out, 1.3f, "25")[2], "45| 1");
    EXPECT_EQ(LineOf(out, 1.3f, "Total Sabbath Names: ")[0], "13|Total Sabbath Names:  1 ");
    EXPECT_EQ(LineOf(out, 1.3f, "Total Names: ")[1], "65|  Total visits:  0 /  0 %");
    EXPECT_FALSE(out.Lines().empty());
}

// An empty crusade, and the first and last meeting numbers, print and show without
// a fault. The old report stopped at its first division by zero here.
TEST(StatsBadInput, EmptyCrusadeAndMeetingsZeroAndForty) {
    TestCrusade c;
    c.p.RecordCount = 0;
    c.p.CrusadeName = "Empty";
    for (int meeting : {0, 1, 40}) {
        c.p.MeetingNumber = meeting;
        const CrusadeCounts counts = CountCrusade(c.p);
        RecordingSurface out;
        PrintStats(c.p, counts.stats, out);
        PrintTeamStats(c.p, counts.teams, out);
        const auto page = Placed(out);
        EXPECT_TRUE(Has(page, "60|(0%)")) << meeting;
        EXPECT_TRUE(Has(page, "50|0%")) << meeting;
        const std::string screen = StatsScreenText(c.p, counts.stats);
        const std::string teams = TeamStatsScreenText(c.p, counts.teams);
        EXPECT_NE(std::string::npos, teams.find("Total visits: 0/ 0%")) << meeting;
        EXPECT_NE(std::string::npos, screen.find("Active Names:      0%")) << meeting;
        if (meeting >= 1) {
            EXPECT_EQ(LineOf(out, 1.5f, "1 ").back(), "90|na");
            const std::string row1 = screen.substr(screen.find("\r\n1 ") + 2, 33);
            EXPECT_EQ("0% /", row1.substr(12, 4)) << screen;
            EXPECT_EQ("na", row1.substr(row1.size() - 2)) << screen;
        }
        // Forty nights run past the notes: the special lines go on a second page.
        EXPECT_EQ(meeting == 40 ? 2 : 1, out.Page()) << meeting;
    }
}

TEST_F(SmallCrusade, DataFileAndAFolderThatCannotBeWritten) {
    const CrusadeCounts counts = CountCrusade(c.p);
    ASSERT_TRUE(WriteStatData(c.p, counts));
    const std::string text = c.ReadFile(c.appPath + "/StatData.txt");
    std::vector<std::string> lines;
    for (std::size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(text.substr(at, end - at));
    // Name, meeting, 40 x 3, 38 x 3 tables, 40 ages, 9 figures, zips, 41 teams x 14.
    ASSERT_EQ(lines.size(), 2u + 120 + 114 + 40 + 9 + 1 + static_cast<std::size_t>(c.p.ZipCount) + 41 * 14);
    EXPECT_EQ((std::vector<std::string>{"Fall", " 6 ", " 3 ", " 3 ", " 1 "}),
              std::vector<std::string>(lines.begin(), lines.begin() + 5));
    EXPECT_EQ(" 5 ", lines[2 + 120 + 114 + 40 + 5]);   // TotalNames after the ages
    // A folder that refuses the file: the operator is told, nothing is half written.
    std::filesystem::remove(c.appPath + "/StatData.txt");
    std::filesystem::create_directory(c.appPath + "/StatData.txt");
    c.host.ExpectBox("StatData.txt");
    EXPECT_FALSE(WriteStatData(c.p, counts));
    c.host.Verify();
}

TEST_F(SmallCrusade, MenusOpenTheViewerAndItSwitchesAndPrints) {
    EditForm& e = c.p.Edit();
    int shown = 0;
    c.host.OnModal("BlankFrm", [&](forms::Form& f) {
        auto& b = static_cast<BlankFrm&>(f);
        if (++shown == 1) {
            EXPECT_EQ("Fall Statistical Report", b.Caption());
            EXPECT_NE(std::string::npos, b.txtReport.Text().find("Total Names:      5")) << b.txtReport.Text();
            b.btnSwitchStats.Click();
            EXPECT_EQ("Statistics", b.btnSwitchStats.Caption());
            c.host.ExpectPrinter([](host::PrinterDialog&) { return true; });
            b.PrintStatsBut.Click();
        }
        EXPECT_EQ("Fall Visitation Report", b.Caption());
        EXPECT_NE(std::string::npos, b.txtReport.Text().find("(You must use Printer to see teams 21-40)"));
        b.CloseStatsBut.Click();
    });
    e.mnuStats.Click();
    EXPECT_NE(nullptr, c.host.printer.FindText("Fall Visitation Report"));
    EXPECT_EQ(1, c.host.printer.endDocs);
    e.mnuWkrStats.Click();
    EXPECT_EQ(2, shown);
    EXPECT_TRUE(e.btnStats.Enabled() && e.mnuStats.Enabled() && e.mnuWkrStats.Enabled());
    c.host.Verify();
}
