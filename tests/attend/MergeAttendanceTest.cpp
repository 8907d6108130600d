// The second computer's night merged into the crusade.
#include <gtest/gtest.h>

#include "maint/SafetyCopy.h"
#include "platform/vb/Strings.h"
#include <algorithm>
#include <filesystem>

#include "store/Attendance.h"
#include "store/MasterRecord.h"
#include "support/TestCrusade.h"

using vb::RTrim;

namespace {

std::string Marks(std::initializer_list<int> meetings) {
    std::string a(40, '-');
    for (int m : meetings) a[static_cast<std::size_t>(m - 1)] = static_cast<char>('0' + m % 10);
    return a;
}

std::string Bytes(const std::vector<MasterRecord>& people) {
    std::string out;
    for (const MasterRecord& r : people) {
        RecordBytes b = EncodeRecord(r);
        out.append(b.data(), b.size());
    }
    return out;
}

// Here: Ann 1001 (meetings 1-4), Bob 1002 (1-4), Cy 1003 (1). The other computer took
// meeting 5: Ann came, Bob did not, 1003 is someone else there, 2001 is new, 2002 deleted.
struct Merge {
    TestCrusade c;
    EditForm& e;
    std::string remote;
    Merge() : e(c.ShowOnEditScreen({MakePerson("1001", "Ann", "Able", Marks({1, 2, 3, 4})),
                                     MakePerson("1002", "Bob", "Best", Marks({1, 2, 3, 4})),
                                     MakePerson("1003", "Cy", "Cole", Marks({1}))})) {
        remote = c.folder / "multi.dta";
        MasterRecord ann = MakePerson("1001", "Ann", "Able", Marks({5}));
        ann.Notes = "changed there";
        MasterRecord bob = MakePerson("1002", "Bob", "Best", Marks({4}));
        MasterRecord dee = MakePerson("1003", "Dee", "Dorn", Marks({5}));
        MasterRecord eve = MakePerson("2001", "Eve", "East", Marks({5}));
        MasterRecord gone = MakePerson("2002", "Gus", "Gone", Marks({5}));
        gone.WorkerCode = "##";
        for (MasterRecord* r : {&ann, &bob, &dee, &eve, &gone}) CountAttendance(*r);
        c.WriteFile(remote, Bytes({ann, bob, dee, eve, gone}));
        WriteInf("5");
        c.WriteFile(c.folder / "multi.mem", "0900Member        Mo             \r\n1001Able          Ann            \r\n");
        c.p.BackupPath = remote;
        c.p.MeetingNumber = 4;
    }
    void WriteInf(const std::string& meeting) {
        c.WriteFile(c.folder / "multi.inf", "Other\r\n1/1/27\r\n" + meeting + "\r\n");
    }
    // Runs the menu with the answers up to the question that is answered No, if any.
    void Run(bool whole, int refuseAt = 0) {
        c.host.ExpectOpen("Merge Attendance Records from Remote Computer", remote);
        c.host.ExpectBox("For Meeting Number: 5", refuseAt == 1 ? host::vbNo : host::vbYes,
                         "Vestrel Attendance Update from Remote Computer");
        if (refuseAt == 1) return e.mnuMergeAttendance.UserClick();
        c.host.ExpectBox("Do You want to update the entire record?", whole ? host::vbYes : host::vbNo);
        c.host.ExpectBox("1 numbers belong to another name on the other computer (here / there):\r\n"
                         "   1003  Cy Cole / Dee Dorn",
                         refuseAt == 2 ? host::vbNo : host::vbYes, "What the Merge Will Do");
        if (refuseAt == 2) return e.mnuMergeAttendance.UserClick();
        c.host.ExpectBox("Are you sure?", host::vbYes, "Last Chance!");
        c.host.ExpectBox("Attendance has been updated Successfully.");
        e.mnuMergeAttendance.UserClick();
    }
    // Number, attendance, total, last and notes of every record on disk.
    std::string Disk() const {
        std::string s;
        for (long i = 1; i <= c.RecordsOnDisk(); ++i) {
            MasterRecord r = c.ReadRecord(i);
            s += r.RNum.str() + " " + RTrim(r.Attendance.str().substr(0, 6)) + " " + RTrim(r.Attend) + " " +
                 std::to_string(r.Last) + (RTrim(r.Notes).empty() ? "" : " " + RTrim(r.Notes)) + "|";
        }
        return s;
    }
};

}  // namespace

