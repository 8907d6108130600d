#pragma once
// Safety copies of a crusade's files, taken before an operation replaces or
// adds records, so that the operator can go back to the crusade as it was.
//
// They live in a folder of their own beside the crusade, "<name>_safety"
// (outside the pattern "<name>.*" that erasing a crusade takes), one folder
// per copy named by date and time ("2026-11-22_09-30-00", "-02" ... when two
// fall in one second). Each copy holds the files that existed and a list
// "copy.txt" naming them with their byte counts; only folders with that list
// count as copies, and only they are ever pruned.
#include <optional>
#include <string>
#include <vector>

#include "platform/vb/DateTime.h"

namespace safety {

// How many copies of a crusade are kept.
inline constexpr int Kept = 5;

struct Copy {
    std::string folder;      // full path of the copy's folder
    std::string operation;   // "Compact", "Restore", ...
    std::string taken;       // date and time in the operator's words
    std::vector<std::pair<std::string, long long>> files;   // file name, bytes
};

// The files of a crusade: .dta, .inf, .mem, .zps and the prayer list.
std::vector<std::string> CrusadeFiles(const std::string& dataFile);
// The folder that holds the crusade's copies.
std::string FolderFor(const std::string& dataFile);

// Copies every file of the crusade that exists into a new copy: the whole
// copy or none (a copy is written under a hidden name and renamed when whole).
// Then drops this crusade's oldest copies beyond `keep`. vb::RuntimeError when
// the copy cannot be made; nothing of it is left then.
Copy Take(const std::string& dataFile, const std::string& operation, const vb::DateTime& now, int keep = Kept);
// The crusade's copies, oldest first.
std::vector<Copy> List(const std::string& dataFile);
// The newest copy, if any.
std::optional<Copy> Last(const std::string& dataFile);
// Puts the copy's files in place of the crusade's (written aside, then
// renamed), and removes the crusade's files that did not exist when the copy
// was taken. The copy is then spent and removed. A copy whose files do not
// match its list is refused before anything is replaced (vb::RuntimeError).
void BringBack(const Copy& c, const std::string& dataFile);

}  // namespace safety
