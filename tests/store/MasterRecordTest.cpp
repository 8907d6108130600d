#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/MasterRecord.h"
#include "support/TestCrusade.h"

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

namespace {
template <std::size_t N>
void Fill(FixedText<N>& f, char c) { f = std::string(N, c); }
void Fill(std::int16_t& v, char c) { v = static_cast<std::int16_t>((c << 8) | c); }
}  // namespace

TEST(RecordLayout, EveryFieldIsWrittenWhereTheTableSays) {
    using Filler = void (*)(MasterRecord&, char);
#define FIELD(name) {#name, [](MasterRecord& r, char c) { Fill(r.name, c); }}
    const std::pair<std::string_view, Filler> fields[] = {
        FIELD(RNum), FIELD(FName), FIELD(LName), FIELD(Address), FIELD(City), FIELD(State), FIELD(Zip),
        FIELD(Phone), FIELD(Age), FIELD(Advertising), FIELD(RelPref), FIELD(IntLevel), FIELD(Visits),
        FIELD(WorkerCode), FIELD(Notes), FIELD(Attendance), FIELD(Attend), FIELD(Last), FIELD(MailList),
        FIELD(Decisions), FIELD(Class), FIELD(MapCode), FIELD(BaptDate), FIELD(IntFlag), FIELD(BirthDate),
        FIELD(MarkToVisit), FIELD(Email)};
#undef FIELD
    ASSERT_EQ(RecordLayout::Fields.size(), std::size(fields));
    // Each field its own byte, so a field written one place off shows in two spans.
    MasterRecord r;
    for (std::size_t i = 0; i < std::size(fields); ++i) fields[i].second(r, static_cast<char>('A' + i));
    RecordBytes b = EncodeRecord(r);
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        const RecordLayout::Field& f = RecordLayout::Named(fields[i].first);
        EXPECT_EQ(std::string(f.width, static_cast<char>('A' + i)), std::string(b.data() + f.offset, f.width))
            << f.name;
    }
    EXPECT_EQ(-2, RecordLayout::GetInt16("\xFE\xFF"));
}

TEST(RecordLayout, ReadsAndWritesRecordNOfAFileOfWholeRecordsOnly) {
    TempFolder folder;
    const std::string path = folder / "layout.dta";
    MasterRecord r;
    r.RNum = "0042";
    r.Last = 7;
    r.Email = "x@example.org";
    {
        vb::RandomFile f;
        f.Open(path, MasterRecord::Length);
        RecordLayout::Write(f, 3, r);
        MasterRecord back;
        EXPECT_TRUE(RecordLayout::Read(f, 3, back));
        EXPECT_EQ(r, back);
        EXPECT_EQ(3L, f.RecordCount());
        // Past the end: a cleared record, not what the buffer held.
        EXPECT_FALSE(RecordLayout::Read(f, 4, back));
        EXPECT_EQ(MasterRecord(), back);
    }
    {
        // A file opened with an older record length is refused, not read across records.
        vb::RandomFile f;
        f.Open(path, 371);
        MasterRecord back;
        for (auto op : {+[](vb::RandomFile& g, MasterRecord& m) { RecordLayout::Read(g, 1, m); },
                        +[](vb::RandomFile& g, MasterRecord& m) { RecordLayout::Write(g, 1, m); }}) {
            try {
                op(f, back);
                ADD_FAILURE() << "no error";
            } catch (const vb::RuntimeError& e) {
                EXPECT_EQ(vb::errBadRecordLength, e.Number);
            }
        }
    }
    EXPECT_EQ(3 * MasterRecord::Length, static_cast<int>(std::filesystem::file_size(path)));
}
