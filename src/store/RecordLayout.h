#pragma once
// Where each field stands in the 461-byte record and how its numbers are
// written. Every reader and writer of a record file goes by this one table.
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace vb {
class RandomFile;
}
struct MasterRecord;

namespace RecordLayout {

inline constexpr std::size_t Length = 461;

struct Field {
    std::string_view name;
    std::size_t offset;
    std::size_t width;
    bool number;   // a 16-bit signed little-endian integer; every other field is blank-padded text
};

inline constexpr std::array<Field, 27> Fields{{
    {"RNum", 0, 4, false},           {"FName", 4, 20, false},       {"LName", 24, 20, false},
    {"Address", 44, 30, false},      {"City", 74, 20, false},       {"State", 94, 2, false},
    {"Zip", 96, 10, false},          {"Phone", 106, 12, false},     {"Age", 118, 10, false},
    {"Advertising", 128, 20, false}, {"RelPref", 148, 20, false},   {"IntLevel", 168, 1, false},
    {"Visits", 169, 12, false},      {"WorkerCode", 181, 2, false}, {"Notes", 183, 150, false},
    {"Attendance", 333, 40, false},  {"Attend", 373, 2, false},     {"Last", 375, 2, true},
    {"MailList", 377, 2, true},      {"Decisions", 379, 12, false}, {"Class", 391, 2, true},
    {"MapCode", 393, 8, false},      {"BaptDate", 401, 8, false},   {"IntFlag", 409, 2, true},
    {"BirthDate", 411, 8, false},    {"MarkToVisit", 419, 2, true}, {"Email", 421, 40, false},
}};

// A misspelt name stops the build where it is used in a constant.
constexpr const Field& Named(std::string_view name) {
    for (const Field& f : Fields)
        if (f.name == name) return f;
    throw std::out_of_range("no such field");
}

// The fields follow one another with no gap and fill the record exactly.
constexpr bool Packed() {
    std::size_t at = 0;
    for (const Field& f : Fields) {
        if (f.offset != at || (f.number && f.width != 2)) return false;
        at += f.width;
    }
    return at == Length;
}
static_assert(Packed());

inline std::int16_t GetInt16(const char* at) {
    auto lo = static_cast<unsigned char>(at[0]), hi = static_cast<unsigned char>(at[1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(lo | (hi << 8)));
}

inline void PutInt16(char* at, std::int16_t v) {
    auto u = static_cast<std::uint16_t>(v);
    at[0] = static_cast<char>(u & 0xFF);
    at[1] = static_cast<char>(u >> 8);
}

// Record n (from 1) of a file opened with records of Length bytes. Past the end
// `r` is a cleared record and false is returned. A file opened with another
// length raises error 59 rather than read or write across record bounds.
bool Read(vb::RandomFile& f, long n, MasterRecord& r);
void Write(vb::RandomFile& f, long n, const MasterRecord& r);

}  // namespace RecordLayout

// Offsets, for passes that work on the bytes without decoding every field.
namespace RecordAt {
#define VESTREL_AT(name) inline constexpr std::size_t name = RecordLayout::Named(#name).offset
VESTREL_AT(RNum); VESTREL_AT(FName); VESTREL_AT(LName); VESTREL_AT(Address); VESTREL_AT(City);
VESTREL_AT(State); VESTREL_AT(Zip); VESTREL_AT(Phone); VESTREL_AT(Age); VESTREL_AT(Advertising);
VESTREL_AT(RelPref); VESTREL_AT(IntLevel); VESTREL_AT(Visits); VESTREL_AT(WorkerCode); VESTREL_AT(Notes);
VESTREL_AT(Attendance); VESTREL_AT(Attend); VESTREL_AT(Last); VESTREL_AT(MailList); VESTREL_AT(Decisions);
VESTREL_AT(Class); VESTREL_AT(MapCode); VESTREL_AT(BaptDate); VESTREL_AT(IntFlag); VESTREL_AT(BirthDate);
VESTREL_AT(MarkToVisit); VESTREL_AT(Email);
#undef VESTREL_AT
}  // namespace RecordAt

// One record's bytes, read in place.
struct RecordView {
    const char* b;
    std::string_view Text(std::size_t offset, std::size_t width) const { return {b + offset, width}; }
    char Char(std::size_t offset) const { return b[offset]; }
    std::int16_t Int(std::size_t offset) const { return RecordLayout::GetInt16(b + offset); }
    bool Live() const { return !(b[RecordAt::WorkerCode] == '#' && b[RecordAt::WorkerCode + 1] == '#'); }
    std::int16_t Last() const { return Int(RecordAt::Last); }
    char Level() const { return b[RecordAt::IntLevel]; }
    // Attendance position 1 to 40.
    char Attended(int meeting) const {
        return meeting >= 1 && meeting <= 40 ? b[RecordAt::Attendance + meeting - 1] : '-';
    }
};
