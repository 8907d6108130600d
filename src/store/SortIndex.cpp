#include "store/SortIndex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/ByteWords.h"
#include "store/MasterRecord.h"
#include "store/Members.h"
#include "store/State.h"
#include "store/Records.h"
#include "store/Sounds.h"

using namespace vb;

namespace {

std::string_view Tail(const std::string& s, std::size_t width) {
    std::string_view v(s);
    return v.size() <= width ? v : v.substr(v.size() - width);
}

// By character code, as unsigned bytes.
bool Greater(std::string_view a, std::string_view b) {
    int c = std::memcmp(a.data(), b.data(), std::min(a.size(), b.size()));   // memcmp compares unsigned
    return c != 0 ? c > 0 : a.size() > b.size();
}

// A fixed-width field of the record buffer, worked on in place.
struct Field {
    char* at;
    std::size_t width;
    std::string_view Trimmed() const {
        std::size_t b = 0, e = width;
        while (b < e && at[b] == ' ') ++b;
        while (e > b && at[e - 1] == ' ') --e;
        return {at + b, e - b};
    }
    // Fixed-width assignment: cut, or pad with blanks. `v` may lie inside the field.
    void Assign(std::string_view v) const {
        std::size_t k = std::min(width, v.size());
        std::memmove(at, v.data(), k);
        std::memset(at + k, ' ', width - k);
    }
    void Trim() const { Assign(Trimmed()); }
};

Field At(char* rec, std::size_t offset, std::size_t width) { return {rec + offset, width}; }

using RecordLayout::PutInt16;

bool IsPlaceholder(char* rec) {
    return At(rec, RecordAt::FName, 20).Trimmed().empty() && At(rec, RecordAt::LName, 20).Trimmed() == "Unknown" &&
           At(rec, RecordAt::Address, 30).Trimmed().empty();
}

// Trimmed and counted; an empty text becomes the current meeting alone.
void NormaliseAttendance(char* rec, int& meetingNumber) {
    Field a = At(rec, RecordAt::Attendance, 40);
    a.Trim();
    if (a.Trimmed().empty()) {
        std::memset(a.at, '-', 40);
        if (meetingNumber >= 1 && meetingNumber <= 40) a.at[meetingNumber - 1] = LastDigit(meetingNumber);
    }
    std::int16_t last = 0;
    std::int16_t total = CountAttendance(a.at, 40, last);
    char attend[2] = {' ', ' '};
    if (total < 10) attend[0] = static_cast<char>('0' + total);
    else attend[0] = static_cast<char>('0' + total / 10), attend[1] = static_cast<char>('0' + total % 10);
    std::memcpy(rec + RecordAt::Attend, attend, 2);
    PutInt16(rec + RecordAt::Last, last);
    if (last > meetingNumber) meetingNumber = last;
}

void NormaliseWorkerCode(char* rec) {
    char* wc = rec + RecordAt::WorkerCode;
    bool inRange = std::memcmp(wc, "00", 2) >= 0 && std::memcmp(wc, "40", 2) <= 0;
    if (!inRange && std::memcmp(wc, "##", 2) != 0) std::memcpy(wc, "00", 2);
}

void NormaliseAge(char* rec, const ProgramState& p) {
    Field f = At(rec, RecordAt::Age, 10);
    std::string_view age = f.Trimmed();
    if (age.empty() || age == "Unknown") f.Assign("NIF");
    else if (age.size() > 5 && age[0] >= '1' && age[0] <= '7') f.Assign(p.AgeGroups[age[0] - '0']);
    else f.Assign(age);
}

// A blank or a letter that is not the decision's code becomes the code; "-"
// and the code stay. A blank code letter (a damaged .inf) leaves a blank "-".
void NormaliseDecisions(char* rec, const ProgramState& p) {
    Field f = At(rec, RecordAt::Decisions, 12);
    std::string_view t = f.Trimmed();
    char d[12];
    std::memset(d, ' ', sizeof d);
    std::memcpy(d, t.data(), std::min<std::size_t>(t.size(), 9));
    for (int i = 0; i < 9; ++i) {
        const std::string& code = p.DecisionCodes[i + 1];
        char letter = code.empty() ? '-' : code[0];
        char was = d[i];
        if (was != '-' && was != letter) d[i] = letter;
        else if (was == ' ') d[i] = '-';
    }
    std::memcpy(f.at, d, sizeof d);
}

// The last 4 characters of three blanks and the number in Str form.
void PutPointer(char* at, long n) {
    std::memset(at, ' ', 4);
    for (int k = 3; k >= 0 && n > 0; --k, n /= 10) at[k] = static_cast<char>('0' + n % 10);
}

void PutAlphaEntry(std::vector<std::string>& list, const char* rec, long n) {
    char e[15];
    std::memcpy(e, rec + RecordAt::RNum, 4);
    for (int k = 0; k < 5; ++k) e[4 + k] = UCaseChar(rec[RecordAt::LName + k]);
    for (int k = 0; k < 2; ++k) e[9 + k] = UCaseChar(rec[RecordAt::FName + k]);
    PutPointer(e + 11, n);
    list.emplace_back(e, sizeof e);
}

// A record as this program writes it: a number of digits and names and
// codes without control characters (below a blank, and DEL). Eight bytes at a
// step; the last word overlaps the one before it, which changes no answer.
bool LooksLikeRecord(const char* rec) {
    using namespace bytewords;
    unsigned bad = 0;
    for (std::size_t k = 0; k < 4; ++k) bad |= static_cast<unsigned>(static_cast<unsigned char>(rec[k] - '0') > 9);
    static_assert(RecordAt::Notes - RecordAt::FName >= 8);
    std::uint64_t words = 0;
    auto check = [&](std::size_t at) {
        const std::uint64_t w = Load(rec + at);
        words |= AnyBelow(w, 0x20) | BytesEqual(w, 0x7F);
    };
    std::size_t k = RecordAt::FName;
    for (; k + 8 <= RecordAt::Notes; k += 8) check(k);
    check(RecordAt::Notes - 8);
    return bad == 0 && words == 0;
}

// Most records of a real crusade pass, damaged ones included; other files
// (a picture, a text, random bytes) almost never do.
bool LooksLikeRecordFile(long goodRecords, long records) { return goodRecords * 2 >= records; }

// The zip table's counts, raised one person at a time. The table itself is
// touched only once the file is known to be a record file (Zero).
class ZipCounter {
public:
    explicit ZipCounter(ProgramState& p) : p_(p), counts_(p.ZipCount + 1, 0) {
        for (int z = p.ZipCount; z >= 1; --z) byZip_[Fixed(Left(p.ZipList[z], 10), 10)] = z;   // the first entry wins
        key_.reserve(10);
    }
    bool Empty() const { return p_.ZipCount == 0; }
    void Zero() {
        p_.ZipList[0] = "0";
        for (int z = 1; z <= p_.ZipCount; ++z) p_.ZipList[z] = Fixed(Left(p_.ZipList[z], 29), 29) + "   0";
    }
    void Count(const char* zip) {
        key_.assign(zip, p_.CanadaSorter ? 3 : 10);
        key_.resize(10, ' ');
        auto it = byZip_.find(key_);
        if (it != byZip_.end()) ++counts_[it->second];
    }
    void Finish() {
        if (Empty()) return;
        for (int z = 1; z <= p_.ZipCount; ++z)
            p_.ZipList[z] = Left(p_.ZipList[z], 29) + Right("    " + CStr(counts_[z]), 4);
    }
private:
    ProgramState& p_;
    std::vector<int> counts_;
    std::unordered_map<std::string, int> byZip_;
    std::string key_;
};

// Shows the same boxes in the same order as comparing each entry with every
// other, but finds "another entry with this number" through a count per number.
// The number of an entry as 0 to 9999, or -1 when its first 4 characters are not digits.
int NumberOf(const std::string& e) {
    if (e.size() < 4) return -1;
    int v = 0;
    for (int k = 0; k < 4; ++k) {
        if (e[k] < '0' || e[k] > '9') return -1;
        v = v * 10 + (e[k] - '0');
    }
    return v;
}

void DuplicateCheck(ProgramState& p) {
    // Numbers of four digits are counted in a table (to 2: more makes no
    // difference), a damaged number in a map.
    std::vector<std::uint8_t> byNumber(10000, 0);
    std::unordered_map<std::string, int> others;
    for (int i = 1; i <= p.IndexCount; ++i) {
        const std::string& e = p.SortIndex[i];
        int n = NumberOf(e);
        if (n < 0) ++others[Left(e, 4)];
        else if (byNumber[n] < 2) ++byNumber[n];
    }
    auto shared = [&](const std::string& e) {
        int n = NumberOf(e);
        return n < 0 ? others[Left(e, 4)] >= 2 : byNumber[n] >= 2;
    };
    std::string lastReported;
    for (int i = 1; i <= p.IndexCount; ++i) {
        if (!shared(p.SortIndex[i])) continue;
        std::string num = Left(p.SortIndex[i], 4);
        if (num != lastReported) {
            int answer = p.host.MsgBox("The following record is duplicated: " + num + p.CrLf + p.CrLf +
                                           "You should manually remove one of these records after 'Fix Files' is completed.",
                                       host::vbOKCancel);
            if (answer == host::vbCancel) return;
            lastReported = num;
        } else {
            lastReported.clear();
        }
    }
}

}  // namespace

