#pragma once
// From the program's entry to the main screen, and the common end of a crusade.
#include <functional>
#include <string>

struct Program;

void Main(Program& p);
void CloseCrusade(Program& p);
// Clears what the closed crusade left on screen and in the buffers: the person,
// the undo copy, the previous card and the marks.
void ForgetCrusade(Program& p);
// True when the crusade's record file and its folder can be written; otherwise the
// operator is told which cannot and what to do.
[[nodiscard]] bool CrusadeWritable(Program& p, const std::string& path);
// Runs the reading steps of an existing crusade (DataFile already set). A run-time
// fault in them is told in plain words; then, as when a step returns false, the
// record file (and its lock) is let go, nothing is loaded, and false is returned.
[[nodiscard]] bool OpenCrusade(Program& p, const std::function<bool()>& steps);
// After opening an existing record file: one without records is told to the
// operator and comes up as a new crusade in add mode; any other is not new.
void NoticeEmptyFile(Program& p);
// Removes the temporary files of saves of this crusade's files that a crash interrupted.
void RemoveStaleTempFiles(const std::string& dataFile);
