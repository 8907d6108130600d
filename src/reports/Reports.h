#pragma once
// The printed reports. Each prints the current list, or builds its own when it
// is not called from the preview (PrintingFromPreview clear).
#include <cstdint>

struct ReportRun;

void PrintOneLineReport(ReportRun& p, int Code);
void PrintWCReport(ReportRun& p, int Code);
void PrintBaptisms(ReportRun& p);
void PrintDecisions(ReportRun& p, std::int16_t& DecisionNumber);
void prnMailLabels(ReportRun& p);
void InterestCard2x4(ReportRun& p);
