#pragma once
// Taking a person out of the list (the record stays, marked "##") and into the member file.
#include <string>

struct ProgramState;

// A member line: number, last name and first name in their fixed widths.
std::string MemberLine(const std::string& rnum, const std::string& last, const std::string& first);
// Adds the line at the end of the member list and rewrites the member file.
void AddMember(ProgramState& p, const std::string& line);
// Takes the entry at CurrentIndex out of the list; the one after it, or the one
// before when it was the last, becomes current.
void DropCurrentEntry(ProgramState& p);