namespace {

// A key's first 16 bytes as two numbers that order as memcmp does; the rest is
// read from the keys only when those are equal, which keeps the sort in the cache.
struct SortItem {
    std::uint64_t head, next;
    std::uint32_t at;
};

std::uint64_t Head(const unsigned char* k, std::size_t from, std::size_t width) {
    std::uint64_t h = 0;
    for (std::size_t b = from; b < from + 8; ++b) h = (h << 8) | (b < width ? k[b] : 0u);
    return h;
}

// The gap rule of the comb sort; the passes stop after a gap of 1 without a swap.
int NextGap(int gap) {
    gap = static_cast<int>(std::floor(gap / 1.3));
    if (gap == 0) gap = 1;
    if (gap == 9 || gap == 10) gap = 11;
    return gap;
}

// The comb sort on the entries themselves, for lists whose entries differ in
// length (an add-mode entry among them).
void CombSortStrings(std::vector<std::string>& s, int n, std::size_t width, bool descending) {
    int gap = n;
    bool swapped;
    do {
        gap = NextGap(gap);
        swapped = false;
        for (int i = 1; i <= n - gap; ++i) {
            std::string_view a = Tail(s[i], width), b = Tail(s[i + gap], width);
            if (descending ? Greater(b, a) : Greater(a, b)) {
                std::swap(s[i], s[i + gap]);
                swapped = true;
            }
        }
    } while (gap != 1 || swapped);
}

// Sorts entries 1..n of equal length through their keys laid end to end.
void CombSortList(ProgramState& p, std::size_t width, bool descending) {
    const int n = p.IndexCount;
    std::vector<std::string>& s = p.SortIndex;
    const std::size_t len = s[1].size();
    bool sameLength = true;
    for (int i = 2; i <= n && sameLength; ++i) sameLength = s[i].size() == len;
    if (!sameLength) return CombSortStrings(s, n, width, descending);
    std::string keys(static_cast<std::size_t>(n) * width, '\0');
    for (int i = 1; i <= n; ++i)
        std::memcpy(keys.data() + static_cast<std::size_t>(i - 1) * width, s[i].data() + (len - width), width);
    std::vector<int> order = CombSortOrder(keys.data(), width, width, n, descending);
    std::vector<std::string> sorted(static_cast<std::size_t>(n) + 1);
    sorted[0] = std::move(s[0]);
    for (int k = 0; k < n; ++k) sorted[static_cast<std::size_t>(k) + 1] = std::move(s[static_cast<std::size_t>(order[k]) + 1]);
    s.swap(sorted);
    s.resize(static_cast<std::size_t>(n) + 1);
}

}  // namespace

