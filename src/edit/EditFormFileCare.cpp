// The File menu's care of the crusade's files: backup and restore, compact,
// Fix Files, erase, and the undo of the last of these. The disk work is in
// maint/; here are the questions, the messages and the screen.
//
// Beyond the old program, none of these can leave a mixed or half-written set
// of files: every file is written aside and renamed into place when whole, a
// safety copy of the crusade is taken before a restore or a compact replaces
// it (File > Undo Last File Operation brings it back), a backup is read back
// after it is written, and a restore checks the backup before touching anything.
#include <filesystem>

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "maint/FileCare.h"
#include "maint/SafetyCopy.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "reports/PrintReports.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/Settings.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {

const char* const CrusadeFilter = "Crusade Files (*.dta)|*.dta|Crusade Files";
const char* const DisketteLine = "Make sure a backup diskette is in place and the drive is ready before proceeding.";
const std::string Ten(10, ' ');

// What CloseCrusade writes, with the record file let go. CloseCrusade itself
// would delete a crusade without records and end the program, which a backup
// or a restore must never do.
void FlushCrusade(Program& p) {
    p.File1.Close();
    if (!p.Loaded) return;
    SaveSettings(p);
    static_cast<void>(SaveInfo(p));
    if (p.MemberCount > 0) SaveMembers(p);
    SaveZips(p);
}

// The crusade's files read again after they were replaced; a restored file is
// used as it stands, without the repair pass.
bool ReloadCrusade(Program& p, bool sideTables) {
    try {
        if (sideTables) LoadInfo(p);
        OpenRecordFile(p);
        RebuildAlpha(p);
        if (sideTables) {
            LoadZips(p);
            LoadMembers(p);
        }
    } catch (const RuntimeError& e) {
        p.host.MsgBox(FaultText(e), host::vbExclamation);
        return false;
    }
    EditForm& f = p.Edit();
    if (FetchCurrentRecord(p)) f.ShowRecord();
    f.SetupScreen("");
    return true;
}

std::string CopyPlace(const safety::Copy& c) { return c.folder; }

// A safety copy before the files are replaced; false (the operator told) when
// it could not be made, and then nothing may be replaced.
bool TakeSafetyCopy(Program& p, const std::string& operation, std::string& folder) {
    try {
        folder = safety::Take(p.DataFile, operation, p.host.Now()).folder;
        return true;
    } catch (const RuntimeError& e) {
        p.host.MsgBox("Vestrel could not keep a safety copy of the crusade before the " + operation + ", so nothing "
                          "was changed." + p.CrLf + p.CrLf + e.Description() + (e.Path.empty() ? "" : ": " + e.Path) +
                          p.CrLf + p.CrLf + "Make room on the disk or make the crusade's folder writable, then try again.",
                      host::vbExclamation, operation);
        return false;
    }
}

}  // namespace

bool EditForm::KeepSafetyCopy(const std::string& operation, std::string& folder) {
    return TakeSafetyCopy(p, operation, folder);
}

void EditForm::WireFileCare() {
    mnuBackup.Click = [this] { mnuBackup_Click(); };
    mnuRestoreCr.Click = [this] { mnuRestoreCr_Click(); };
    mnuCompact.Click = [this] { mnuCompact_Click(); };
    mnuFixFile.Click = [this] { mnuFixFile_Click(); };
    mnuClearIntFlag.Click = [this] { mnuClearIntFlag_Click(); };
    mnuErase.Click = [this] { mnuErase_Click(); };
    mnuUndoFileOp.Click = [this] { mnuUndoFileOp_Click(); };
    for (Control* c : std::initializer_list<Control*>{&mnuBackup, &mnuRestoreCr, &mnuCompact, &mnuFixFile,
                                                      &mnuClearIntFlag, &mnuErase, &mnuUndoFileOp}) {
        notBuilt_.erase(c);
        c->SetEnabled(true);
    }
}

void EditForm::mnuBackup_Click() {
    if (!SaveChanges()) return;
    BackupFiles();
}

