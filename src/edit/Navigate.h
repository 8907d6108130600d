#pragma once
// The screen parts of the list routines: the file parts (store/SortIndex.h) say
// what happened, and these start add mode or show the person.
struct Program;

// Reads the record of the entry at CurrentIndex; an empty list goes to add mode.
bool FetchCurrentRecord(Program& p);
// First (0), previous (1), next (2) or last (3) of the list, then shows it.
void GoRecord(Program& p, int kind);
// The load pass (also the menu's Fix Files); a loaded crusade then shows its first person.
// False when the pass could not run or the file was refused (the operator has been told);
// a refused file is then closed and the crusade is not loaded.
bool FullLoad(Program& p);
