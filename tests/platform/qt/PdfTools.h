#pragma once
// Reading back what was printed: poppler's command-line tools on a PDF.
#include <cstdio>
#include <memory>
#include <regex>
#include <string>

inline std::string Shell(const std::string& command) {
    std::string out;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>&1").c_str(), "r"), pclose);
    char buf[4096];
    std::size_t n;
    while (pipe && (n = fread(buf, 1, sizeof buf, pipe.get())) > 0) out.append(buf, n);
    return out;
}

inline int PdfPages(const std::string& pdf) {
    std::smatch m;
    std::string info = Shell("pdfinfo '" + pdf + "'");
    return std::regex_search(info, m, std::regex("Pages:\\s+(\\d+)")) ? std::stoi(m[1]) : -1;
}

// The text of one page, or of all pages when page is 0.
inline std::string PdfText(const std::string& pdf, int page = 0) {
    std::string range = page ? "-f " + std::to_string(page) + " -l " + std::to_string(page) + " " : "";
    return Shell("pdftotext -layout " + range + "'" + pdf + "' -");
}
