#pragma once
// The program's own folder: made at first start and given the bundled files.
#include <string>

// The default program folder, ~/Vestrel.
std::string DefaultAppPath();
// Creates the folder when needed and copies the wave files and help pages that
// are not there yet. Returns false (with the reason) when the folder can't be made.
bool InstallProgramFolder(const std::string& appPath, const std::string& resources, std::string& error);
