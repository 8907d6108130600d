// The File menu's merge of the attendance taken on a second computer.
#include <filesystem>
#include <system_error>

#include "attend/MergeAttendance.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace vb;

namespace {

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    if (std::filesystem::equivalent(a, b, ec)) return true;
    return UCase(a) == UCase(b);
}

// The names of differing people the preview lists before the operator is asked to go on.
constexpr std::size_t ListedClashes = 8;

}  // namespace

void EditForm::WireMergeAttendance() {
    mnuMergeAttendance.Click = [this] { mnuMergeAttendance_Click(); };
    notBuilt_.erase(&mnuMergeAttendance);
    mnuMergeAttendance.SetEnabled(true);
}

void EditForm::mnuMergeAttendance_Click() {
    const std::string& nl = p.CrLf;
    if (!SaveChanges()) return;
    // The stored backup path doubles as the last place a merge came from.
    std::string path = p.BackupPath;
    if (Trim(path).empty()) {
        p.host.MsgBox("These files have not been backed up.  You cannot restore them." + nl +
                      "If you would like to use different files then you can use the Change Crusade feature from the "
                      "Files menu.");
        return;
    }
    const std::string drive = UCase(vb::Left(path, 3));
    if ((drive == "A:\\" || drive == "B:\\") &&
        p.host.MsgBox("Make sure a backup diskette is in place and the drive is ready before proceeding.",
                      host::vbOKCancel, "Restore files from Backup") == host::vbCancel)
        return;
    if (!FileExists(path))
        p.host.MsgBox("Unable to find " + path + " on Flopy Drive.  Insert Diskette and try again.");
    host::FileDialog d;
    d.DialogTitle = "Merge Attendance Records from Remote Computer";
    d.Filter = "Crusade Files (*.dta)|*.dta|Crusade Files";
    d.FileName = path;
    d.InitDir = FolderOf(path);
    d.MustExist = true;
    if (!p.host.ShowOpen(d) || d.FileName.empty()) return;
    const std::string remotePath = d.FileName;
    if (SameFile(remotePath, p.DataFile)) {
        p.host.MsgBox("You Cannot Update the Currently Loaded File to itself." + nl +
                      "You must must select a different File Name to merge.");
        return;
    }
    attend::RemoteCrusade remote;
    // Beyond the old program: a remote crusade that cannot be read is refused before anything is asked.
    if (std::string why = attend::ReadRemoteCrusade(remotePath, remote); !why.empty()) {
        p.host.MsgBox(why + nl + nl + "Nothing was merged.", host::vbExclamation, "Merge Attendance");
        return;
    }
    const int r = remote.meeting;
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("You will update the Attendance records in:" + nl + p.DataFile + nl +
                          "with the Attendance records in the file in Drive: " + nl + remotePath + nl +
                          "For Meeting Number: " + CStr(r) + nl +
                          "The last Meeting Number for the Current Database is: " + CStr(p.MeetingNumber) + nl + nl +
                          "Is this what you want to do?",
                      host::vbYesNo | host::vbCritical | host::vbDefaultButton2,
                      "Vestrel Attendance Update from Remote Computer") != host::vbYes)
        return;
    const bool whole =
        p.host.MsgBox("This will only update the Attendance record for those attending Meeting " + CStr(r) + nl +
                          "You can choose 'Yes' to update the entire record for those attending Meeting: " + CStr(r) +
                          nl + nl + "Do You want to update the entire record?",
                      host::vbYesNo | host::vbDefaultButton2) == host::vbYes;
    // Beyond the old program: what the merge will do, before the last question. Numbers
    // are matched alone, so a number the two computers gave to different people is shown.
    attend::MergeCount plan = attend::PlanAttendanceMerge(p, remote);
    std::string what = CStr(plan.marked) + " people here were at meeting " + CStr(r) + " on the other computer." +
                       nl + CStr(plan.added) + " new names will be added." + nl;
    if (!plan.namesDiffer.empty()) {
        what += nl + CStr(static_cast<long>(plan.namesDiffer.size())) +
                " numbers belong to another name on the other computer (here / there):" + nl;
        for (std::size_t i = 0; i < plan.namesDiffer.size() && i < ListedClashes; ++i)
            what += "   " + plan.namesDiffer[i] + nl;
        if (plan.namesDiffer.size() > ListedClashes) what += "   ..." + nl;
        what += "Their marks would go to the person here with that number." + nl;
    }
    if (p.host.MsgBox(what + nl + "Do you want to go on?", host::vbYesNo | host::vbQuestion,
                      "What the Merge Will Do") != host::vbYes)
        return;
    if (p.host.MsgBox("Are you sure?", host::vbYesNo | host::vbCritical, "Last Chance!") != host::vbYes) return;
    // Beyond the old program: the crusade as it was can be brought back from the File menu.
    std::string copy;
    if (!KeepSafetyCopy("Merge Attendance", copy)) return;

    attend::MergeAttendance(p, remote, whole);
    SaveMembers(p);
    (void)SaveInfo(p);   // a refusal has been shown; the records are written already
    {
        host::BusyPointer busy(p.host);
        RebuildAlpha(p);
        p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
        if (::FetchCurrentRecord(p)) ShowRecord();
        SetupScreen("");
    }
    p.host.MsgBox("Attendance has been updated Successfully." + nl + nl +
                  "The crusade as it was before is kept in " + copy + nl +
                  "(File menu, Undo Last File Operation).");
}
