// Prepares a program folder for the start-up measure: a generated crusade of
// the given size in its data folder, named by the settings file as the last
// crusade, so that the splash offers it at once.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "store/Generator.h"
#include "store/Settings.h"
#include "store/State.h"
#include "support/QuietHost.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <program folder> <people>\n", argv[0]);
        return 2;
    }
    const std::string appPath = argv[1];
    const int people = std::atoi(argv[2]);
    std::filesystem::create_directories(appPath + "/data");
    QuietHost host;
    ProgramState p(host, appPath);
    const std::string dta = p.DataPath() + "/Start" + std::to_string(people) + ".dta";
    GenerateCrusade(p, dta, people, 2026, 24);
    p.DataFile = dta;
    SaveSettings(p);
    return 0;
}
