#include <gtest/gtest.h>

#include <set>

#include "platform/vb/Strings.h"
#include "store/Generator.h"
#include "store/Members.h"
#include "support/TestCrusade.h"

TEST(Generator, TheSeedDecidesEveryByteAndALoadFindsTheCrusadeAsWrittenWithMembersApart) {
    TestCrusade same, other;
    GenerateCrusade(same.p, same.dataFile, 500, 7, 23);
    GenerateCrusade(other.p, other.dataFile, 500, 8, 23);
    for (int people : {1, 2, 3, 4, 5, 6, 500, 9860, 9999}) {
        SCOPED_TRACE(people);
        TestCrusade c;
        // The small ones draw how many meetings were held.
        GenerateCrusade(c.p, c.dataFile, people, people < 10 ? people : 7, people < 10 ? 0 : 23);
        const int held = c.p.MeetingNumber;
        const std::string written = c.ReadFile(c.dataFile), zps = c.ReadFile(c.p.CrusadeFile("zps"));
        if (people == 500) {
            std::string files[2];
            for (const char* ext : {"dta", "inf", "zps", "mem"}) {
                files[0] += c.ReadFile(c.p.CrusadeFile(ext)) + "|";
                files[1] += same.ReadFile(same.p.CrusadeFile(ext)) + "|";
            }
            EXPECT_TRUE(files[0] == files[1]) << "one seed gave two crusades";
            EXPECT_TRUE(written != other.ReadFile(other.dataFile)) << "two seeds gave one crusade";
        }
        std::set<std::string> living;
        for (long i = 0; i < people; ++i) {
            const char* rec = written.data() + i * MasterRecord::Length;
            const std::string num(rec, 4);
            ASSERT_EQ(vb::Right("0000" + vb::CStr(9998 - i), 4), num) << "record " << i + 1;
            if (std::string(rec + RecordAt::WorkerCode, 2) != "##") living.insert(num);
            EXPECT_GE(vb::Val(num), c.p.LastRNum) << "the next number drawn would repeat " << num;
        }
        EXPECT_TRUE(people != 500 || living.size() < 500u) << "nobody deleted";
        for (int m = 1; m <= c.p.MemberCount; ++m) {
            const std::string num = c.p.MemberList[m].substr(0, 4);
            EXPECT_EQ(34u, c.p.MemberList[m].size()) << c.p.MemberList[m];
            EXPECT_EQ(0u, living.count(num)) << "member " << c.p.MemberList[m];
            EXPECT_GE(vb::Val(num), c.p.LastRNum) << "member " << c.p.MemberList[m];
        }
        // Opened as the menu opens a loaded crusade: no box, no mark past the meetings held, nothing to repair.
        c.p.Loaded = true;
        c.Open();
        EXPECT_EQ((std::vector<int>{held, static_cast<int>(living.size())}),
                  (std::vector<int>{c.p.MeetingNumber, c.p.IndexCount}));
        c.p.File1.Close();
        EXPECT_TRUE(c.ReadFile(c.dataFile) == written) << "the load changed the generated records";
        SaveZips(c.p);   // the recount agrees with the table
        EXPECT_EQ(zps, c.ReadFile(c.p.CrusadeFile("zps")));
    }
}
