// Each kind of list over the hand-made crusade: who is kept, the key, the order.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "lists/Lists.h"
#include "lists/ListCrusade.h"
#include "platform/vb/Strings.h"
#include "store/ListEntry.h"
#include "store/Records.h"

namespace {

struct Row {
    const char* kind;
    int number;
    const char* option;
    std::size_t length;
    std::vector<std::string> entries;
};

// Cut-off 2: Cy (Last 2) and the second Ann Lee (Last 2) sit at it.
const Row Rows[] = {
    // Equal keys stay in record order; the number in front takes no part.
    {"alpha", 0, "", 15, {"0103ADAMSCY_3", "0105BROWNED_5", "0106BURKEFL_6", "0104COLE_DI_4", "0101LEE_AN_1", "0090LEE_AN_9", "0102LEE_BO_2"}},
    {"alphafilter", 0, "", 15, {"0103ADAMSCY_3", "0105BROWNED_5", "0106BURKEFL_6", "0104COLE_DI_4", "0101LEE_AN_1", "0102LEE_BO_2"}},
    // Notes are not cut: a person below the cut-off shows here and not under "age".
    {"undelete", 0, "", 15, {"0107CRUZ_GU_7"}}, {"notes", 0, "", 31, {"0090LEE_Ann_9", "0102LEE_Bob_2"}},
    {"religion", 0, "", 51, {"0105_BROWN_Ed_5", "0106Baptist_BURKE_Flo_6", "0101Baptist_LEE_Ann_1", "0104Catholic_COLE_Di_4",
                             "0103Mormon_ADAMS_Cy_3", "0102SDA_LEE_Bob_2"}},
    {"religion", 0, "Other", 51, {"0105_BROWN_Ed_5", "0103Mormon_ADAMS_Cy_3"}}, {"religion", 0, "SDA", 51, {"0102SDA_LEE_Bob_2"}},
    // Di heard the Sabbath sermon (8); her visit after it is in the fourth group.
    {"needsabvis", 0, "", 31, {"0104COLE_Di_4"}},
    {"age", 0, "", 41, {"010320-29_ADAMS_Cy_3", "010130-39_LEE_Ann_1", "010240-49_LEE_Bob_2", "010550-59_BROWN_Ed_5",
                        "010660-70_BURKE_Flo_6", "0104NIF_COLE_Di_4"}},
    {"TotalAttend", 2, "atleast", 33, {"010110LEE_Ann_1", "010403COLE_Di_4", "010303ADAMS_Cy_3", "010202LEE_Bob_2"}},
    {"TotalAttend", 1, "equal", 33, {"010601BURKE_Flo_6", "010501BROWN_Ed_5"}},
    {"attend", 0, "", 34, {"0103989ADAMS_Cy_3", "0104989COLE_Di_4", "0101989LEE_Ann_1", "0102990LEE_Bob_2", "0105992BROWN_Ed_5",
                           "0106993BURKE_Flo_6"}},
    // Attendnight ignores the cut-off; missednight keeps Last equal to it.
    {"attendnight", 1, "", 31, {"0103ADAMS_Cy_3", "0101LEE_Ann_1", "0090LEE_Ann_9"}},
    {"missednight", 3, "", 31, {"0105BROWN_Ed_5", "0106BURKE_Flo_6", "0090LEE_Ann_9"}},
    {"interest", 0, "", 32, {"0101ALEE_ANN_1", "0104BCOLE_DI_4", "0090CLEE_ANN_9", "0102GLEE_BOB_2"}},
    {"interest", 0, "TC", 34, {"010400BCOLE_DI_4", "010101ALEE_ANN_1", "009002CLEE_ANN_9", "010202GLEE_BOB_2"}},
    // Ed's Last is meeting 10 minus 3 and stays; Flo's is minus 4.
    {"NoAssignedInterest", 0, "", 32, {"0105_BROWN_ED_5"}}, {"PreCrusade", 0, "", 31, {"0103ADAMS_CY_3", "0101LEE_ANN_1"}},
    // Seven marks for Ann: ten entries from nine records.
    {"Advertising", 0, "", 32, {"0103IAdams_CY_3", "0101ILee_ANN_1", "0101MLee_ANN_1", "0104NCole_DI_4", "0101NLee_ANN_1",
                                "0101OLee_ANN_1", "0103PAdams_CY_3", "0101PLee_ANN_1", "0101RLee_ANN_1", "0101TLee_ANN_1"}},
    {"NeedInterview", 0, "", 32, {"0101ALEE_ANN_1", "0104BCOLE_DI_4"}}, {"NeedDate", 0, "", 32, {"0101ALEE_ANN_1", "0104BCOLE_DI_4"}},
    {"WCNeedInterview", 0, "", 34, {"010400BCOLE_DI_4", "010101ALEE_ANN_1"}},
    {"FutureBapDateSet", 0, "", 39, {"010612/25/26BURKE_FLO_6"}}, {"InterviewRemain", 0, "", 35, {"0090A107LEE_ANN_9"}},
    {"BaptClass", 0, "", 35, {"0090A107LEE_ANN_9", "0103A208ADAMS_CY_3", "0102AN04LEE_BOB_2"}},
    {"IntCard", 2, "", 50, {"010400COLE_DI_4", "010301ADAMS_CY_3", "010101LEE_ANN_1", "010503BROWN_ED_5", "010603BURKE_FLO_6"}},
    {"IntCard", 5, "", 50, {"010101LEE_ANN_1"}},
    {"mail", 0, "", 58, {"010510001_BROWN_ED_5", "010610001_BURKE_FLO_6", "010462701_COLE_DI_4", "010162701_LEE_ANN_1",
                         "009062701_LEE_ANN_9", "010362702_ADAMS_CY_3"}},
    {"zip", 0, "", 88, {"010510001_9_ELM_AVE_BROWN_ED_5", "010610001_9_ELM_AVE_BURKE_FLO_6", "010162701_12_OAK_ST_LEE_ANN_1",
                        "010262701_12_OAK_ST_LEE_BOB_2", "010462701_ADDRESS_UNKNOWN_COLE_DI_4", "010362702_12_OAK_ST_ADAMS_CY_3"}},
    {"date", 0, "", 56, {"010220260304LEE_BOB_2", "010620261225BURKE_FLO_6"}},
    {"map", 0, "", 47, {"010498900_989COLE_Di_4", "010398901_989ADAMS_Cy_3", "010198901M1_989LEE_Ann_1", "010299002_990LEE_Bob_2",
                        "010599203_992BROWN_Ed_5", "010699303_993BURKE_Flo_6"}},
    {"wcattend", 0, "", 36, {"010400989COLE_Di_4", "010301989ADAMS_Cy_3", "010101989LEE_Ann_1", "010202990LEE_Bob_2",
                             "010503992BROWN_Ed_5", "010603993BURKE_Flo_6"}},
    {"SelWCAttend", 3, "", 36, {"010503992BROWN_Ed_5", "010603993BURKE_Flo_6"}},
    {"SelWCAttend", 3, "Al", 36, {"010503000BROWN_Ed_5", "010603000BURKE_Flo_6"}},
    {"wcalpha", 0, "", 50, {"010400COLE_DI_4", "010301ADAMS_CY_3", "010101LEE_ANN_1", "010202LEE_BOB_2", "010503BROWN_ED_5",
                            "010603BURKE_FLO_6"}},
    {"baptism", 0, "", 31, {"0102LEE_BOB_2"}}, {"baptism", 0, "TC", 33, {"010202LEE_BOB_2"}}, {"marked", 0, "", 31, {"0102LEE_BOB_2"}},
    // Cy made decision 2 but stands at level D; Di's is written in her attendance.
    {"decisions", 2, "Al", 31, {"0104COLE_DI_4"}}, {"decisions", 1, "Al", 31, {"0101LEE_ANN_1", "0102LEE_BOB_2"}},
    {"decisions", 9, "IL", 32, {"0102GLEE_BOB_2"}},
};

}  // namespace