TEST(MergeAttendance, MarksOfTheNightNewNamesOnceAndMembers) {
    struct Case { bool whole; int runs; int refuseAt; std::string disk; int meeting; } cases[] = {
        // Ann's mark is taken, Bob's record stays, Cole takes Dee's mark, Eve is added once.
        {false, 2, 0, "1001 12345- 5 5|1002 1234-- 4 4|1003 1---5- 2 5|2001 ----5- 1 5|", 5},
        // The whole record of those present: Ann's note from the other computer comes too.
        {true, 1, 0, "1001 ----5- 1 5 changed there|1002 1234-- 4 4|1003 ----5- 1 5|2001 ----5- 1 5|", 5},
        // No at the first question, or after seeing what the merge will do: nothing changes.
        {false, 1, 1, "1001 1234-- 4 4|1002 1234-- 4 4|1003 1----- 1 1|", 4},
        {false, 1, 2, "1001 1234-- 4 4|1002 1234-- 4 4|1003 1----- 1 1|", 4},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(std::to_string(k.whole) + " refuse at " + std::to_string(k.refuseAt));
        Merge m;
        for (int i = 0; i < k.runs; ++i) m.Run(k.whole, k.refuseAt);
        EXPECT_EQ(k.disk, m.Disk());
        EXPECT_EQ(k.meeting, m.c.p.MeetingNumber);
        if (k.refuseAt == 0) {
            EXPECT_EQ(4, m.c.p.IndexCount);
            ASSERT_TRUE(safety::Last(m.c.p.DataFile));
            EXPECT_EQ("Merge Attendance", safety::Last(m.c.p.DataFile)->operation);
            const std::string inf = m.c.ReadFile(m.c.p.CrusadeFile("inf"));
            EXPECT_EQ(" 5\r\n", inf.substr(inf.find("\r\n", inf.find("\r\n") + 2) + 2, 4));
            EXPECT_NE(m.c.ReadFile(m.c.p.CrusadeFile("mem")).find("0900Member"), std::string::npos);
            EXPECT_EQ(std::count(m.c.p.MemberList.begin(), m.c.p.MemberList.end(), m.c.p.MemberList[1]), 1);
        }
    }
}

// A filtered list is not what the numbers are looked up in: the people it leaves
// out would otherwise come in a second time as new names.
TEST(MergeAttendance, AFilteredListAddsNobodyTwice) {
    Merge m;
    m.c.p.SortName = "attendnight01";
    m.c.p.SortIndex.resize(2);
    m.c.p.IndexCount = 1;   // Ann only
    m.Run(false);
    EXPECT_EQ(4, m.c.RecordsOnDisk());
}

TEST(MergeAttendance, ARemoteCrusadeThatCannotBeMergedIsRefusedFirst) {
    struct Case { std::string inf; long cut; bool same; std::string box; } cases[] = {
        {"41", 0, false, "gives meeting 41. A meeting number must be between 1 and 40."},
        {"0", 0, false, "gives meeting 0."},
        {"five", 0, false, "does not give a meeting number."},
        {"", 0, false, "could not be read."},
        {"5", 100, false, "is not a crusade file"},
        {"5", 0, true, "You Cannot Update the Currently Loaded File to itself."},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.box);
        Merge m;
        const std::string before = m.Disk();
        if (k.inf.empty()) std::filesystem::remove(m.c.folder / "multi.inf");
        else m.WriteInf(k.inf);
        if (k.cut) std::filesystem::resize_file(m.remote, 3 * MasterRecord::Length + k.cut);
        m.c.host.ExpectOpen("Merge Attendance", k.same ? m.c.p.DataFile : m.remote);
        m.c.host.ExpectBox(k.box);
        m.e.mnuMergeAttendance.UserClick();
        EXPECT_EQ(before, m.Disk());
        EXPECT_EQ(4, m.c.p.MeetingNumber);
    }
    // With no stored path there is nothing to offer.
    Merge m;
    m.c.p.BackupPath.clear();
    m.c.host.ExpectBox("These files have not been backed up.  You cannot restore them.");
    m.e.mnuMergeAttendance.UserClick();
}
