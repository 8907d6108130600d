#include "startup/frmSplash.h"

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/Crusades.h"
#include "startup/Lifecycle.h"
#include "store/Info.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/Settings.h"
#include "store/SortIndex.h"

using namespace forms;
using namespace vb;

frmSplash::frmSplash(Program& prog) : Form(prog.host, "frmSplash"), p(prog) {
    KeyPreview = true;
    SetCaption("Vestrel");
    const int px = TwipsPerPixel;
    Move(0, 0, 520 * px, 330 * px);
    picLogo.SetPicture("vestrel");
    picLogo.Move(24 * px, 24 * px, 96 * px, 96 * px);
    lblProductName.Move(140 * px, 24 * px, 360 * px, 40 * px);
    lblProductName.SetFont("Arial", 24);
    lblProductName.SetFontBold(true);
    lblProductName.SetForeColor(vbDarkBlue);
    lblVersion.Move(140 * px, 70 * px, 360 * px, 18 * px);
    lblPlatform.Move(140 * px, 90 * px, 360 * px, 18 * px);
    lblCredit1.Move(140 * px, 112 * px, 360 * px, 18 * px);
    lblCredit2.Move(140 * px, 130 * px, 360 * px, 18 * px);
    lblLastCrusade.Move(24 * px, 170 * px, 470 * px, 18 * px);
    lblLastCrusadeName.Move(24 * px, 190 * px, 470 * px, 22 * px);
    lblLastCrusadeName.SetFontBold(true);
    btnLastCrusade.Move(24 * px, 260 * px, 150 * px, 36 * px);
    btSelect.Move(186 * px, 260 * px, 150 * px, 36 * px);
    btnExitVestrel.Move(348 * px, 260 * px, 150 * px, 36 * px);
    lblPlatform.SetCaption("Crusade records, attendance and reports for the desktop");
    lblCredit1.SetCaption("Written by the Vestrel developers");
    lblCredit2.SetCaption("Press any key or Open to go on with the last crusade");

    btnLastCrusade.Click = [this] { btnLastCrusade_Click(); };
    btSelect.Click = [this] { btSelect_Click(); };
    btnExitVestrel.Click = [this] { btnExitVestrel_Click(); };
    // A click on any label is a click on the form.
    for (Control* c : Controls())
        if (c->kind() == Kind::Label || c->kind() == Kind::PictureBox) c->Click = [this] { Form_Click(); };
}

void frmSplash::Form_Load() {
    lblVersion.SetCaption("Version " + CStr(VersionMajor) + "." + CStr(VersionMinor) + "." + CStr(VersionRevision));
    lblProductName.SetCaption(AppTitle);
    bool haveSettings = FileExists(p.SettingsPath());
    if (haveSettings) {
        LoadSettings(p);
        p.host.PlayWave(p.AppPath + "/S06.wav");
    }
    if (!haveSettings || p.DataFile.empty()) {
        p.host.MsgBox("You must select 'New' to either create a new meeting file or search for an existing file.",
                      host::vbInformation, "No File Present");
        ShowNoCrusade();
        p.ShowButtonLabels = true;
        return;
    }
    bool opened = CrusadeWritable(p, p.DataFile) && OpenCrusade(p, [&] {
        LoadInfo(p);
        OpenRecordFile(p);
        NoticeEmptyFile(p);
        LoadZips(p);
        LoadMembers(p);
        return true;
    });
    if (!opened) {
        ShowNoCrusade();
        return;
    }
    lblLastCrusadeName.SetCaption(p.CrusadeName + ":  Meeting #" + CStr(p.MeetingNumber));
    p.Loaded = true;
    btnLastCrusade.SetVisible(true);
}

void frmSplash::ShowNoCrusade() {
    btnLastCrusade.SetVisible(false);
    lblLastCrusadeName.SetVisible(false);
    lblLastCrusade.SetVisible(false);
    lblCredit2.SetVisible(false);
}

void frmSplash::Form_Click() {}

void frmSplash::btnLastCrusade_Click() {
    lblLastCrusadeName.SetCaption("Loading " + p.CrusadeName + ":  Meeting #" + CStr(p.MeetingNumber));
    Refresh();
    if (!OpenCrusade(p, [&] { return FullLoad(p); })) {
        // The operator picks another crusade or leaves.
        ShowNoCrusade();
        return;
    }
    Unload();
}

void frmSplash::btSelect_Click() {
    SelectCrusade(p);
    if (p.ScratchText == "NoFileSelected") return;
    Unload();
    EditForm& f = p.Edit();
    f.Show();
    if (p.IsNewFile) {
        f.Attendance.SetText("1---------------------------------------");
        ClearRecord(p.MasterRec);
        p.UndoRec = p.MasterRec;
        f.mnuAddRecords_Click();
    }
}

void frmSplash::Form_KeyPress(int& KeyAscii) {
    if (!p.Loaded) return;
    KeyAscii = 0;
    btnLastCrusade_Click();
}

void frmSplash::btnExitVestrel_Click() {
    CloseCrusade(p);
    p.End();
}
