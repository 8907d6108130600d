#include "store/NumberIndex.h"

#include <algorithm>

#include "platform/vb/Strings.h"

namespace {

constexpr std::uint64_t kDigitsTag = std::uint64_t{1} << 40;

// A key of four digits is its value under a tag; any other holds its bytes and length.
bool IsDigits(std::uint64_t key) { return (key & kDigitsTag) != 0; }
int DigitsValue(std::uint64_t key) { return static_cast<int>(key & 0xFFFF); }

}  // namespace

std::uint64_t NumberIndex::KeyOf(std::string_view head) {
    if (head.size() > 4) return kNone;
    if (head.size() == 4) {
        int v = 0;
        bool digits = true;
        for (char c : head) {
            digits = digits && c >= '0' && c <= '9';
            v = v * 10 + (c - '0');
        }
        if (digits) return kDigitsTag | static_cast<std::uint64_t>(v);
    }
    std::uint64_t key = static_cast<std::uint64_t>(head.size()) << 32;
    for (std::size_t k = 0; k < head.size(); ++k)
        key |= static_cast<std::uint64_t>(static_cast<unsigned char>(vb::UCaseChar(head[k]))) << (8 * k);
    return key;
}

namespace {
std::uint64_t EntryKey(std::string_view entry) { return NumberIndex::KeyOf(entry.substr(0, std::min<std::size_t>(4, entry.size()))); }
}  // namespace

// The walks of the callers stop at the count and at the end of the list, whichever is first.
int NumberIndex::Bound(const List& list, int count) {
    return std::clamp(count, 0, static_cast<int>(list.size()) - 1);
}

NumberIndex::Mark NumberIndex::MarkOf(const List& list, int count) {
    Mark m;
    m.data = list.data();
    m.size = list.size();
    m.count = count;
    if (!list.empty()) m.kind = list.front();
    int n = Bound(list, count);
    if (n > 0) m.last = list[static_cast<std::size_t>(n)];
    return m;
}

int NumberIndex::Get(std::uint64_t key) const {
    if (IsDigits(key)) return byDigits_[static_cast<std::size_t>(DigitsValue(key))];
    auto it = others_.find(key);
    return it == others_.end() ? 0 : it->second;
}

void NumberIndex::Set(std::uint64_t key, int at) {
    if (IsDigits(key)) byDigits_[static_cast<std::size_t>(DigitsValue(key))] = at;
    else if (at == 0) others_.erase(key);
    else others_[key] = at;
}

void NumberIndex::Build(const List& list, int count) {
    byDigits_.assign(10000, 0);
    others_.clear();
    // From the end, so that the first entry of a number is the one left.
    for (int i = Bound(list, count); i >= 1; --i) {
        std::uint64_t key = EntryKey(list[static_cast<std::size_t>(i)]);
        if (Valid(key)) Set(key, i);
    }
    mark_ = MarkOf(list, count);
    built_ = true;
}

void NumberIndex::EnsureBuilt(const List& list, int count) {
    if (!built_ || !(mark_ == MarkOf(list, count))) Build(list, count);
}

int NumberIndex::FirstFrom(const List& list, int count, std::uint64_t key, int from, int passOver) const {
    for (int i = from, n = Bound(list, count); i <= n; ++i)
        if (i != passOver && EntryKey(list[static_cast<std::size_t>(i)]) == key) return i;
    return 0;
}

void NumberIndex::Refind(const List& list, int count, std::uint64_t key, int from) {
    Set(key, FirstFrom(list, count, key, from, 0));
}

int NumberIndex::First(const List& list, int count, std::string_view number, int passOver) {
    const std::uint64_t key = KeyOf(number);
    if (!Valid(key)) return 0;
    EnsureBuilt(list, count);
    int at = Get(key);
    // An entry rewritten behind the store's back: the index is built again.
    if (at != 0 && EntryKey(list[static_cast<std::size_t>(at)]) != key) {
        Build(list, count);
        at = Get(key);
    }
    if (at != 0 && at == passOver) at = FirstFrom(list, count, key, at + 1, passOver);
    return at;
}

void NumberIndex::Changed(const List& list, int count, int at, std::string_view before) {
    Mark was = MarkOf(list, count);
    if (at == Bound(list, count)) was.last = before;
    if (!built_ || !(mark_ == was)) {
        built_ = false;
        return;
    }
    const std::uint64_t old = EntryKey(before);
    const std::uint64_t now = EntryKey(list[static_cast<std::size_t>(at)]);
    if (old != now) {
        if (Valid(now) && (Get(now) == 0 || Get(now) > at)) Set(now, at);
        if (Valid(old) && Get(old) == at) Refind(list, count, old, at + 1);
    }
    mark_ = MarkOf(list, count);
}

void NumberIndex::Removed(const List& list, int count, int at, std::string_view before, bool followed) {
    if (!followed) {
        built_ = false;
        return;
    }
    for (int& first : byDigits_)
        if (first > at) --first;
    for (auto& [key, first] : others_)
        if (first > at) --first;
    const std::uint64_t was = EntryKey(before);
    if (Valid(was) && Get(was) == at) Refind(list, count, was, at);
    mark_ = MarkOf(list, count);
}
