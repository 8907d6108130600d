#pragma once
// The list's entries by number: the first entry in list order whose first 4
// characters equal a number, without regard to case, without walking the list.
// The door marks a ticket and the edit screen finds a number through it, so a
// look-up costs the same at 100 people as at 9999.
//
// The index follows the list it was built on. Entries changed in place go
// through the store (SetEntryNumber, WriteBack, DropCurrentEntry, SortEntries),
// which tell it. A list replaced whole, or grown or shrunk by a slot, is seen by
// its mark (size, storage, count, kind, last entry) and the index is built
// again at the next look-up: building costs about as much as one plain walk.
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class NumberIndex {
public:
    using List = std::vector<std::string>;

    // Position of the first entry of list[1..count] whose number is `number`;
    // `passOver` is a position left out (the entry being renumbered). 0 when none.
    int First(const List& list, int count, std::string_view number, int passOver = 0);

    // What the store tells it of a change in place. `before` is the entry as it was.
    void Changed(const List& list, int count, int at, std::string_view before);
    // Entry `at` was taken out; `followed` is Follows() asked before.
    void Removed(const List& list, int count, int at, std::string_view before, bool followed);
    // Whether the index stands for this list as it is.
    bool Follows(const List& list, int count) const { return built_ && mark_ == MarkOf(list, count); }
    // The list was rebuilt or re-ordered: the next look-up builds the index again.
    void Forget() { built_ = false; }

    // Number keys: up to 4 upper-cased bytes and their count; a key of more than
    // 4 characters matches no entry.
    static std::uint64_t KeyOf(std::string_view head);
    static bool Valid(std::uint64_t key) { return key != kNone; }

private:
    static constexpr std::uint64_t kNone = ~std::uint64_t{0};
    struct Mark {
        const std::string* data = nullptr;
        std::size_t size = 0;
        int count = 0;
        std::string kind, last;
        bool operator==(const Mark&) const = default;
    };
    static Mark MarkOf(const List& list, int count);
    static int Bound(const List& list, int count);
    void Build(const List& list, int count);
    void EnsureBuilt(const List& list, int count);
    int FirstFrom(const List& list, int count, std::uint64_t key, int from, int passOver) const;
    int Get(std::uint64_t key) const;
    void Set(std::uint64_t key, int at);
    // The first entry after `from` with that key, found by walking: after a change
    // of the first entry of a number, which is rare next to look-ups.
    void Refind(const List& list, int count, std::uint64_t key, int from);

    bool built_ = false;
    Mark mark_;
    // Four-digit numbers, most of any crusade, straight by value; other keys in a map.
    std::vector<int> byDigits_;
    std::unordered_map<std::uint64_t, int> others_;
};
