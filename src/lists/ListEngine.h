#pragma once
// What every builder shares: the record file read once into memory, records
// read in place, and entries composed end to end in one buffer so that the
// sort moves small items rather than strings.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

struct ProgramState;

namespace lists {

// Where the fields stand in the 461 bytes of a record.
namespace at {
constexpr std::size_t RNum = 0, FName = 4, LName = 24, Address = 44, City = 74, State = 94, Zip = 96, Phone = 106,
                      Age = 118, Advertising = 128, RelPref = 148, IntLevel = 168, Visits = 169, WorkerCode = 181,
                      Notes = 183, Attendance = 333, Attend = 373, Last = 375, MailList = 377, Decisions = 379,
                      Class = 391, MapCode = 393, BaptDate = 401, IntFlag = 409, BirthDate = 411, MarkToVisit = 419,
                      Email = 421;
}

// One record of the file, read in place.
struct Rec {
    const char* b;
    std::string_view Text(std::size_t offset, std::size_t width) const { return {b + offset, width}; }
    char Char(std::size_t offset) const { return b[offset]; }
    std::int16_t Int(std::size_t offset) const {
        return static_cast<std::int16_t>(static_cast<unsigned char>(b[offset]) |
                                         (static_cast<unsigned char>(b[offset + 1]) << 8));
    }
    bool Live() const { return !(b[at::WorkerCode] == '#' && b[at::WorkerCode + 1] == '#'); }
    std::int16_t Last() const { return Int(at::Last); }
    char Level() const { return b[at::IntLevel]; }
    // Attendance position 1 to 40.
    char Attended(int meeting) const { return meeting >= 1 && meeting <= 40 ? b[at::Attendance + meeting - 1] : '-'; }
};

// Blanks on both sides taken off.
std::string_view Trimmed(std::string_view v);

// The record file, read a block at a time so that each record is still in the
// cache when its entry is made.
class RecordFile {
public:
    explicit RecordFile(ProgramState& p);
    long Count() const { return count_; }
    // Calls f(record, record number) for every record in file order.
    template <class F>
    void ForEach(F f) {
        for (long first = 1; first <= count_; first += Block) {
            long k = std::min(Block, count_ - first + 1);
            Read(first, k);
            for (long i = 0; i < k; ++i) f(Rec{bytes_.data() + i * RecordLength}, first + i);
            last_ = k - 1;
        }
    }
    // The whole file at once, for walking a list in its own order; then records 1 to Count().
    void ReadAll();
    Rec operator[](long n) const { return {bytes_.data() + (n - 1) * RecordLength}; }
    // The builders leave the last record read in MasterRec, as a pass over the file does.
    void LeaveLastIn(ProgramState& p) const;
    static constexpr long RecordLength = 461;
    static constexpr long Block = 128;

private:
    void Read(long first, long count);
    ProgramState& p_;
    std::vector<char> bytes_;
    long count_ = 0;
    long last_ = -1;   // place in bytes_ of the last record read
};

// The entries of one list, all of one length, laid end to end.
class EntryBuffer {
public:
    // Starts an entry with the person's number.
    void Begin(Rec r) {
        e_.clear();
        e_.append(r.b + at::RNum, 4);
    }
    void Text(std::string_view t) { e_.append(t); }
    void Upper(std::string_view t);
    void Char(char c) { e_.push_back(c); }
    // Ends the entry with the record number, right-aligned in 4.
    void End(long n);
    // Name parts.
    void AlphaPart(Rec r);      // first 5 of LName, first 2 of FName, upper case
    void LongPart(Rec r);       // LName upper case, first 3 of FName as typed
    void LongUpperPart(Rec r);  // LName and first 3 of FName, upper case
    void FullPart(Rec r);       // LName and FName, upper case
    void AttendanceKey(int last);
    void Team(Rec r) { Text(r.Text(at::WorkerCode, 2)); }

    int Count() const { return count_; }
    std::size_t EntryLength() const { return len_; }
    std::string_view Entry(int i) const { return {buf_.data() + static_cast<std::size_t>(i) * len_, len_}; }
    void Clear() { buf_.clear(), count_ = 0, len_ = 0; }

    // Sorts (or not) and makes it the current list: entry 0 holds `entry0`,
    // IndexCount and CurrentIndex follow.
    void Store(ProgramState& p, const std::string& entry0, bool sort, bool descending = false) const;

private:
    std::string buf_;
    std::string e_;
    std::size_t len_ = 0;
    int count_ = 0;
};

// Step 1 of every builder: the kind before is remembered.
void RememberPrior(ProgramState& p, const std::string& kind);

}  // namespace lists
