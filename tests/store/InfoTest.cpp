#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/Recent.h"
#include "store/Records.h"
#include "support/TestCrusade.h"

namespace {
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> out;
    std::size_t at = 0;
    for (std::size_t end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        out.push_back(text.substr(at, end - at));
    return out;
}
std::string Join(const std::vector<std::string>& lines) {
    std::string s;
    for (const auto& l : lines) s += l + "\r\n";
    return s;
}
}  // namespace

class InfoFile : public ::testing::Test {
protected:
    TestCrusade c;
    Program& p = c.p;
};

TEST_F(InfoFile, SaveWritesTheLinesInOrderAndLoadReadsThemBack) {
    p.CrusadeName = "Springfield 2026";
    p.CrusadeDate = "3/1/2026";
    p.MeetingNumber = 12;
    p.LastRNum = 9876;
    p.NumberDirection = "UP";
    p.BackupPath = "/media/stick";
    p.FilterTotalAttend = 3;
    p.PrintCutOff = 7;
    p.TeamNames[1] = "Jones:555-0101";
    p.TeamNames[40] = "Last:1";
    p.SabAM = {0, 6, 13, 0, 27};
    p.DecisionNames[4] = "Sabbath Problem";
    p.ReligionList[15] = "Quaker";
    p.DecisionCodes[3] = "X";
    p.SermonTitles[25] = "Extra";
    p.SoundOn = true;
    p.CanadaSorter = true;
    p.DecisionNames[1] = "Accept Christ";   // as every load leaves them
    p.DecisionNames[2] = "Accept Sabbath";
    ASSERT_TRUE(SaveInfo(p));
    const std::string first = c.ReadFile(p.CrusadeFile("inf"));
    std::vector<std::string> lines = Lines(first);
    ASSERT_EQ(133u, lines.size());
    // Integers by Str have no trailing blank, by Print # a blank on both sides.
    const std::pair<int, const char*> at[] = {
        {0, "Springfield 2026*Canada"}, {2, " 12"}, {3, " 9876 "}, {4, "UP"}, {6, " 3 "}, {7, " 7 "},
        {8, "version 2.5.0"}, {9, "Jones:555-0101"}, {10, "Team #  2"}, {49, " 6 "}, {56, "Sabbath Problem"},
        {75, "Quaker"}, {76, "Blank"},
        {83, "CSXPBTADU"}, {91, "Daniel 2"}, {115, "Extra"}, {116, ""}, {131, "True"}, {132, "11/22/2026 9:30:00 AM"}};
    for (const auto& [line, text] : at) EXPECT_EQ(text, lines[line]) << line;

    Program q(c.host, c.appPath);
    q.DataFile = p.DataFile;
    LoadInfo(q);
    // Saving what was loaded gives the same file: the Canadian mark was read back and did not grow.
    ASSERT_TRUE(SaveInfo(q));
    EXPECT_EQ(first, c.ReadFile(p.CrusadeFile("inf")));
}

TEST_F(InfoFile, OverwritesAndDefaultsThatComeBack) {
    p.DecisionCodes[1] = "Q";
    p.DecisionCodes[9] = "Z";
    p.DecisionNames[1] = "Something";
    p.SermonTitles[3] = "";
    p.TeamNames[5] = ":";
    ASSERT_TRUE(SaveInfo(p));
    LoadInfo(p);
    // An emptied sermon title returns to its default.
    EXPECT_EQ((std::vector<std::string>{"C", "U", "Accept Christ", "Accept Sabbath", "Unite with Church",
                                        "Dragon and Woman", "Team #  5", "Unassigned:", "NIF", "60-69"}),
              (std::vector<std::string>{p.DecisionCodes[1], p.DecisionCodes[9], p.DecisionNames[1], p.DecisionNames[2],
                                        p.DecisionNames[9], p.SermonTitles[3], p.TeamNames[5], p.TeamNames[0],
                                        p.AgeGroups[0], p.AgeGroups[6]}));
}

TEST_F(InfoFile, ACommaInTheNameShiftsEveryLineAfterIt) {
    p.CrusadeName = "Smith, Jones";
    p.CrusadeDate = "3/1/2026";
    p.MeetingNumber = 4;
    ASSERT_TRUE(SaveInfo(p));
    // The version line moves down one field too, so the file reads as an old one.
    c.host.ExpectBox("older version", host::vbOK).ExpectBox("Conversion Complete.");
    LoadInfo(p);
    // The numbering is guarded: a direction that is not one reads as the default.
    EXPECT_EQ((std::vector<std::string>{"Smith", "Jones", "DOWN"}),
              (std::vector<std::string>{p.CrusadeName, p.CrusadeDate, p.NumberDirection}));
    EXPECT_EQ(3, p.MeetingNumber);   // the date line, by its numeric prefix
    EXPECT_EQ(4, p.LastRNum);
}

