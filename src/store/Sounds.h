#pragma once
#include <string>

struct ProgramState;

// Plays a sound effect by name while SoundOn is true, without waiting.
void PlaySound(ProgramState& p, const std::string& name);
