// The team pass and the sorts of the zip table: file and table work, no screen.
#include <algorithm>
#include <cstring>
#include <cstdint>
#include <vector>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"
#include "store/SortIndex.h"
#include "store/State.h"
#include "store/ZipTable.h"
#include "tables/EditZip.h"

using namespace vb;

namespace {

constexpr std::size_t KeyWidth = 10;

// Every 10-character stretch of every entry, to the first entry holding it. A key
// is always 10 wide, so "the first entry that contains the key" is one look-up.
// Open addressing over the stretches packed in two words: the table is built at
// each pass, and a node per stretch would cost more than the pass itself.
class ZipFinder {
public:
    explicit ZipFinder(const ProgramState& p) : p_(p) {
        std::size_t stretches = 0;
        for (int i = 1; i <= p.ZipCount && i <= ZipTableLimit; ++i) {
            const std::size_t n = p.ZipList[static_cast<std::size_t>(i)].size();
            if (n >= KeyWidth) stretches += n - KeyWidth + 1;
        }
        std::size_t size = 16;
        while (size < stretches * 2) size <<= 1;
        slots_.assign(size, Slot{});
        mask_ = size - 1;
        for (int i = 1; i <= p.ZipCount && i <= ZipTableLimit; ++i) {
            const std::string& e = p.ZipList[static_cast<std::size_t>(i)];
            for (std::size_t at = 0; at + KeyWidth <= e.size(); ++at) {
                const Packed k = Pack(e.data() + at);
                Slot& s = Probe(k);
                if (s.entry == 0) s = {k.a, k.b, i};   // the first entry wins
            }
        }
    }
    int Find(const std::string& key) const {
        if (key.size() != KeyWidth) return 0;
        return const_cast<ZipFinder*>(this)->Probe(Pack(key.data())).entry;
    }
    const std::string& Entry(int i) const { return p_.ZipList[static_cast<std::size_t>(i)]; }

private:
    struct Packed { std::uint64_t a; std::uint16_t b; };
    struct Slot { std::uint64_t a = 0; std::uint16_t b = 0; int entry = 0; };
    static Packed Pack(const char* k) {
        Packed v{};
        std::memcpy(&v.a, k, 8);
        std::memcpy(&v.b, k + 8, 2);
        return v;
    }
    // The slot holding the stretch, or the empty one where it would go.
    Slot& Probe(const Packed& k) {
        std::uint64_t h = (k.a ^ (static_cast<std::uint64_t>(k.b) << 48)) * 0x9E3779B97F4A7C15ull;
        for (std::size_t i = static_cast<std::size_t>(h >> 40) & mask_;; i = (i + 1) & mask_) {
            Slot& s = slots_[i];
            if (s.entry == 0 || (s.a == k.a && s.b == k.b)) return s;
        }
    }
    const ProgramState& p_;
    std::vector<Slot> slots_;
    std::size_t mask_ = 0;
};

bool IsTeam(std::string_view t) {
    return t.size() == 2 && t[0] >= '0' && t[0] <= '4' && t[1] >= '0' && t[1] <= '9' && t <= "40";
}

// The key of a record's zip, or empty when it has none. A blank zip would be
// "contained" in the blanks after any short city, and so take a stranger's team:
// like "NoZip", it matches nothing.
std::string RecordKey(const ProgramState& p, const char* rec) {
    std::string zip(rec + RecordAt::Zip, KeyWidth);
    const std::string bare = Trim(zip);
    if (bare.empty() || bare == "NoZip") return std::string();
    if (p.CanadaSorter) return Left(zip, 3) + Space(7);
    return zip;
}

}  // namespace

TeamAssignment AssignTeams(ProgramState& p) {
    TeamAssignment done;
    if (p.ZipCount <= 0 || !p.File1.IsOpen()) return done;
    const ZipFinder zips(p);
    constexpr std::size_t len = RecordLayout::Length;
    constexpr long kBlock = 256;
    const long count = p.File1.RecordCount();
    std::vector<char> block(static_cast<std::size_t>(std::clamp(count, 1L, kBlock)) * len);
    try {
        FileLock lock(p.File1);
        for (long first = 1; first <= count; first += kBlock) {
            const long k = std::min(kBlock, count - first + 1);
            p.File1.GetRange(first, k, block.data());
            long lo = -1, hi = -1;   // the changed records of the block
            for (long j = 0; j < k; ++j) {
                char* rec = block.data() + j * len;
                if (std::memcmp(rec + RecordAt::WorkerCode, "00", 2) != 0) continue;
                const std::string key = RecordKey(p, rec);
                if (key.empty()) continue;
                const int hit = zips.Find(key);
                if (hit == 0) continue;
                const std::string team = Mid(zips.Entry(hit), 13, 2);
                // "00" changes nothing; a damaged entry's team is not spread over people.
                if (team == "00" || !IsTeam(team)) continue;
                std::memcpy(rec + RecordAt::WorkerCode, team.data(), 2);
                ++done.written;
                if (lo < 0) lo = j;
                hi = j;
            }
            if (lo >= 0) p.File1.PutRange(first + lo, hi - lo + 1, block.data() + lo * len);
        }
        p.File1.Sync();
    } catch (const RuntimeError& e) {
        done.ok = false;
        p.host.MsgBox("Vestrel could not write the team codes into " + p.DataFile + "." + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description() + p.CrLf + p.CrLf + CStr(done.written) +
                          " records had been given their team before the error; the others are as they were.",
                      host::vbExclamation, "Assign Teams to Records");
    }
    return done;
}

void SortZipStrings(ProgramState& p, int by) {
    const int n = std::min(p.ZipCount, ZipTableLimit);
    if (n < 2) return;
    // The comb sort's order on a fixed-width key: the zip, the city, or the count.
    const std::size_t at = by == 1 ? 14 : by == 2 ? 29 : 0;
    const std::size_t width = by == 1 ? 15 : by == 2 ? 4 : 10;
    std::string keys;
    keys.reserve(static_cast<std::size_t>(n) * width);
    for (int i = 1; i <= n; ++i) {
        std::string k = Fixed(Mid(p.ZipList[static_cast<std::size_t>(i)], static_cast<long>(at) + 1, static_cast<long>(width)), width);
        keys += k;
    }
    const std::vector<int> order = CombSortOrder(keys.data(), width, width, n, by == 2);
    std::vector<std::string> sorted;
    sorted.reserve(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) sorted.push_back(std::move(p.ZipList[static_cast<std::size_t>(order[static_cast<std::size_t>(k)]) + 1]));
    for (int k = 0; k < n; ++k) p.ZipList[static_cast<std::size_t>(k) + 1] = std::move(sorted[static_cast<std::size_t>(k)]);
}
