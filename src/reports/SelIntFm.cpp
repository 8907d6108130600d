#include "reports/SelIntFm.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

SelIntFm::SelIntFm(ProgramState& prog) : Form(prog.host, "SelIntFm"), p(prog) {
    KeyPreview = true;
    SetCaption("Interest Level");
    Move(0, 0, 3000, 4800);
    constexpr int px = 15;
    lblName.Move(10 * px, 8 * px, 180 * px, 32 * px);
    // Element 0 of the array is not used: the buttons are 1 to 7, one under the other.
    btnInt[0].SetVisible(false);
    for (int i = 1; i <= 7; ++i) {
        btnInt[i].SetCaption(i == 7 ? std::string("Baptized") : std::string(1, static_cast<char>('A' + i - 1)));
        btnInt[i].Move(10 * px, (44 + (i - 1) * 28) * px, 90 * px, 24 * px);
        btnInt[i].SetVisible(true);
    }
    OKBut.Move(110 * px, 44 * px, 80 * px, 24 * px);
    CancelBut.Move(110 * px, 72 * px, 80 * px, 24 * px);
    btnInt.Click = [this](int i) { btnInt_Click(i); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { CancelBut_Click(); };
}

void SelIntFm::Form_Load() {
    lblName.SetCaption("Select Interest level for: " + p.CrLf + RTrim(p.MasterRec.FName) + " " +
                       RTrim(p.MasterRec.LName));
}

void SelIntFm::Choose(const std::string& level) {
    p.MasterRec.IntLevel = level;
    Unload();
}

void SelIntFm::Form_KeyPress(int& KeyAscii) {
    int k = KeyAscii;
    KeyAscii = 0;
    if (k >= 'A' && k <= 'G') k += 'a' - 'A';
    if (k >= 'a' && k <= 'g') {
        Choose(std::string(1, static_cast<char>(k - 'a' + 'A')));
        return;
    }
    p.host.MsgBox("you must enter a letter between 'a' and 'g'.");
}

void SelIntFm::btnInt_Click(int Index) {
    if (Index >= 1 && Index <= 7) Choose(std::string(1, static_cast<char>('A' + Index - 1)));
}

void SelIntFm::OKBut_Click() { Choose(""); }

void SelIntFm::CancelBut_Click() { Unload(); }
