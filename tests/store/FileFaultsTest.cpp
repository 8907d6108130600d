// The crusade's files damaged or taken away under the running program.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "edit/CardCrusade.h"
#include "edit/Navigate.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;
using vb::RTrim;

namespace {
// Lets the process write files no longer than `bytes` while it lives.
struct FileSizeLimit {
    rlimit was{};
    explicit FileSizeLimit(std::uintmax_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &was);
        rlimit lim = was;
        lim.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &lim);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &was); }
};
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
        EXPECT_TRUE(!k.replaced || t.c.ReadFile(t.c.dataFile + ".replaced") == "someone else's");
        t.c.host.Verify();
    }
}

TEST_F(FileFaults, ADiskFullAppendLeavesNoPieceOfTheCard) {
    StartAdding("1");
    e.LName.SetText("Full");
    // Room for 37 bytes of the card: the disk takes a piece and then refuses.
    const auto whole = static_cast<std::uintmax_t>(8 * MasterRecord::Length);
    {
        FileSizeLimit limit(whole + 37);
        c.host.ExpectBox("Nothing was changed in the file", host::vbOK, "Record Not Saved");
        e.btnSaveNew_Click();
    }
    EXPECT_EQ(whole, fs::file_size(c.dataFile));
    e.btnSaveNew_Click();
    EXPECT_EQ(whole + MasterRecord::Length, fs::file_size(c.dataFile));
}

TEST(FullLoad, AWriteThatFailsMidPassLeavesTheFileUnlockedAndTheListWhole) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "A", "Able"), MakePerson("9997", "B", "Baker"), MakePerson("9996", "C", "Cole")});
    OpenRecordFile(c.p);
    {
        FileSizeLimit limit(MasterRecord::Length);   // the disk refuses everything past the first record
        EXPECT_THROW(FullLoadPass(c.p), vb::RuntimeError);
    }
    EXPECT_EQ(c.p.IndexCount + 1, static_cast<int>(c.p.SortIndex.size()));
    c.p.MasterRec.RNum = "9997";
    EXPECT_EQ(0, FindByNumber(c.p));
    vb::RandomFile other;
    other.Open(c.dataFile, MasterRecord::Length);
    EXPECT_NO_THROW(other.Lock()) << "the pass kept the lock after its fault";
}
