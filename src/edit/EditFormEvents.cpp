// The form's own events and the plain menu entries.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/Crusades.h"
#include "startup/Lifecycle.h"
#include "store/Recent.h"
#include "store/Records.h"
#include "store/SortIndex.h"

using namespace forms;
using namespace vb;

void EditForm::Form_Load() {
    UpdateRecentMenu();
    if (p.Loaded) Enable(mnuEditMode, false);
    if (RelPref.ListCount() == 0)
        for (int i = 1; i <= 14; ++i) RelPref.AddItem(p.ReligionList[i]);
}

void EditForm::Form_Activate() {
    if (p.CallerForm != "attendupdate" && p.CallerForm != "Appointment") {
        for (int i = 0; i <= 8; ++i) {
            Dec[i].SetCaption(p.DecisionNames[i + 1]);
            Dec[i].SetValue(vbUnchecked);
        }
        mPrCut.SetCaption("Printer Cutoff Point (Meeting " + CStr(p.PrintCutOff) + ")");
        if (!p.AddMode) {
            if (FetchCurrentRecord(p)) ShowRecord();
            OpenRNum = RNum.Text();
            SetupScreen("");
        }
        lblShowButtonLabels.SetVisible(btnExcel.Visible() && p.ShowButtonLabels);
    }
    // The screen comes up ready for a ticket or a name: the first box of the card
    // would take a number typed at once as the shown person's new number.
    if (!ActiveControl() && !p.AddMode) SearchBox.SetFocus();
    p.CallerForm = "edit";
}

void EditForm::Form_GotFocus() {
    if (p.CallerForm != "attendupdate" && p.CallerForm != "Appointment" && !p.AddMode) {
        if (FetchCurrentRecord(p)) ShowRecord();
        OpenRNum = RNum.Text();
        SetupScreen("");
    }
    p.CallerForm = "edit";
}

void EditForm::Form_LostFocus() {
    p.CallerForm.clear();
    btnSaveNew.SetVisible(false);
    btnSaveExit.SetVisible(false);
    btnCancelNew.SetVisible(false);
}

void EditForm::Form_Deactivate() { p.CallerForm.clear(); }

void EditForm::Form_Unload(int& Cancel) {
    if (p.AddMode) btnCancelNew_Click();
    if (p.ScratchValue == "dontexit") {
        p.ScratchValue.clear();
        Cancel = 1;
        return;
    }
    if (!p.AddMode && p.IndexCount != 0 && !SaveChanges()) {
        Cancel = 1;
        return;
    }
    p.ScratchValue.clear();
    CloseCrusade(p);
    p.End();
}

void EditForm::EntInd_GotFocus() {
    if (!p.ImportMode) SearchBox.SetFocus();
}

void EditForm::SDAIdent_GotFocus() { SearchBox.SetFocus(); }

void EditForm::mnuEditMode_Click() {
    if (p.AddMode) {
        p.AddMode = false;
        btnSaveNew.SetVisible(false);
        btnSaveExit.SetVisible(false);
        btnCancelNew.SetVisible(false);
        SetBarButtons(true);
        for (int i = 1; i <= 3; ++i) ChgRec[i].SetVisible(true);
        lblNextFieldBtn.SetCaption("Right Click for Next Field");
        SetTopMenus(true);
        p.CurrentIndex = p.IndexCount;
        AddedCount = 0;
        if (FetchCurrentRecord(p)) ShowRecord();
        // Nobody in the file: the fetch went back to the blank card, and the operator stays there.
        if (p.AddMode) return;
    }
    SetupScreen("");
    Enable(mnuEditMode, false);
    Enable(mnuAddRecords, true);
    Frame1.SetForeColor(vbDarkBlue);
    frameVisit.SetForeColor(vbDarkBlue);
    for (Control* c : Controls())
        if (c->kind() == Kind::Label && c != &ReturnToPreviewMsg) c->SetForeColor(vbDarkBlue);
    ViewEditVisibility();
    for (int i = 1; i <= 3; ++i) ChgRec[i].SetVisible(true);
    SearchBox.SetFocus();
}

