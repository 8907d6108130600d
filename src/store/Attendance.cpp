#include "store/Attendance.h"

#include "platform/vb/Strings.h"
#include "store/MasterRecord.h"

std::int16_t CountAttendance(std::string& attendance, std::int16_t& last) {
    return CountAttendance(attendance.data(), attendance.size(), last);
}

std::int16_t CountAttendance(char* attendance, std::size_t size, std::int16_t& last) {
    const std::size_t n = size < 40 ? size : 40;
    // Plain loops without early exits, so that each runs in vector steps: the
    // load pass counts every person this way.
    for (std::size_t i = 0; i < n; ++i) attendance[i] = attendance[i] == ' ' ? '-' : attendance[i];
    std::int16_t total = 0;
    for (std::size_t i = 0; i < n; ++i) total = static_cast<std::int16_t>(total + (attendance[i] != '-'));
    for (std::size_t i = n; i > 0; --i)
        if (attendance[i - 1] != '-') {
            last = static_cast<std::int16_t>(i);
            break;
        }
    return total;
}

void CountAttendance(MasterRecord& r, std::int16_t keptLast) {
    std::string text = r.Attendance;
    std::int16_t last = keptLast;
    std::int16_t total = CountAttendance(text, last);
    r.Attendance = text;
    r.Attend = vb::CStr(static_cast<long>(total));
    r.Last = last;
}

char LastDigit(int n) {
    std::string s = vb::CStr(static_cast<long>(n));
    return s.empty() ? '0' : s.back();
}

bool IsActive(const MasterRecord& r) { return vb::Val(r.Attend) > 3; }

bool IsCurrent(const MasterRecord& r, int meetingNumber) { return r.Last > meetingNumber - 3; }
