#include <gtest/gtest.h>

#include <cstring>

#include "store/MasterRecord.h"

TEST(MasterRecord, EveryFieldSitsAtItsOffsetAndRoundTripsByteExact) {
    MasterRecord r;
    r.RNum = "9998"; r.FName = "Mary"; r.LName = "O'Neil"; r.Address = "12 Oak St #2B"; r.City = "Springfield";
    r.State = "IL"; r.Zip = "62701"; r.Phone = "555-0100"; r.Age = "30-39"; r.Advertising = "..X....";
    r.RelPref = "Baptist"; r.IntLevel = "G"; r.Visits = "LV"; r.WorkerCode = "07"; r.Notes = "Likes hymns";
    r.Attendance = "12-4"; r.Attend = "3"; r.Last = 4; r.MailList = -1; r.Decisions = "C-K------";
    r.Class = -1; r.MapCode = "xxxx"; r.BaptDate = "03/01/26"; r.IntFlag = -1; r.BirthDate = "1/2/60";
    r.MarkToVisit = -1; r.Email = "mary@example.org";
    RecordBytes b = EncodeRecord(r);
    const char* d = b.data();
    struct { int offset; const char* text; } texts[] = {
        {0, "9998"}, {4, "Mary"}, {24, "O'Neil"}, {44, "12 Oak St #2B"}, {74, "Springfield"}, {94, "IL"},
        {96, "62701"}, {106, "555-0100"}, {118, "30-39"}, {128, "..X...."}, {148, "Baptist"}, {168, "G"},
        {169, "LV"}, {181, "07"}, {183, "Likes hymns"}, {333, "12-4"}, {373, "3"}, {379, "C-K------"},
        {393, "xxxx"}, {401, "03/01/26"}, {411, "1/2/60"}, {421, "mary@example.org"}};
    for (const auto& t : texts) EXPECT_EQ(0, std::memcmp(d + t.offset, t.text, std::strlen(t.text))) << t.text;
    // Blank padding, never terminated; little-endian 16-bit integers.
    const std::pair<int, std::string> bytes[] = {{8, " "}, {460, " "}, {375, std::string("\x04\0\xFF\xFF", 4)},
                                                 {391, "\xFF\xFF"}, {409, "\xFF\xFF"}, {419, "\xFF\xFF"}};
    for (const auto& [at, want] : bytes) EXPECT_EQ(want, std::string(d + at, want.size())) << at;
    EXPECT_EQ(r, DecodeRecord(d));

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
