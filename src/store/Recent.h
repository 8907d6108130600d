#pragma once
// The recently used crusades, kept in the settings store ("MDINote", "Recent Files").
#include <string>

struct Program;

void UpdateRecentMenu(Program& p);
void AddRecentFile(Program& p, const std::string& path);
// Adds the path unless the menu already shows it; the menu is refreshed either way.
void RememberFile(Program& p, const std::string& path);
