#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

#include <sys/wait.h>
#include <unistd.h>


#include "edit/Navigate.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "startup/Crusades.h"
#include "startup/Lifecycle.h"
#include "startup/frmSplash.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Settings.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;

namespace {

// Runs Main on a fresh program whose settings name `last`; the splash's script
// decides what the operator does there.
void RunMain(TestCrusade& c, Program& p, const std::string& last, std::function<void(frmSplash&)> atSplash) {
    c.p.DataFile = last;
    SaveSettings(c.p);
    c.host.OnModal("frmSplash", [&](forms::Form& f) {
        auto& s = static_cast<frmSplash&>(f);
        atSplash(s);
        if (s.Loaded()) s.Unload();
    });
    Main(p);
}

const std::string EmptyBox = "There are no records in: \r\n";

// The scenario as an ordinary user: root writes through any permission bits.
bool AsUnprivilegedUser(const std::function<bool()>& scenario) {
    if (::geteuid() != 0) return scenario();
    pid_t child = ::fork();
    if (child == 0) {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(2);
        ::_exit(scenario() && !testing::Test::HasFailure() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

TEST(Lifecycle, AnEmptyRecordFileFromTheSplashIsANewCrusadeInAddModeAndGoesAtExit) {
    TestCrusade c("Empty");
    c.WriteRecords({});
    c.p.CrusadeName = "Empty";
    ASSERT_TRUE(SaveInfo(c.p));   // so that its going at exit shows
    Program p(c.host, c.appPath);
    c.host.ExpectBox(EmptyBox + c.dataFile + "\r\n\r\nYou must enter records before attempting other options.");
    RunMain(c, p, c.dataFile, [&](frmSplash& s) {
        EXPECT_TRUE(p.IsNewFile && p.AddMode);
        s.btnLastCrusade_Click();
    });
    EditForm& e = p.Edit();
    // Edit Mode on an empty file leaves the operator on the blank card.
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ((std::vector<std::string>{"Vestrel Add Name Screen: Empty Crusade (Meeting # 1)", "Total Records", "1"}),
                  (std::vector<std::string>{e.Caption(), e.lblNextFieldBtn.Caption(), e.RecordCounter.Caption()}));
        EXPECT_TRUE(p.AddMode && e.btnSaveNew.Visible() && !e.ChgRec[2].Visible()) << round;
        // After Edit Mode the number box keeps the focus and its add-mode paint.
        EXPECT_TRUE(round == 0 || (e.ActiveControl() == &e.RNum && e.RNum.BackColor() == forms::HighlightColor));
        e.RNum.SetFocus();
        e.mnuEditMode_Click();
    }
    c.host.ExpectBox("You must save at least one record to exit the program.")
        .ExpectBox("There are no records in the file.\r\nThis file will be deleted", host::vbOK, "Exit Vestrel");
    EXPECT_THROW(e.mnuExit_Click(), host::EndProgram);
    for (const std::string& gone : {c.dataFile, c.p.CrusadeFile("inf"), c.appPath + "/Vestrel.ini"})
        EXPECT_FALSE(vb::FileExists(gone)) << gone;
}

TEST(Lifecycle, ChangingCrusadeLeavesNothingOfThePreviousOneOnScreen) {
    TestCrusade c("Big");
    std::vector<MasterRecord> people;
    for (int i = 0; i < 8; ++i) people.push_back(MakePerson(std::to_string(9990 + i), "Pat", "Person" + std::to_string(i)));
    EditForm& e = c.ShowOnEditScreen(people);
    TestCrusade small("Small"), empty("Void");
    small.WriteRecords({MakePerson("9998", "Al", "Able"), MakePerson("9997", "Bo", "Best")});
    empty.WriteRecords({});

    for (const std::string& target : {small.dataFile, empty.dataFile}) {
        // A person marked far down the list, and one kept as the previous card.
        c.p.CurrentIndex = 7;
        GoRecord(c.p, 9);
        e.btnMark_Click();
        e.ChgRec_Click(2);
        c.p.PreviousRec = c.p.MasterRec;
        c.host.ExpectOpen("Select an Existing Crusade", target);
        if (target == empty.dataFile) c.host.ExpectBox(EmptyBox + target);
        c.host.ExpectBox("Has been loaded successfully.");
        e.mnuChgCr_Click();
        EXPECT_EQ((std::vector<std::string>{"", "0", ""}),
                  (std::vector<std::string>{e.FndNameBx.Caption(), std::to_string(c.p.SavedIndex),
                                            vb::Trim(c.p.PreviousRec.LName)}));
        for (const std::string& shown : {e.LName.Text(), vb::Trim(c.p.UndoRec.LName)})
            EXPECT_EQ(std::string::npos, shown.find("Person")) << shown;
        if (target == small.dataFile) {
            // Go To has nothing held from the bigger crusade: it stays on the list.
            c.host.sounds.clear();
            e.btnGoTo_Click();
            EXPECT_EQ("1 Able 1", std::to_string(c.p.CurrentIndex) + " " + e.LName.Text() + " " +
                                      std::to_string(c.host.sounds.size()));
            // Back to the big crusade for the next round.
            c.host.ExpectOpen("Select an Existing Crusade", c.dataFile).ExpectBox("Has been loaded successfully.");
            e.mnuChgCr_Click();
        } else {
            EXPECT_TRUE(c.p.AddMode && c.p.IsNewFile && e.Caption().find("Vestrel Add Name Screen: Void Crusade") == 0);
        }
    }
}

TEST(Lifecycle, AMemberListIsWrittenOnlyToTheFileItWasReadFrom) {
    TestCrusade c("First"), second("Second");
    c.WriteRecords({MakePerson("9998", "Ann", "First")});
    second.WriteRecords({MakePerson("9998", "Bob", "Second")});
    const std::string firstMembers = "0101Smith          John           \r\n";
    const std::string secondMembers = "0201Jones          Mary           \r\n0202Brown          Al             \r\n";
    c.WriteFile(c.p.CrusadeFile("mem"), firstMembers);
    c.WriteFile(second.p.CrusadeFile("mem"), secondMembers);
    Program p(c.host, c.appPath);
    c.host.ExpectOpen("Select an Existing Crusade", second.dataFile);
    RunMain(c, p, c.dataFile, [&](frmSplash& s) {
        EXPECT_EQ(1, p.MemberCount);   // the last crusade's members are read at the splash
        s.btSelect_Click();
    });
    EXPECT_EQ(firstMembers + secondMembers, c.ReadFile(c.p.CrusadeFile("mem")) + c.ReadFile(second.p.CrusadeFile("mem")));
    EXPECT_EQ("2 0201", std::to_string(p.MemberCount) + " " + p.MemberList[1].substr(0, 4));
    // Tables read for one crusade are not written under another's name.
    p.DataFile = c.dataFile;
    SaveMembers(p), SaveZips(p);
    EXPECT_TRUE(firstMembers == c.ReadFile(c.p.CrusadeFile("mem")) && !vb::FileExists(c.p.CrusadeFile("zps")));
}

TEST(Lifecycle, ACrusadeThatCannotBeWrittenIsNamedAndAnotherCanBeChosen) {
    for (bool folderReadOnly : {false, true}) {
        TestCrusade c("Locked");
        c.WriteRecords({MakePerson("9998", "Ann", "Locked")});
        std::string otherFile = c.appPath + "/mine/Open.dta";
        fs::create_directories(c.appPath + "/mine");
        c.WriteFile(otherFile, c.ReadFile(c.dataFile));
        SaveSettings(c.p);
        const std::string before = c.ReadFile(c.dataFile);
        fs::permissions(c.folder.path(), fs::perms::all, fs::perm_options::replace);
        for (const auto& e : fs::recursive_directory_iterator(c.folder.path()))
            fs::permissions(e.path(), fs::perms::all, fs::perm_options::replace);
        if (folderReadOnly)
            fs::permissions(c.appPath + "/data", fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                                     fs::perms::others_exec, fs::perm_options::replace);
        else
            fs::permissions(c.dataFile, fs::perms::owner_read | fs::perms::others_read, fs::perm_options::replace);

        bool ok = AsUnprivilegedUser([&] {
            Program p(c.host, c.appPath);
            c.host.ExpectBox(folderReadOnly ? "Its folder " + c.appPath + "/data is read-only" : "The file is read-only.")
                .ExpectOpen("Select an Existing Crusade", otherFile);
            bool chose = false;
            c.host.OnModal("frmSplash", [&](forms::Form& f) {
                auto& s = static_cast<frmSplash&>(f);
                chose = !s.btnLastCrusade.Visible() && !p.Loaded;
                s.btSelect_Click();
            });
            Main(p);
            c.host.Verify();
            return chose && p.DataFile == otherFile && p.Edit().LName.Text() == "Locked" && !p.File1.Path().empty();
        });
        EXPECT_TRUE(ok && before == c.ReadFile(c.dataFile)) << (folderReadOnly ? "folder" : "file");
        fs::permissions(c.appPath + "/data", fs::perms::all, fs::perm_options::replace);
    }
}

TEST(Lifecycle, ACrusadeThatCannotBeOpenedOrNamedLeavesTheOperatorWhereHeWas) {
    TestCrusade c("Here"), busy("Busy");
    busy.WriteRecords({MakePerson("9998", "Bob", "Busy")});
    vb::RandomFile other;
    other.Open(busy.dataFile, MasterRecord::Length);
    other.Lock();
    const std::string inUse = "is in use by another copy of Vestrel.";
    // From the menu: the crusade that was open comes back.
    c.ShowOnEditScreen({MakePerson("9998", "Ann", "Here")});
    auto stayed = [&] { return c.p.DataFile == c.dataFile && c.p.Edit().LName.Text() == "Here"; };
    c.host.ExpectOpen("Select an Existing Crusade", busy.dataFile).ExpectBox(busy.dataFile + " " + inUse);
    c.p.Edit().mnuChgCr_Click();
    EXPECT_TRUE(stayed());
    // A run-time fault while reading is told in words, and the file is let go.
    c.host.ExpectBox("Vestrel could not open the crusade:\r\n\r\n" + c.dataFile + "\r\nError # 61: Disk full");
    EXPECT_FALSE(OpenCrusade(c.p, [&]() -> bool { vb::Raise(vb::errDiskFull); }));
    EXPECT_FALSE(c.p.File1.IsOpen() || c.p.Loaded);
    // A new crusade whose information file cannot be made: the one before comes back.
    std::string fresh = c.appPath + "/data/Fresh.dta";
    fs::create_directories(c.appPath + "/data/Fresh.inf");
    c.host.ExpectOpen("Select an Existing Crusade", fresh)
        .ExpectBox("does not exist", host::vbYes)
        .ExpectBox("The crusade information could not be written to:\r\n" + c.appPath + "/data/Fresh.inf");
    c.p.Edit().mnuChgCr_Click();
    EXPECT_FALSE(vb::FileExists(fresh));
    EXPECT_TRUE(stayed());
    // A new name with a comma or a leading quote is refused, by the menu and by the selection.
    for (const std::string name : {"Smith, Jones", "\"Quoted"}) {
        std::string path = c.appPath + "/data/" + name + ".dta";
        c.host.ExpectOpen("Create a New Crusade", path).ExpectBox("may not hold a comma", host::vbOK, "Crusade Name");
        c.p.Edit().mnuChgCr_Click();
        c.host.ExpectOpen("Create a New Crusade", path).ExpectBox("may not hold a comma");
        SelectCrusade(c.p);
        EXPECT_TRUE(c.p.ScratchText == "NoFileSelected" && !vb::FileExists(path) && stayed()) << name;
    }
    c.p.File1.Close();
    // From the splash: nothing is held, and only New and Exit are left.
    Program p(c.host, c.appPath);
    c.host.ExpectBox(inUse);
    EXPECT_THROW(RunMain(c, p, busy.dataFile, [&](frmSplash& s) {
        s.btnLastCrusade_Click();
        EXPECT_FALSE(p.File1.IsOpen() || p.Loaded || s.btnLastCrusade.Visible());
        s.btnExitVestrel_Click();
    }), host::EndProgram);
}

TEST(Lifecycle, StaleTempFilesOfTheCrusadeGoWhenItIsOpened) {
    TestCrusade c("Spring");
    c.WriteRecords({MakePerson("9998", "Ann", "Spring")});
    pid_t dead = ::fork();
    if (dead == 0) ::_exit(0);
    ::waitpid(dead, nullptr, 0);
    std::string d = c.appPath + "/data/", pid = std::to_string(dead), live = std::to_string(::getppid());
    struct Row { std::string name; bool stays; };
    std::vector<Row> rows = {
        {".Spring.inf." + pid + ".3.tmp", false},
        {".Spring_prayer.txt." + pid + ".1.tmp", false},
        {".Spring.inf." + live + ".3.tmp", true},     // a save still under way elsewhere
        {".Springs.inf." + pid + ".1.tmp", true},     // another crusade's
        {".Spring.inf.x.1.tmp", true},
    };
    for (const Row& r : rows) c.WriteFile(d + r.name, "half");
    c.host.ExpectOpen("Select an Existing Crusade", c.dataFile).ExpectBox("Spring Has been loaded successfully.");
    c.p.Edit().mnuChgCr_Click();
    for (const Row& r : rows) EXPECT_EQ(r.stays, fs::exists(d + r.name)) << r.name;
}

TEST(Lifecycle, TheTestHostFailsOnBoxesNeverShownOrUnexpectedAndUnbalancedBusyPointers) {
    EXPECT_NONFATAL_FAILURE({ ScriptedHost h; h.MsgBox("Surprise!", host::vbOKOnly, ""); }, "Surprise!");
    EXPECT_NONFATAL_FAILURE({ ScriptedHost h; h.ExpectBox("never comes"); }, "\"never comes\" was never shown");
    EXPECT_NONFATAL_FAILURE({ ScriptedHost h; h.SetBusy(true); }, "busy pointer was set 1 more");
    EXPECT_NONFATAL_FAILURE({ ScriptedHost h; h.SetBusy(false); }, "put back without being set");
    EXPECT_NONFATAL_FAILURE({ ScriptedHost h; h.ExpectBox("t", host::vbOK, std::string("W")).MsgBox("t", 0, ""); },
                            "title of the box");
}
