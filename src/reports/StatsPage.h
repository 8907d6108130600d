#pragma once
// The head both statistics pages share: the title, the date against the right
// edge and a heavy rule.
#include <string>

#include "platform/vb/DateTime.h"

namespace host { class PrintSurface; }

namespace reports {

void StatsTitle(host::PrintSurface& out, const std::string& title, const vb::DateTime& today);

}  // namespace reports
