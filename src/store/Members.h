#pragma once
// The member file (<name>.mem) and the zip table (<name>.zps).
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
