#include "attend/MergeAttendance.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"

using namespace vb;

namespace attend {

std::string ReadRemoteCrusade(const std::string& dtaPath, RemoteCrusade& out) {
    out = RemoteCrusade{};
    out.path = dtaPath;
    if (!FileExists(dtaPath)) return "The file " + dtaPath + " could not be found.";
    const std::int64_t length = FileLen(dtaPath);
    // A file that is not whole records is not a crusade of this program, or a damaged one.
    if (length % MasterRecord::Length != 0)
        return dtaPath + " is not a crusade file: its length is not a whole number of records.";
    const std::string inf = Left(dtaPath, dtaPath.size() - 3) + "inf";
    try {
        TextReader r(inf);
        std::string line;
        for (int i = 0; i < 3; ++i) line = r.LineInput();
        const std::string t = Trim(line);
        if (t.empty() || !IsNumeric(t) || Val(t) != static_cast<double>(static_cast<int>(Val(t))))
            return "The information file " + inf + " does not give a meeting number.";
        out.meeting = static_cast<int>(Val(t));
    } catch (const RuntimeError&) {
        return "The information file " + inf + " could not be read.";
    }
    if (out.meeting < 1 || out.meeting > 40)
        return "The information file " + inf + " gives meeting " + CStr(out.meeting) +
               ". A meeting number must be between 1 and 40.";
    try {
        RandomFile f;
        f.Open(dtaPath, MasterRecord::Length);
        const long n = f.RecordCount();
        for (long i = 1; i <= n; ++i) {
            MasterRecord rec;
            RecordLayout::Read(f, i, rec);
            if (rec.WorkerCode != "##") out.people.push_back(std::move(rec));
        }
    } catch (const RuntimeError& e) {
        return dtaPath + " could not be read: " + e.Description();
    }
    // The member file is optional, as on the other computer.
    try {
        const std::string mem = Left(dtaPath, dtaPath.size() - 3) + "mem";
        if (FileExists(mem)) {
            TextReader r(mem);
            while (!r.Eof()) out.memberLines.push_back(r.LineInput());
        }
    } catch (const RuntimeError&) {
    }
    return std::string();
}

namespace {

// The first entry of the list for each number, without regard to case: the
// search from the top of the list, done once per number instead of once per person.
std::unordered_map<std::string, int> FirstEntries(const ProgramState& p) {
    std::unordered_map<std::string, int> first;
    const int n = std::min<int>(p.IndexCount, static_cast<int>(p.SortIndex.size()) - 1);
    for (int i = 1; i <= n; ++i) first.emplace(UCase(Left(p.SortIndex[static_cast<std::size_t>(i)], 4)), i);
    return first;
}

std::string FullName(const MasterRecord& r) { return Trim(r.FName) + " " + Trim(r.LName); }

MergeCount Walk(ProgramState& p, const RemoteCrusade& remote, bool wholeRecord, bool write) {
    // The list searched holds everyone: a filtered list would make people already
    // in the file look new, and they would be added a second time.
    if (p.SortName != "alpha") RebuildAlpha(p);
    const std::unordered_map<std::string, int> first = FirstEntries(p);
    const int r = remote.meeting;
    constexpr std::size_t Len = MasterRecord::Length;
    // The whole file in one read, the changed records written back in one pass:
    // a read and a write a person would cost more than the merge itself.
    const long count = p.RecordCount;
    std::vector<char> here(static_cast<std::size_t>(count) * Len);
    const long whole = count > 0 ? p.File1.GetRange(1, count, here.data()) : 0;
    std::vector<char> added;
    long lowest = count + 1, highest = 0;
    MergeCount result;
    for (const MasterRecord& person : remote.people) {
        auto hit = first.find(UCase(person.RNum.str()));
        if (hit == first.end()) {
            ++result.added;
            if (write) {
                const RecordBytes b = EncodeRecord(person);
                added.insert(added.end(), b.begin(), b.end());
            }
            continue;
        }
        const long n = static_cast<long>(Val(Right(p.SortIndex[static_cast<std::size_t>(hit->second)], 4)));
        if (n < 1 || n > whole) continue;   // an entry pointing past the file: nothing to merge into
        char* at = here.data() + static_cast<std::size_t>(n - 1) * Len;
        MasterRecord local = DecodeRecord(at);
        if (UCase(FullName(local)) != UCase(FullName(person)))
            result.namesDiffer.push_back(person.RNum.str() + "  " + FullName(local) + " / " + FullName(person));
        if (person.Last != r) continue;   // not at the remote meeting: the local record stays
        ++result.marked;
        if (!write) continue;
        if (wholeRecord) {
            local = person;
        } else {
            local.Attendance.SetChar(r, person.Attendance.At(r));
            CountAttendance(local, 40);   // the count only: Last is the remote one
            local.Last = person.Last;
        }
        const RecordBytes b = EncodeRecord(local);
        std::copy(b.begin(), b.end(), at);
        lowest = std::min(lowest, n);
        highest = std::max(highest, n);
    }
    if (write) {
        if (highest >= lowest)
            PutRecords(p, lowest, highest - lowest + 1, here.data() + static_cast<std::size_t>(lowest - 1) * Len);
        PutRecords(p, count + 1, result.added, added.data());
        p.RecordCount += result.added;
    }
    return result;
}

}  // namespace

MergeCount PlanAttendanceMerge(ProgramState& p, const RemoteCrusade& remote) {
    return Walk(p, remote, false, false);
}

MergeCount MergeAttendance(ProgramState& p, const RemoteCrusade& remote, bool wholeRecord) {
    p.MeetingNumber = remote.meeting;
    MergeCount count = Walk(p, remote, wholeRecord, true);
    std::unordered_set<std::string> known;
    for (int i = 1; i <= p.MemberCount; ++i) known.insert(Left(p.MemberList[static_cast<std::size_t>(i)], 4));
    p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
    for (const std::string& line : remote.memberLines) {
        if (!known.insert(Left(line, 4)).second) continue;
        p.MemberList.push_back(line);
        ++p.MemberCount;
    }
    return count;
}

}  // namespace attend
