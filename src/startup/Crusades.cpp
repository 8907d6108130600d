#include "startup/Crusades.h"

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/Lifecycle.h"
#include "startup/frmSplash.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Recent.h"
#include "store/Records.h"
#include "store/Settings.h"
#include "store/SortIndex.h"

using namespace vb;

namespace {

const char* const CrusadeFilter = "Crusade Files (*.dta)|*.dta|Crusade Files";

std::string NameFromPath(const std::string& path) {
    std::string file = FileNameOf(path);
    return Left(file, static_cast<long>(file.size()) - 4);
}

// A name typed without the extension still makes a crusade set.
std::string WithExtension(std::string path) {
    if (StrCompText(Right(path, 4), ".dta") != 0) path += ".dta";
    return path;
}

// The name goes into the crusade's list files, where a comma or a leading quote would cut it.
bool NameAccepted(Program& p, const std::string& path) {
    std::string name = NameFromPath(path);
    if (name.find(',') == std::string::npos && Left(name, 1) != "\"") return true;
    p.host.MsgBox("The crusade name \"" + name + "\" cannot be used." + p.CrLf + p.CrLf +
                      "A crusade name may not hold a comma or begin with a double quote, because the crusade's "
                      "files would cut it there." + p.CrLf + "Please choose a name without them.",
                  host::vbExclamation, "Crusade Name");
    return false;
}

// The splash path starts the backup path afresh; the menu's keeps it.
void ResetForNew(Program& p, const std::string& path, bool clearBackup) {
    p.CrusadeName = NameFromPath(path);
    p.CrusadeDate = FormatDate(p.host.Now(), "Short Date");
    p.DataFile = path;
    p.DataFolder = FolderOf(path);
    p.NumberDirection = "DOWN";
    p.LastRNum = 9999;
    if (clearBackup) p.BackupPath.clear();
}

void ClearCounters(Program& p) {
    p.SortName = "unsorted";
    p.SortIndex.assign(1, "unsorted");
    p.IndexCount = 0;
    p.CurrentIndex = 0;
    p.SavedIndex = 0;
    p.RecordCount = 0;
    NewSideTables(p);
}

// A new crusade's information file, an empty list and an empty record file.
// False when they could not be made (the operator has been told).
bool StartEmptyCrusade(Program& p) {
    p.MeetingNumber = 1;
    p.FilterTotalAttend = 1;
    p.PrintCutOff = 0;
    if (!CrusadeWritable(p, p.DataFile) || !SaveInfo(p)) return false;
    ClearCounters(p);
    try {
        OpenRecordFile(p);
    } catch (const RuntimeError& e) {
        p.host.MsgBox("The new crusade's record file could not be made:" + p.CrLf + p.DataFile + p.CrLf +
                          "Error # " + CStr(e.Number) + ": " + e.Description() + p.CrLf + p.CrLf +
                          "Choose a folder that can be written and try again.",
                      host::vbExclamation, "Crusade Cannot Be Made");
        return false;
    }
    return true;
}

// Reads the lists of a prior meeting's information file; false when the file is missing.
bool ImportPriorLists(Program& p, const std::string& chosen) {
    return ReadPriorLists(p, Left(chosen, static_cast<long>(chosen.size()) - 3) + "inf");
}

// The menu's order: information, records, zips, members, then the load pass.
bool LoadFromMenu(Program& p, const std::string& path) {
    p.DataFile = path;
    p.DataFolder = FolderOf(path);
    return OpenCrusade(p, [&] {
        LoadInfo(p);
        OpenRecordFile(p);
        NoticeEmptyFile(p);
        LoadZips(p);
        LoadMembers(p);
        p.Loaded = true;
        return FullLoad(p);
    });
}

void ShowLoaded(Program& p) {
    EditForm& f = p.Edit();
    SaveSettings(p);
    f.Show();
    if (p.IndexCount > 0 && FetchCurrentRecord(p)) f.ShowRecord();
    f.SetupScreen("");
    f.RememberFile(p.DataFile);
    f.ShowAll.SetVisible(false);
    f.Enable(f.mnuEdit, true);
}

}  // namespace

