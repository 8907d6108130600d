#include "tables/FamilyMem.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int RowTop = 1380, RowPitch = 360;
// The household numbers the clean-up writes after an entry's key.
std::string HouseholdOf(const std::string& entry) { return Mid(entry, 78, 4); }
// Beyond this many people at one address the clean-up refuses the list, so a
// household shown here never has more.
constexpr int MostPeople = 20;
}  // namespace

FamilyMem::FamilyMem(ProgramState& prog) : Form(prog.host, "FamilyMem"), p(prog) {
    SetCaption("Select Mail List");
    Move(0, 0, 5400, RowTop + MostPeople * RowPitch + 1500);
    Label1.Move(240, 120, 3000, 300);
    txtEditFamily.Move(240, 480, 4800, 480);
    MLAge[0].SetCaption("(Age)");
    MLAge[0].Move(4200, RowTop - RowPitch, 800, 300);
    ckFamily[0].SetVisible(false);   // the boxes are 1 on, one a person
    ckFamily[1].Move(240, RowTop, 3800, 300);
    MLAge[1].Move(4200, RowTop, 800, 300);
    MLAge[1].SetVisible(true);
    const int bottom = RowTop + MostPeople * RowPitch + 120;
    RecordCounter.Move(240, bottom, 2000, 300);
    const int buttonsTop = bottom + 420;
    FirstFmy.Move(240, buttonsTop, 600, 360);
    btnPrevFmy.Move(900, buttonsTop, 600, 360);
    btmNextFmy.Move(1560, buttonsTop, 600, 360);
    LastFamily.Move(2220, buttonsTop, 600, 360);
    SelMlLClose.Move(3900, buttonsTop, 1100, 360);
    btnPrevFmy.SetToolTipText("Right Click for next church, alphabet, worker code, etc.");
    btmNextFmy.SetToolTipText("Right Click for next  alphabet, worker code, etc.");
    FirstFmy.Click = [this] { FirstFmy_Click(); };
    btnPrevFmy.Click = [this] { btnPrevFmy_Click(); };
    btmNextFmy.Click = [this] { btmNextFmy_Click(); };
    LastFamily.Click = [this] { LastFamily_Click(); };
    SelMlLClose.Click = [this] { SelMlLClose_Click(); };
}

void FamilyMem::ShowAt(int group) {
    ChangeFamily(group);
    Show(true);
}

void FamilyMem::ChangeFamily(int group) {
    const std::string key = Right("0000" + CStr(static_cast<long>(group)), 4);
    FamilyList.assign(1, std::string());
    FamilyMemberCount = 0;
    const int n = std::min<int>(p.IndexCount, static_cast<int>(p.SortIndex.size()) - 1);
    for (int i = 1; i <= n && FamilyMemberCount < MostPeople; ++i) {
        const std::string& entry = p.SortIndex[static_cast<std::size_t>(i)];
        if (HouseholdOf(entry) != key) continue;
        FamilyList.push_back(entry);
        ++FamilyMemberCount;
    }
    txtEditFamily.SetCaption("");
    for (int i = 1; i <= FamilyMemberCount; ++i) {
        GetRecord(p, static_cast<long>(Val(Right(FamilyList[static_cast<std::size_t>(i)], 4))));
        if (i == 1) txtEditFamily.SetCaption(RTrim(p.MasterRec.Address) + "  " + RTrim(p.MasterRec.City));
        CheckBox& box = ckFamily.Load(i);
        Label& age = MLAge.Load(i);
        box.Move(ckFamily[1].Left(), RowTop + (i - 1) * RowPitch, ckFamily[1].Width(), ckFamily[1].Height());
        age.Move(MLAge[1].Left(), RowTop + (i - 1) * RowPitch, MLAge[1].Width(), MLAge[1].Height());
        box.SetCaption(Trim(p.MasterRec.FName) + " " + Trim(p.MasterRec.LName));
        box.SetValue(p.MasterRec.MailList != 0 ? 1 : 0);
        age.SetCaption(Trim(p.MasterRec.Age));
        box.SetVisible(true);
        age.SetVisible(true);
    }
    ckFamily[1].SetVisible(FamilyMemberCount >= 1);
    MLAge[1].SetVisible(FamilyMemberCount >= 1);
    const int shown = FamilyMemberCount > 0 ? static_cast<int>(Val(HouseholdOf(FamilyList[1]))) : group;
    RecordCounter.SetCaption(CStr(static_cast<long>(shown)) + " of " + CStr(static_cast<long>(p.FamilyCount)));
}

void FamilyMem::SaveFamily() {
    for (int i = 1; i <= FamilyMemberCount; ++i) {
        const long n = static_cast<long>(Val(Right(FamilyList[static_cast<std::size_t>(i)], 4)));
        if (!ckFamily.Exists(i) || !GetRecord(p, n)) continue;
        p.MasterRec.MailList = static_cast<std::int16_t>(ckFamily[i].Value() == 1 ? 1 : 0);
        PutRecord(p, n);
    }
    for (int i = ckFamily.UBound(); i >= 2; --i) {
        ckFamily.Unload(i);
        MLAge.Unload(i);
    }
}

int FamilyMem::ShownGroup() const {
    return FamilyMemberCount > 0 ? static_cast<int>(Val(HouseholdOf(FamilyList[1]))) : 1;
}

void FamilyMem::Go(int group) {
    SaveFamily();
    ChangeFamily(group);
}

void FamilyMem::FirstFmy_Click() { Go(1); }
void FamilyMem::LastFamily_Click() { Go(p.FamilyCount); }

void FamilyMem::btmNextFmy_Click() {
    const int next = ShownGroup() + 1;
    if (next > p.FamilyCount) {
        p.host.MsgBox("You have reached the end of the list!");
        return;
    }
    Go(next);
}

void FamilyMem::btnPrevFmy_Click() {
    const int prev = ShownGroup() - 1;
    if (prev < 1) {
        p.host.MsgBox("You have reached the begining of the list!");
        return;
    }
    Go(prev);
}

void FamilyMem::SelMlLClose_Click() { Unload(); }

void FamilyMem::Form_Unload(int&) {
    for (int i = 1; i <= FamilyMemberCount; ++i)
        if (ckFamily.Exists(i) && !FamilyList[static_cast<std::size_t>(i)].empty())
            FamilyList[static_cast<std::size_t>(i)][0] = ckFamily[i].Value() == 1 ? '$' : '-';
    // The old program kept the last household's ticks only in these marks, so a
    // change there was lost unless the operator moved on first: it is saved here too.
    SaveFamily();
    FamilyMemberCount = 0;   // the marks stay in FamilyList for the caller
}
