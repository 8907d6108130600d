#include "store/SortIndex.h"

#include <cmath>
#include <string_view>
#include <unordered_map>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/Attendance.h"
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
    std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        auto x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
        if (x != y) return x > y;
    }
    return a.size() > b.size();
}

bool IsPlaceholder(const MasterRecord& r) {
    return Trim(r.FName).empty() && Trim(r.LName) == "Unknown" && Trim(r.Address).empty();
}

void NormaliseAttendance(ProgramState& p) {
    MasterRecord& r = p.MasterRec;
    r.Attendance = Trim(r.Attendance);
    if (Trim(r.Attendance).empty()) {
        std::string a(40, '-');
        if (p.MeetingNumber >= 1 && p.MeetingNumber <= 40) a[p.MeetingNumber - 1] = LastDigit(p.MeetingNumber);
        r.Attendance = a;
    }
    CountAttendance(r);
    if (r.Last > p.MeetingNumber) p.MeetingNumber = r.Last;
}

void NormaliseDecisions(ProgramState& p) {
    MasterRecord& r = p.MasterRec;
    std::string d = Left(Trim(r.Decisions), 9);
    d.resize(9, ' ');
    for (int i = 1; i <= 9; ++i) {
        char was = d[i - 1];
        if (was == ' ') d[i - 1] = '-';
        const std::string& code = p.DecisionCodes[i];
        if (was != '-' && (code.empty() || was != code[0])) d[i - 1] = code.empty() ? '-' : code[0];
    }
    r.Decisions = d;
}

void NormaliseAge(ProgramState& p) {
    MasterRecord& r = p.MasterRec;
    std::string age = Trim(r.Age);
    if (age.empty() || age == "Unknown") age = "NIF";
    else if (age.size() > 5 && age[0] >= '1' && age[0] <= '7') age = p.AgeGroups[age[0] - '0'];
    r.Age = age;
}

// Shows the same boxes in the same order as comparing each entry with every
// other, but finds "another entry with this number" through a count per number.
void DuplicateCheck(ProgramState& p) {
    std::unordered_map<std::string, int> counts;
    for (int i = 1; i <= p.IndexCount; ++i) ++counts[Left(p.SortIndex[i], 4)];
    std::string lastReported;
    for (int i = 1; i <= p.IndexCount; ++i) {
        std::string num = Left(p.SortIndex[i], 4);
        if (counts[num] < 2) continue;
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

struct BusyPointer {
    host::Host& h;
    explicit BusyPointer(host::Host& host) : h(host) { h.SetBusy(true); }
    ~BusyPointer() { h.SetBusy(false); }
};

}  // namespace

void SortEntries(ProgramState& p) {
    int n = p.IndexCount;
    if (n == 0) return;
    BusyPointer busy(p.host);
    std::vector<std::string>& s = p.SortIndex;
    std::size_t width = s[1].size() >= 4 ? s[1].size() - 4 : 0;
    if (p.SortName == "byNum") width = s[1].size();
    int gap = n;
    bool swapped;
    do {
        gap = static_cast<int>(std::floor(gap / 1.3));
        if (gap == 0) gap = 1;
        if (gap == 9 || gap == 10) gap = 11;
        swapped = false;
        for (int i = 1; i <= n - gap; ++i) {
            if (Greater(Tail(s[i], width), Tail(s[i + gap], width))) {
                std::swap(s[i], s[i + gap]);
                swapped = true;
            }
        }
    } while (gap != 1 || swapped);
}

int FindByNumber(const ProgramState& p) {
    std::string num = UCase(p.MasterRec.RNum);
    for (int i = 1; i <= p.IndexCount; ++i)
        if (UCase(Left(p.SortIndex[i], 4)) == num) return i;
    return 0;
}

void AddIndexEntry(ProgramState& p, long n) {
    ++p.IndexCount;
    p.SortIndex.resize(p.IndexCount + 1);
    p.SortIndex[p.IndexCount] = "-------" + RecordPointer(n);
    p.CurrentIndex = p.IndexCount;
}

void RebuildAlpha(ProgramState& p) {
    p.PriorSortName = p.SortName;
    BusyPointer busy(p.host);
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
    p.ZipList[0] = "0";
    for (int z = 1; z <= p.ZipCount; ++z) p.ZipList[z] = Fixed(Left(p.ZipList[z], 29), 29) + "   0";
    if (p.ZipCount == 0) return;
    std::unordered_map<std::string, int> byZip;
    for (int z = p.ZipCount; z >= 1; --z) byZip[Left(p.ZipList[z], 10)] = z;   // the first entry wins
    std::vector<int> counts(p.ZipCount + 1, 0);
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        if (p.MasterRec.WorkerCode == "##") continue;
        std::string zip = p.MasterRec.Zip;
        if (p.CanadaSorter) zip = Left(zip, 3);
        auto it = byZip.find(Fixed(zip, 10));
        if (it != byZip.end()) ++counts[it->second];
    }
    for (int z = 1; z <= p.ZipCount; ++z) p.ZipList[z] = Left(p.ZipList[z], 29) + Right("    " + CStr(counts[z]), 4);
}

bool FullLoadPass(ProgramState& p) {
    bool clearFlag = p.ScratchValue == "ClearFlag";
    BusyPointer busy(p.host);
    p.SortIndex.assign(1, "alpha");
    p.SortName = "alpha";
    p.MeetingNumber = 1;
    try {
        p.File1.Lock();
    } catch (const RuntimeError&) {
        p.host.MsgBox("The file " + p.DataFile + " is in use by another copy of Vestrel." + p.CrLf +
                          "Close the other copy and try again.",
                      host::vbExclamation);
        return false;
    }
    int counter = 0;
    bool master = p.CrusadeName == "Master";
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        MasterRecord& r = p.MasterRec;
        if (clearFlag) r.IntFlag = 0;
        bool deleted = r.WorkerCode == "##";
        if (!deleted) {
            r.FName = Trim(r.FName);
            r.LName = Trim(r.LName);
            r.Address = Trim(r.Address);
            if (IsPlaceholder(r)) {
                long num = static_cast<long>(Val(r.RNum));
                bool past = p.NumberDirection == "DOWN" ? num >= p.LastRNum
                          : p.NumberDirection == "UP"   ? num <= p.LastRNum
                                                        : false;
                if (past) r.WorkerCode = "##";
            }
            if (master) r.RNum = Right("000" + CStr(++counter), 4);
            p.SortIndex.push_back(AlphaEntry(p, i));
            NormaliseAttendance(p);
        }
        std::string wc = r.WorkerCode;
        if (!(wc >= "00" && wc <= "40") && wc != "##") r.WorkerCode = "00";
        NormaliseAge(p);
        NormaliseDecisions(p);
        PutRecord(p, i);
    }
    p.File1.Sync();
    p.File1.Unlock();
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    DuplicateCheck(p);
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
    SortEntries(p);
    CountZips(p);
    return true;
}
