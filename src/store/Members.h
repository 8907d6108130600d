#pragma once
// The member file (<name>.mem) and the zip table (<name>.zps).
#include <string>

struct ProgramState;

void LoadMembers(ProgramState& p);
// Writes the list when it holds anybody; an emptied list leaves the old file.
// A table is written only to the file it was read from: one read for another
// crusade is left unwritten.
void SaveMembers(ProgramState& p);
void LoadZips(ProgramState& p);
void SaveZips(ProgramState& p);
// Empty member and zip tables that belong to the crusade of DataFile (a new crusade).
void NewSideTables(ProgramState& p);
// The member step at the end of a load: write, read back with the
// duplicate-member question, write again.
void SaveMembersAfterLoad(ProgramState& p);
// A member line: number, last name and first name in their fixed widths.
std::string MemberLine(const std::string& rnum, const std::string& last, const std::string& first);
// Adds the line at the end of the member list and rewrites the member file.
void AddMember(ProgramState& p, const std::string& line);
