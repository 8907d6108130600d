#include "reports/PageLayout.h"

#include <cmath>

#include "platform/host/Host.h"

using host::Fonts;

void DrawReportHeader(host::PrintSurface& out, const std::string& title, int meetingNumber,
                      const vb::DateTime& today) {
    out.SetFont(Fonts::fntArial14);
    out.SetCurrentX(0.6f);
    out.SetCurrentY(0.3f);
    out.Print(title, true);

    out.SetFont(Fonts::fntArial28B);
    out.SetCurrentY(0);
    out.SetCurrentX(18.5f);
    out.Print(meetingNumber);

    // The date tucks up under the large number.
    out.SetCurrentX(1.0f);
    out.SetCurrentY(out.CurrentY() - 0.05f);

    out.SetFont(Fonts::fntTimes8);
    std::string date = vb::FormatDate(today, "dddd, mmmm d, yyyy");
    out.SetCurrentX(20 - std::floor(out.TextWidth(date)));
    out.Print(date);

    out.SetDrawWidth(6);
    out.Line(0.6f, 1.0f, 19.99f, 1.0f);

    out.SetCurrentY(1.8f);
    out.SetCurrentX(0);
}

void DrawReportFooter(host::PrintSurface& out, const std::string& title, int page) {
    if (page < 2) return;
    out.SetCurrentX(1.0f);
    out.SetCurrentY(25.4f);
    out.Print(title + ": Page " + std::to_string(page));
}
