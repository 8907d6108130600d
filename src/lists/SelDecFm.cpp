#include "lists/SelDecFm.h"

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

SelDecFm::SelDecFm(ProgramState& prog) : Form(prog.host, "SelDecFm"), p(prog) {
    SetCaption("Second Comming");
    constexpr int px = TwipsPerPixel;
    Move(0, 0, 260 * px, 330 * px);
    Frame1.Move(10 * px, 8 * px, 230 * px, 240 * px);
    // The options are 1 to 9; element 0 is not used.
    Dec[0].SetVisible(false);
    for (int i = 1; i <= 9; ++i) {
        Dec[i].SetContainer(&Frame1);
        Dec[i].Move(10 * px, (18 + (i - 1) * 24) * px, 210 * px, 22 * px);
        Dec[i].SetVisible(true);
    }
    OKBut.Move(20 * px, 256 * px, 100 * px, 28 * px);
    CancelBut.Move(130 * px, 256 * px, 100 * px, 28 * px);
    Dec.Click = [this](int i) { Dec_Click(i); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { CancelBut_Click(); };
}

void SelDecFm::Form_Load() {
    Chosen = 0;
    index_ = 0;
    for (int i = 1; i <= 9; ++i) Dec[i].SetCaption(p.DecisionNames[i]);
    // The decision of the list before is offered again.
    if (const lists::ListKind k = lists::SplitKind(p.SortName); k.stem == "decisions") {
        int last = k.number;
        if (last >= 1 && last <= 9) Dec[last].SetValue(-1);
    } else {
        for (int i = 1; i <= 9; ++i) Dec[i].SetValue(0);
    }
}

void SelDecFm::Dec_Click(int Index) {
    if (Dec[Index].Value() != 0) index_ = Index;
}

void SelDecFm::OKBut_Click() {
    int on = 0;
    for (int i = 1; i <= 9; ++i)
        if (Dec[i].Value() != 0) on = i;
    if (on == 0) {
        p.host.MsgBox("You must select a Decision.");
        return;
    }
    index_ = on;
    Chosen = on;
    p.SortName = "decision" + CStr(on);
    Unload();
}

void SelDecFm::CancelBut_Click() {
    Chosen = 0;
    Unload();
}
