#include "lists/ListEngine.h"

#include <array>

#include "platform/host/Host.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/MasterRecord.h"
#include "store/SortIndex.h"
#include "store/State.h"

namespace lists {

std::string_view Trimmed(std::string_view v) {
    std::size_t b = 0, e = v.size();
    while (b < e && v[b] == ' ') ++b;
    while (e > b && v[e - 1] == ' ') --e;
    return v.substr(b, e - b);
}

RecordFile::RecordFile(ProgramState& p) : p_(p) {
    static_assert(RecordLength == MasterRecord::Length);
    if (p.File1.IsOpen() && p.RecordCount > 0) count_ = p.RecordCount;
}

void RecordFile::Read(long first, long count) {
    bytes_.resize(static_cast<std::size_t>(count) * RecordLength);
    // Records past the end of a file that shrank read as cleared ones, as Get leaves them.
    p_.File1.GetRange(first, count, bytes_.data());
}

void RecordFile::ReadAll() {
    if (count_ == 0) return;
    Read(1, count_);
    last_ = count_ - 1;
}

void RecordFile::LeaveLastIn(ProgramState& p) const {
    if (last_ >= 0) p.MasterRec = DecodeRecord(bytes_.data() + last_ * RecordLength);
}

void EntryBuffer::End(long n) {
    Pointer(n);
    if (count_ == 0) len_ = e_.size();
    // Every piece is of fixed width, so this holds; kept so a slip can't shift the list.
    e_.resize(len_, ' ');
    buf_.append(e_);
    ++count_;
}

void EntryBuffer::Store(ProgramState& p, const std::string& entry0, bool sort, bool descending) const {
    std::vector<std::string> list;
    list.reserve(static_cast<std::size_t>(count_) + 1);
    list.push_back(entry0);
    if (count_ > 0) {
        if (sort && len_ >= 4) {
            std::vector<int> order;
            {
                host::BusyPointer busy(p.host);
                order = CombSortOrder(buf_.data() + 4, len_, len_ - 4, count_, descending);
            }
            for (int i : order) list.emplace_back(Entry(i));
        } else {
            for (int i = 0; i < count_; ++i) list.emplace_back(Entry(i));
        }
    }
    p.SortIndex.swap(list);
    p.IndexCount = count_;
    p.CurrentIndex = count_ > 0 ? 1 : 0;
}

void RememberPrior(ProgramState& p, const std::string& kind) {
    if (kind == "alpha") p.PriorSortName = p.SortName;
    else if (kind == "attend" || kind == "attendnight") {
        if (p.PriorSortName != "alpha") p.PriorSortName = p.SortName;
    } else if (p.SortName != "alpha") {
        p.PriorSortName = p.SortName;
    }
}

}  // namespace lists
