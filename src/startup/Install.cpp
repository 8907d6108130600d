#include "startup/Install.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

std::string DefaultAppPath() {
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : ".") + "/Vestrel";
}

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
            if (replace || !fs::exists(target))
                fs::copy_file(e.path(), target, fs::copy_options::overwrite_existing, ec);
        }
    };
    fs::path res(resources);
    copyFiles(res / "sounds", appPath, ".wav", false);
    copyFiles(res / "help", fs::path(appPath) / "help", ".html", true);
    copyFiles(res / "help", fs::path(appPath) / "help", ".css", true);
    return true;
}