void EditForm::BackupFiles() {
    const std::string& nl = p.CrLf;
    if (p.BackupPath.empty()) p.BackupPath = "A:\\" + maint::FileName(p.DataFile);
    host::FileDialog d;
    d.DialogTitle = "Backup the existing Crusade";
    d.Filter = CrusadeFilter;
    d.FileName = p.BackupPath;
    if (!p.host.ShowSave(d)) return;
    std::string target = d.FileName;
    if (FileExists(target) &&
        p.host.MsgBox(target + " already exists on this disk, do you want to overwrite it?",
                      host::vbOKCancel | host::vbCritical, "Overwriting a file Warning") == host::vbCancel)
        return;
    if (InStr(UCase(target), ".DTA") == 0) target += ".dta";
    if (maint::FileName(target) != maint::FileName(p.DataFile)) {
        p.host.MsgBox("You are attempting to backup " + p.DataFile + " to a file named " + target + nl +
                          "The Backup file must have the same name as the Original File.",
                      host::vbCritical);
        return;
    }
    if (UCase(target) == UCase(p.DataFile)) {
        p.host.MsgBox("You cannot backup the file to the same Folder.  Choose a different Folder.");
        p.BackupPath.clear();
        return;
    }
    if (target.empty()) return;
    host::BusyPointer busy(p.host);
    p.BackupPath = target;
    const std::string title = "Backup Files";
    if (!DirExists(FolderOf(target))) {
        p.host.MsgBox("You are attempting to back up files to a folder that does not exist on this computer." + nl +
                          FolderOf(target) + nl + "Then restart Vestrel and attempt to back up again.",
                      host::vbExclamation, title);
        return;
    }
    std::string ask = "Backing up " + nl + Ten + p.DataFile + nl + "  to:" + nl + Ten + target + nl;
    if (maint::RemovableTarget(target)) ask += DisketteLine + nl;
    ask += "Do You want to Continue?";
    if (p.host.MsgBox(ask, host::vbYesNo, title) != host::vbYes) return;
    FlushCrusade(p);
    const std::string failed = maint::BackupFiles(p.DataFile, target);
    IgnoreErrors([&] { ChDir(p.AppPath); });
    const bool reopened = ReloadCrusade(p, false);
    if (!failed.empty()) {
        p.host.MsgBox("The backup failed:" + nl + failed + nl + nl +
                          "The crusade's own files were not changed. Check the backup place (room on it, and that it "
                          "may be written) and back up again.",
                      host::vbExclamation, title);
        return;
    }
    if (!reopened) return;
    PlaySound(p, "filedone");
    p.host.MsgBox("Backup Completed Successfully", host::vbOKOnly, title);
}

void EditForm::mnuRestoreCr_Click() {
    if (!SaveChanges()) return;
    RestoreCrusade();
}

