#include "tables/PrefsErase.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/RecordLayout.h"
#include "store/State.h"

long EraseAttendanceAfter(ProgramState& p, int n, int c, const std::function<void(const LateComer&)>& told) {
    if (n < 1 || n > 40) return 0;
    constexpr std::size_t len = MasterRecord::Length;
    constexpr long kBlock = 256;
    const long count = p.RecordCount;
    vb::FileLock lock(p.File1);
    std::vector<char> block(static_cast<std::size_t>(std::clamp(count, 1L, kBlock)) * len);
    long written = 0;
    for (long first = 1; first <= count; first += kBlock) {
        const long k = std::min(kBlock, count - first + 1);
        const long got = p.File1.GetRange(first, k, block.data());
        for (long j = 0; j < got; ++j) {
            char* rec = block.data() + j * len;
            char* att = rec + RecordAt::Attendance;
            // The load pass leaves no blanks in the forty places: the whole field is the trimmed text.
            std::memset(att + n, '-', static_cast<std::size_t>(40 - n));
            std::int16_t last = RecordLayout::GetInt16(rec + RecordAt::Last);
            std::int16_t total = CountAttendance(att, 40, last);
            if (total == 0) {
                if (told) told({{rec + RecordAt::RNum, 4}, {rec + RecordAt::FName, 20}, {rec + RecordAt::LName, 20}});
                att[n - 1] = LastDigit(n);
                total = 1;
                last = static_cast<std::int16_t>(c);
            }
            char attend[2] = {' ', ' '};
            const std::string t = vb::CStr(static_cast<long>(total));
            std::memcpy(attend, t.data(), std::min<std::size_t>(2, t.size()));
            std::memcpy(rec + RecordAt::Attend, attend, 2);
            RecordLayout::PutInt16(rec + RecordAt::Last, last);
        }
        if (got > 0) p.File1.PutRange(first, got, block.data());
        written += got;
    }
    p.File1.Sync();
    return written;
}
