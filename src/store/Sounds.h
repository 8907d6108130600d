#pragma once
#include <string>

struct Program;

// Plays a sound effect by name while SoundOn is true, without waiting.
void PlaySound(Program& p, const std::string& name);