TEST(BuildList, EveryKindSelectsKeysAndOrdersAsItsRuleSays) {
    ListCrusade l;
    for (const Row& row : Rows) {
        SCOPED_TRACE(std::string(row.kind) + " " + std::to_string(row.number) + " " + row.option);
        l.c.p.SortName = "alpha";
        ASSERT_TRUE(lists::BuildList(l.c.p, row.kind, row.number, row.option));
        EXPECT_EQ(row.entries, l.Squeezed());
        for (int i = 1; i <= l.c.p.IndexCount; ++i) EXPECT_EQ(row.length, l.c.p.SortIndex[i].size());
    }
    // The cut-off applied to all names keeps those past it under their full names.
    ASSERT_TRUE(lists::BuildList(l.c.p, "alpha"));
    lists::ApplyCutOff(l.c.p);
    EXPECT_EQ((std::vector<std::string>{"0103ADAMS_CY_3", "0105BROWN_ED_5", "0106BURKE_FLO_6", "0104COLE_DI_4", "0101LEE_ANN_1",
                                        "0102LEE_BOB_2"}), l.Squeezed());
}

TEST(BuildList, AnEmptyCrusadeGivesEmptyListsAndNoPerson) {
    ListCrusade l(std::vector<Person>{});
    for (const char* kind : {"alpha", "notes", "attend", "mail", "DupAddress"})
        EXPECT_EQ(std::make_tuple(true, 0, 0), std::make_tuple(lists::BuildList(l.c.p, kind), l.c.p.IndexCount, l.c.p.CurrentIndex)) << kind;
}

