#pragma once
// The member file (<name>.mem) and the zip table (<name>.zps).
struct Program;

void LoadMembers(Program& p);
// Writes the list when it holds anybody; an emptied list leaves the old file.
void SaveMembers(Program& p);
void LoadZips(Program& p);
void SaveZips(Program& p);
// The member step at the end of a load: write, read back with the
// duplicate-member question, write again. Permission denied is passed over.
void SaveMembersAfterLoad(Program& p);
