// The crusade's files damaged or taken away under the running program.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "edit/CardCrusade.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/Recent.h"

namespace fs = std::filesystem;
using vb::RTrim;

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

using FileFaults = CardCrusade;

// The card crusade, one per case of a table.
struct CardCase : CardCrusade {
    using CardCrusade::c;
    using CardCrusade::e;
    using CardCrusade::p;
    using CardCrusade::StartAdding;
    void TestBody() override {}
};

TEST(RecordFileGone, ItIsOfferedBackWithEveryRecord) {
    struct Case {
        bool replaced;   // another file stands at the path, else nothing does
        int answer;
    };
    for (const Case k : {Case{false, host::vbYes}, Case{true, host::vbYes}, Case{false, host::vbNo}}) {
        SCOPED_TRACE(std::to_string(k.replaced) + " " + std::to_string(k.answer));
        CardCase t;
        fs::remove(t.c.dataFile);
        if (k.replaced) t.c.WriteFile(t.c.dataFile, "someone else's");
        t.StartAdding();
        t.e.LName.SetText("Kept");
        t.c.host.ExpectBox(k.replaced ? "was replaced by another file" : "was deleted or moved", k.answer,
                           "Record File Missing", host::vbYesNo | host::vbExclamation);
        t.e.btnSaveNew_Click();
        if (k.answer == host::vbNo) {
            // Nothing is put back unasked; the card went into the open file and the next write asks again.
            EXPECT_FALSE(fs::exists(t.c.dataFile));
            EXPECT_EQ(9, t.p.File1.RecordCount());
            t.c.host.ExpectBox("was deleted or moved", host::vbYes);
        }
        t.e.LName.SetText("Next");
        t.e.btnSaveNew_Click();   // from now on the file at the path takes the writes, with no question
        ASSERT_EQ(10, t.c.RecordsOnDisk());
        std::vector<std::string> names;
        for (long n = 1; n <= 10; ++n) names.push_back(RTrim(t.c.ReadRecord(n).LName));
        EXPECT_EQ((std::vector<std::string>{"Baker", "Bell", "Adams", "Cole", "Brown", "Burke", "Cruz", "Avery",
                                            "Kept", "Next"}),
                  names);
        if (k.replaced) {
            EXPECT_EQ("someone else's", t.c.ReadFile(t.c.dataFile + ".replaced"));
        }
        t.c.host.Verify();
    }
}

TEST_F(FileFaults, ADiskFullAppendLeavesNoPieceOfTheCard) {
    StartAdding("1");
    e.LName.SetText("Full");
    // Room for 37 bytes of the card: the disk takes a piece and then refuses.
    const auto whole = static_cast<std::uintmax_t>(8 * MasterRecord::Length);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit lim = old;
    lim.rlim_cur = static_cast<rlim_t>(whole + 37);
    setrlimit(RLIMIT_FSIZE, &lim);
    c.host.ExpectBox("Nothing was changed in the file", host::vbOK, "Record Not Saved");
    e.btnSaveNew_Click();
    setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_EQ(whole, fs::file_size(c.dataFile));
    e.btnSaveNew_Click();
    EXPECT_EQ(whole + MasterRecord::Length, fs::file_size(c.dataFile));
}

// The numbering as the information file leaves it, and the numbers drawn after.
TEST(Numbering, DamagedOrMissingStateNeverHandsOutANumberInUse) {
    struct Case {
        const char* what;
        std::vector<const char*> numbers;   // in the file, in record order
        std::function<void(std::vector<std::string>&)> damage;   // lines of the .inf; none when it is missing
        bool missing;
        const char* first;
        const char* second;
    };
    auto line = [](int n, const char* text) {
        return [n, text](std::vector<std::string>& l) { l[static_cast<std::size_t>(n - 1)] = text; };
    };
    const Case cases[] = {
        {"missing, down", {"9999", "9998", "9997"}, nullptr, true, "9996", "9995"},
        {"missing, up", {"0001", "0002", "0003"}, nullptr, true, "0004", "0005"},
        {"trailing blank", {"9999", "9998", "9997"}, line(5, "DOWN "), false, "9996", "9995"},
        {"lower case up", {"0001", "0002", "0003"}, line(5, "up"), false, "0004", "0005"},
        {"direction gone", {"0001", "0002", "0003"}, line(5, "sideways"), false, "0004", "0005"},
        {"number damaged", {"9999", "9998", "9997"}, line(4, " 99x7 "), false, "9996", "9995"},
        {"number empty, up", {"0010", "0011", "0012"}, line(4, ""), false, "0013", "0014"},
        // A sound but stale number (an older information file) steps over the numbers the list holds.
        {"stale", {"9999", "9998", "9996"}, line(4, " 9999 "), false, "9997", "9995"},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.what);
        TestCrusade c;
        std::vector<MasterRecord> people;
        for (const char* n : k.numbers) people.push_back(MakePerson(n, "Al", std::string("P") + n));
        c.WriteRecords(people);
        const std::string inf = c.p.CrusadeFile("inf");
        if (!k.missing) {
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
                                                {"RecentFile", 0},    {"RecentFile2x", 0}, {"RecentFile99999", 0}};
    for (const auto& [key, n] : keys) EXPECT_EQ(n, RecentKeyNumber(key)) << key;
    TestCrusade c;
    c.host.SaveSetting("MDINote", "Recent Files", "RecentFile1", "/a.dta");
    c.host.SaveSetting("MDINote", "Recent Files", "RecentFile1e", "/damaged.dta");
    AddRecentFile(c.p, "/new.dta");
    auto files = RecentFiles(c.p);
    ASSERT_EQ(2u, files.size());
    EXPECT_EQ("/new.dta", files[0].second);
    EXPECT_EQ("/a.dta", files[1].second);
}