TEST(SelectFilter, RebuildsAListFromItsNameWithoutAskingAndRemembersTheOneBefore) {
    ListCrusade l;
    Program& p = l.c.p;
    // "alpha" comes back as the attendance list; team "00" has no number of its own.
    const std::tuple<const char*, int, const char*> names[] = {
        {"notes", 2, "notes"},           {"attendnight01", 3, "attendnight01"}, {"SelWCAttend00", 1, "SelWCAttend00"},
        {"decisions2", 1, "decisions2"}, {"missednight03", 3, "missednight03"}, {"alpha", 6, "attend"}};
    for (const auto& [name, count, built] : names) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(lists::SelectFilter(p, name));
        EXPECT_EQ(std::make_pair(count, std::string(built)), std::make_pair(p.IndexCount, p.SortName));
    }
    // The answers a list was built with come back without asking.
    l.c.host.ExpectBox("arrange these decisions by Interest Level?", host::vbYes);
    ASSERT_TRUE(lists::BuildList(p, "decisions", 9));
    const std::vector<std::string> byLevel = l.Squeezed();
    EXPECT_TRUE(lists::SelectFilter(p, "decisions9") && byLevel == l.Squeezed());
    ASSERT_TRUE(lists::BuildList(p, "TotalAttend", 2, "equal"));
    const std::vector<std::string> equal = l.Squeezed();
    EXPECT_TRUE(lists::SelectFilter(p, "TotalAttend") && equal == l.Squeezed());
    EXPECT_FALSE(lists::SelectFilter(p, "Need a Filter"));
    EXPECT_FALSE(lists::BuildList(p, "nonsense"));
    // Only "alpha" names its kind in entry 0; back at all names, the filter is the one before.
    ASSERT_TRUE(lists::BuildList(p, "SelWCAttend", 3));
    EXPECT_EQ("SelWCAttend03", p.SortName);
    ASSERT_TRUE(lists::BuildList(p, "alpha"));
    EXPECT_EQ("alpha SelWCAttend03", p.SortIndex[0] + " " + p.PriorSortName);
}

