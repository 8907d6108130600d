#pragma once
// The member file (<name>.mem) and the zip table (<name>.zps).
struct ProgramState;

void LoadMembers(ProgramState& p);
// Writes the list when it holds anybody; an emptied list leaves the old file.
void SaveMembers(ProgramState& p);
void LoadZips(ProgramState& p);
void SaveZips(ProgramState& p);
// The member step at the end of a load: write, read back with the
// duplicate-member question, write again. Permission denied is passed over.
void SaveMembersAfterLoad(ProgramState& p);
