// The exports opened by a real spreadsheet, run headless: each value the
// operator expects lands in its own column, accents and apostrophes intact.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "exchange/ExportCrusade.h"
#include "exchange/Export.h"

namespace fs = std::filesystem;

namespace {

std::string Shell(const std::string& command) {
    std::string out;
    if (std::FILE* f = ::popen(command.c_str(), "r")) {
        char buf[512];
        while (std::size_t n = std::fread(buf, 1, sizeof buf, f)) out.append(buf, n);
        if (::pclose(f) != 0) return std::string();
    }
    while (!out.empty() && (out.back() == '\n' || out.back() == '\r')) out.pop_back();
    return out;
}

// The spreadsheet program, installed by the project's script when it is missing.
std::string Spreadsheet() {
    // The tree this test was built from, when the run does not name it.
    const char* source = std::getenv("VESTREL_SOURCE_DIR");
    const std::string tree = source ? std::string(source) : fs::path(__FILE__).parent_path().parent_path().parent_path().string();
    const std::string script = tree + "/tools/install-calc.sh";
    return Shell("bash '" + script + "' 2>/dev/null");
}

// Rows of cells of the UTF-8 CSV the spreadsheet wrote.
std::vector<std::vector<std::string>> ParseCsv(const std::string& text) {
    std::vector<std::vector<std::string>> rows(1, std::vector<std::string>(1));
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') rows.back().back() += '"', ++i;
            else if (c == '"') quoted = false;
            else rows.back().back() += c;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            rows.back().emplace_back();
        } else if (c == '\n') {
            rows.emplace_back(1);
        } else if (c != '\r') {
            rows.back().back() += c;
        }
    }
    if (rows.back().size() == 1 && rows.back()[0].empty()) rows.pop_back();
    for (auto& r : rows)
        for (auto& cell : r)
            while (!cell.empty() && cell.back() == ' ') cell.pop_back();
    return rows;
}

struct Opened {
    const char* file;
    char separator;
    std::size_t rows, columns;
    // Cells that must hold exactly this (UTF-8): row, column, text.
    std::vector<std::tuple<std::size_t, std::size_t, std::string>> cells;
};

TEST(ExportCalc, TheSpreadsheetFindsEachValueInItsColumn) {
    const std::string soffice = Spreadsheet();
    if (soffice.empty())
        GTEST_SKIP() << "No spreadsheet to open the exports with: tools/install-calc.sh could not install Debian's "
                        "libreoffice-calc-nogui here (it needs root and the package archive)";
    ExportCrusade x;
    // An address with a comma, as an imported file can bring one.
    MasterRecord mary = x.p.MasterRec;
    RecordLayout::Read(x.p.File1, 2, mary);
    mary.Address = "40 Elm Ave, Apt 2";
    RecordLayout::Write(x.p.File1, 2, mary);
    const std::string in = x.folder / "in", out = x.folder / "out";
    fs::create_directories(in);
    fs::create_directories(out);
    ASSERT_TRUE(exchange::WriteExport(x.p, in + "/VestMerg.Doc", exchange::MailMergeText(x.p, false)));
    ASSERT_TRUE(exchange::WriteExport(x.p, in + "/VestrelMapFile.txt", exchange::MapText(x.p, false)));
    ASSERT_TRUE(exchange::WriteExport(x.p, in + "/Vestrel_EMail.csv", exchange::EMailText(x.p)));
    ASSERT_TRUE(exchange::WriteExport(x.p, in + "/Fall.txt", exchange::TextFileText(x.p)));
    ASSERT_TRUE(exchange::WriteExport(x.p, in + "/Names.doc", exchange::NameAndNumberText(x.p)));

    const std::string jose = "Jos\xC3\xA9", garcia = "Garc\xC3\xAD" "a";
    const Opened files[] = {
        {"VestMerg.Doc", '\t', 4, 18,
         {{0, 2, "Reg Number"}, {1, 0, jose}, {1, 1, garcia}, {1, 2, "0001"}, {1, 7, "02134"},
          {1, 13, "Wants visit, evenings"}, {1, 17, "06/01/26"}, {2, 1, "O'Neil"}, {2, 4, "40 Elm Ave, Apt 2"}}},
        {"VestrelMapFile.txt", ',', 3, 6,
         {{0, 0, "0001 " + jose + " " + garcia}, {0, 4, "02134"}, {0, 5, "555-0100"}, {1, 0, "0002 Mary O'Neil"},
          {1, 1, "40 Elm Ave, Apt 2"}, {1, 2, "Springfield"}}},
        // One person a row: Mary has no address and no row.
        {"Vestrel_EMail.csv", ',', 3, 5,
         {{0, 3, "EMail"}, {1, 0, jose + " " + garcia}, {1, 3, "jose@example.org"}, {1, 4, "Fall"},
          {2, 0, "Anna Smyth"}, {2, 3, "anna@example.org"}}},
        {"Fall.txt", '\t', 3, 11,
         {{0, 1, jose}, {0, 7, "02134"}, {0, 10, "Wants visit- evenings"}, {1, 2, "O'Neil"}, {2, 9, ".R..P.."}}},
        {"Names.doc", '\t', 6, 3, {{0, 0, "Reg Number"}, {1, 1, jose}, {2, 2, "O'Neil"}, {4, 0, "0101"}}},
    };
    // Every column read as text, as the operator sets the import dialog so that
    // a zip or a number keeps its leading zeros; a plain text file cannot say so itself.
    std::string columns;
    for (int c = 1; c <= 20; ++c) columns += (c > 1 ? "/" : "") + std::to_string(c) + "/2";
    for (char sep : {'\t', ','}) {
        std::string names;
        for (const Opened& f : files)
            if (f.separator == sep) names += " '" + in + "/" + f.file + "'";
        // Separator, quote, Windows-1252 (1), first line 1, the column types; out as UTF-8 (76).
        const std::string filter = "Text - txt - csv (StarCalc):" + std::to_string(int(sep)) + ",34,1,1," + columns;
        const std::string cmd = "cd '" + out + "' && HOME='" + x.folder.path() + "' timeout 180 '" + soffice +
                                "' -env:UserInstallation=file://" + x.folder.path() + "/profile --headless"
                                " --infilter='" + filter + "' --convert-to 'csv:Text - txt - csv (StarCalc):44,34,76,1'"
                                " --outdir '" + out + "/" + (sep == ',' ? "comma" : "tab") + "'" + names +
                                " >/dev/null 2>&1; echo done";
        ASSERT_EQ(Shell(cmd), "done");
    }
    for (const Opened& f : files) {
        const std::string stem = fs::path(f.file).stem().string();
        const std::string csv = out + "/" + (f.separator == ',' ? "comma" : "tab") + "/" + stem + ".csv";
        ASSERT_TRUE(fs::exists(csv)) << f.file << " was not opened";
        const auto rows = ParseCsv(x.Read(csv));
        ASSERT_EQ(rows.size(), f.rows) << f.file << "\n" << x.Read(csv);
        for (const auto& r : rows) EXPECT_EQ(r.size(), f.columns) << f.file << "\n" << x.Read(csv);
        for (const auto& [row, column, text] : f.cells)
            EXPECT_EQ(rows[row][column], text) << f.file << " row " << row << " column " << column;
    }
}

}  // namespace