// The entry rebuilt after a save is the builder's, for people changed or not; the choices a list
// was built with (team first, by level, alphabetical, the mark) come back from its other entries.
TEST(ListEntry, RebuildsEveryKindAsItsBuilderDoes) {
    ListCrusade l;
    Program& p = l.c.p;
    const std::pair<const char*, void (*)(MasterRecord&)> changes[] = {
        {"unchanged", [](MasterRecord&) {}},
        {"renamed and moved",
         [](MasterRecord& r) {
             r.LName = "zeta-" + vb::RTrim(r.LName), r.FName = "xavier", r.Address = "77 new rd", r.Zip = "99999", r.Age = "70+", r.MapCode = "Q9";
         }},
        {"baptism date cleared", [](MasterRecord& r) { r.BaptDate = ""; }},
    };
    std::vector<Row> rows(std::begin(Rows), std::end(Rows));
    for (const char* kind : {"DupAddress", "NDupAddress", "TDupAddress"}) rows.push_back({kind, 0, "", 0, {}});
    auto pointer = [](const std::string& e) { return static_cast<long>(vb::Val(vb::Right(e, 4))); };
    // The entries of `from` whose record is in `in`, sorted.
    auto alsoIn = [&](const std::vector<std::string>& from, const std::vector<std::string>& in) {
        std::vector<std::string> out;
        for (const std::string& e : from)
            if (std::any_of(in.begin(), in.end(), [&](const std::string& i) { return pointer(i) == pointer(e); })) out.push_back(e);
        std::sort(out.begin(), out.end());
        return out;
    };
    auto build = [&](const Row& row) {
        p.SortName = "alpha";
        EXPECT_TRUE(lists::BuildList(p, row.kind, row.number, row.option));
        return std::vector<std::string>(p.SortIndex.begin() + 1, p.SortIndex.begin() + 1 + p.IndexCount);
    };
    // As the load left them.
    std::vector<MasterRecord> originals;
    for (long n = 1; n <= p.RecordCount; ++n) GetRecord(p, n), originals.push_back(p.MasterRec);
    for (const Row& row : rows) {
        for (const auto& [what, change] : changes) {
            SCOPED_TRACE(std::string(row.kind) + " " + std::to_string(row.number) + " " + row.option + ": " + what);
            const std::vector<std::string> before = build(row);
            const std::vector<std::string> list = p.SortIndex;
            const std::string sortName = p.SortName;
            for (long n = 1; n <= static_cast<long>(originals.size()); ++n) {
                p.MasterRec = originals[static_cast<std::size_t>(n - 1)];
                change(p.MasterRec);
                PutRecord(p, n);
            }
            std::vector<std::string> rebuilt;
            for (int i = 1; i <= static_cast<int>(before.size()); ++i) {
                long n = pointer(list[i]);
                GetRecord(p, n);
                p.CurrentIndex = i;
                std::string e = ListEntry(p, list[i], n);
                EXPECT_EQ(std::make_pair(list[i].size(), n), std::make_pair(e.size(), pointer(e))) << e;
                // An unsaved mark in the old entry's place gives the same entry while the
                // list has another (a copy or an add joins a list that was not empty).
                if (std::string(row.kind) != "Advertising" && before.size() > 1) {
                    p.SortIndex[i] = "NotSavedYet";
                    EXPECT_EQ(e, ListEntry(p, p.SortIndex[i], n));
                    p.SortIndex[i] = list[i];
                }
                rebuilt.push_back(e);
            }
            // The people still selected after the change: both ways alike.
            const std::vector<std::string> after = build(row);
            EXPECT_EQ(alsoIn(after, before), alsoIn(rebuilt, after)) << sortName;
            for (long n = 1; n <= static_cast<long>(originals.size()); ++n) p.MasterRec = originals[static_cast<std::size_t>(n - 1)], PutRecord(p, n);
        }
    }
}
