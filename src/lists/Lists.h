#pragma once
// The list builders: one rule, key and order for each kind of list. Every screen
// and report walks the list they leave in SortIndex.
#include <string>

struct ListRun;
struct ProgramState;

namespace lists {

// Builds the list of `kind` from the record file. `number` is the n written behind
// the kinds that take one (0: the builder asks where its kind asks); `option` is
// the builder's second argument ("Al", "TC", a wanted value). Leaves SortIndex,
// IndexCount, SortName, PriorSortName and CurrentIndex set and does not touch the
// screen. False when the kind is unknown or the operator cancelled a question.
//
// Kinds that take a number: "attendnight", "missednight", "SelWCAttend" (the
// team), "decisions" (the decision, 1 to 9), "IntCard" (the answers as the card
// report reads them: 1 for four meetings or more, plus 2 for any team or 4 for
// an assigned team), "TotalAttend" (the total; 0 keeps FilterTotalAttend).
// Options: "religion" the wanted value ("SDA" for the church's own members);
// "interest" "TC" to put the team first, "F" to take level F too, or "TCF";
// "TotalAttend" "TC" as well, for the team report;
// "baptism" "TC"; "SelWCAttend" the team code when it is not given as the
// number ("00"), and "Al" (alphabetical) or "At" (attendance) behind it or alone; "decisions" "IL"
// or "Al" to arrange by interest level or not without asking; "TotalAttend"
// "equal" or "atleast" without the dialog; "DupAddress" the mode of
// BuildDuplicates.
bool BuildList(ListRun& p, const std::string& kind, int number = 0, const std::string& option = "");

// A list's name taken apart: the plain kind and the number written behind it
// ("attendnight05" -> "attendnight", 5; "decision3" and "decisions3" -> "decisions", 3).
struct ListKind {
    std::string stem;
    int number = 0;
};
ListKind SplitKind(const std::string& sortName);

// Keeps the people of the current list who pass PrintCutOff, rebuilt and sorted.
void ApplyCutOff(ProgramState& p);

// Rebuilds the list named by a SortName ("decisions3", "attendnight07", ...)
// after the cut-off changed, with `option` as BuildList takes it. A list whose
// builder asked questions keeps the answers in entry 0, so that the current
// list is rebuilt without asking again. False when the name has no rule.
bool SelectFilter(ListRun& p, const std::string& name, const std::string& option = "");

// People who share an address. `mode` "team error" keeps pairs of different
// teams, "last name" pairs of different last names, any other all of them.
void BuildDuplicates(ProgramState& p, const std::string& mode);

// Addresses that get no mail label or more than one, counted in FamilyCount.
// False (the operator has been told, the list is as it was) when more people
// share one address than the clean-up can hold.
bool BuildCleanMailList(ListRun& p);

// The most people at one address the clean-up looks at.
inline constexpr int MaxFamily = 100;

}  // namespace lists
