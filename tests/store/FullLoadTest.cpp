#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

#include "edit/Navigate.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using vb::RTrim;

namespace {
MasterRecord Placeholder(const std::string& rnum) {
    MasterRecord r;
    ClearRecord(r);
    r.RNum = rnum;
    r.LName = "  Unknown";
    r.Attendance = "1";
    return r;
}
}  // namespace

TEST(FullLoad, RepairsEveryRecordAndWritesItBack) {
    TestCrusade c;
    std::vector<MasterRecord> recs;
    MasterRecord a = MakePerson("9998", "  mary", " Zeller", " 1-3-5");   // leading blanks shift attendance
    a.WorkerCode = "4A";
    a.Age = "";
    a.Decisions = " CX";        // blank -> code, stale letter -> code, rest blank -> code
    recs.push_back(a);
    MasterRecord b = MakePerson("9997", "Al", "Adams", "");
    b.WorkerCode = "1 ";        // text comparison: in range
    b.Age = "3 thirties";       // a digit and more than 5 characters: age group 3
    b.Decisions = "---------";
    recs.push_back(b);
    MasterRecord d = MakePerson("9996", "Del", "Gone", "1-------7");
    d.WorkerCode = "##";
    d.Age = "Unknown";
    d.Decisions = "?--------";
    recs.push_back(d);
    MasterRecord e = MakePerson("9995", "Eve", "Forty", "1");
    e.WorkerCode = "40";        // the last team is a team
    recs.push_back(e);
    c.WriteRecords(recs);
    c.p.LastRNum = 9990;
    OpenRecordFile(c.p);
    FullLoad(c.p);

    MasterRecord ra = c.ReadRecord(1);
    EXPECT_EQ("mary", RTrim(ra.FName));
    EXPECT_EQ("Zeller", RTrim(ra.LName));
    EXPECT_EQ("1-3-5-----------------------------------", ra.Attendance.str());
    EXPECT_EQ("3 ", ra.Attend.str());
    EXPECT_EQ(5, ra.Last);
    EXPECT_EQ("00", ra.WorkerCode.str());
    EXPECT_EQ("NIF", RTrim(ra.Age));
    EXPECT_EQ("CSKPBTADU   ", ra.Decisions.str());

    MasterRecord rb = c.ReadRecord(2);
    EXPECT_EQ("1 ", rb.WorkerCode.str());
    EXPECT_EQ("30-39", RTrim(rb.Age));
    // Empty attendance: the meeting's last digit at the meeting's place (5 by now).
    EXPECT_EQ("----5-----------------------------------", rb.Attendance.str());
    EXPECT_EQ("---------   ", rb.Decisions.str());

    // A deleted record keeps its attendance but has ages and decisions repaired.
    MasterRecord rd = c.ReadRecord(3);
    EXPECT_EQ("1-------7", RTrim(rd.Attendance));
    EXPECT_EQ("##", rd.WorkerCode.str());
    EXPECT_EQ("NIF", RTrim(rd.Age));
    EXPECT_EQ("C--------   ", rd.Decisions.str());

    EXPECT_EQ("40", c.ReadRecord(4).WorkerCode.str());

    EXPECT_EQ(5, c.p.MeetingNumber);
    EXPECT_EQ(3, c.p.IndexCount);
    EXPECT_EQ("9997ADAMSAL   2", c.p.SortIndex[1]);
    EXPECT_EQ("9995FORTYEV   4", c.p.SortIndex[2]);
    EXPECT_EQ("9998ZELLEMA   1", c.p.SortIndex[3]);
    EXPECT_EQ(1, c.p.CurrentIndex);
}

TEST(FullLoad, PlaceholdersAreDeletedOnlyAtOrPastTheLastNumber) {
    for (const char* direction : {"DOWN", "UP"}) {
        TestCrusade c;
        c.WriteRecords({Placeholder("5000"), Placeholder("5001"), Placeholder("4999")});
        c.p.NumberDirection = direction;
        c.p.LastRNum = 5000;
        OpenRecordFile(c.p);
        FullLoad(c.p);
        bool down = std::string(direction) == "DOWN";
        EXPECT_EQ("##", c.ReadRecord(1).WorkerCode.str()) << direction;   // equality counts both ways
        EXPECT_EQ(down ? "##" : "00", c.ReadRecord(2).WorkerCode.str()) << direction;
        EXPECT_EQ(down ? "00" : "##", c.ReadRecord(3).WorkerCode.str()) << direction;
        // Deleted in this pass, still in this pass's list.
        EXPECT_EQ(3, c.p.IndexCount) << direction;
        RebuildAlpha(c.p);
        EXPECT_EQ(1, c.p.IndexCount) << direction;
    }
}

TEST(FullLoad, RenumbersTheMasterCrusadeAndClearsCardFlagsWhenAsked) {
    TestCrusade c("Master");
    MasterRecord a = MakePerson("9000", "A", "Able");
    a.IntFlag = -1;
    MasterRecord gone = MakePerson("9001", "B", "Gone");
    gone.WorkerCode = "##";
    c.WriteRecords({a, gone, MakePerson("9002", "C", "Cole")});
    c.p.CrusadeName = "Master";
    c.p.ScratchValue = "ClearFlag";
    OpenRecordFile(c.p);
    FullLoad(c.p);
    EXPECT_EQ("0001", c.ReadRecord(1).RNum.str());
    EXPECT_EQ("9001", c.ReadRecord(2).RNum.str());
    EXPECT_EQ("0002", c.ReadRecord(3).RNum.str());
    EXPECT_EQ(0, c.ReadRecord(1).IntFlag);
}

