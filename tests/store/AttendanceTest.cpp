#include <gtest/gtest.h>

#include "store/Attendance.h"
#include "store/MasterRecord.h"

TEST(Attendance, CountsMarksUpToTheFortiethMeeting) {
    const std::pair<std::string, int> cases[] = {{"V" + std::string(38, '-') + "0", 2},
                                                 {std::string(39, '-') + "C", 1}};
    for (const auto& [text, total] : cases) {
        std::string counted = text;
        std::int16_t last = 0;
        EXPECT_EQ(total, CountAttendance(counted, last)) << text;
        EXPECT_EQ(40, last) << text;
    }
}

TEST(Attendance, ActiveAndCurrent) {
    // Active is more than three meetings; current is a last meeting above the counter minus 3,
    // so below meeting 3 every attendee is current.
    struct Row { const char* attendance; const char* attend; bool active; int meeting; bool current; };
    for (const Row& w : {Row{"123-----", "3 ", false, 5, true}, Row{"1234", "4 ", true, 6, true},
                         Row{"1234", "4 ", true, 7, false}, Row{"1", "1 ", false, 2, true}}) {
        MasterRecord r;
        r.Attendance = w.attendance;
        CountAttendance(r);
        EXPECT_EQ(w.attend, r.Attend.str()) << w.attendance;
        EXPECT_EQ(w.active, IsActive(r)) << w.attendance;
        EXPECT_EQ(w.current, IsCurrent(r, w.meeting)) << w.attendance << " at " << w.meeting;
    }
}
