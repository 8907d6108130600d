#include <gtest/gtest.h>

#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "startup/Crusades.h"
#include "store/Info.h"
#include "store/Recent.h"
#include "support/TestCrusade.h"

TEST(Crusades, ANewCrusadeFromTheSplashWithDefaultsOrAPriorMeetingsListsOrNone) {
    for (bool usePrior : {false, true}) {
        TestCrusade c("Old");
        c.p.TeamNames[3] = "Prior team:555";
        c.p.ReligionList[2] = "Prior church";
        c.p.MeetingNumber = 9;
        ASSERT_TRUE(SaveInfo(c.p));
        c.p.TeamNames[3] = "Team #  3";
        c.p.ReligionList[2] = "Baptist";
        c.p.BackupPath = "/media/stick";

        std::string fresh = c.appPath + "/data/Fresh.dta";
        c.host.ExpectOpen("Create a New Crusade or Select an Existing Crusade", fresh).ExpectBox("Would you like to import the information from a prior meeting?",
                         usePrior ? host::vbYes : host::vbNo, "Select Preferences Option", host::vbYesNo);
        if (usePrior) c.host.ExpectOpen("Create a New Crusade", c.p.CrusadeFile("inf"));
        SelectCrusade(c.p);
        EXPECT_TRUE(c.p.IsNewFile && c.p.AddMode && vb::FileExists(fresh));
        // The splash path starts the backup path afresh; the settings file names the new crusade.
        EXPECT_EQ((std::vector<std::string>{"newfile", "Fresh", fresh, "", "1", "9999",
                                            usePrior ? "Prior church" : "Baptist"}),
                  (std::vector<std::string>{c.p.ScratchText, c.p.CrusadeName, c.p.DataFile, c.p.BackupPath,
                                            std::to_string(c.p.MeetingNumber), std::to_string(c.p.LastRNum),
                                            c.p.ReligionList[2]}));
        EXPECT_EQ(0u, c.ReadFile(c.appPath + "/Vestrel.ini").find(fresh + "\r\n"));
        // Its information file holds the lists it started with.
        Program q(c.host, c.appPath);
        q.DataFile = fresh;
        LoadInfo(q);
        EXPECT_EQ(usePrior ? "Fresh Prior team:555" : "Fresh Team #  3", q.CrusadeName + " " + q.TeamNames[3]);
        // A cancelled dialog, or a prior meeting without its file, stops the next load.
        c.host.ExpectOpen("Create a New Crusade", usePrior ? c.appPath + "/data/New.dta" : "");
        if (usePrior) c.host.ExpectBox("prior meeting?", host::vbYes).ExpectOpen("Create", c.appPath + "/data/No.inf");
        c.p.IsNewFile = false;
        SelectCrusade(c.p);
        EXPECT_FALSE(c.p.IsNewFile || vb::FileExists(c.appPath + "/data/New.inf") || c.p.MeetingNumber != 1);
        EXPECT_TRUE(usePrior || c.p.ScratchText == "NoFileSelected");
    }
}

TEST(Crusades, ChangingThroughTheMenuARecentFileAnUpperCaseExtensionOrANewName) {
    TestCrusade c("First"), other("Second");
    c.WriteRecords({MakePerson("9998", "Ann", "First")});
    c.p.Loaded = true;
    c.Open();
    EditForm& e = c.p.Edit();
    other.WriteRecords({MakePerson("9998", "Bob", "Second"), MakePerson("9997", "Cy", "Secondly")});
    std::string second = other.dataFile;
    e.FName.SetText("Annie");   // an edit on screen is saved to its own crusade before the change

    c.host.ExpectOpen("Create a New Crusade or Select an Existing Crusade", second)
        .ExpectBox("Second Has been loaded successfully.");
    e.mnuChgCr_Click();
    EXPECT_EQ((std::vector<std::string>{"Annie", "Bob", "Second", "2"}),
              (std::vector<std::string>{vb::RTrim(c.ReadRecord(1).FName), vb::RTrim(other.ReadRecord(1).FName),
                                        e.LName.Text(), std::to_string(c.p.IndexCount)}));
    EXPECT_TRUE(vb::FileExists(c.appPath + "/data/First.inf"));   // the first was closed properly

    // Back through the menu's dialog, then to the second through the recent file.
    c.host.ExpectOpen("Create a New Crusade", c.dataFile).ExpectBox("First Has been loaded successfully.");
    e.mnuChgCr_Click();
    c.host.ExpectBox("Second Has been loaded successfully.");
    e.mnuRecentFile_Click(2);
    EXPECT_EQ(second, c.p.DataFile);
    // Already in the menu: not reordered.
    EXPECT_EQ(c.dataFile + " " + second, e.mnuRecentFile[1].Caption() + " " + e.mnuRecentFile[2].Caption());

    // An upper-case extension opens; a name that does not exist asks, and is created keeping the lists.
    std::string loud = c.appPath + "/data/LOUD.DTA";
    c.WriteFile(loud, c.ReadFile(c.dataFile));
    c.host.ExpectOpen("Select an Existing Crusade", loud).ExpectBox("LOUD Has been loaded successfully.");
    e.mnuChgCr_Click();
    EXPECT_EQ(loud + " 1", c.p.DataFile + " " + std::to_string(c.p.IndexCount));
    c.p.TeamNames[2] = "Kept:1";
    c.p.BackupPath = "/media/stick";
    std::string fresh = c.appPath + "/data/Brand.dta";
    for (int answer : {host::vbNo, host::vbYes}) {
        c.host.ExpectOpen("Create a New Crusade", fresh)
            .ExpectBox("The file " + fresh + " does not exist.", answer, std::nullopt, host::vbYesNo);
        e.mnuChgCr_Click();
        EXPECT_TRUE(answer == host::vbYes || c.p.DataFile == loud);
    }
    EXPECT_EQ((std::vector<std::string>{fresh, "Brand", "Kept:1", "/media/stick", "1"}),
              (std::vector<std::string>{c.p.DataFile, c.p.CrusadeName, c.p.TeamNames[2], c.p.BackupPath,
                                        e.MtgNum.Text()}));
    EXPECT_TRUE(c.p.AddMode && vb::FileExists(fresh));
}

TEST(Crusades, RecentFilesKeepTheirPlacesAndDamagedKeysAreSkipped) {
    TestCrusade c;
    c.WriteRecords({});
    c.host.SaveSetting("MDINote", "Recent Files", "RecentFile1", "/no/such/file.dta");
    c.host.SaveSetting("MDINote", "Recent Files", "RecentFile99999999999", "/damaged.dta");
    AddRecentFile(c.p, c.dataFile);
    EXPECT_EQ(c.dataFile + " /no/such/file.dta", c.host.settings["MDINote/Recent Files/RecentFile1"] + " " +
                                                     c.host.settings["MDINote/Recent Files/RecentFile2"]);
    AddRecentFile(c.p, "/no/other.dta");   // the existing crusade moves to the second place
    EditForm& e = c.p.Edit();
    e.UpdateRecentMenu();
    struct Row { int place; bool shown; };
    for (const Row& r : {Row{0, true}, Row{1, false}, Row{2, true}, Row{3, false}, Row{4, false}})
        EXPECT_EQ(r.shown, e.mnuRecentFile[r.place].Visible()) << r.place;
    EXPECT_EQ(c.dataFile, e.mnuRecentFile[2].Caption());
}
