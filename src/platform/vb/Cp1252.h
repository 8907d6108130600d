#pragma once
// Windows-1252 is the program's text inside and on disk; Unicode is only for display.
#include <string>

namespace vb {

std::string Cp1252ToUtf8(const std::string& bytes);
// Characters with no Windows-1252 form become '?'.
std::string Utf8ToCp1252(const std::string& utf8);

}  // namespace vb
