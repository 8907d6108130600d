#pragma once
// Writing the person on a screen back to the file.
#include <string>

struct ProgramState;

// Writes MasterRec at RecordPos and renews its entry in the list. When the disk
// refuses, the operator is told that `stillShown` is still on the screen and
// the list is left alone: false then.
bool WriteBack(ProgramState& p, const std::string& stillShown);