void EditForm::mnuInfo_Click() {
    long a = 0, b = 0, c = 0, g = 0, mail = 0;
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        const std::string& lvl = p.MasterRec.IntLevel;
        if (lvl == "A") ++a;
        else if (lvl == "B") ++b;
        else if (lvl == "C") ++c;
        else if (lvl == "G") ++g;
        if (p.MasterRec.MailList != 0) ++mail;
    }
    if (p.RecordPos < 1) p.RecordPos = 1;
    // An empty list has nobody to show again; the box alone is asked for.
    if (p.CurrentIndex > 0 && FetchCurrentRecord(p)) ShowRecord();
    const std::string& nl = p.CrLf;
    p.host.MsgBox(p.CrusadeName + nl + p.DataFile + nl + "Mail List-------- " + CStr(mail) + nl + nl +
                      "Interest Level A: " + CStr(a) + nl + "Interest Level B: " + CStr(b) + nl +
                      "Interest Level C: " + CStr(c) + nl + "Total Baptized--- " + CStr(g),
                  host::vbOKOnly, "File Information");
}

void EditForm::mnuHelpFiles_Click() { p.host.ShowHelp(p.AppPath + "/help/index.html", 3, 0); }

void EditForm::mnuShortcuts_Click() { p.host.ShowHelp(p.AppPath + "/help/shortcuts.html", 1, 340); }

void EditForm::mnuPrintManual_Click() {
    int result = p.host.OpenDocument(p.AppPath + "/Vestrel Manual.doc");
    if (result == 1)
        p.host.MsgBox("Microsoft Word was not found on this computer.  You must install MS Word in order to run this option.");
    else if (result == 2)
        p.host.MsgBox("Vestrel Manual.doc was not found." + p.CrLf +
                      "Please copy the file to the " + p.AppPath + " folder and try again");
}

void EditForm::mnuAbout_Click() {
    const std::string& nl = p.CrLf;
    p.host.MsgBox("Version " + CStr(VersionMajor) + "." + CStr(VersionMinor) + "  Release " + CStr(VersionRevision) +
                  nl + "Vestrel" + nl + "Crusade records, attendance and reports" + nl +
                  "Copyright the Vestrel developers");
}

void EditForm::mnuExit_Click() { Unload(); }

void EditForm::UpdateRecentMenu() {
    // Entry i of the store goes to menu place i+1 even when one before it is gone.
    std::vector<std::pair<std::string, std::string>> files = RecentFiles(p);
    bool any = false;
    for (int place = 1; place <= 4; ++place) {
        std::size_t i = static_cast<std::size_t>(place - 1);
        bool there = i < files.size() && !files[i].second.empty() && vb::FileExists(files[i].second);
        if (there) mnuRecentFile[place].SetCaption(files[i].second);
        mnuRecentFile[place].SetVisible(there);
        any = any || there;
    }
    mnuRecentFile[0].SetVisible(any);
}

void EditForm::RememberFile(const std::string& path) {
    bool present = false;
    for (int i = 1; i <= 4; ++i)
        if (mnuRecentFile[i].Visible() && mnuRecentFile[i].Caption() == path) present = true;
    if (!present) AddRecentFile(p, path);
    UpdateRecentMenu();
}

void EditForm::mnuRecentFile_Click(int Index) {
    p.ScratchValue = mnuRecentFile[Index].Caption();
    p.ScratchText = "skipDialog";
    mnuChgCr_Click();
    UpdateRecentMenu();
}

void EditForm::mnuChgCr_Click() {
    // The person on screen is saved first; a refused write keeps this crusade open.
    if (!p.AddMode && p.IndexCount != 0 && !SaveChanges()) return;
    ChangeCrusade(p);
}

void EditForm::mnuNewCr_Click() { mnuChgCr_Click(); }

void EditForm::Form_KeyDown(int& KeyCode, int Shift) {
    if ((Shift & vbCtrlMask) && KeyCode == 'P' && !p.AddMode && btnPrayer.Enabled()) {
        KeyCode = 0;
        EnterPrayer();
    } else if (KeyCode == vbKeyF1 && Shift == 0) {
        // As on any desktop program: F1 opens the help.
        KeyCode = 0;
        mnuHelpFiles_Click();
    }
}
