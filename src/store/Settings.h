#pragma once
// The settings file Vestrel.ini in the program's folder.
struct ProgramState;

void LoadSettings(ProgramState& p);
void SaveSettings(ProgramState& p);
