#pragma once
// The printed reports. Each prints the current list, or builds its own when it
// is not called from the preview (PrintingFromPreview clear).
#include <cstdint>

struct Program;

void PrintOneLineReport(Program& p, int Code);
void PrintWCReport(Program& p, int Code);
void PrintBaptisms(Program& p);
void PrintDecisions(Program& p, std::int16_t& DecisionNumber);
void prnMailLabels(Program& p);
void InterestCard2x4(Program& p);
