#pragma once
// The entry of the current list for the person in MasterRec, rebuilt after a save.
#include <string>

struct ProgramState;

// The entry for MasterRec at record n in a list of kind SortName. For a kind
// whose key depends on a choice made when the list was built, the old entry's
// middle is kept and only its number is renewed.
std::string ListEntry(const ProgramState& p, const std::string& oldEntry, long n);
// The attendance key: the last three digits of 9999 minus Last.
std::string AttendanceKey(int last);
// Position of the entry that points at record n; 0 when the list has none.
int FindByRecord(const ProgramState& p, long n);
