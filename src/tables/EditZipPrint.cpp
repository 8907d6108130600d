// The printed zip list, and the list printing the side tables share.
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/PageLayout.h"
#include "reports/ReportParts.h"
#include "reports/SelPrinter.h"
#include "store/State.h"
#include "tables/EditZip.h"

using namespace vb;

namespace {
const host::PrintFont ListFont{"Arial", 10, false, false};
constexpr float LineStep = 0.45f;
constexpr float PageEnd = 25.0f;
}  // namespace

void PrintTableList(ProgramState& p, const std::string& heading, const std::vector<std::string>& lines,
                    const std::function<std::string(int)>& pageLine) {
    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;
    host::PrintSurface& out = p.host.Printer();
    reports::ReportGuard guard(p);
    guard.Drawing(out);
    const DateTime today = p.host.Now();
    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        reports::Pager pager(p.host, out, sel.FromPage);
        auto header = [&] {
            DrawReportHeader(out, heading, p.MeetingNumber, today);
            out.SetFont(ListFont);
        };
        auto footer = [&] {
            const std::string text = pageLine(pager.page);
            if (text.empty()) return;
            out.SetFont(host::Fonts::fntTimes8);
            out.SetCurrentX(1.0f);
            out.SetCurrentY(25.4f);
            out.Print(text);
        };
        header();
        for (const std::string& line : lines) {
            if (out.CurrentY() > PageEnd) {
                footer();
                pager.EndPage();
                header();
            }
            const float y = out.CurrentY();
            out.SetCurrentX(1.0f);
            out.Print(line);
            out.SetCurrentY(y + LineStep);
        }
        footer();
        if (!pager.Finish()) break;
    }
    guard.Done();
}

void EditZip::PrintZips_Click() {
    if (!Adding && !SaveZipChanges()) return;
    std::vector<std::string> lines;
    for (int i = 1; i <= p.ZipCount; ++i) {
        const std::string& e = p.ZipList[static_cast<std::size_t>(i)];
        lines.push_back(Trim(vb::Left(e, 10)) + "- " + Trim(Mid(e, 15, 15)) + ", " + Mid(e, 11, 2) + " " + Mid(e, 13, 2) +
                        ":" + Mid(e, 30, 4));
    }
    const std::string heading = " Zip Code Count";
    PrintTableList(p, heading, lines, [&](int page) { return page < 2 ? std::string() : heading + ": Page " + CStr(page); });
}
