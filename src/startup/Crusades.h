#pragma once
// Creating, opening and changing crusades.
struct Program;

// From the splash: leaves "NoFileSelected", "oldfileselected" or another word in ScratchText.
void SelectCrusade(Program& p);
// From the main screen (also the recent files, with ScratchText "skipDialog").
void ChangeCrusade(Program& p);