void EditForm::RestoreCrusade() {
    const std::string& nl = p.CrLf;
    if (p.BackupPath.empty()) {
        p.host.MsgBox("These files have not been backed up.  You cannot restore them." + nl +
                      "If you would like to use different files then you can use the Change Crusade feature from the "
                      "Files menu.");
        return;
    }
    std::string path;
    for (;;) {
        host::FileDialog d;
        d.DialogTitle = "Restore the Information From a Backup file";
        d.Filter = CrusadeFilter;
        d.FileName = p.BackupPath;
        if (!p.host.ShowOpen(d)) return;
        path = d.FileName;
        if (maint::FileName(path) != maint::FileName(p.DataFile)) {
            p.host.MsgBox("You are attempting to restore " + p.DataFile + " from a file named " + path + nl +
                              "The Backup file must have the same name as the Original File.",
                          host::vbCritical);
            return;
        }
        if (maint::RemovableTarget(path) &&
            p.host.MsgBox(DisketteLine, host::vbOKCancel, "Restore files from Backup") == host::vbCancel)
            return;
        const std::string stamp = maint::InfoStamp(vb::Left(path, static_cast<long>(path.size()) - 3) + "inf");
        const int answer = p.host.MsgBox("Restore this file From:   " + path + nl + "Which was last updated on: " +
                                             stamp + nl + "The current file was last updated on: " + p.LastUpdated +
                                             nl + nl + "Is this what you want?" + nl +
                                             "If not, then click 'No' to select a different backup file.",
                                         host::vbYesNoCancel | host::vbQuestion, "Select Backup File to Restore From.");
        if (answer == host::vbCancel) return;
        if (answer == host::vbYes) break;
    }
    if (UCase(path) == UCase(p.DataFile)) {
        p.host.MsgBox("You cannot restore a file from itself.  Choose a different directory.");
        return;
    }
    const std::string title = "Restore Files";
    // Refused before anything is replaced: the old program copied what it found
    // and left a foreign or cut-short file in the crusade's place.
    const std::string unfit = maint::CheckBackup(path);
    if (!unfit.empty()) {
        p.host.MsgBox("This backup cannot be restored:" + nl + unfit + nl + nl +
                          "Nothing has been changed; the crusade is as it was.",
                      host::vbExclamation, title);
        return;
    }
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("You have chosen to RESTORE the data files" + nl + "This will Erase the " + nl +
                          "current information from the file " + nl + "and replace it with information from: " + nl +
                          path + nl + nl + "Are you sure this is what you want to do?",
                      host::vbYesNo | host::vbCritical, title) != host::vbYes)
        return;
    if (p.ReportsLoaded()) p.Reports().Unload();
    host::BusyPointer busy(p.host);
    FlushCrusade(p);
    std::string copy;
    if (!TakeSafetyCopy(p, "Restore", copy)) {
        ReloadCrusade(p, true);
        return;
    }
    try {
        maint::RestoreFiles(path, p.DataFile);
    } catch (const RuntimeError& e) {
        // A failure while the files were staged left them all as they were; one
        // between two renames is undone from the safety copy.
        if (auto c = safety::Last(p.DataFile)) IgnoreErrors([&] { safety::BringBack(*c, p.DataFile); });
        ReloadCrusade(p, true);
        p.host.MsgBox("The restore failed, and the crusade is as it was before it." + nl + nl + e.Description() +
                          (e.Path.empty() ? "" : ": " + e.Path),
                      host::vbExclamation, title);
        return;
    }
    if (!ReloadCrusade(p, true)) return;
    PlaySound(p, "filedone");
}

void EditForm::mnuCompact_Click() {
    const std::string& nl = p.CrLf;
    if (p.host.MsgBox("This will permanently remove all deleted names. You will not be able to restore deleted names "
                      "to the file after running this option." + nl + "Do you want to continue?",
                      host::vbYesNo | host::vbExclamation, "Compact the Database") != host::vbYes)
        return;
    if (!SaveChanges()) return;
    if (p.ReportsLoaded()) p.Reports().Unload();
    host::BusyPointer busy(p.host);
    std::string copy;
    if (!TakeSafetyCopy(p, "Compact", copy)) return;
    const std::string caption = Caption();
    try {
        maint::Compact(p, [&](long i, long n) {
            SetCaption(p.DataFile + ": Record " + CStr(i) + " of " + CStr(n));
            Refresh();
        });
    } catch (const RuntimeError& e) {
        SetCaption(caption);
        ReloadCrusade(p, false);
        p.host.MsgBox("The compact failed, and the record file is as it was before it." + nl + nl + e.Description() +
                          (e.Path.empty() ? "" : ": " + e.Path),
                      host::vbExclamation, "Compact the Database");
        return;
    }
    SetCaption(caption);
    try {
        OpenRecordFile(p);
    } catch (const RuntimeError& e) {
        p.host.MsgBox(FaultText(e), host::vbExclamation);
        return;
    }
    RebuildAlpha(p);
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
    if (FetchCurrentRecord(p)) ShowRecord();
    p.host.MsgBox("File Compact Completed");
}

void EditForm::mnuFixFile_Click() { FixFiles(false); }

void EditForm::mnuClearIntFlag_Click() { FixFiles(true); }

