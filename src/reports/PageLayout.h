#pragma once
// What the list reports share on every page: the header with title, meeting
// number, date and rule; and the footer.
#include <string>

#include "platform/vb/DateTime.h"

namespace host {
class PrintSurface;
}  // namespace host

void DrawReportHeader(host::PrintSurface& out, const std::string& title, int meetingNumber,
                      const vb::DateTime& today);
// Prints nothing on page 1.
void DrawReportFooter(host::PrintSurface& out, const std::string& title, int page);
