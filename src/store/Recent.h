#pragma once
// The recently used crusades, kept in the settings store ("MDINote", "Recent Files").
#include <string>
#include <utility>
#include <vector>

struct ProgramState;

// The number of a key "RecentFileN"; 0 for any other key.
int RecentKeyNumber(const std::string& key);
// Every entry of the section with a key of a number, ordered by that number.
std::vector<std::pair<std::string, std::string>> RecentFiles(ProgramState& p);
void AddRecentFile(ProgramState& p, const std::string& path);
