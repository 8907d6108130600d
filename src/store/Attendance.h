#pragma once
// The 40-character attendance text of a person and the two fields derived from it.
#include <cstddef>
#include <cstdint>
#include <string>

struct MasterRecord;

// Counts the positions that are not "-"; a blank becomes "-" in the caller's
// text. `last` takes the position of the last mark and is left alone when
// there is none. The only routine that derives the total.
std::int16_t CountAttendance(std::string& attendance, std::int16_t& last);
// The same over the bytes of a record in place, for passes that do not decode it.
std::int16_t CountAttendance(char* attendance, std::size_t size, std::int16_t& last);
// The same over a record: Attendance cleaned, Attend and Last set from it.
// Last is `keptLast` when nobody marked anything.
void CountAttendance(MasterRecord& r, std::int16_t keptLast = 0);
// The last character of the decimal text of n: what a live mark at meeting n writes.
char LastDigit(int n);
// Attended 4 or more meetings.
bool IsActive(const MasterRecord& r);
// Attended one of the last 3 meetings.
bool IsCurrent(const MasterRecord& r, int meetingNumber);
