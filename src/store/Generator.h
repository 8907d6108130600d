#pragma once
// A made-up crusade: the people an operator would have keyed from cards over a
// run of meetings, with the information, zip and member files beside them. It
// gives a new user something to open, and tests and benchmarks their data.
#include <string>

struct ProgramState;

// Writes dtaPath (people records, at most 9999) and the .inf, .zps and .mem
// beside it, and leaves p as opening that crusade would: DataFile, the lists,
// MeetingNumber, LastRNum, ZipList, MemberList. File number 1 is closed; open
// it and run FullLoad to load the crusade. meetingsHeld 0 draws a number from
// the seed; crusadeName empty takes the file's base name. The same arguments
// give the same bytes (the .inf's last line is the host's clock).
void GenerateCrusade(ProgramState& p, const std::string& dtaPath, int people, unsigned seed, int meetingsHeld = 0,
                     const std::string& crusadeName = "");
