#include <gtest/gtest.h>

#include <set>

#include "platform/vb/Strings.h"
#include "store/Generator.h"
#include "store/Members.h"
#include "support/TestCrusade.h"

TEST(Generator, TheSeedAloneDecidesEveryByteAndALoadFindsTheCrusadeInOrder) {
    TestCrusade c, same, other;
    GenerateCrusade(c.p, c.dataFile, 500, 7, 23);
    GenerateCrusade(same.p, same.dataFile, 500, 7, 23);
    GenerateCrusade(other.p, other.dataFile, 500, 8, 23);
    std::string files[2];
    for (const char* ext : {"dta", "inf", "zps", "mem"}) {
        files[0] += c.ReadFile(c.p.CrusadeFile(ext)) + "|";
        files[1] += same.ReadFile(same.p.CrusadeFile(ext)) + "|";
    }
    EXPECT_TRUE(files[0] == files[1]) << "one seed gave two crusades";
    const std::string written = c.ReadFile(c.dataFile);
    EXPECT_TRUE(written != other.ReadFile(other.dataFile)) << "two seeds gave one crusade";
    const std::string zpsWritten = c.ReadFile(c.p.CrusadeFile("zps"));
    int deleted = 0;
    for (long i = 1; i <= 500; ++i) {
        MasterRecord r = c.ReadRecord(i);
        ASSERT_EQ(vb::Right("0000" + vb::CStr(9999 - i), 4), r.RNum.str()) << "record " << i;
        deleted += r.WorkerCode == "##";
    }
    EXPECT_GT(deleted, 0);

    c.Open();
    EXPECT_EQ(500 - deleted, c.p.IndexCount);
    // No mark past the meetings held, and the repairs of the load find nothing to repair.
    EXPECT_EQ(23, c.p.MeetingNumber);
    c.p.File1.Close();
    EXPECT_TRUE(c.ReadFile(c.dataFile) == written) << "the load changed the generated records";
    SaveZips(c.p);   // the recount agrees with the table
    EXPECT_EQ(zpsWritten, c.ReadFile(c.p.CrusadeFile("zps")));
}

TEST(Generator, EveryCrusadeReachesItsLastMeetingAndMembersNeverShareANumberWithAPerson) {
    for (int people : {1, 2, 3, 4, 5, 6, 500, 9860, 9999}) {
        TestCrusade c;
        // The small ones draw how many meetings were held.
        GenerateCrusade(c.p, c.dataFile, people, people < 10 ? people : 5, people < 10 ? 0 : 30);
        const int held = c.p.MeetingNumber;
        std::set<std::string> living;
        std::string bytes = c.ReadFile(c.dataFile);
        for (long i = 0; i < people; ++i) {
            const char* rec = bytes.data() + i * MasterRecord::Length;
            std::string num(rec, 4);
            if (std::string(rec + RecordAt::WorkerCode, 2) != "##") living.insert(num);
            EXPECT_GE(vb::Val(num), c.p.LastRNum) << people << ": the next number drawn would repeat " << num;
        }
        for (int m = 1; m <= c.p.MemberCount; ++m) {
            const std::string num = c.p.MemberList[m].substr(0, 4);
            EXPECT_EQ(34u, c.p.MemberList[m].size()) << c.p.MemberList[m];
            EXPECT_EQ(0u, living.count(num)) << people << ": member " << c.p.MemberList[m];
            EXPECT_GE(vb::Val(num), c.p.LastRNum) << people << ": member " << c.p.MemberList[m];
        }
        // Opened as the menu opens a loaded crusade: neither a repeated number nor the members' check shows a box.
        c.p.Loaded = true;
        c.Open();
        EXPECT_EQ(held, c.p.MeetingNumber) << people;
        EXPECT_GE(c.p.IndexCount, 1) << people;
    }
}
