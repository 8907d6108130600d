#pragma once
// SortIndex: the in-memory list every screen and report walks, and FullLoad,
// the pass that repairs every record and builds the "alpha" list.
#include <string>

struct Program;

// Comb sort of entries 1..IndexCount on the last `width` characters.
void SortEntries(Program& p);
// Position of the first entry whose number is MasterRec's RNum; 0 when none.
int FindByNumber(const Program& p);
// Reads the record of the entry at CurrentIndex; an empty list goes to add mode.
bool FetchCurrentRecord(Program& p);
// 0 first, 1 previous, 2 next, 3 last; a refused move plays "clunk".
void GoRecord(Program& p, int kind);
// Rebuilds the "alpha" list from the file, skipping deleted records, and sorts it.
void RebuildAlpha(Program& p);
// Repairs, rewrites and indexes every record (also the menu's Fix Files).
void FullLoad(Program& p);
// Recounts the people of each zip of the zip table.
void CountZips(Program& p);
// The list patched for a new person at record n, an entry at the end.
void AddIndexEntry(Program& p, long n);
