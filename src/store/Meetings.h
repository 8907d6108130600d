#pragma once
// The meeting counter's rules, and the two tests of a meeting number entered
// at the start of nightly attendance or of adding names.
#include <string>

struct ProgramState;

enum class MeetingEntryFor { NightlyAttendance, AddNames };

// Range, then a skipped meeting asked about. Returns the meeting, or 0 when the
// command ends (silently for an entry that reads as 0 at night, an empty one
// when adding names).
int CheckMeetingEntry(ProgramState& p, const std::string& entry, MeetingEntryFor kind);
// Leaving a meeting number box: a number above the counter raises it, never lowers it.
void RaiseMeetingNumber(ProgramState& p, int typed);
// A new card's attendance at meeting m: 40 dashes with the meeting's last digit at m.
std::string FirstAttendance(int m);
