#pragma once
// Look-ups and additions in the zip table (ZipList, 1-based, ZipCount entries,
// room for 2000). An entry: zip key 10, state 2, team 2, city 15, use count 4.
#include <string>

struct ProgramState;

inline constexpr int ZipTableLimit = 2000;

// The key of a zip: its first 3 characters and 7 blanks under the Canadian
// sorter (except "NoZip"), else the zip padded to 10.
std::string ZipKey(const ProgramState& p, const std::string& zip);
// The first entry that contains the key, 0 when none.
int FindZip(const ProgramState& p, const std::string& key);
// Adds an entry with team "00" and a use count of 1; false when the table is full.
bool AddZip(ProgramState& p, const std::string& key, const std::string& state, const std::string& city);
// One more person in the zip of entry i.
void CountZipUse(ProgramState& p, int i);

std::string ZipState(const std::string& entry);
std::string ZipTeam(const std::string& entry);
std::string ZipCity(const std::string& entry);   // 15 wide, as kept
void SetZipCity(std::string& entry, const std::string& city);

// The marker after the last entry: "NotSaved" while the zip being typed is new.
void MarkZipNotSaved(ProgramState& p, bool notSaved);
bool ZipNotSaved(const ProgramState& p);
