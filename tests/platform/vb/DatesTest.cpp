#include <gtest/gtest.h>

#include "platform/vb/DateTime.h"

using namespace vb;

namespace {

DateTime At(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
    DateTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h, t.minute = mi, t.second = s;
    return t;
}

}  // namespace

TEST(Dates, Weekday) {
    EXPECT_EQ(At(2026, 11, 22).weekday(), 1);   // Sunday
    EXPECT_EQ(At(2026, 11, 28).weekday(), 7);
    EXPECT_EQ(At(1899, 12, 30).weekday(), 7);
    EXPECT_EQ(At(2000, 2, 29).weekday(), 3);
    EXPECT_EQ(At(1600, 3, 1).weekday(), 4);
}

TEST(Dates, FormatCodes) {
    const DateTime d = At(2026, 11, 22, 15, 4, 5);
    EXPECT_EQ(FormatDate(d, "mm/dd/yy"), "11/22/26");
    EXPECT_EQ(FormatDate(At(2009, 5, 3), "mm/dd/yy"), "05/03/09");
    EXPECT_EQ(FormatDate(At(2009, 5, 3), "mm/dd/yyyy"), "05/03/2009");
    EXPECT_EQ(FormatDate(At(2009, 5, 3), "m/d/yy"), "5/3/09");
    EXPECT_EQ(FormatDate(At(2009, 5, 3), "Short Date"), "5/3/2009");
    EXPECT_EQ(FormatDate(At(2009, 5, 3), "short date"), "5/3/2009");
    EXPECT_EQ(FormatDate(d, "Long Date"), "Sunday, November 22, 2026");
    EXPECT_EQ(FormatDate(At(2026, 3, 4), "dddd, mmmm d, yyyy"), "Wednesday, March 4, 2026");
    EXPECT_EQ(FormatDate(d, "hh:mm:ss"), "15:04:05");
    EXPECT_EQ(FormatDate(d, "Short Time"), "15:04");
    EXPECT_EQ(FormatDate(d, "ddd d mmm"), "Sun 22 Nov");

    EXPECT_EQ(FormatDate(d, ""), "11/22/2026 3:04:05 PM");
    EXPECT_EQ(FormatDate(At(2026, 11, 22), ""), "11/22/2026");
    EXPECT_EQ(FormatDate(At(2026, 1, 2, 0, 0, 1), ""), "1/2/2026 12:00:01 AM");
    EXPECT_EQ(FormatDate(At(2026, 1, 2, 12, 30), ""), "1/2/2026 12:30:00 PM");
    EXPECT_EQ(FormatDate(At(1899, 12, 30, 9, 5), ""), "9:05:00 AM");
}

TEST(Dates, ParseAcceptsTheWrittenForms) {
    DateTime d;
    ASSERT_TRUE(ParseDate("11/22/2026", d));
    EXPECT_EQ(d, At(2026, 11, 22));
    ASSERT_TRUE(ParseDate(" 5/3/09 ", d));
    EXPECT_EQ(d, At(2009, 5, 3));
    ASSERT_TRUE(ParseDate("05-03-29", d));
    EXPECT_EQ(d, At(2029, 5, 3));
    ASSERT_TRUE(ParseDate("5/3/30", d));
    EXPECT_EQ(d, At(1930, 5, 3));
    ASSERT_TRUE(ParseDate("2026-11-22", d));
    EXPECT_EQ(d, At(2026, 11, 22));
    ASSERT_TRUE(ParseDate("2026-11-22T15:04:05", d));
    EXPECT_EQ(d, At(2026, 11, 22, 15, 4, 5));
    ASSERT_TRUE(ParseDate("11/22/2026 3:04:05 PM", d));
    EXPECT_EQ(d, At(2026, 11, 22, 15, 4, 5));
    ASSERT_TRUE(ParseDate("11/22/2026 12:10 am", d));
    EXPECT_EQ(d, At(2026, 11, 22, 0, 10, 0));
    ASSERT_TRUE(ParseDate("Sunday, November 22, 2026", d));
    EXPECT_EQ(d, At(2026, 11, 22));
    ASSERT_TRUE(ParseDate("12:00AM", d));
    EXPECT_EQ(d, At(1899, 12, 30));

    for (const char* bad : {"", "abc", "2/30/2026", "13/1/2026", "2/29/2025", "11/22", "1/2/3/4",
                            "11/22/2026 25:00", "11/22/2026 13:00 PM", "11/22/2026 x", "0/1/2026", "12", "2/29/1900",
                            "February 29, 1900", "29 February 2100"})
        EXPECT_FALSE(IsDate(bad)) << bad;
    // Every fourth year is a leap year, but not a century unless it divides by 400.
    for (const char* good : {"2/29/2024", "2/29/2000", "2000-02-29", "February 29, 2000", "29 February 2000"})
        EXPECT_TRUE(IsDate(good)) << good;

    // What FormatDate writes, ParseDate reads back.
    for (const DateTime& t : {At(2026, 11, 22, 15, 4, 5), At(2026, 11, 22), At(2001, 1, 1, 0, 0, 1)}) {
        ASSERT_TRUE(ParseDate(FormatDate(t, ""), d));
        EXPECT_EQ(d, t);
    }
}

TEST(Dates, DayArithmetic) {
    EXPECT_EQ(DateDiffDays(At(2024, 2, 28), At(2024, 3, 1)), 2);
    EXPECT_EQ(DateDiffDays(At(2023, 2, 28), At(2023, 3, 1)), 1);
    EXPECT_EQ(DateDiffDays(At(2026, 1, 1, 23, 59), At(2026, 1, 2, 0, 1)), 1);
    EXPECT_EQ(DateDiffDays(At(2026, 1, 2), At(2026, 1, 1)), -1);
    EXPECT_EQ(DateDiffDays(At(1899, 12, 30), At(2026, 11, 22)), 46348);
    EXPECT_EQ(DateAddDays(At(2025, 12, 31, 8, 30), 1), At(2026, 1, 1, 8, 30));
    EXPECT_EQ(DateAddDays(At(2024, 3, 1), -1), At(2024, 2, 29));
    EXPECT_EQ(DateAddDays(At(2026, 11, 22), 365), At(2027, 11, 22));
}
