#pragma once
// Dates as the runtime shows them. The program's clock comes from the host.
#include <string>

namespace vb {

struct DateTime {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;
    bool operator==(const DateTime&) const = default;
    // 1 = Sunday .. 7 = Saturday
    int weekday() const;
    bool hasTime() const { return hour || minute || second; }
};

// Format codes used by the program: "mm/dd/yy", "mm/dd/yyyy", "m/d/yy",
// "Short Date" (m/d/yyyy), "Long Date" ("dddd, mmmm d, yyyy"),
// "dddd, mmmm d, yyyy", "hh:mm:ss", "Short Time", and "" for the general date
// ("m/d/yyyy h:mm:ss AM", the date alone at midnight).
std::string FormatDate(const DateTime& d, const std::string& code);
// Parse a date written by the program or typed by the operator: m/d/yy, m/d/yyyy,
// m-d-yy, yyyy-mm-dd, with an optional time. False when it is no date.
bool ParseDate(const std::string& text, DateTime& out);
bool IsDate(const std::string& text);
// Whole days from a to b (b - a).
long DateDiffDays(const DateTime& a, const DateTime& b);
DateTime DateAddDays(const DateTime& d, long days);

}  // namespace vb
