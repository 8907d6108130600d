#include <gtest/gtest.h>

#include <random>

#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

TEST(FullLoad, AFileThatIsNotACrusadeIsRefusedAndLeftUntouched) {
    std::mt19937 random(12345);
    auto good = [](int n) {
        RecordBytes b = EncodeRecord(MakePerson(vb::Right("000" + std::to_string(n), 4), "Ann", "Lee"));
        return std::string(b.data(), b.size());
    };
    // Records: numbers of digits with binary names are no records either;
    // a crusade with half its records damaged is still a crusade.
    struct Row { const char* what; int good; int bad; bool digits; bool refused; };
    for (const Row& row : {Row{"random bytes", 0, 50, false, true}, Row{"digits, then binary", 0, 50, true, true},
                           Row{"four good of ten", 4, 6, false, true}, Row{"five good of ten", 5, 5, false, false}}) {
        TestCrusade c;
        std::string bytes;
        for (int i = 0; i < row.good; ++i) bytes += good(i + 1);
        for (int i = 0; i < row.bad; ++i) {
            std::string rec(MasterRecord::Length, ' ');
            for (char& ch : rec) ch = static_cast<char>(random() >> 24);
            if (row.digits) rec.replace(0, 4, "1234");
            bytes += rec;
        }
        c.WriteFile(c.dataFile, bytes);
        c.p.Loaded = true;
        if (row.refused) c.host.ExpectBox("The file " + c.dataFile + " is not a crusade's record file");
        OpenRecordFile(c.p);
        if (!row.refused) {
            FullLoadPass(c.p);
            continue;
        }
        EXPECT_FALSE(FullLoad(c.p)) << row.what;
        EXPECT_TRUE(bytes == c.ReadFile(c.dataFile)) << row.what;
        // No list, not loaded, the file let go.
        EXPECT_EQ((std::vector<long>{0, 1, 0, 0}),
                  (std::vector<long>{c.p.IndexCount, static_cast<long>(c.p.SortIndex.size()), c.p.Loaded,
                                     c.p.File1.IsOpen()}))
            << row.what;
    }
}