TEST_F(InfoFile, OlderLayoutsAndAFileCutShort) {
    c.WriteRecords({});
    // A 2.4 file: 20 team lines, decision codes one to a line.
    std::vector<std::string> lines = {"Old One", "1/1/1999", " 3", " 9000 ", "DOWN", "", " 1 ", " 0 ", "version 2.4.1"};
    for (int i = 1; i <= 20; ++i) lines.push_back("Old team " + std::to_string(i) + ":1");
    for (int i = 0; i < 4; ++i) lines.push_back(" 0 ");
    for (int i = 1; i <= 8; ++i) lines.push_back("Dec " + std::to_string(i));
    for (int i = 1; i <= 15; ++i) lines.push_back(i == 2 ? "" : "Church " + std::to_string(i));
    for (int i = 0; i < 7; ++i) lines.push_back("Blank");
    for (const char* code : {"Q", "R", "S", "T", "V", "W", "X", "Y"}) lines.push_back(code);
    for (int i = 1; i <= 40; ++i) lines.push_back(i == 1 ? "Opening night" : "");
    lines.push_back("False");
    lines.push_back("1/2/1999");
    c.WriteFile(p.CrusadeFile("inf"), Join(lines));
    LoadInfo(p);
    // The first two decision codes are overwritten whatever the file says.
    EXPECT_EQ((std::vector<std::string>{"Old One", "Old team 20:1", "Team #  21", "Dec 4", "Baptist", "C", "S", "T",
                                        "Y", "Opening night", "Angel Warfare", "1/2/1999"}),
              (std::vector<std::string>{p.CrusadeName, p.TeamNames[20], p.TeamNames[21], p.DecisionNames[4],
                                        p.ReligionList[2], p.DecisionCodes[1], p.DecisionCodes[2], p.DecisionCodes[4],
                                        p.DecisionCodes[8], p.SermonTitles[1], p.SermonTitles[2], p.LastUpdated}));

    // Cut short after the teams: the rest stays at the defaults; letters where numbers belong read as 0,
    // but for the registration number, which waits for the records (none here) at its default.
    std::vector<std::string> shortLines = {"Short", "today", "abc", "xyz", "UP", "", "1", "0", "version 2.5.0",
                                           "Team A:1"};
    c.WriteFile(p.CrusadeFile("inf"), Join(shortLines));
    LoadInfo(p);
    EXPECT_EQ(0, p.MeetingNumber);
    EXPECT_EQ(9999, p.LastRNum);
    EXPECT_EQ((std::vector<std::string>{"Short", "Team A:1", "Team #  2", "Keep Sabbath"}),
              (std::vector<std::string>{p.CrusadeName, p.TeamNames[1], p.TeamNames[2], p.DecisionNames[3]}));
}

TEST_F(InfoFile, NextNumberRewritesTheFileAtOnceOrHandsOutNone) {
    p.NumberDirection = "UP";
    p.LastRNum = 9999;
    EXPECT_EQ("0000", NextRNum(p));   // the text keeps the last four characters

    TestCrusade d;
    d.p.LastRNum = 9990;
    std::filesystem::create_directories(d.p.CrusadeFile("inf"));   // a folder in its place: no file can be written
    d.host.ExpectBox("The crusade information could not be written to:\r\n" + d.p.CrusadeFile("inf"), host::vbOK,
                     "File Error");
    EXPECT_EQ("", NextRNum(d.p));
    EXPECT_EQ(9990, d.p.LastRNum);
}

TEST_F(InfoFile, NumbersOutOfRangeAreDamagedAndTakeTheDefault) {
    // Lines 3, 4, 7 and 8: MeetingNumber, LastRNum, FilterTotalAttend, PrintCutOff.
    struct Row { int line; std::string text; std::vector<long> read; };
    const Row rows[] = {{3, "1e300", {1, 9876, 3, 2}},  {4, "-1e300", {5, 9999, 3, 2}}, {4, "40000", {5, 9999, 3, 2}},
                        {7, "1e18", {5, 9876, 1, 2}},   {8, "-40000", {5, 9876, 3, 0}}, {4, " 9876 ", {5, 9876, 3, 2}}};
    for (const Row& r : rows) {
        std::vector<std::string> lines = {"Name", "1/1/2026", " 5", " 9876 ", "DOWN", "", " 3 ", " 2 ", "version 2.5.0"};
        lines[r.line - 1] = r.text;
        c.WriteFile(p.CrusadeFile("inf"), Join(lines));
        LoadInfo(p);
        EXPECT_EQ(r.read, (std::vector<long>{p.MeetingNumber, p.LastRNum, p.FilterTotalAttend, p.PrintCutOff}))
            << r.text;
    }
}

