#include "store/ListEntry.h"

#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"

using namespace vb;

namespace {
std::string LongPart(const MasterRecord& r) { return UCase(r.LName.str()) + Left(r.FName, 3); }
std::string LongUpperPart(const MasterRecord& r) { return UCase(r.LName.str()) + UCase(Left(r.FName, 3)); }
std::string FullPart(const MasterRecord& r) { return UCase(r.LName.str()) + UCase(r.FName.str()); }

std::string ZipKey(const ProgramState& p, const MasterRecord& r) {
    if (p.CanadaSorter) return Left(r.Zip, 3) + std::string(7, ' ');
    return r.Zip.str();
}

// mm/dd/yy with missing leading zeros added, as yyyymmdd.
std::string DateKey(const std::string& bapt) {
    std::string d = Trim(bapt);
    if (Mid(d, 2, 1) == "/") d = "0" + d;
    if (Mid(d, 5, 1) == "/") d = Left(d, 3) + "0" + Mid(d, 4);
    std::string yy = Mid(d, 7, 2);
    return (yy > "50" ? "19" : "20") + yy + Left(d, 2) + Mid(d, 4, 2);
}
}  // namespace

std::string AttendanceKey(int last) { return Right("000" + Trim(CStr(9999L - last)), 3); }

std::string ListEntry(const ProgramState& p, const std::string& oldEntry, long n) {
    const MasterRecord& r = p.MasterRec;
    const std::string& kind = p.SortName;
    const std::string num = r.RNum.str();
    const std::string ptr = RecordPointer(n);
    auto starts = [&](const char* s) { return Left(kind, static_cast<long>(std::string(s).size())) == s; };
    if (kind == "alpha" || kind == "alphafilter" || kind == "undelete" || kind.empty())
        return AlphaEntry(p, n);
    if (kind == "notes" || starts("attendnight") || starts("missednight") || kind == "needsabvis")
        return num + LongPart(r) + ptr;
    if (kind == "age") return num + r.Age.str() + LongPart(r) + ptr;
    if (kind == "attend") return num + AttendanceKey(r.Last) + LongPart(r) + ptr;
    if (kind == "wcattend") return num + r.WorkerCode.str() + AttendanceKey(r.Last) + LongPart(r) + ptr;
    if (kind == "wcalpha") return num + r.WorkerCode.str() + FullPart(r) + ptr;
    if (kind == "PreCrusade" || kind == "marked") return num + LongUpperPart(r) + ptr;
    if (kind == "mail") return num + r.Zip.str() + FullPart(r) + ptr;
    if (kind == "zip") return num + ZipKey(p, r) + UCase(r.Address.str()) + FullPart(r) + ptr;
    if (kind == "date") return num + DateKey(r.BaptDate) + FullPart(r) + ptr;
    if (kind == "FutureBapDateSet") return num + r.BaptDate.str() + LongUpperPart(r) + ptr;
    // Keys that hang on a choice made when the list was built: keep the middle.
    if (oldEntry.size() >= 8) {
        std::string kept = oldEntry;
        SetEntryPart(kept, EntryPart::Number, num);
        return kept;
    }
    return AlphaEntry(p, n);
}

int FindByRecord(const ProgramState& p, long n) {
    for (int i = 1; i <= p.IndexCount && i < static_cast<int>(p.SortIndex.size()); ++i)
        if (static_cast<long>(Val(Right(p.SortIndex[i], 4))) == n) return i;
    return 0;
}