namespace {

struct Keys {
    const unsigned char* base;
    std::size_t stride, width;
    const unsigned char* Of(const SortItem& it) const { return base + it.at * stride; }
};

std::uint8_t ByteOf(const SortItem& it, std::size_t pos) {
    std::uint64_t w = pos < 8 ? it.head : it.next;
    return static_cast<std::uint8_t>(w >> (56 - 8 * (pos % 8)));
}

// Ascending by the key from byte `from` on, 16 bytes at a time: a stable
// counting pass a byte from the last of the 16 (a byte every key shares costs
// none), then the runs that agree so far by the next 16. Linear, without the
// data-dependent branches that make a comparison sort slow on a large list;
// short runs take the comparison sort. `out` has room for the items.
void SortFrom(SortItem* first, SortItem* last, std::size_t from, const Keys& k, SortItem* out) {
    const std::size_t n = static_cast<std::size_t>(last - first);
    if (n < 2) return;
    if (n < 48) {
        std::sort(first, last, [&](const SortItem& a, const SortItem& b) {
            return std::memcmp(k.Of(a) + from, k.Of(b) + from, k.width - from) < 0;
        });
        return;
    }
    std::array<std::array<std::uint32_t, 256>, 16> counts{};
    for (SortItem* it = first; it != last; ++it) {
        if (from != 0) it->head = Head(k.Of(*it), from, k.width), it->next = Head(k.Of(*it), from + 8, k.width);
        for (std::size_t pos = 0; pos < 16; ++pos) ++counts[pos][ByteOf(*it, pos)];
    }
    SortItem* in = first;
    for (std::size_t pos = 16; pos-- > 0;) {
        auto& c = counts[pos];
        if (c[ByteOf(*in, pos)] == n) continue;
        std::uint32_t at = 0;
        for (auto& x : c) at += std::exchange(x, at);
        for (SortItem* it = in; it != in + n; ++it) out[c[ByteOf(*it, pos)]++] = *it;
        std::swap(in, out);
    }
    if (in != first) {
        std::copy(in, in + n, first);
        out = in;
    }
    if (from + 16 >= k.width) return;
    for (SortItem* run = first; run != last;) {
        SortItem* end = run + 1;
        while (end != last && end->head == run->head && end->next == run->next) ++end;
        SortFrom(run, end, from + 16, k, out);
        run = end;
    }
}

}  // namespace

