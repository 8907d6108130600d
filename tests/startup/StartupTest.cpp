#include <gtest/gtest.h>

#include <fstream>

#include "platform/vb/Files.h"
#include "startup/Install.h"
#include "startup/Lifecycle.h"
#include "startup/frmSplash.h"
#include "store/Info.h"
#include "store/Settings.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;

TEST(Startup, FirstRunOrOldTempFilesBringTheDataFolderMessageAndNoFile) {
    struct Row { bool dataThere, tempFiles; };
    for (const Row& r : {Row{false, false}, Row{true, true}, Row{true, false}}) {
        TempFolder t;
        ScriptedHost host;
        Program p(host, t / "Vestrel");
        fs::create_directories(t / "Vestrel");
        if (r.dataThere) fs::create_directories(t / "Vestrel/data");
        if (r.tempFiles) {
            fs::create_directories(t / "Vestrel/temp");
            std::ofstream(t / "Vestrel/temp/old.tmp") << "x";
        }
        bool sampled = false;
        p.OnDataFolderCreated = [&](Program&) { sampled = true; };
        if (r.tempFiles || !r.dataThere)
            host.ExpectBox("Vestrel has created a folder named 'Data' in the 'Vestrel' program folder.");
        host.ExpectBox("You must select 'New' to either create a new meeting file", host::vbOK, "No File Present");
        host.OnModal("frmSplash", [&](forms::Form& f) {
            auto& s = static_cast<frmSplash&>(f);
            EXPECT_FALSE(s.btnLastCrusade.Visible());
            s.btnExitVestrel_Click();
        });
        EXPECT_THROW(Main(p), host::EndProgram);
        // {sample data made, temp/ left, data/ there, button labels}
        EXPECT_EQ((std::vector<bool>{!r.dataThere, false, true, true}),
                  (std::vector<bool>{sampled, fs::exists(t / "Vestrel/temp"), vb::DirExists(t / "Vestrel/data"),
                                     p.ShowButtonLabels}));
    }
}

TEST(Startup, TheLastCrusadeComesUpOnTheFirstPersonByName) {
    TestCrusade c;
    c.WriteRecords({MakePerson("9998", "Mary", "Zeller", "12-"), MakePerson("9997", "Al", "Adams", "1")});
    c.p.CrusadeName = "Spring";
    c.p.MeetingNumber = 2;
    ASSERT_TRUE(SaveInfo(c.p));
    SaveSettings(c.p);
    EXPECT_EQ(c.dataFile + "\r\nAvailable\r\n-1 \r\n 0 \r\n 0 \r\n", c.ReadFile(c.appPath + "/Vestrel.ini"));

    Program p(c.host, c.appPath);
    bool shown = false;
    c.host.OnModal("frmSplash", [&](forms::Form& f) {
        auto& s = static_cast<frmSplash&>(f);
        EXPECT_EQ("Spring:  Meeting #2", s.lblLastCrusadeName.Caption());
        EXPECT_TRUE(s.btnLastCrusade.Visible() && p.Loaded);
        int key = 13;   // any key loads it as the button does
        s.Form_KeyPress(key);
        EXPECT_FALSE(s.Loaded());
        shown = true;
    });
    Main(p);
    EditForm& e = p.Edit();
    EXPECT_TRUE(shown && e.Visible());
    EXPECT_EQ((std::vector<std::string>{"Adams", "1 of 2", "Vestrel Edit Screen: Spring Crusade (Meeting # 2)", "edit"}),
              (std::vector<std::string>{e.LName.Text(), e.RecordCounter.Caption(), e.Caption(), p.CallerForm}));
    p.File1.Close();
}

TEST(Startup, SettingsFileDamagedOrShortLoadsWhatItCan) {
    TestCrusade c;
    c.WriteRecords({});
    c.p.ShowButtonLabels = false;
    c.WriteFile(c.appPath + "/Vestrel.ini", c.dataFile + "\r\nAvailable\r\n");
    LoadSettings(c.p);
    // Line 3 missing: the labels setting is left as it was.
    EXPECT_EQ(c.dataFile + " 0 " + c.appPath + "/data",
              c.p.DataFile + " " + std::to_string(c.p.ShowButtonLabels) + " " + c.p.DataFolder);

    c.WriteFile(c.appPath + "/Vestrel.ini", std::string("\x01\x02\xff\x00garbage", 12));
    LoadSettings(c.p);
    EXPECT_EQ("", c.p.DataFile + c.p.DataFolder);   // no such file: the no-file case
}

TEST(Startup, TheProgramFoldersHelpAndStyleFollowTheProgramAndTheOperatorsSoundsStay) {
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
    TestCrusade reader;
    std::vector<std::string> after;
    for (const char* name : {"help/index.html", "help/help.css", "help/notes.txt", "S01.wav", "S02.wav"})
        after.push_back(reader.ReadFile(t / ("Vestrel/" + std::string(name))));
    EXPECT_EQ((std::vector<std::string>{"new page", "new style", "", "the operator's laser", "new clunk"}), after);
}
