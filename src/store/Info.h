#pragma once
// The crusade's information file (<name>.inf): 133 lines of settings and lists.
#include <string>

struct ProgramState;

// Reads the information file over the defaults; an old version is converted.
void LoadInfo(ProgramState& p);
// Writes all 133 lines; the file on disk is always the old or the new whole file.
// False (after telling the operator) when the disk refused the file.
[[nodiscard]] bool SaveInfo(ProgramState& p);
// The version number of a version line ("version 2.5.0" gives 2.5), 0 when short.
double InfoVersionNumber(const std::string& line9);
// Reads only the lists (teams, decisions, churches, sermons) of another crusade's
// information file over the current ones; false when it does not exist.
bool ReadPriorLists(ProgramState& p, const std::string& infPath);
