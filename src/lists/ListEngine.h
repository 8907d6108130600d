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

#include "store/ListEntry.h"
#include "store/RecordLayout.h"

struct ProgramState;

namespace lists {

namespace at = ::RecordAt;
using Rec = ::RecordView;

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
    static constexpr long RecordLength = static_cast<long>(RecordLayout::Length);
    static constexpr long Block = 128;

private:
    void Read(long first, long count);
    ProgramState& p_;
    std::vector<char> bytes_;
    long count_ = 0;
    long last_ = -1;   // place in bytes_ of the last record read
};

// The entries of one list, all of one length, laid end to end.
class EntryBuffer : public EntryText {
public:
    // Ends the entry with the record number, right-aligned in 4.
    void End(long n);

    int Count() const { return count_; }
    std::size_t EntryLength() const { return len_; }
    std::string_view Entry(int i) const { return {buf_.data() + static_cast<std::size_t>(i) * len_, len_}; }
    void Clear() { buf_.clear(), count_ = 0, len_ = 0; }

    // Sorts (or not) and makes it the current list: entry 0 holds `entry0`,
    // IndexCount and CurrentIndex follow.
    void Store(ProgramState& p, const std::string& entry0, bool sort, bool descending = false) const;

private:
    std::string buf_;
    std::size_t len_ = 0;
    int count_ = 0;
};

// Step 1 of every builder: the kind before is remembered.
void RememberPrior(ProgramState& p, const std::string& kind);

}  // namespace lists
