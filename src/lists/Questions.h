#pragma once
// The questions some builders ask before they read the file. Each returns 0,
// or an empty text, when the operator backed out.
#include <string>

struct Program;

namespace lists {

int AskMeetingToView(Program& p);
int AskNightsMissed(Program& p);
std::string AskTeamCode(Program& p);
int AskDecision(Program& p);
bool AskArrangeByLevel(Program& p);
// 1 for four meetings or more, plus 2 for any team or 4 for an assigned team.
int AskCardLimits(Program& p);
// "equal", "atleast" or "cancel", from frmFilters.
std::string AskTotalAttend(Program& p);

}  // namespace lists