TEST(FullLoad, DuplicateNumbersAreReportedInOrderAndCancelEndsTheCheck) {
    TestCrusade c;
    c.WriteRecords({MakePerson("1111", "A", "A"), MakePerson("1111", "B", "B"), MakePerson("2222", "C", "C"),
                    MakePerson("1111", "D", "D"), MakePerson("2222", "E", "E"), MakePerson("3333", "F", "F"),
                    MakePerson("3333", "G", "G")});
    // 1111 reported, its second entry clears the memory, 2222 reported, the third 1111
    // is reported again, the second 2222 again; Cancel there ends it before 3333.
    c.host.ExpectBox("The following record is duplicated: 1111", host::vbOK, "", host::vbOKCancel)
        .ExpectBox("duplicated: 2222", host::vbOK)
        .ExpectBox("duplicated: 1111", host::vbOK)
        .ExpectBox("duplicated: 2222", host::vbCancel);
    OpenRecordFile(c.p);
    FullLoad(c.p);
    c.host.Verify();
    EXPECT_NE(std::string::npos,
              c.host.shown[0].text.find("You should manually remove one of these records after 'Fix Files' is completed."));
}

TEST(FullLoad, ANumberHeldByThreePeopleIsReportedTwice) {
    // Record order: the second holder clears the memory, so the third is reported again.
    struct Row { std::vector<const char*> numbers; int boxes; };
    for (const Row& row : std::vector<Row>{{{"1111", "1111"}, 1}, {{"1111", "1111", "1111"}, 2},
                                           {{"1111", "1111", "1111", "1111"}, 2}}) {
        TestCrusade c;
        std::vector<MasterRecord> recs;
        for (const char* n : row.numbers) recs.push_back(MakePerson(n, "A", "Able"));
        c.WriteRecords(recs);
        for (int b = 0; b < row.boxes; ++b) c.host.ExpectBox("The following record is duplicated: 1111");
        OpenRecordFile(c.p);
        FullLoad(c.p);
        c.host.Verify();
    }
}

TEST(FullLoad, EmptyAndDamagedFiles) {
    TestCrusade c;
    c.WriteRecords({});
    OpenRecordFile(c.p);
    FullLoad(c.p);
    EXPECT_EQ(0, c.p.IndexCount);
    EXPECT_EQ(0, c.p.CurrentIndex);

    // A tail that is not a whole record is ignored and kept.
    TestCrusade t;
    t.WriteRecords({MakePerson("9998", "A", "Able"), MakePerson("9997", "B", "Baker")});
    std::string bytes = t.ReadFile(t.dataFile) + std::string(100, 'Z');
    t.WriteFile(t.dataFile, bytes);
    OpenRecordFile(t.p);
    EXPECT_EQ(2, t.p.RecordCount);
    FullLoad(t.p);
    EXPECT_EQ(2, t.p.IndexCount);
    std::string after = t.ReadFile(t.dataFile);
    ASSERT_EQ(bytes.size(), after.size());
    EXPECT_EQ(std::string(100, 'Z'), after.substr(after.size() - 100));
}

TEST(FullLoad, FixFilesLeavesTheMeetingAtTheHighestAttended) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "A", "Able", "123")});
    c.p.MeetingNumber = 9;
    OpenRecordFile(c.p);
    FullLoad(c.p);
    EXPECT_EQ(3, c.p.MeetingNumber);
}

TEST(FullLoad, AFileThatIsNotACrusadeIsRefusedAndLeftUntouched) {
    auto noise = [](unsigned state, std::size_t n) {
        std::string s;
        for (std::size_t i = 0; i < n; ++i) {
            state = state * 1103515245u + 12345u;
            s += static_cast<char>((state >> 16) & 0xFF);
        }
        return s;
    };
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
            std::string rec = noise(12345u + static_cast<unsigned>(i), MasterRecord::Length);
            if (row.digits) rec.replace(0, 4, "1234");
            bytes += rec;
        }
        c.WriteFile(c.dataFile, bytes);
        c.p.Loaded = true;
        if (row.refused) c.host.ExpectBox("The file " + c.dataFile + " is not a crusade's record file");
        OpenRecordFile(c.p);
        if (!row.refused) {
            FullLoadPass(c.p);
            c.host.Verify();
            continue;
        }
        EXPECT_FALSE(FullLoad(c.p)) << row.what;
        c.host.Verify();
        EXPECT_TRUE(bytes == c.ReadFile(c.dataFile)) << row.what;
        EXPECT_EQ(0, c.p.IndexCount) << row.what;
        EXPECT_EQ(1u, c.p.SortIndex.size()) << row.what;
        EXPECT_FALSE(c.p.Loaded) << row.what;
        EXPECT_FALSE(c.p.File1.IsOpen()) << row.what;
    }
}

TEST(FullLoad, AWriteThatFailsMidPassLeavesTheFileUnlockedAndTheListWhole) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "A", "Able"), MakePerson("9997", "B", "Baker"), MakePerson("9996", "C", "Cole")});
    OpenRecordFile(c.p);
    // The disk refuses everything past the first record.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit was{};
    ::getrlimit(RLIMIT_FSIZE, &was);
    rlimit small = was;
    small.rlim_cur = MasterRecord::Length;
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THROW(FullLoadPass(c.p), vb::RuntimeError);
    ::setrlimit(RLIMIT_FSIZE, &was);
    EXPECT_EQ(c.p.IndexCount + 1, static_cast<int>(c.p.SortIndex.size()));
    c.p.MasterRec.RNum = "9997";
    EXPECT_EQ(0, FindByNumber(c.p));
    vb::RandomFile other;
    other.Open(c.dataFile, MasterRecord::Length);
    EXPECT_NO_THROW(other.Lock()) << "the pass kept the lock after its fault";
}
