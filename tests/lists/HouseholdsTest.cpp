// People who share an address, and the mail-list clean-up.
#include <gtest/gtest.h>

#include "lists/Lists.h"
#include "lists/ListCrusade.h"

TEST(BuildDuplicates, ComparesOnlyNeighboursInEachMode) {
    // Three at 12 Oak St (Adams 01, Lee 01, Lee 02), two at 9 Elm Ave (both 03), one alone on Pine Rd,
    // and an "Address Unknown" that is never a duplicate.
    struct Mode { const char* mode; bool elmUnknown; const char* name; std::vector<std::string> expected; };
    const Mode modes[] = {
        {"All", false, "DupAddress",
         {"010312_OAK_ST_ADAMS_CY_01_3", "010112_OAK_ST_LEE_ANN_01_1", "010212_OAK_ST_LEE_BOB_02_2",
          "01059_ELM_AVE_BROWN_ED_03_5", "01069_ELM_AVE_BURKE_FLO_03_6"}},
        // The two Lees are neighbours with one name: Bob drops out, Ann stays beside Adams.
        {"last name", false, "NDupAddress",
         {"010312_OAK_ST_ADAMS_CY_01_3", "010112_OAK_ST_LEE_ANN_01_1", "01059_ELM_AVE_BROWN_ED_03_5", "01069_ELM_AVE_BURKE_FLO_03_6"}},
        {"team error", false, "TDupAddress", {"010112_OAK_ST_LEE_ANN_01_1", "010212_OAK_ST_LEE_BOB_02_2"}},
        // The Elm Ave pair made unknown, in other cases.
        {"All", true, "DupAddress", {"010312_OAK_ST_ADAMS_CY_01_3", "010112_OAK_ST_LEE_ANN_01_1", "010212_OAK_ST_LEE_BOB_02_2"}},
    };
    for (const Mode& m : modes) {
        SCOPED_TRACE(std::string(m.mode) + (m.elmUnknown ? ", Elm Ave unknown" : ""));
        std::vector<Person> people = ListPeople();
        if (m.elmUnknown) people[4].address = "address unknown", people[5].address = "ADDRESS UNKNOWN";
        ListCrusade l(people);
        lists::BuildDuplicates(l.c.p, m.mode);
        EXPECT_EQ(std::make_pair(std::string(m.name), m.expected), std::make_pair(l.c.p.SortName, l.Squeezed()));
    }
}

TEST(BuildCleanMailList, KeepsAddressesWithNoLabelOrMoreThanOne) {
    // NoLabel: records whose MailList is 0. No entries: the list is clean, said, and the mail list shows.
    struct Case { const char* what; std::vector<int> noLabel; int families; std::vector<std::string> entries; };
    const Case cases[] = {
        {"two labels at the address of three", {2}, 2,
         {"010312_OAK_ST_ADAMS_CY_01M0001_3", "010112_OAK_ST_LEE_ANN_01M0001_1", "010212_OAK_ST_LEE_BOB_02N0001_2",
          "01059_ELM_AVE_BROWN_ED_03M0002_5", "01069_ELM_AVE_BURKE_FLO_03M0002_6"}},
        // The settled address gives its group number to the next one.
        {"one label at the address of three", {2, 3}, 1, {"01059_ELM_AVE_BROWN_ED_03M0001_5", "01069_ELM_AVE_BURKE_FLO_03M0001_6"}},
        {"no label at the address of three", {1, 2, 3}, 2,
         {"010312_OAK_ST_ADAMS_CY_01N0001_3", "010112_OAK_ST_LEE_ANN_01N0001_1", "010212_OAK_ST_LEE_BOB_02N0001_2",
          "01059_ELM_AVE_BROWN_ED_03M0002_5", "01069_ELM_AVE_BURKE_FLO_03M0002_6"}},
        {"one label at each address", {2, 3, 6}, 0, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<Person> people = ListPeople();
        for (int n : c.noLabel) people[n - 1].mail = 0;
        ListCrusade l(people);
        if (c.entries.empty())
            l.c.host.ExpectBox("There are no addresses with more than one mail label.  The list is clean.");
        ASSERT_TRUE(lists::BuildCleanMailList(l.c.p));
        EXPECT_EQ(std::make_tuple(std::string(c.entries.empty() ? "mail" : "CleanMailList"), c.families,
                                  c.entries.empty() ? 6 : static_cast<int>(c.entries.size())),
                  std::make_tuple(l.c.p.SortName, l.c.p.FamilyCount, l.c.p.IndexCount));
        if (c.entries.empty()) continue;
        EXPECT_EQ(std::make_pair(c.entries, std::size_t{85}), std::make_pair(l.Squeezed(), l.c.p.SortIndex[1].size()));
    }
}

TEST(BuildCleanMailList, MorePeopleAtOneAddressThanItHoldsIsToldAndChangesNothing) {
    std::vector<std::string> numbers;
    std::vector<Person> people(lists::MaxFamily + 1, ListPeople()[0]);
    for (int i = 0; i <= lists::MaxFamily; ++i) numbers.push_back(std::to_string(1000 + i));
    for (std::size_t i = 0; i < people.size(); ++i) people[i].rnum = numbers[i].c_str();
    ListCrusade l(people);
    ASSERT_TRUE(lists::BuildList(l.c.p, "notes"));
    l.c.host.ExpectBox("More than 100 people have an address beginning \"12 OAK ST\"");
    EXPECT_FALSE(lists::BuildCleanMailList(l.c.p));
    EXPECT_EQ("notes 0", l.c.p.SortName + " " + std::to_string(l.c.p.IndexCount));
}
