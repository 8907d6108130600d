#pragma once
// Where program text and paths meet Qt's strings.
#include <string>

#include <QString>

// Program text is Windows-1252; Qt's is Unicode.
QString ToQString(const std::string& cp1252);
std::string FromQString(const QString& text);
// Paths are bytes in the file system's encoding, not program text.
QString FromPath(const std::string& path);
