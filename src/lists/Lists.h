#pragma once
// The list builders: one rule, key and order for each kind of list. Every screen
// and report walks the list they leave in SortIndex.
#include <string>

struct Program;
struct ProgramState;

namespace lists {

// Builds the list of `kind` from the record file. `number` is the n written behind
// the kinds that take one (0: the builder asks where its kind asks); `option` is
// the builder's second argument ("Al", "TC", a wanted value). Leaves SortIndex,
// IndexCount, SortName, PriorSortName and CurrentIndex set and does not touch the
// screen. False when the kind is unknown or the operator cancelled a question.
bool BuildList(Program& p, const std::string& kind, int number = 0, const std::string& option = "");

// The comb sort reversed, without the whole-entry case.
void SortDescending(ProgramState& p);

// Keeps the people of the current list who pass PrintCutOff, rebuilt and sorted.
void ApplyCutOff(ProgramState& p);

}  // namespace lists
