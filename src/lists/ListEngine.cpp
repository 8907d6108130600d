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

void EntryBuffer::Upper(std::string_view t) {
    // One table lookup a character: the names are most of every entry.
    static const std::array<char, 256> upper = [] {
        std::array<char, 256> a{};
        for (int c = 0; c < 256; ++c) a[static_cast<std::size_t>(c)] = vb::UCaseChar(static_cast<char>(c));
        return a;
    }();
    std::size_t at = e_.size();
    e_.resize(at + t.size());
    for (std::size_t i = 0; i < t.size(); ++i) e_[at + i] = upper[static_cast<unsigned char>(t[i])];
}

void EntryBuffer::End(long n) {
    char ptr[4] = {' ', ' ', ' ', ' '};
    for (int k = 3; k >= 0 && n > 0; --k, n /= 10) ptr[k] = static_cast<char>('0' + n % 10);
    e_.append(ptr, 4);
    if (count_ == 0) len_ = e_.size();
    // Every piece is of fixed width, so this holds; kept so a slip can't shift the list.
    e_.resize(len_, ' ');
    buf_.append(e_);
    ++count_;
}

void EntryBuffer::AlphaPart(Rec r) {
    Upper(r.Text(at::LName, 5));
    Upper(r.Text(at::FName, 2));
}

void EntryBuffer::LongPart(Rec r) {
    Upper(r.Text(at::LName, 20));
    Text(r.Text(at::FName, 3));
}

void EntryBuffer::LongUpperPart(Rec r) {
    Upper(r.Text(at::LName, 20));
    Upper(r.Text(at::FName, 3));
}

void EntryBuffer::FullPart(Rec r) {
    Upper(r.Text(at::LName, 20));
    Upper(r.Text(at::FName, 20));
}

void EntryBuffer::AttendanceKey(int last) {
    long v = 9999L - last;
    if (v >= 0) {
        v %= 1000;
        Char(static_cast<char>('0' + v / 100));
        Char(static_cast<char>('0' + v / 10 % 10));
        Char(static_cast<char>('0' + v % 10));
    } else {
        Text(vb::Right("000" + vb::Trim(vb::CStr(v)), 3));
    }
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