void EditForm::FixFiles(bool clearFlag) {
    // The person on screen is saved first: the pass rewrites every record and
    // then shows the first one, and an edit left in the boxes would be lost.
    if (!SaveChanges()) return;
    if (clearFlag) p.ScratchValue = "ClearFlag";
    if (!FullLoad(p)) return;
    RebuildAlpha(p);
    if (FetchCurrentRecord(p)) ShowRecord();
    p.host.MsgBox("Files have been repaired Successfully.");
}

void EditForm::mnuErase_Click() {
    const std::string& nl = p.CrLf;
    host::FileDialog d;
    d.DialogTitle = "Select the File to Erase";
    d.Filter = CrusadeFilter;
    d.MustExist = true;
    if (!p.host.ShowOpen(d)) return;
    const std::string path = d.FileName;
    // The exact text first, as the menu always did; then the same file reached
    // by another path, which would otherwise erase the crusade in use.
    std::error_code ec;
    const bool same = path == p.DataFile || std::filesystem::equivalent(path, p.DataFile, ec);
    if (same) {
        p.host.MsgBox("You Cannot Erase the Currently Loaded File." + nl +
                      "You must either Create a New File or Change Crusades first.");
        return;
    }
    // A crusade another copy of Vestrel is working on is not pulled from under it.
    bool busyElsewhere = false;
    IgnoreErrors([&] {
        RandomFile f;
        f.Open(path, ProgramState::RecLen);
        try {
            FileLock lock(f);
        } catch (const RuntimeError&) {
            busyElsewhere = true;
        }
    });
    if (busyElsewhere) {
        p.host.MsgBox("The file " + path + " is in use by another copy of Vestrel." + nl +
                          "Close the other copy and try again.",
                      host::vbExclamation);
        return;
    }
    const std::string pattern = vb::Left(path, static_cast<long>(path.size()) - 3) + "*";
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("This will Erase the files for the following Meeting:" + nl + Ten + path + nl +
                          "Is this what you want?",
                      host::vbYesNo) != host::vbYes)
        return;
    if (p.host.MsgBox("Last Chance!" + nl + "You have selected to erase: " + path + nl + "Are you sure?",
                      host::vbYesNo | host::vbCritical) != host::vbYes)
        return;
    for (const std::string& f : Dir(pattern))
        if (!DirExists(f)) IgnoreErrors([&] { Kill(f); });
    p.host.MsgBox(path + " Files have been erased.");
}

void EditForm::mnuUndoFileOp_Click() {
    const std::string& nl = p.CrLf;
    const std::string title = "Undo Last File Operation";
    const std::optional<safety::Copy> c = safety::Last(p.DataFile);
    if (!c) {
        p.host.MsgBox("There is no file operation to undo for this crusade." + nl +
                          "Vestrel keeps a safety copy before a restore or a compact; none is kept for " +
                          p.DataFile + ".",
                      host::vbInformation, title);
        return;
    }
    if (p.host.MsgBox("This puts the files of this crusade back as they were before the " + c->operation + " of " +
                          c->taken + "." + nl + nl + "The safety copy is kept in:" + nl + Ten + CopyPlace(*c) + nl +
                          nl + "Changes made since then will be lost. Do you want to continue?",
                      host::vbYesNo | host::vbQuestion, title) != host::vbYes)
        return;
    if (p.ReportsLoaded()) p.Reports().Unload();
    host::BusyPointer busy(p.host);
    FlushCrusade(p);
    try {
        safety::BringBack(*c, p.DataFile);
    } catch (const RuntimeError& e) {
        ReloadCrusade(p, true);
        p.host.MsgBox("The files could not be put back; the crusade is as it was." + nl + nl + e.Description() +
                          (e.Path.empty() ? "" : ": " + e.Path),
                      host::vbExclamation, title);
        return;
    }
    if (!ReloadCrusade(p, true)) return;
    PlaySound(p, "filedone");
    p.host.MsgBox("The crusade's files are back as they were before the " + c->operation + ".", host::vbOKOnly, title);
}
