#pragma once
// What the list reports share on every page: the header with title, meeting
// number, date and rule; the footer; and the page loop that honours the first
// page chosen in the printer dialog.
#include <functional>
#include <string>

#include "platform/vb/DateTime.h"

namespace host {
class Host;
class PrintSurface;
}  // namespace host

void DrawReportHeader(host::PrintSurface& out, const std::string& title, int meetingNumber,
                      const vb::DateTime& today);
// Prints nothing on page 1.
void DrawReportFooter(host::PrintSurface& out, const std::string& title, int page);

// The report's own page counter. Pages before the dialog's first page are drawn
// and then discarded, so that a report runs the same way whatever was chosen.
class ReportPages {
public:
    ReportPages(host::Host& host, host::PrintSurface& out, std::string title, int fromPage,
                std::function<void()> header, float topY = 0.2f);

    int Page() const { return page_; }
    // Breaks the page when the pen is below the limit; true when it did.
    bool BreakIfPast(float limit);
    void Break();
    // Ends the report. False when the first page chosen lay past the end: nothing
    // was printed and the operator has been told. The counter is back at 1 for
    // another copy.
    bool Finish();

private:
    host::Host& host_;
    host::PrintSurface& out_;
    std::string title_;
    int fromPage_;
    std::function<void()> header_;
    float topY_;
    int page_ = 1;
};