// The numbering as the information file leaves it, and the numbers drawn after.
TEST(Numbering, DamagedOrMissingStateNeverHandsOutANumberInUse) {
    struct Case {
        const char* what;
        std::vector<const char*> numbers;   // in the file, in record order
        std::function<void(std::vector<std::string>&)> damage;   // lines of the .inf; no file when null
        const char* first;
        const char* second;
    };
    auto line = [](int n, const char* text) {
        return [n, text](std::vector<std::string>& l) { l[static_cast<std::size_t>(n - 1)] = text; };
    };
    const Case cases[] = {
        {"missing, down", {"9999", "9998", "9997"}, nullptr, "9996", "9995"},
        {"missing, up", {"0001", "0002", "0003"}, nullptr, "0004", "0005"},
        {"trailing blank", {"9999", "9998", "9997"}, line(5, "DOWN "), "9996", "9995"},
        {"lower case up", {"0001", "0002", "0003"}, line(5, "up"), "0004", "0005"},
        {"direction gone", {"0001", "0002", "0003"}, line(5, "sideways"), "0004", "0005"},
        {"number damaged", {"9999", "9998", "9997"}, line(4, " 99x7 "), "9996", "9995"},
        {"number empty, up", {"0010", "0011", "0012"}, line(4, ""), "0013", "0014"},
        // A sound but stale number (an older information file) steps over the numbers the list holds.
        {"stale", {"9999", "9998", "9996"}, line(4, " 9999 "), "9997", "9995"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        TestCrusade c;
        std::vector<MasterRecord> people;
        for (const char* n : k.numbers) people.push_back(MakePerson(n, "Al", std::string("P") + n));
        c.WriteRecords(people);
        const std::string inf = c.p.CrusadeFile("inf");
        if (k.damage) {
            c.p.LastRNum = std::stol(k.numbers.back());
            c.p.NumberDirection = std::string(k.numbers[0]) < k.numbers[1] ? "UP" : "DOWN";
            ASSERT_TRUE(SaveInfo(c.p));
            std::vector<std::string> lines = Lines(c.ReadFile(inf));
            k.damage(lines);
            c.WriteFile(inf, Join(lines));
        }
        c.Open();
        EXPECT_EQ(k.first, NextRNum(c.p));
        c.p.IndexCount++;   // the card drawn is saved
        c.p.SortIndex.push_back(std::string(k.first) + "CARD AL   4");
        EXPECT_EQ(k.second, NextRNum(c.p));
        // What is written back is clean and is where the next run goes on from.
        std::vector<std::string> lines = Lines(c.ReadFile(inf));
        ASSERT_EQ(133u, lines.size());
        EXPECT_EQ(c.p.NumberDirection, lines[4]);
        EXPECT_EQ(" " + std::to_string(std::stol(k.second)) + " ", lines[3]);
    }
}

TEST(InfoLines, AStrayQuoteIsOneValueAndTheFileStays133Lines) {
    TestCrusade c;
    Program& p = c.p;
    p.TeamNames[2] = "Second:2";
    p.TeamNames[40] = "Last:40";
    p.DecisionNames[4] = "Problem";
    p.ReligionList[3] = "Kept";
    p.DecisionCodes[4] = "X";
    p.SermonTitles[30] = "Thirty";
    ASSERT_TRUE(SaveInfo(p));
    const std::string inf = p.CrusadeFile("inf");
    std::vector<std::string> lines = Lines(c.ReadFile(inf));
    // Quotes that open on one line and close on a later one, as a damaged editor leaves them.
    lines[0] = "\"Spring";
    lines[9] = "\"First:1";
    lines[60] = "\"Unite";
    lines[91] = "\"Daniel \"2\"";
    c.WriteFile(inf, Join(lines));
    LoadInfo(p);
    EXPECT_EQ((std::vector<std::string>{"Spring", "First:1", "Second:2", "Last:40", "Problem", "Kept", "X", "Daniel ",
                                        "Thirty"}),
              (std::vector<std::string>{p.CrusadeName, p.TeamNames[1], p.TeamNames[2], p.TeamNames[40],
                                        p.DecisionNames[4], p.ReligionList[3], p.DecisionCodes[4],
                                        p.SermonTitles[1], p.SermonTitles[30]}));
    // A line break inside a value in memory would also shift every line after it.
    p.TeamNames[3] = "Two\r\nlines";
    p.SermonTitles[2] = "x\ny";
    ASSERT_TRUE(SaveInfo(p));
    lines = Lines(c.ReadFile(inf));
    ASSERT_EQ(133u, lines.size());
    EXPECT_EQ((std::vector<std::string>{"Spring", "Two  lines", "x y", "Thirty"}),
              (std::vector<std::string>{lines[0], lines[11], lines[92], lines[120]}));
}

TEST(RecentKeys, OnlyKeysThisProgramWritesCount) {
    const std::pair<const char*, int> keys[] = {{"RecentFile1", 1},   {"RecentFile4", 4},  {"RecentFile12", 12},
                                                {"RecentFile1e", 0},  {"RecentFile01", 0}, {"RecentFile 1", 0},
                                                {"RecentFile", 0},    {"RecentFile2x", 0}, {"RecentFile99999", 0},
                                                {"RecentFile1e300", 0}};
    for (const auto& [key, n] : keys) EXPECT_EQ(n, RecentKeyNumber(key)) << key;
}
