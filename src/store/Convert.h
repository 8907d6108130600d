#pragma once
// Record files of older versions (371 and 369 bytes) turned into the current form.
struct ProgramState;

// Asks, then converts; false when the operator declined (the process then ends).
bool ConvertFrom371(ProgramState& p);
bool ConvertFrom369(ProgramState& p);
