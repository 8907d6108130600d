#pragma once
// Rules of boxes that the edit screen and the door screen share.
#include <string>

namespace forms { struct TextBox; }
struct ProgramState;

// The Interest box after a change, on both screens: upper case, a letter A to G
// or a blank; anything else is refused and the person's own letter put back.
void IntLevelChange(ProgramState& p, forms::TextBox& intLevel);
// A name or number not in the list, looked for in the member file: the two
// boxes say whether a member was found. With `ask`, each member found is offered
// in turn. The sound to play; empty when the operator cancelled.
std::string LookUpMember(ProgramState& p, forms::TextBox& entInd, forms::TextBox& sdaIdent,
                         const std::string& text, const std::string& find, bool ask);
