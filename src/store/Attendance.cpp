#include "store/Attendance.h"

#include <bit>

#include "platform/vb/Strings.h"
#include "store/ByteWords.h"
#include "store/MasterRecord.h"

std::int16_t CountAttendance(std::string& attendance, std::int16_t& last) {
    return CountAttendance(attendance.data(), attendance.size(), last);
}

namespace {
// The forty meetings as five words: blanks become "-", the others are counted,
// and the last of them is found from the highest word that holds one.
std::int16_t CountForty(char* attendance, std::int16_t& last) {
    using namespace bytewords;
    int total = 0, lastWord = -1;
    std::uint64_t lastMarks = 0;
    for (int k = 0; k < 5; ++k) {
        std::uint64_t w = Load(attendance + 8 * k);
        w ^= (BytesEqual(w, ' ') >> 7) * static_cast<unsigned char>(' ' ^ '-');
        Store(attendance + 8 * k, w);
        const std::uint64_t marks = ~BytesEqual(w, '-') & kHigh;
        // The marks counted by a multiply: the baseline processor has no popcount instruction.
        total += static_cast<int>(((marks >> 7) * kOnes) >> 56);
        lastWord = marks ? k : lastWord;
        lastMarks = marks ? marks : lastMarks;
    }
    if (lastWord >= 0) last = static_cast<std::int16_t>(8 * lastWord + (63 - std::countl_zero(lastMarks)) / 8 + 1);
    return static_cast<std::int16_t>(total);
}
}  // namespace

std::int16_t CountAttendance(char* attendance, std::size_t size, std::int16_t& last) {
    if (size >= 40) return CountForty(attendance, last);
    const std::size_t n = size;
    // A short text, only from a damaged caller: byte by byte.
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
