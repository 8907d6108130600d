#pragma once
// Cutting every person's attendance back to a lower last meeting.
#include <functional>
#include <string_view>

struct ProgramState;

// A person whose every mark lay past the new last meeting: told before the record is written.
struct LateComer {
    std::string_view RNum, FName, LName;   // as the record holds them, blank-padded
};

// For every record of the file, deleted ones too: the places after meeting n become "-",
// Attend and Last follow what is left. Somebody left with nothing keeps one mark at n,
// with Attend 1 and Last the counter c as it still stands, and `told` is called for them.
// Returns how many were written. The file is walked in blocks and written block by block.
long EraseAttendanceAfter(ProgramState& p, int n, int c, const std::function<void(const LateComer&)>& told);
