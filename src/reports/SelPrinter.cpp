#include "reports/SelPrinter.h"

#include "platform/host/Host.h"

namespace {
constexpr int cdlPDPageNums = 2;
constexpr int cdlPDNoSelection = 4;
}  // namespace

SelPrinterResult SelPrinter(host::Host& host) {
    SelPrinterResult r;
    host::PrinterDialog d;
    d.CancelError = true;
    d.Flags = cdlPDNoSelection;
    d.Max = 1000;
    d.Min = 1;
    d.Copies = 1;
    if (!host.ShowPrinter(d)) {
        host.Printer().KillDoc();
        return r;
    }
    r.Copies = static_cast<std::int16_t>(d.Copies);
    if (d.Flags & cdlPDPageNums) {
        r.FromPage = static_cast<std::int16_t>(d.FromPage);
        r.ToPage = static_cast<std::int16_t>(d.ToPage);
    } else {
        r.FromPage = 1;
        r.ToPage = 1000;
    }
    r.Ok = r.FromPage != 0;
    if (!r.Ok) host.Printer().KillDoc();
    return r;
}
