#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "startup/Install.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;

TEST(InstallProgramFolder, TheHelpAndItsStyleFollowTheProgramAndTheOperatorsSoundsStay) {
    TempFolder t;
    const std::pair<std::string, std::string> before[] = {
        {"resources/help/index.html", "new page"}, {"resources/help/help.css", "new style"},
        {"resources/help/notes.txt", "not help"},  {"resources/sounds/S01.wav", "new laser"},
        {"resources/sounds/S02.wav", "new clunk"}, {"Vestrel/help/index.html", "old page"},
        {"Vestrel/S01.wav", "the operator's laser"}};
    for (const auto& [name, text] : before) {
        fs::create_directories(fs::path(t / name).parent_path());
        std::ofstream(t / name, std::ios::binary) << text;
    }
    std::string error;
    ASSERT_TRUE(InstallProgramFolder(t / "Vestrel", t / "resources", error)) << error;
    std::vector<std::string> after;
    for (const char* name : {"help/index.html", "help/help.css", "help/notes.txt", "S01.wav", "S02.wav"}) {
        std::ifstream in(t / ("Vestrel/" + std::string(name)), std::ios::binary);
        after.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    EXPECT_EQ((std::vector<std::string>{"new page", "new style", "", "the operator's laser", "new clunk"}), after);
}
