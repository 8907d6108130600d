#include "lists/frmFilters.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

frmFilters::frmFilters(ProgramState& prog) : Form(prog.host, "frmFilters"), p(prog) {
    SetCaption("Vestrel Attendance Filters");
    constexpr int px = TwipsPerPixel;
    Move(0, 0, 330 * px, 230 * px);
    lblHeading.SetFontBold(true);
    lblHeading.Move(10 * px, 8 * px, 300 * px, 20 * px);
    lblTotalAttend.Move(10 * px, 40 * px, 140 * px, 18 * px);
    txtTotalAttend.Move(160 * px, 38 * px, 50 * px, 22 * px);
    lblLastMtgCutoff.Move(10 * px, 70 * px, 140 * px, 18 * px);
    txtLastMtgCutoff.Move(160 * px, 68 * px, 50 * px, 22 * px);
    for (int i = 0; i <= 1; ++i) {
        optTotal[i].Move(10 * px, (102 + i * 26) * px, 200 * px, 22 * px);
        optTotal[i].SetVisible(true);
    }
    btnSave.Move(40 * px, 164 * px, 100 * px, 28 * px);
    btnCancel.Move(170 * px, 164 * px, 100 * px, 28 * px);
    txtTotalAttend.Change = [this] { txtTotalAttend_Change(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void frmFilters::Form_Load() {
    if (p.FilterTotalAttend == 0) p.FilterTotalAttend = 1;
    txtLastMtgCutoff.SetText(CStr(p.PrintCutOff));
    txtTotalAttend.SetText(CStr(p.FilterTotalAttend));
    txtTotalAttend_Change();
    optTotal[0].SetValue(-1);
}

void frmFilters::txtTotalAttend_Change() {
    const std::string& t = txtTotalAttend.Text();
    optTotal[0].SetCaption("At Least " + t);
    optTotal[1].SetCaption("Equals " + t);
    if (Val(t) > p.MeetingNumber) {
        p.host.MsgBox("Number must be smaller than the last meeting.");
        txtTotalAttend.SetText(CStr(p.MeetingNumber));
    }
}

void frmFilters::btnSave_Click() {
    int cutOff = static_cast<int>(Val(txtLastMtgCutoff.Text()));
    if (cutOff >= p.MeetingNumber) cutOff = p.MeetingNumber - 1;
    // A cut-off below the first meeting means nobody is cut.
    if (cutOff < 0) cutOff = 0;
    p.PrintCutOff = cutOff;
    p.FilterTotalAttend = static_cast<int>(Val(txtTotalAttend.Text()));
    p.ScratchValue = optTotal[1].Value() != 0 ? "equal" : "atleast";
    Unload();
}

void frmFilters::btnCancel_Click() {
    p.ScratchValue = "cancel";
    Unload();
}
