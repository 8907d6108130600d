#include <gtest/gtest.h>

#include "program/Program.h"
#include "store/SortIndex.h"
#include "support/ScriptedHost.h"

namespace {
struct Fixture {
    ScriptedHost host;
    Program p{host, "/nonexistent"};
    void List(std::vector<std::string> entries, const std::string& sortName = "alpha") {
        p.SortIndex.assign(1, sortName);
        p.SortIndex.insert(p.SortIndex.end(), entries.begin(), entries.end());
        p.IndexCount = static_cast<int>(entries.size());
        p.SortName = sortName;
    }
};
}  // namespace

TEST(SortEntries, AlphaIgnoresTheNumberByNumberComparesAllAndAnAddModeEntryNarrowsTheCompare) {
    using List = std::vector<std::string>;
    struct Row { std::string sortName; List in, out; };
    const Row rows[] = {
        // Alpha: the number does not count, ties go by record number.
        {"alpha", {"9990SMITHJO  12", "9999ADAMSMA   3", "0001SMITHJO   2", "5000BROWNAL 100"},
         {"9999ADAMSMA   3", "5000BROWNAL 100", "0001SMITHJO   2", "9990SMITHJO  12"}},
        {"byNum", {"9990SMITHJO  12", "0002ZZZZZZZ   3", "0001SMITHJO   2"},
         {"0001SMITHJO   2", "0002ZZZZZZZ   3", "9990SMITHJO  12"}},
        // Width 7 from the 11-character entry: only the last three letters and the
        // pointer of each name entry count, so ZZZZAAA sorts before AAAAZZZ.
        {"alpha", {"-------  20", "0001AAAAZZZ   5", "0002ZZZZAAA   6"},
         {"-------  20", "0002ZZZZAAA   6", "0001AAAAZZZ   5"}},
    };
    for (const Row& r : rows) {
        Fixture f;
        f.List(r.in, r.sortName);
        SortEntries(f.p);
        EXPECT_EQ(r.out, std::vector<std::string>(f.p.SortIndex.begin() + 1, f.p.SortIndex.end())) << r.sortName;
    }
}

TEST(FindByNumber, MatchesTheFirstFourCharactersWithoutCase) {
    Fixture f;
    f.List({"9990SMITHJO  12", "00a1SMITHJO   2", "00A1OTHERJO   7"});
    f.p.MasterRec.RNum = "00A1";
    EXPECT_EQ(2, FindByNumber(f.p));
    f.p.MasterRec.RNum = "1234";
    EXPECT_EQ(0, FindByNumber(f.p));
    // A count that runs past the list never reads beyond it.
    f.p.IndexCount = 50;
    f.p.SortIndex.shrink_to_fit();
    EXPECT_EQ(0, FindByNumber(f.p));
}
