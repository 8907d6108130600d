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

TEST(Dates, WeekdayAndFormatCodes) {
    const std::pair<DateTime, int> days[] = {
        {At(2026, 11, 22), 1}, {At(2026, 11, 28), 7}, {At(1899, 12, 30), 7}, {At(2000, 2, 29), 3}, {At(1600, 3, 1), 4}};
    for (const auto& [d, weekday] : days) EXPECT_EQ(weekday, d.weekday()) << d.year;

    const DateTime d = At(2026, 11, 22, 15, 4, 5), may = At(2009, 5, 3);
    const std::tuple<DateTime, const char*, const char*> rows[] = {
        {d, "mm/dd/yy", "11/22/26"},       {may, "mm/dd/yy", "05/03/09"},  {may, "mm/dd/yyyy", "05/03/2009"},
        {may, "m/d/yy", "5/3/09"},         {may, "Short Date", "5/3/2009"}, {may, "short date", "5/3/2009"},
        {d, "Long Date", "Sunday, November 22, 2026"},
        {At(2026, 3, 4), "dddd, mmmm d, yyyy", "Wednesday, March 4, 2026"},
        {d, "hh:mm:ss", "15:04:05"},       {d, "Short Time", "15:04"},     {d, "ddd d mmm", "Sun 22 Nov"},
        {d, "", "11/22/2026 3:04:05 PM"},  {At(2026, 11, 22), "", "11/22/2026"},
        {At(2026, 1, 2, 0, 0, 1), "", "1/2/2026 12:00:01 AM"}, {At(2026, 1, 2, 12, 30), "", "1/2/2026 12:30:00 PM"},
        {At(1899, 12, 30, 9, 5), "", "9:05:00 AM"}};
    for (const auto& [t, code, want] : rows) EXPECT_EQ(want, FormatDate(t, code)) << code;
}

TEST(Dates, ParseAcceptsTheWrittenForms) {
    const std::pair<const char*, DateTime> rows[] = {
        {"11/22/2026", At(2026, 11, 22)},         {" 5/3/09 ", At(2009, 5, 3)},
        {"05-03-29", At(2029, 5, 3)},             {"5/3/30", At(1930, 5, 3)},
        {"2026-11-22", At(2026, 11, 22)},         {"2026-11-22T15:04:05", At(2026, 11, 22, 15, 4, 5)},
        {"11/22/2026 3:04:05 PM", At(2026, 11, 22, 15, 4, 5)}, {"11/22/2026 12:10 am", At(2026, 11, 22, 0, 10, 0)},
        {"Sunday, November 22, 2026", At(2026, 11, 22)}, {"12:00AM", At(1899, 12, 30)}};
    DateTime d;
    for (const auto& [text, want] : rows) {
        ASSERT_TRUE(ParseDate(text, d)) << text;
        EXPECT_EQ(want, d) << text;
    }
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
