#include "store/ZipTable.h"

#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

std::string ZipKey(const ProgramState& p, const std::string& zip) {
    if (p.CanadaSorter && zip != "NoZip") return Left(zip, 3) + Space(7);
    return Fixed(zip, 10);
}

int FindZip(const ProgramState& p, const std::string& key) {
    for (int i = 1; i <= p.ZipCount && i <= ZipTableLimit; ++i)
        if (InStr(p.ZipList[static_cast<std::size_t>(i)], key) > 0) return i;
    return 0;
}

bool AddZip(ProgramState& p, const std::string& key, const std::string& state, const std::string& city) {
    if (p.ZipCount >= ZipTableLimit) return false;
    ++p.ZipCount;
    p.ZipList[static_cast<std::size_t>(p.ZipCount)] = Fixed(key, 10) + Fixed(state, 2) + "00" + Fixed(city, 15) + "   1";
    if (p.ZipCount < ZipTableLimit) p.ZipList[static_cast<std::size_t>(p.ZipCount + 1)].clear();
    return true;
}

void CountZipUse(ProgramState& p, int i) {
    if (i < 1 || i > p.ZipCount) return;
    std::string& e = p.ZipList[static_cast<std::size_t>(i)];
    e = Fixed(e, 29) + Right("    " + CStr(static_cast<long>(Val(Mid(e, 30, 4))) + 1), 4);
}

std::string ZipState(const std::string& entry) { return Trim(Mid(entry, 11, 2)); }
std::string ZipTeam(const std::string& entry) { return Mid(entry, 13, 2); }
std::string ZipCity(const std::string& entry) { return Fixed(Mid(entry, 15, 15), 15); }

void SetZipCity(std::string& entry, const std::string& city) {
    std::string tail = Mid(entry, 30);
    entry = Fixed(entry, 14) + Fixed(city, 15) + tail;
}

void MarkZipNotSaved(ProgramState& p, bool notSaved) {
    // A full table has no slot after its last entry; the addition is refused there anyway.
    if (p.ZipCount < 0 || p.ZipCount >= ZipTableLimit) return;
    p.ZipList[static_cast<std::size_t>(p.ZipCount + 1)] = notSaved ? "NotSaved" : "";
}

bool ZipNotSaved(const ProgramState& p) {
    if (p.ZipCount < 0 || p.ZipCount >= ZipTableLimit) return false;
    return p.ZipList[static_cast<std::size_t>(p.ZipCount + 1)] == "NotSaved";
}