void SelectCrusade(Program& p) {
    host::FileDialog d;
    d.DialogTitle = std::string(AppTitle) + ": Create a New Crusade or Select an Existing Crusade";
    d.Filter = CrusadeFilter;
    d.FilterIndex = 1;
    d.HideReadOnly = true;
    d.InitDir = p.DataPath();
    if (!p.host.ShowOpen(d) || d.FileName.empty()) {
        p.ScratchText = "NoFileSelected";
        return;
    }
    std::string path = WithExtension(d.FileName);
    if (FileExists(path)) {
        if (!CrusadeWritable(p, path)) {
            p.ScratchText = "NoFileSelected";
            return;
        }
        p.File1.Close();
        host::BusyPointer busy(p.host);
        p.DataFile = path;
        p.DataFolder = FolderOf(path);
        frmSplash& s = p.Splash();
        bool opened = OpenCrusade(p, [&] {
            LoadInfo(p);
            OpenRecordFile(p);
            NoticeEmptyFile(p);
            s.lblLastCrusadeName.SetCaption("Loading " + p.CrusadeName);
            s.lblLastCrusadeName.SetVisible(true);
            s.Refresh();
            if (!FullLoad(p)) return false;
            LoadZips(p);
            LoadMembers(p);
            return true;
        });
        if (!opened) {
            s.ShowNoCrusade();
            p.ScratchText = "NoFileSelected";
            return;
        }
        p.Loaded = true;
        SaveSettings(p);
        p.ScratchText = "oldfileselected";
        return;
    }
    // A new crusade.
    if (!NameAccepted(p, path)) {
        p.ScratchText = "NoFileSelected";
        return;
    }
    if (!CrusadeWritable(p, path)) {
        p.ScratchText = "NoFileSelected";
        return;
    }
    if (p.Loaded) {
        CloseCrusade(p);
        p.Loaded = false;
    }
    ResetForNew(p, path, true);
    SaveSettings(p);
    int a = p.host.MsgBox("You can choose to use the Infomation settings from a prior meeting for:" + p.CrLf + p.CrLf +
                              "Decisions, Churches, Sermons and etc." + p.CrLf + p.CrLf +
                              "Or you can choose to use the default settings." + p.CrLf + p.CrLf +
                              "Would you like to import the information from a prior meeting?",
                          host::vbYesNo, "Select Preferences Option");
    if (a == host::vbNo) {
        DefaultLists(p);
    } else {
        host::FileDialog prior;
        prior.DialogTitle = std::string(AppTitle) + ": Create a New Crusade or Select an Existing Crusade";
        prior.Filter = "Crusade Files (*.inf)|*.inf|Crusade Files";
        prior.HideReadOnly = true;
        prior.InitDir = p.DataPath();
        prior.MustExist = true;
        if (!p.host.ShowOpen(prior) || prior.FileName.empty()) {
            DefaultLists(p);
        } else if (!ImportPriorLists(p, prior.FileName)) {
            DefaultLists(p);
            return;
        }
    }
    if (!StartEmptyCrusade(p)) {
        p.Splash().ShowNoCrusade();
        p.ScratchText = "NoFileSelected";
        return;
    }
    p.AddMode = true;
    if (p.ReligionList[1].empty()) DefaultLists(p);
    p.IsNewFile = true;
    p.ScratchText = "newfile";
}

void ChangeCrusade(Program& p) {
    EditForm& f = p.Edit();
    std::string path;
    if (p.ScratchText == "skipDialog") {
        p.ScratchText.clear();
        path = p.ScratchValue;
        p.ScratchValue.clear();
    } else {
        host::FileDialog d;
        d.DialogTitle = "Create a New Crusade or Select an Existing Crusade";
        d.Filter = CrusadeFilter;
        d.FileName = p.DataFile;
        d.InitDir = p.DataPath();
        d.HideReadOnly = true;
        if (!p.host.ShowOpen(d) || d.FileName.empty()) {
            p.ScratchValue = "cancel";
            return;
        }
        path = WithExtension(d.FileName);
    }
    std::string previous = p.DataFile;
    // The crusade that was open comes back rather than none.
    auto backToPrevious = [&] {
        if (previous != path && FileExists(previous) && LoadFromMenu(p, previous)) ShowLoaded(p);
    };
    if (FileExists(path)) {
        if (!CrusadeWritable(p, path)) return;
        host::BusyPointer busy(p.host);
        p.File1.Close();
        CloseCrusade(p);
        if (!LoadFromMenu(p, path)) {
            backToPrevious();
            return;
        }
        ShowLoaded(p);
        p.host.MsgBox(p.CrusadeName + " Has been loaded successfully.");
        return;
    }
    if (!NameAccepted(p, path)) return;
    int a = p.host.MsgBox("The file " + path + " does not exist.  Would you like to create a new file with this name?",
                          host::vbYesNo, "Change Crusade");
    if (a != host::vbYes || !CrusadeWritable(p, path)) return;
    p.File1.Close();
    CloseCrusade(p);
    ResetForNew(p, path, false);
    SaveSettings(p);
    f.MtgNum.SetText("1");
    if (!StartEmptyCrusade(p)) {
        backToPrevious();
        return;
    }
    p.Loaded = false;
    p.IsNewFile = true;
    f.mnuAddRecords_Click();
    f.ShowAll.SetVisible(false);
    f.Enable(f.mnuEdit, true);
}
