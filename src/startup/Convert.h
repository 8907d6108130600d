#pragma once
// Record files of older versions (371 and 369 bytes) turned into the current form.
struct Program;

// Asks, then converts; false when the operator declined (the process then ends).
bool ConvertFrom371(Program& p);
bool ConvertFrom369(Program& p);
