#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

#include "startup/Install.h"

namespace fs = std::filesystem;

namespace {
void Write(const fs::path& f, const std::string& text) {
    fs::create_directories(f.parent_path());
    std::ofstream(f, std::ios::binary) << text;
}
std::string Read(const fs::path& f) {
    std::ifstream in(f, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
}  // namespace

TEST(InstallProgramFolder, TheHelpAndItsStyleFollowTheProgramAndTheOperatorsSoundsStay) {
    const fs::path root = fs::temp_directory_path() / ("vestrel-install-" + std::to_string(::getpid()));
    fs::remove_all(root);
    const fs::path res = root / "resources", app = root / "Vestrel";
    Write(res / "help/index.html", "new page");
    Write(res / "help/help.css", "new style");
    Write(res / "help/notes.txt", "not help");
    Write(res / "sounds/S01.wav", "new laser");
    Write(res / "sounds/S02.wav", "new clunk");
    Write(app / "help/index.html", "old page");
    Write(app / "S01.wav", "the operator's laser");
    std::string error;
    ASSERT_TRUE(InstallProgramFolder(app.string(), res.string(), error)) << error;
    EXPECT_EQ("new page", Read(app / "help/index.html"));
    EXPECT_EQ("new style", Read(app / "help/help.css"));
    EXPECT_FALSE(fs::exists(app / "help/notes.txt"));
    EXPECT_EQ("the operator's laser", Read(app / "S01.wav"));
    EXPECT_EQ("new clunk", Read(app / "S02.wav"));
    fs::remove_all(root);
}
