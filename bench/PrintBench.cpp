// The master alphabetical list of a full crusade written to PDF through the
// real print surface, from the list in memory to the file on disk.
#include <benchmark/benchmark.h>

#include <filesystem>

#include <QGuiApplication>

#include "platform/host/Host.h"
#include "platform/qt/QtPrintSurface.h"
#include "program/Program.h"
#include "reports/Reports.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "GeneratedCrusades.h"
#include "support/QuietHost.h"

namespace {

// Accepts the printer dialog and prints on a PDF surface.
class PdfHost : public QuietHost {
public:
    QtPrintSurface pdf;
    bool ShowPrinter(host::PrinterDialog&) override { return true; }
    host::PrintSurface& Printer() override { return pdf; }
};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-print-bench-");
    return crusades;
}

void EnsureGuiApplication() {
    static int argc = 1;
    static char name[] = "PrintBench";
    static char* argv[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QCoreApplication::instance()) new QGuiApplication(argc, argv);
}

void BM_MasterListToPdf(benchmark::State& state) {
    EnsureGuiApplication();
    const int people = static_cast<int>(state.range(0));
    PdfHost host;
    Program p(host, Generated().Folder());
    p.DataFile = Generated().Path(people);
    LoadInfo(p);
    OpenRecordFile(p);
    FullLoadPass(p);
    p.PrintingFromPreview = true;
    const std::string pdf = Generated().Folder() + "/MasterList.pdf";
    host.pdf.SetOutputPdf(pdf);
    for (auto _ : state) {
        PrintOneLineReport(p, 1);
        benchmark::DoNotOptimize(std::filesystem::file_size(pdf));
    }
    state.counters["pages"] = static_cast<double>(p.IndexCount) / 51;
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(pdf));
    p.File1.Close();
    state.SetItemsProcessed(state.iterations() * p.IndexCount);
}
BENCHMARK(BM_MasterListToPdf)->Arg(9999)->Unit(benchmark::kMillisecond)->MinTime(3);

}  // namespace
