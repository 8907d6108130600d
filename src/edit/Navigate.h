#pragma once
// Moving through the list on the edit screen, and the load pass with its screen part.
struct Program;
struct ProgramState;

// Reads the record of the entry at CurrentIndex; an empty list goes to add mode.
bool FetchCurrentRecord(Program& p);
// 0 first, 1 previous, 2 next, 3 last; a refused move plays "clunk".
// First (0), previous (1), next (2) or last (3) of the list; a clunk at either end.
void StepCurrentIndex(ProgramState& p, int kind);
void GoRecord(Program& p, int kind);
// The load pass (also the menu's Fix Files); a loaded crusade then shows its first person.
// False when the pass could not run or the file was refused (the operator has been told);
// a refused file is then closed and the crusade is not loaded.
bool FullLoad(Program& p);
