#pragma once
// From the program's entry to the main screen, and the common end of a crusade.
struct Program;

void Main(Program& p);
void CloseCrusade(Program& p);
