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

TEST(Attendance, DigitsActiveAndCurrent) {
    for (auto [n, d] : {std::pair{1, '1'}, {10, '0'}, {12, '2'}, {20, '0'}, {30, '0'}, {40, '0'}})
        EXPECT_EQ(LastDigit(n), d) << n;

    MasterRecord r;
    r.Attendance = "123-----";
    CountAttendance(r);
    EXPECT_EQ(r.Attend.str(), "3 ");
    EXPECT_FALSE(IsActive(r));
    r.Attendance = "1234";
    CountAttendance(r);
    EXPECT_TRUE(IsActive(r));
    EXPECT_EQ(r.Last, 4);
    EXPECT_TRUE(IsCurrent(r, 6));    // last is the meeting counter minus 2
    EXPECT_FALSE(IsCurrent(r, 7));   // minus 3
    r.Attendance = "1";
    CountAttendance(r);
    EXPECT_TRUE(IsCurrent(r, 2));    // below meeting 3 every attendee is current
}