std::vector<int> CombSortOrder(const char* keys, std::size_t stride, std::size_t width, int n, bool descending) {
    std::vector<SortItem> items(static_cast<std::size_t>(std::max(n, 0)));
    const auto* base = reinterpret_cast<const unsigned char*>(keys);
    for (int i = 0; i < n; ++i) {
        const unsigned char* k = base + static_cast<std::size_t>(i) * stride;
        items[static_cast<std::size_t>(i)] = {Head(k, 0, width), Head(k, 8, width), static_cast<std::uint32_t>(i)};
    }
    const std::size_t rest = width > 16 ? width - 16 : 0;
    auto greater = [&](const SortItem& a, const SortItem& b) {
        if (a.head != b.head) return a.head > b.head;
        if (a.next != b.next) return a.next > b.next;
        return rest != 0 && std::memcmp(base + a.at * stride + 16, base + b.at * stride + 16, rest) > 0;
    };
    // Keys end in the record number, so no two are equal and the comb sort's
    // result is the one sorted order: any sort finds it. Only where two keys
    // are equal does the order of the swaps show, and the comb sort runs itself.
    std::vector<SortItem> first = items;
    if (n > 1) {
        std::vector<SortItem> out(items.size());
        SortFrom(items.data(), items.data() + items.size(), 0, {base, stride, width}, out.data());
        if (descending) std::reverse(items.begin(), items.end());
    }
    // By the whole key: items sorted past their first 16 bytes hold later bytes in head and next.
    bool tie = false;
    for (int i = 0; i + 1 < n && !tie; ++i) {
        int c = std::memcmp(base + items[i].at * stride, base + items[i + 1].at * stride, width);
        tie = descending ? c <= 0 : c >= 0;
    }
    if (tie) items.swap(first);
    int gap = n;
    bool swapped;
    if (tie && n > 1) do {
        gap = NextGap(gap);
        swapped = false;
        SortItem* it = items.data();
        for (int i = 0; i < n - gap; ++i) {
            if (descending ? greater(it[i + gap], it[i]) : greater(it[i], it[i + gap])) {
                std::swap(it[i], it[i + gap]);
                swapped = true;
            }
        }
    } while (gap != 1 || swapped);
    std::vector<int> order(items.size());
    for (std::size_t k = 0; k < items.size(); ++k) order[k] = static_cast<int>(items[k].at);
    return order;
}

void SortEntries(ProgramState& p) {
    int n = p.IndexCount;
    if (n == 0) return;
    host::BusyPointer busy(p.host);
    std::vector<std::string>& s = p.SortIndex;
    std::size_t width = s[1].size() >= 4 ? s[1].size() - 4 : 0;
    if (p.SortName == "byNum") width = s[1].size();
    CombSortList(p, width, false);
    p.EntryNumbers.Forget();
}

int FindByNumber(const ProgramState& p) { return FirstEntryWithNumber(p, p.MasterRec.RNum.str()); }

int FirstEntryWithNumber(const ProgramState& p, std::string_view number, int passOver) {
    return p.EntryNumbers.First(p.SortIndex, p.IndexCount, number, passOver);
}

