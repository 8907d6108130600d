// File > Merge Files and File > Compare: another crusade's people brought into
// the loaded one, and a backup's people that the loaded one lost offered back.
// The disk work is in maint/Merge; here are the questions and the screen.
//
// Beyond the old program, neither leaves a half-merged crusade: a safety copy
// is kept first (File > Undo Last File Operation brings it back), the records
// are written to a copy of the record file that replaces it only when whole,
// and a file that is not whole records is refused before anything changes.
#include <filesystem>

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "maint/Merge.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "reports/PrintReports.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {

const char* const CrusadeFilter = "Crusade Files (*.dta)|*.dta|Crusade Files";
const std::string Six(6, ' ');

std::string Why(const RuntimeError& e) { return e.Description() + (e.Path.empty() ? "" : ": " + e.Path); }

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    return a == b || std::filesystem::equivalent(a, b, ec);
}

}  // namespace

void EditForm::WireMerge() {
    mnuMerge.Click = [this] { mnuMerge_Click(); };
    mnuCompare.Click = [this] { mnuCompare_Click(); };
    for (Control* c : std::initializer_list<Control*>{&mnuMerge, &mnuCompare}) {
        notBuilt_.erase(c);
        c->SetEnabled(true);
    }
}

void EditForm::mnuMerge_Click() {
    const std::string& nl = p.CrLf;
    if (!SaveChanges()) return;
    host::FileDialog d;
    d.DialogTitle = "Merge Files into the Master File";
    d.Filter = CrusadeFilter;
    d.MustExist = true;
    if (!p.host.ShowOpen(d)) return;
    const std::string path = d.FileName;
    // Another path to the same file is caught too: it would double every person.
    if (SameFile(path, p.DataFile)) {
        p.host.MsgBox("You Cannot Merge the Currently Loaded File into itself." + nl +
                      "You must must select a different File Name to merge.");
        return;
    }
    std::string why;
    const std::vector<RecordBytes> other = maint::ReadOtherRecords(path, why);
    if (!why.empty()) {
        p.host.MsgBox(why + nl + nl + "Nothing has been merged; the crusade is as it was.", host::vbExclamation,
                      "Merge Files");
        return;
    }
    const long n = static_cast<long>(other.size());
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("You will merge " + CStr(n) + " records from:" + nl + Six + path + nl + "into: " + nl + Six +
                          p.DataFile + nl + "The Merged file will contain " + CStr(p.RecordCount + n) + " records." +
                          nl + "Is this what you want to do?",
                      host::vbYesNo | host::vbCritical) != host::vbYes)
        return;
    if (p.host.MsgBox("Last Chance! Are you sure?", host::vbYesNo | host::vbCritical) != host::vbYes) return;
    if (p.ReportsLoaded()) p.Reports().Unload();
    host::BusyPointer busy(p.host);
    std::string copy;
    if (!KeepSafetyCopy("Merge", copy)) return;
    try {
        maint::MergeRecords(p, other);
        OpenRecordFile(p);
    } catch (const RuntimeError& e) {
        IgnoreErrors([&] { OpenRecordFile(p); });
        p.host.MsgBox("The merge failed, and the record file is as it was before it." + nl + nl + Why(e),
                      host::vbExclamation, "Merge Files");
        return;
    }
    Refresh();
    SortEntries(p);
    if (FetchCurrentRecord(p)) ShowRecord();
    if (maint::MergeMemberLines(p, vb::Left(path, static_cast<long>(path.size()) - 3) + "mem") > 0) SaveMembers(p);
    // The "Master" crusade's statistics step waits for the statistics data
    // file's merge mode, which the statistics report does not have yet.
    CountZips(p);
}

void EditForm::mnuCompare_Click() { CompareFiles(); }

void EditForm::CompareFiles() {
    const std::string& nl = p.CrLf;
    const std::string title = "Restore files from Backup";
    if (!SaveChanges()) return;
    // Without a backup the old program went on with a diskette name that is
    // never there; it stops at the box instead.
    if (p.BackupPath.empty()) {
        p.host.MsgBox("These files have not been backed up.  You cannot restore them.");
        return;
    }
    const std::string path = p.BackupPath;
    const std::string drive = UCase(vb::Left(path, 2));
    const bool diskette = drive == "A:" || drive == "B:";
    if (diskette && p.host.MsgBox("Make sure a backup diskette is in place and the drive is ready before proceeding.",
                                  host::vbOKCancel, title) == host::vbCancel)
        return;
    if (!FileExists(path)) {
        p.host.MsgBox(diskette ? "Unable to find " + path + " on Flopy Drive.  Insert Diskette and try again."
                               : "Unable to find " + path + ".");
        return;
    }
    if (SameFile(path, p.DataFile)) {
        p.host.MsgBox("You Cannot Compare the Currently Loaded File to itself." + nl +
                      "You must must select a different File Name to merge.");
        return;
    }
    std::string why;
    const std::vector<RecordBytes> backup = maint::ReadOtherRecords(path, why);
    if (!why.empty()) {
        p.host.MsgBox(why + nl + nl + "Nothing has been compared; the crusade is as it was.", host::vbExclamation,
                      title);
        return;
    }
    if (p.host.MsgBox("You will compare " + CStr(p.RecordCount) + " records in:" + nl + p.DataFile + nl + "with: " +
                          nl + CStr(static_cast<long>(backup.size())) + " records in the backup file:" + nl + path +
                          nl + "Is this what you want to do?",
                      host::vbYesNo | host::vbCritical) != host::vbYes)
        return;
    std::vector<RecordBytes> chosen;
    for (const RecordBytes& r : maint::MissingRecords(p, backup)) {
        const MasterRecord m = DecodeRecord(r.data());
        if (p.host.MsgBox("Found Missing Record: " + m.WorkerCode.str() + "  " + Trim(m.LName.str()) + ", " +
                              Trim(m.FName.str()) + "  " + nl + "Add this record to the main file?",
                          host::vbYesNo) == host::vbYes)
            chosen.push_back(r);
    }
    if (!chosen.empty()) {
        std::string copy;
        if (!KeepSafetyCopy("Compare", copy)) return;
        try {
            maint::AppendRecords(p, chosen);
            OpenRecordFile(p);
        } catch (const RuntimeError& e) {
            IgnoreErrors([&] { OpenRecordFile(p); });
            p.host.MsgBox("No record could be added, and the record file is as it was before." + nl + nl + Why(e),
                          host::vbExclamation, title);
            return;
        }
    }
    if (!FullLoad(p)) return;
    RebuildAlpha(p);
    if (FetchCurrentRecord(p)) ShowRecord();
    p.host.MsgBox(chosen.empty() ? "Files have not been repaired." : "Files have been repaired Successfully.");
}
