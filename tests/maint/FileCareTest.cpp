// Backup, restore, compact, Fix Files, erase and the undo of the last file
// operation, driven through the File menu; the files are checked byte for byte.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>

#include "maint/SafetyCopy.h"
#include "platform/vb/Files.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Prayer.h"
#include "store/Records.h"
#include "store/ZipTable.h"
#include "support/TestCrusade.h"

namespace fs = std::filesystem;
using host::vbCancel;
using host::vbNo;
using host::vbOK;
using host::vbYes;

namespace {

// A tmpfs of `kb` kilobytes mounted at a folder for one test; mounting needs
// rights that not every machine gives, and the test is skipped then.
struct Tmpfs {
    std::string at;
    bool ok = false;
    Tmpfs(const std::string& folder, int kb) : at(folder) {
        fs::create_directories(at);
        ok = std::system(("cd / && mount -t tmpfs -o size=" + std::to_string(kb) + "k tmpfs '" + at + "' 2>/dev/null").c_str()) == 0;
    }
    bool ReadOnly() const { return std::system(("cd / && mount -o remount,ro '" + at + "' 2>/dev/null").c_str()) == 0; }
    ~Tmpfs() {
        if (ok) static_cast<void>(std::system(("cd / && umount -l '" + at + "'").c_str()));
    }
};
#define NEED_MOUNT(m)                                                                                          \
    if (!(m).ok) GTEST_SKIP() << "this machine refuses to mount a size-limited tmpfs (needs root); the fault " \
                                 "cannot be staged here"

// A crusade of `n` people (every `deleteEvery`-th deleted) with members, zips
// and a prayer list, on the edit screen, its side files written.
struct Crusade : TestCrusade {
    explicit Crusade(int n = 40, int deleteEvery = 10, const std::function<void(Crusade&)>& before = {}) {
        if (before) before(*this);
        std::vector<MasterRecord> people;
        for (int i = 0; i < n; ++i) {
            people.push_back(MakePerson(std::to_string(9999 - i), "First" + std::to_string(i), "Last" + std::to_string(i % 7)));
            if (deleteEvery && i % deleteEvery == deleteEvery - 1) people.back().WorkerCode = "##";
        }
        ShowOnEditScreen(people);
        NewSideTables(p);
        AddMember(p, MemberLine("0001", "Smith", "Ann"));
        AddZip(p, ZipKey(p, "62701"), "IL", "Springfield");
        SaveZips(p);
        EXPECT_TRUE(SaveInfo(p));
        EXPECT_TRUE(AppendPrayer(p, "9999", "First0", "Last0", "For the family"));
    }
    std::vector<std::string> Files() const { return safety::CrusadeFiles(dataFile); }
    std::map<std::string, std::string> Snapshot(const std::string& in = "") const {
        std::map<std::string, std::string> s;
        for (const std::string& f : Files()) {
            const std::string at = in.empty() ? f : in + "/" + vb::FileNameOf(f);
            s[vb::FileNameOf(f)] = fs::exists(at) ? ReadFile(at) : "(none)";
        }
        return s;
    }
    // After a fault: every file as before, and the crusade loads with every person.
    void ExpectIntact(const std::map<std::string, std::string>& before, int people) {
        ExpectSame(Snapshot(), before);
        EXPECT_EQ(p.IndexCount, people);
    }
    static void ExpectSame(const std::map<std::string, std::string>& a, const std::map<std::string, std::string>& b) {
        for (const auto& [name, bytes] : a)
            EXPECT_TRUE(b.count(name) && b.at(name) == bytes)
                << name << " differs: " << bytes.size() << " bytes against " << (b.count(name) ? b.at(name).size() : 0);
    }
};

std::string Backup(Crusade& c, const std::string& target) {
    c.host.ExpectSave("Backup the existing Crusade", target)
        .ExpectBox("Backing up", vbYes, "Backup Files")
        .ExpectBox("Backup Completed Successfully", vbOK, "Backup Files");
    c.p.Edit().mnuBackup.Click();
    return target;
}

void ExpectRestoreTo(Crusade& c, const std::string& from) {
    c.host.ExpectOpen("Restore the Information From a Backup file", from)
        .ExpectBox("Restore this file From:   " + from, vbYes, "Select Backup File to Restore From.");
}

}  // namespace