void RebuildAlpha(ProgramState& p) {
    p.PriorSortName = p.SortName;
    host::BusyPointer busy(p.host);
    p.SortIndex.assign(1, "alpha");
    p.SortName = "alpha";
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        if (p.MasterRec.WorkerCode == "##") continue;
        p.SortIndex.push_back(AlphaEntry(p, i));
    }
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    if (p.CurrentIndex > p.IndexCount) p.CurrentIndex = p.IndexCount;
    if (p.CurrentIndex == 0 && p.IndexCount > 0) p.CurrentIndex = 1;
    SortEntries(p);
}

void CountZips(ProgramState& p) {
    ZipCounter zips(p);
    zips.Zero();
    if (zips.Empty()) return;
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        if (p.MasterRec.WorkerCode == "##") continue;
        zips.Count(p.MasterRec.Zip.str().data());
    }
    zips.Finish();
}

bool FullLoadPass(ProgramState& p) {
    bool clearFlag = p.ScratchValue == "ClearFlag";
    if (clearFlag) p.ScratchValue.clear();
    host::BusyPointer busy(p.host);
    // Every way out leaves the list empty or whole, never half built.
    p.SortIndex.assign(1, "alpha");
    p.SortName = "alpha";
    p.IndexCount = 0;
    p.CurrentIndex = 0;
    p.MeetingNumber = 1;
    std::optional<FileLock> lock;
    try {
        lock.emplace(p.File1);
    } catch (const RuntimeError&) {
        p.host.MsgBox("The file " + p.DataFile + " is in use by another copy of Vestrel." + p.CrLf +
                          "Close the other copy and try again.",
                      host::vbExclamation);
        return false;
    }
    const long count = p.RecordCount;
    constexpr std::size_t len = MasterRecord::Length;
    // The file is walked a block at a time through one small buffer that stays
    // in the processor's cache: a buffer of the whole file costs more to map
    // in than the file costs to read.
    constexpr long kBlock = 256;
    std::vector<char> block(static_cast<std::size_t>(std::clamp(count, 1L, kBlock)) * len);
    auto blocks = [&](auto work) {
        for (long first = 1; first <= count; first += kBlock) {
            long k = std::min(kBlock, count - first + 1);
            p.File1.GetRange(first, k, block.data());
            work(first, k);
        }
    };
    // Whether the file is a record file is told from its records as they are
    // on disk, before anything is written.
    long good = 0;
    blocks([&](long, long k) {
        for (long j = 0; j < k; ++j) good += LooksLikeRecord(block.data() + j * len);
    });
    if (!LooksLikeRecordFile(good, count)) {
        p.host.MsgBox("The file " + p.DataFile + " is not a crusade's record file: its records hold no registration "
                          "numbers and names." + p.CrLf + p.CrLf +
                          "It has been left as it is. Choose another crusade, or restore this one from a backup.",
                      host::vbExclamation);
        return false;
    }

    std::vector<std::string> list;
    list.reserve(static_cast<std::size_t>(count) + 1);
    list.emplace_back("alpha");
    ZipCounter zips(p);
    zips.Zero();
    int meeting = 1;
    int counter = 0;
    bool master = p.CrusadeName == "Master";
    blocks([&](long first, long k) {
        for (long j = 0; j < k; ++j) {
            char* rec = block.data() + j * len;
            const long i = first + j;
            if (clearFlag) PutInt16(rec + RecordAt::IntFlag, 0);
            bool deleted = std::memcmp(rec + RecordAt::WorkerCode, "##", 2) == 0;
            if (!deleted) {
                At(rec, RecordAt::FName, 20).Trim();
                At(rec, RecordAt::LName, 20).Trim();
                At(rec, RecordAt::Address, 30).Trim();
                if (IsPlaceholder(rec)) {
                    long num = static_cast<long>(Val(std::string(rec + RecordAt::RNum, 4)));
                    bool past = p.NumberDirection == "DOWN" ? num >= p.LastRNum
                              : p.NumberDirection == "UP"   ? num <= p.LastRNum
                                                            : false;
                    if (past) std::memcpy(rec + RecordAt::WorkerCode, "##", 2);
                }
                if (master) std::memcpy(rec + RecordAt::RNum, Right("000" + CStr(++counter), 4).data(), 4);
                PutAlphaEntry(list, rec, i);
                NormaliseAttendance(rec, meeting);
            }
            NormaliseWorkerCode(rec);
            NormaliseAge(rec, p);
            NormaliseDecisions(rec, p);
            if (!zips.Empty() && std::memcmp(rec + RecordAt::WorkerCode, "##", 2) != 0) zips.Count(rec + RecordAt::Zip);
        }
        p.File1.PutRange(first, k, block.data());
        if (first + k > count) p.MasterRec = DecodeRecord(block.data() + (k - 1) * len);
    });
    p.File1.Sync();
    lock.reset();

    p.MeetingNumber = meeting;
    p.SortIndex.swap(list);
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    DuplicateCheck(p);
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
    SortEntries(p);
    zips.Finish();
    return true;
}

