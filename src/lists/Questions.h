#pragma once
// The questions some builders ask before they read the file. Each returns 0,
// or an empty text, when the operator backed out.
#include <string>

struct ListRun;

namespace lists {

int AskMeetingToView(ListRun& p);
int AskNightsMissed(ListRun& p);
std::string AskTeamCode(ListRun& p);
int AskDecision(ListRun& p);
bool AskArrangeByLevel(ListRun& p);
// 1 for four meetings or more, plus 2 for any team or 4 for an assigned team.
int AskCardLimits(ListRun& p);
// "equal", "atleast" or "cancel", from frmFilters.
std::string AskTotalAttend(ListRun& p);

}  // namespace lists