TEST(FileCare, BackupRestoreAndUndoRoundTrip) {
    Crusade c;
    const int people = c.p.IndexCount;
    const std::string shown = c.p.Edit().RNum.Text();
    const std::string folder = c.folder / "stick";
    fs::create_directories(folder);
    const std::string dta = Backup(c, folder + "/Spring.dta");
    const auto backedUp = c.Snapshot();
    Crusade::ExpectSame(c.Snapshot(folder), backedUp);
    EXPECT_EQ(c.p.Edit().RNum.Text(), shown) << "the person on screen stays";
    EXPECT_EQ(c.p.BackupPath, dta);

    // The crusade moves on: a new person, a new prayer.
    c.p.MasterRec = MakePerson("0500", "New", "Person");
    PutRecord(c.p, c.p.RecordCount + 1);
    EXPECT_TRUE(AppendPrayer(c.p, "0500", "New", "Person", "For work"));
    const auto moved = c.Snapshot();

    // "No" goes back to the dialog; the second choice is restored.
    c.host.ExpectOpen("Restore the Information From a Backup file", dta)
        .ExpectBox("Restore this file From:", vbNo, "Select Backup File to Restore From.");
    ExpectRestoreTo(c, dta);
    c.host.ExpectBox("You have chosen to RESTORE the data files", vbYes, "Restore Files");
    c.p.Edit().mnuRestoreCr.Click();
    Crusade::ExpectSame(c.Snapshot(), c.Snapshot(folder));
    EXPECT_EQ(c.p.IndexCount, people);

    // The undo brings back the crusade as it was before the restore, and says where the copy is.
    const auto copy = safety::Last(c.dataFile);
    ASSERT_TRUE(copy);
    c.host.ExpectBox(copy->folder, vbYes, "Undo Last File Operation")
        .ExpectBox("back as they were before the Restore", vbOK, "Undo Last File Operation");
    c.p.Edit().mnuUndoFileOp.Click();
    Crusade::ExpectSame(c.Snapshot(), moved);
    EXPECT_FALSE(fs::exists(copy->folder)) << "a copy brought back is spent";
}

TEST(FileCare, BackupAndRestoreRefusalsChangeNothing) {
    struct Case {
        const char* name;
        std::function<void(Crusade&, const std::string& folder)> act;
    };
    const Case cases[] = {
        {"backup under another name", [](Crusade& c, const std::string& f) {
             c.host.ExpectSave("Backup", f + "/Other.dta")
                 .ExpectBox("The Backup file must have the same name as the Original File.");
             c.p.Edit().mnuBackup.Click();
         }},
        {"backup to its own folder", [](Crusade& c, const std::string&) {
             c.host.ExpectSave("Backup", c.dataFile)
                 .ExpectBox("already exists on this disk", vbOK, "Overwriting a file Warning")
                 .ExpectBox("You cannot backup the file to the same Folder.");
             c.p.Edit().mnuBackup.Click();
             EXPECT_EQ(c.p.BackupPath, "");
         }},
        {"backup to a missing folder", [](Crusade& c, const std::string& f) {
             c.host.ExpectSave("Backup", f + "/gone/Spring.dta")
                 .ExpectBox("a folder that does not exist on this computer");
             c.p.Edit().mnuBackup.Click();
         }},
        {"restore from a foreign file", [](Crusade& c, const std::string& f) {
             c.WriteFile(f + "/Spring.dta", std::string(461 * 3, 'x'));
             ExpectRestoreTo(c, f + "/Spring.dta");
             c.host.ExpectBox("is not a crusade's record file");
             c.p.Edit().mnuRestoreCr.Click();
         }},
        {"restore from a cut-short backup", [](Crusade& c, const std::string& f) {
             const std::string dta = c.ReadFile(f + "/Spring.dta");
             c.WriteFile(f + "/Spring.dta", dta.substr(0, dta.size() - 100));
             ExpectRestoreTo(c, f + "/Spring.dta");
             c.host.ExpectBox("not a whole number of records");
             c.p.Edit().mnuRestoreCr.Click();
         }},
        {"restore without information file", [](Crusade& c, const std::string& f) {
             fs::remove(f + "/Spring.inf");
             ExpectRestoreTo(c, f + "/Spring.dta");
             c.host.ExpectBox("is missing");
             c.p.Edit().mnuRestoreCr.Click();
         }},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        Crusade c;
        const std::string folder = c.folder / "bk";
        fs::create_directories(folder);
        Backup(c, folder + "/Spring.dta");
        const auto before = c.Snapshot();
        const int people = c.p.IndexCount;
        k.act(c, folder);
        c.ExpectIntact(before, people);
        EXPECT_FALSE(safety::Last(c.dataFile)) << "nothing was about to change";
    }
}

