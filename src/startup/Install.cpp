#include "startup/Install.h"

#include <cstdlib>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

std::string DefaultAppPath() {
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : ".") + "/Vestrel";
}

namespace {

// Rewriting an unchanged file at every start costs more than reading it.
bool SameBytes(const fs::path& a, const fs::path& b) {
    std::error_code ec;
    if (fs::file_size(a, ec) != fs::file_size(b, ec) || ec) return false;
    std::ifstream x(a, std::ios::binary), y(b, std::ios::binary);
    return std::equal(std::istreambuf_iterator<char>(x), {}, std::istreambuf_iterator<char>(y));
}

}  // namespace

bool InstallProgramFolder(const std::string& appPath, const std::string& resources, std::string& error) {
    std::error_code ec;
    fs::create_directories(appPath, ec);
    if (ec || !fs::is_directory(appPath)) {
        error = "Vestrel could not create its folder " + appPath + ": " + ec.message();
        return false;
    }
    // Wave files the operator replaced stay; the help always follows the program.
    auto copyFiles = [&](const fs::path& from, const fs::path& to, const char* ext, bool replace) {
        if (!fs::is_directory(from)) return;
        fs::create_directories(to, ec);
        for (const auto& e : fs::directory_iterator(from, ec)) {
            if (!e.is_regular_file() || e.path().extension() != ext) continue;
            fs::path target = to / e.path().filename();
            if (fs::exists(target) && (!replace || SameBytes(e.path(), target))) continue;
            fs::copy_file(e.path(), target, fs::copy_options::overwrite_existing, ec);
        }
    };
    fs::path res(resources);
    copyFiles(res / "sounds", appPath, ".wav", false);
    copyFiles(res / "help", fs::path(appPath) / "help", ".html", true);
    copyFiles(res / "help", fs::path(appPath) / "help", ".css", true);
    return true;
}
