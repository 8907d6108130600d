#include <gtest/gtest.h>

#include "store/Attendance.h"
#include "store/MasterRecord.h"

TEST(Attendance, CountsUpToTheFortiethMeetingAndTellsActiveAndCurrent) {
    // Active is more than three meetings; current is a last meeting above the counter minus 3,
    // so below meeting 3 every attendee is current.
    struct Row { std::string attendance; const char* attend; int last; bool active; int meeting; bool current; };
    for (const Row& w : {Row{"123-----", "3 ", 3, false, 5, true}, Row{"1234", "4 ", 4, true, 6, true},
                         Row{"1234", "4 ", 4, true, 7, false}, Row{"1", "1 ", 1, false, 2, true},
                         Row{"V" + std::string(38, '-') + "0", "2 ", 40, false, 40, true},
                         Row{std::string(39, '-') + "C", "1 ", 40, false, 40, true}}) {
        MasterRecord r;
        r.Attendance = w.attendance;
        CountAttendance(r);
        EXPECT_EQ(std::make_tuple(std::string(w.attend), w.last, w.active, w.current),
                  std::make_tuple(r.Attend.str(), static_cast<int>(r.Last), IsActive(r), IsCurrent(r, w.meeting)))
            << w.attendance << " at " << w.meeting;
    }
}