TEST(FileCare, CompactDropsDeletedRecordsOnlyAndCanBeUndone) {
    struct Case {
        int deleteEvery;
        bool staleNew;
    };
    for (const Case k : {Case{1, false}, Case{10, true}, Case{0, false}}) {
        SCOPED_TRACE("one in " + std::to_string(k.deleteEvery));
        Crusade c(40, k.deleteEvery == 1 ? 0 : k.deleteEvery);
        if (k.deleteEvery == 1) {   // everybody deleted since the crusade was opened
            for (long i = 1; i <= c.p.RecordCount; ++i) {
                GetRecord(c.p, i);
                c.p.MasterRec.WorkerCode = "##";
                PutRecord(c.p, i);
            }
        }
        const std::string dta = c.ReadFile(c.dataFile);
        std::string live;
        for (std::size_t at = 0; at < dta.size(); at += 461)
            if (dta.compare(at + RecordAt::WorkerCode, 2, "##") != 0) live += dta.substr(at, 461);
        // A ".new" longer than the result, left by a run that failed.
        if (k.staleNew) c.WriteFile(c.dataFile.substr(0, c.dataFile.size() - 3) + "new", dta + dta);
        const auto before = c.Snapshot();
        const std::string caption = c.p.Edit().Caption();
        c.host.ExpectBox("This will permanently remove all deleted names.", vbYes, "Compact the Database")
            .ExpectBox("File Compact Completed");
        c.p.Edit().mnuCompact.Click();
        EXPECT_EQ(c.ReadFile(c.dataFile), live) << "live records, in their order, with their numbers";
        EXPECT_EQ(c.p.RecordCount, static_cast<long>(live.size() / 461));
        if (k.deleteEvery == 1) {
            EXPECT_TRUE(c.p.AddMode) << "nobody left: add mode";
            continue;
        }
        EXPECT_EQ(c.p.Edit().Caption(), caption);
        c.host.ExpectBox("before the Compact", vbYes, "Undo Last File Operation").ExpectBox("back as they were");
        c.p.Edit().mnuUndoFileOp.Click();
        Crusade::ExpectSame(c.Snapshot(), before);
    }
}

TEST(FileCare, SafetyCopiesArePrunedOnlyAmongTheirOwn) {
    Crusade c(5, 0);
    const std::string root = safety::FolderFor(c.dataFile);
    fs::create_directories(root + "/2001-01-01_00-00-00");   // no list: not a copy of ours
    fs::create_directories(root + "/notes");
    for (int i = 0; i < safety::Kept + 3; ++i) safety::Take(c.dataFile, "Compact", c.host.Now());
    const auto all = safety::List(c.dataFile);
    ASSERT_EQ(all.size(), static_cast<std::size_t>(safety::Kept));
    EXPECT_EQ(vb::FileNameOf(all.front().folder), "2026-11-22_09-30-00-04") << "the oldest went";
    EXPECT_TRUE(fs::exists(root + "/2001-01-01_00-00-00"));
    EXPECT_TRUE(fs::exists(root + "/notes"));
}