void SetEntryPart(std::string& entry, EntryPart part, const std::string& text) {
    vb::MidAssign(entry, part == EntryPart::Number ? 1 : 78, text, 4);
}

void SetEntryNumber(ProgramState& p, int at, const std::string& number) {
    if (at < 1 || at > p.IndexCount || at >= static_cast<int>(p.SortIndex.size())) return;
    std::string& entry = p.SortIndex[static_cast<std::size_t>(at)];
    const std::string before = entry;
    SetEntryPart(entry, EntryPart::Number, number);
    EntryChanged(p, at, before);
}

void EntryChanged(ProgramState& p, int at, std::string_view before) {
    p.EntryNumbers.Changed(p.SortIndex, p.IndexCount, at, before);
}

void DropCurrentEntry(ProgramState& p) {
    if (p.CurrentIndex < 1 || p.CurrentIndex > p.IndexCount) return;
    const bool followed = p.EntryNumbers.Follows(p.SortIndex, p.IndexCount);
    const int at = p.CurrentIndex;
    const std::string before = p.SortIndex[static_cast<std::size_t>(at)];
    p.SortIndex.erase(p.SortIndex.begin() + at);
    --p.IndexCount;
    p.SortIndex.resize(static_cast<std::size_t>(p.IndexCount) + 1);
    p.EntryNumbers.Removed(p.SortIndex, p.IndexCount, at, before, followed);
    if (p.CurrentIndex > p.IndexCount) p.CurrentIndex = p.IndexCount;
}

Fetched FetchCurrentRecord(ProgramState& p) {
    if (p.CurrentIndex == 0) {
        p.Loaded = false;
        return Fetched::EmptyList;
    }
    std::string entry;
    try {
        if (p.CurrentIndex < 0 || p.CurrentIndex >= static_cast<int>(p.SortIndex.size())) Raise(errSubscript);
        entry = p.SortIndex[p.CurrentIndex];
        p.RecordPos = static_cast<long>(Val(Right(entry, 4)));
        if (p.RecordPos < 1) Raise(errBadRecordNumber);
        GetRecord(p, p.RecordPos);
        return Fetched::Record;
    } catch (const RuntimeError& e) {
        const std::string& nl = p.CrLf;
        p.host.MsgBox("Error # " + CStr(e.Number) + nl + "Error: " + e.Description() + nl + "LastRecord = " +
                      CStr(static_cast<long>(p.File1.IsOpen() ? p.File1.LOF() / ProgramState::RecLen : 0)) + nl +
                      "LastIndex = " + CStr(p.IndexCount) + nl + "i = " + CStr(p.CurrentIndex) + nl +
                      "index = " + entry + nl + "Len of index = " + CStr(static_cast<long>(entry.size())) + nl +
                      "Record Number = " + CStr(p.RecordPos));
        return Fetched::Fault;
    }
}

void StepCurrentIndex(ProgramState& p, int kind) {
    switch (kind) {
    case 0: p.CurrentIndex = 1; break;
    case 1:
        if (p.CurrentIndex <= 1) PlaySound(p, "clunk");
        else --p.CurrentIndex;
        break;
    case 2:
        if (p.CurrentIndex >= p.IndexCount) PlaySound(p, "clunk");
        else ++p.CurrentIndex;
        break;
    case 3: p.CurrentIndex = p.IndexCount; break;
    default: break;
    }
}

Fetched GoRecord(ProgramState& p, int kind) {
    StepCurrentIndex(p, kind);
    return FetchCurrentRecord(p);
}

LoadOutcome FullLoad(ProgramState& p) {
    LoadOutcome r;
    const bool wasLoaded = p.Loaded;
    if (!FullLoadPass(p)) {
        // Nothing may be written to a file the pass refused.
        p.File1.Close();
        p.Loaded = false;
        return r;
    }
    r.ran = true;
    if (!wasLoaded) return r;
    r.show = true;
    r.fetched = FetchCurrentRecord(p);
    return r;
}
