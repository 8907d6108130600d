#pragma once
// The question that takes a prayer request, on the edit and the door screens.
#include <string>

struct Program;

// Asks for a request for the person shown and appends it; an empty answer writes nothing.
void EnterPrayer(Program& p, const std::string& rnum, const std::string& first, const std::string& last);
