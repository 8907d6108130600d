#include <gtest/gtest.h>

#include "store/Attendance.h"
#include "store/MasterRecord.h"

TEST(Attendance, CountsMarksCleansBlanksAndKeepsLastWhenThereIsNone) {
    struct Case {
        std::string text;
        std::int16_t lastIn;
        int total;
        std::int16_t lastOut;
        std::string cleaned;
    };
    const Case cases[] = {
        {std::string(40, '-'), 7, 0, 7, std::string(40, '-')},
        {"12-4C6S-90-B345K7U901234" + std::string(16, ' '), 0, 21, 24, "12-4C6S-90-B345K7U901234" + std::string(16, '-')},
        {"V" + std::string(38, '-') + "0", 0, 2, 40, "V" + std::string(38, '-') + "0"},
        {"---------------------------------------C", 3, 1, 40, "---------------------------------------C"},
    };
    for (const Case& c : cases) {
        std::string text = c.text;
        std::int16_t last = c.lastIn;
        EXPECT_EQ(CountAttendance(text, last), c.total) << c.text;
        EXPECT_EQ(last, c.lastOut) << c.text;
        EXPECT_EQ(text, c.cleaned) << c.text;
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