TEST(FileCare, FaultsOnTheDiskLeaveTheCrusadeWhole) {
    struct Case {
        const char* name;
        int kb;
        bool readOnly;
    };
    for (const Case k : {Case{"backup to a full disk", 64, false}, Case{"backup to a read-only disk", 1024, true}}) {
        SCOPED_TRACE(k.name);
        Crusade c(300, 10);
        Tmpfs place(c.folder / "stick", k.kb);
        NEED_MOUNT(place);
        if (k.readOnly) {
            ASSERT_TRUE(place.ReadOnly());
        }
        c.p.BackupPath = place.at + "/Spring.dta";   // the one change a backup makes to the crusade
        ASSERT_TRUE(SaveInfo(c.p));
        const auto before = c.Snapshot();
        c.host.ExpectSave("Backup", place.at + "/Spring.dta")
            .ExpectBox("Backing up", vbYes)
            .ExpectBox(k.readOnly ? "Permission denied" : "Disk full", vbOK, "Backup Files");
        c.p.Edit().mnuBackup.Click();
        c.ExpectIntact(before, 270);
        EXPECT_TRUE(fs::is_empty(place.at)) << "no part of a backup is left";
    }
    // The folder refuses writing after the safety copy was taken, before the compact replaces the file.
    std::unique_ptr<Tmpfs> data, copies;
    Crusade c(40, 10, [&](Crusade& k) {
        data = std::make_unique<Tmpfs>(k.appPath + "/data", 4096);
        copies = std::make_unique<Tmpfs>(safety::FolderFor(k.dataFile), 4096);
    });
    NEED_MOUNT(*data);
    NEED_MOUNT(*copies);
    const auto before = c.Snapshot();
    c.p.File1.Close();   // a file open for writing holds the disk writable
    ASSERT_TRUE(data->ReadOnly());
    OpenRecordFile(c.p);
    c.host.ExpectBox("permanently remove", vbYes).ExpectBox("The compact failed");
    c.p.Edit().mnuCompact.Click();
    c.ExpectIntact(before, 36);
    c.p.File1.Close();
    copies.reset();
    data.reset();
}

TEST(FileCare, EraseTakesTheBaseNameAndRefusesWhatIsInUse) {
    Crusade c(5, 0);
    const std::string other = c.appPath + "/data/Old";
    for (const char* ext : {".dta", ".inf", ".csv", "_prayer.txt"}) c.WriteFile(other + ext, "x");
    vb::RandomFile held;   // another copy of Vestrel at work on it
    held.Open(other + ".dta", 461);
    held.Lock();
    c.host.ExpectOpen("Select the File to Erase", other + ".dta").ExpectBox("is in use by another copy of Vestrel");
    c.p.Edit().mnuErase.Click();
    held.Close();
    // The loaded crusade is refused by its own path and by another path to it.
    for (const std::string& path : {c.dataFile, c.appPath + "/data/../data/Spring.dta"}) {
        c.host.ExpectOpen("Select the File to Erase", path).ExpectBox("You Cannot Erase the Currently Loaded File.");
        c.p.Edit().mnuErase.Click();
    }
    c.host.ExpectOpen("Select the File to Erase", other + ".dta")
        .ExpectBox("This will Erase the files for the following Meeting:", vbYes)
        .ExpectBox("Last Chance!", vbYes)
        .ExpectBox(" Files have been erased.");
    c.p.Edit().mnuErase.Click();
    EXPECT_FALSE(fs::exists(other + ".dta") || fs::exists(other + ".inf") || fs::exists(other + ".csv"));
    EXPECT_TRUE(fs::exists(other + "_prayer.txt"));
    EXPECT_TRUE(fs::exists(c.dataFile));
}

TEST(FileCare, ClearInterestCardFlagRunsTheRepairPass) {
    Crusade c(12, 0, [](Crusade&) {});
    for (long i = 1; i <= c.p.RecordCount; ++i) {
        GetRecord(c.p, i);
        c.p.MasterRec.IntFlag = -1;
        PutRecord(c.p, i);
    }
    c.host.ExpectBox("Files have been repaired Successfully.");
    c.p.Edit().mnuClearIntFlag.Click();
    for (long i = 1; i <= c.RecordsOnDisk(); ++i) EXPECT_EQ(c.ReadRecord(i).IntFlag, 0);
    EXPECT_EQ(c.p.IndexCount, 12);
}
