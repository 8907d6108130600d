#include <gtest/gtest.h>

#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

TEST(Members, TheLoadAsksAboutRepeatedNumbersAndCleansTheFile) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "A", "Able")});
    c.WriteFile(c.p.CrusadeFile("mem"),
                "0101Smith          John           \r\n"
                "0102Brown          Ann            \r\n"
                "0101Other          Name           \r\n"
                "0102Brown          Ann            \r\n");
    LoadMembers(c.p);
    EXPECT_EQ(4, c.p.MemberCount);
    c.p.Loaded = true;
    c.host.ExpectBox("The following number is in the SDA Member file two times:\r\n\r\n"
                     "0101Smith          John           \r\n0101Other          Name           \r\n\r\n"
                     "Do you want to remove 0101Other          Name           ?",
                     host::vbNo, "Duplicate Chruch member Name", host::vbYesNo | host::vbQuestion)
        .ExpectBox("Do you want to remove 0102Brown", host::vbYes);
    c.Open();
    EXPECT_EQ(3, c.p.MemberCount);
    EXPECT_EQ("0101Smith          John           \r\n0102Brown          Ann            \r\n"
              "0101Other          Name           \r\n",
              c.ReadFile(c.p.CrusadeFile("mem")));
}

TEST(Members, CommasSplitEntriesAndAnEmptyListKeepsTheOldFile) {
    TestCrusade c;
    c.WriteFile(c.p.CrusadeFile("mem"), "0101Smith, Jr      John           \r\n");
    LoadMembers(c.p);
    ASSERT_EQ(2, c.p.MemberCount);
    EXPECT_EQ("0101Smith", c.p.MemberList[1]);
    c.p.MemberCount = 0;
    SaveMembers(c.p);
    EXPECT_EQ("0101Smith, Jr      John           \r\n", c.ReadFile(c.p.CrusadeFile("mem")));
}

TEST(Zips, TheTableStopsAt2000AndCountsPeople) {
    TestCrusade c;
    std::string text;
    for (int i = 0; i < 2005; ++i) {
        std::string zip = std::to_string(10000 + i);
        text += zip + "     IL07Town" + std::string(11, ' ') + "   0\r\n";
    }
    c.WriteFile(c.p.CrusadeFile("zps"), text);
    LoadZips(c.p);
    EXPECT_EQ(2000, c.p.ZipCount);
    // Two people in 10001 and one deleted there.
    std::vector<MasterRecord> people = {MakePerson("9998", "A", "Able"), MakePerson("9997", "B", "Baker"),
                                        MakePerson("9996", "C", "Gone")};
    for (MasterRecord& r : people) r.Zip = "10001";
    people[2].WorkerCode = "##";
    c.WriteRecords(people);
    OpenRecordFile(c.p);
    CountZips(c.p);
    EXPECT_EQ("10001     IL07Town              2", c.p.ZipList[2]);
}

TEST(Members, DamagedSideFilesReadTheSameAfterASave) {
    TestCrusade c;
    const std::vector<std::string> damaged = {
        "0101Smith          John           \r\n\"0102Brown, Jr      Ann            \r\n0103Cole           Al             \r\n",
        "\"0101Smith\r\n\r\n\"0102\r\n",
        "0101Smith\r\n\"   , \"x\r\n",
        "\"\"\"\r\n",
    };
    // Both tables as read, members first.
    auto tables = [&] {
        LoadMembers(c.p);
        LoadZips(c.p);
        return std::make_pair(std::vector<std::string>(c.p.MemberList.begin() + 1, c.p.MemberList.end()),
                              std::vector<std::string>(c.p.ZipList.begin() + 1, c.p.ZipList.begin() + 1 + c.p.ZipCount));
    };
    for (const std::string& text : damaged) {
        c.WriteFile(c.p.CrusadeFile("mem"), text);
        c.WriteFile(c.p.CrusadeFile("zps"), text);
        const auto read = tables();
        EXPECT_EQ(read.first, read.second) << text;
        for (int round = 0; round < 2; ++round) {
            SaveMembers(c.p);
            SaveZips(c.p);
            EXPECT_EQ(read, tables()) << text;
        }
    }
}
