#include <gtest/gtest.h>

#include "platform/vb/Strings.h"
#include "store/MasterRecord.h"

TEST(MasterRecord, TheNewestFieldsSitAtTheEndAndAnyBytesRoundTrip) {
    // The fields older layouts share are placed by the conversion test; these four are blank there.
    MasterRecord r;
    r.IntFlag = -1;
    r.BirthDate = "1/2/60";
    r.MarkToVisit = 1;
    r.Email = "mary@example.org";
    RecordBytes b = EncodeRecord(r);
    EXPECT_EQ(std::string("\xFF\xFF" "1/2/60  " "\x01\0", 12) + vb::Fixed("mary@example.org", 40),
              std::string(b.data() + 409, MasterRecord::Length - 409));
    EXPECT_EQ(r, DecodeRecord(b.data()));

    // Any bytes at all come back as they were, NULs and high characters included.
    RecordBytes any;
    for (int i = 0; i < MasterRecord::Length; ++i) any[i] = static_cast<char>((i * 37 + 11) & 0xFF);
    EXPECT_EQ(any, EncodeRecord(DecodeRecord(any.data())));
}

TEST(MasterRecord, FixedWidthCutsAndPadsAndClearKeepsAttendanceAndEmail) {
    MasterRecord r;
    r.State = "Illinois";
    EXPECT_EQ("Il", r.State.str());
    r.FName = "Jo";
    EXPECT_EQ(20u, r.FName.str().size());
    r.Attendance = "1-3";
    r.Attend = "2";
    r.Last = 3;
    r.Email = "kept@example.org";
    r.WorkerCode = "12";
    ClearRecord(r);
    EXPECT_EQ((std::vector<std::string>{".......", "00", "---------", "1-3", "kept@example.org", ""}),
              (std::vector<std::string>{vb::RTrim(r.Advertising), r.WorkerCode.str(), vb::RTrim(r.Decisions),
                                        vb::RTrim(r.Attendance), vb::RTrim(r.Email), vb::RTrim(r.FName)}));
    EXPECT_EQ(3, r.Last);
}
