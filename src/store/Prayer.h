#pragma once
// Prayer requests and comments: a plain text file beside the data file that the
// visiting teams read, only ever appended to.
#include <string>

struct ProgramState;

// The data file's path less its extension, with "_prayer.txt".
std::string PrayerFile(const ProgramState& p);
// Appends one request line, with the file's heading when it is new and the
// meeting's heading when it is due. False when the disk refused it; the file
// is then as it stood.
bool AppendPrayer(ProgramState& p, const std::string& rnum, const std::string& first, const std::string& last,
                  const std::string& request);
