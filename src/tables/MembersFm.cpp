#include "tables/MembersFm.h"

#include <algorithm>

#include "platform/host/Host.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/Members.h"
#include "store/State.h"
#include "store/Sounds.h"
#include "tables/EditZip.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = TwipsPerPixel;

std::string Number(const std::string& e) { return vb::Left(e, 4); }
std::string Last(const std::string& e) { return Trim(Mid(e, 5, 15)); }
std::string First(const std::string& e) { return Trim(Mid(e, 20, 15)); }
}  // namespace

void SortMembers(ProgramState& p) {
    p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
    std::stable_sort(p.MemberList.begin() + 1, p.MemberList.end());
}

Members::Members(ProgramState& prog) : Form(prog.host, "Members"), p(prog) {
    SetCaption("SDA Members");
    Move(0, 0, 470 * px, 400 * px);
    MemTitleBox.Move(10 * px, 8 * px, 440 * px, 26 * px);
    MemTitleBox.SetFont("MS Sans Serif", 14);
    MemTitleBox.SetFontBold(true);
    Control* rows[][2] = {{&RNumLbl, &RNUM}, {&LNameLbl, &LNAME}, {&FNameLbl, &FNAME}};
    const int widths[] = {60, 160, 160};
    for (int r = 0; r < 3; ++r) {
        rows[r][0]->Move(10 * px, (48 + r * 30) * px, 90 * px, 20 * px);
        rows[r][1]->Move(105 * px, (44 + r * 30) * px, widths[r] * px, 24 * px);
    }
    RNUM.MaxLength = 4;
    LNAME.MaxLength = 15;
    FNAME.MaxLength = 15;
    RCounter.Move(10 * px, 140 * px, 300 * px, 20 * px);
    CommandButton* nav[] = {&FirstRecordButton, &PreviousRecord, &NextRecord_Button, &LastRecordButton};
    for (int i = 0; i < 4; ++i) nav[i]->Move((10 + i * 45) * px, 164 * px, 40 * px, 28 * px);
    struct Row { CommandButton* b; Label* l; };
    const Row actions[] = {{&Edit, &EditLbl}, {&AddMem, &AddMemLbl}, {&Search, &SearchLbl}, {&btnPrintMem, &Label2}};
    for (int i = 0; i < 4; ++i) {
        actions[i].b->Move(10 * px, (206 + i * 36) * px, 90 * px, 28 * px);
        actions[i].l->Move(110 * px, (212 + i * 36) * px, 250 * px, 20 * px);
    }
    btnDeleteSDA.Move(360 * px, 44 * px, 90 * px, 28 * px);
    Command4.Move(360 * px, 340 * px, 90 * px, 28 * px);

    FirstRecordButton.Click = [this] { Navigate(0); };
    PreviousRecord.Click = [this] { Navigate(1); };
    NextRecord_Button.Click = [this] { Navigate(2); };
    LastRecordButton.Click = [this] { Navigate(3); };
    Edit.Click = [this] { Edit_Click(); };
    AddMem.Click = [this] { AddMem_Click(); };
    LNAME.LostFocus = [this] { LName_LostFocus(); };
    FNAME.LostFocus = [this] { FName_LostFocus(); };
    Search.Click = [this] { Search_Click(); };
    btnDeleteSDA.Click = [this] { btnDeleteSDA_Click(); };
    btnPrintMem.Click = [this] { btnPrintMem_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    // Enter moves on, as on a card: number, last name, first name.
    RNUM.KeyDown = [this](int& k, int) { if (k == vbKeyReturn) { k = 0; LNAME.SetFocus(); } };
    LNAME.KeyDown = [this](int& k, int) { if (k == vbKeyReturn) { k = 0; FNAME.SetFocus(); } };
    FNAME.KeyDown = [this](int& k, int) {
        if (k != vbKeyReturn) return;
        k = 0;
        if (Adding) FinishCard(); else RNUM.SetFocus();
    };
}

void Members::Form_Load() {
    p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
    Current = p.MemberCount > 0 ? 1 : 0;
    Adding = false;
    if (Current == 0) {
        NewRecord();
        return;
    }
    MemCaption(false);
    ShowMemRecord();
}

void Members::Form_Activate() { PlaySound(p, "laser"); }

void Members::Form_Unload(int& Cancel) {
    if (!SaveMemChanges()) {
        Cancel = 1;
        return;
    }
    WriteFile();
}

void Members::MemCaption(bool adding) { MemTitleBox.SetCaption(adding ? "Add SDA Members" : "Edit SDA Members"); }

void Members::UpdateMemCaption() {
    if (Adding)
        RCounter.SetCaption("Adding Record Number " + CStr(p.MemberCount + 1) + " to " + CStr(p.MemberCount + 1));
    else
        RCounter.SetCaption(CStr(Current) + " of " + CStr(p.MemberCount));
}

void Members::ShowMemRecord() {
    if (Current < 1 || Current > p.MemberCount) {
        BlankCard();
    } else {
        const std::string& e = p.MemberList[static_cast<std::size_t>(Current)];
        RNUM.SetText(Number(e));
        LNAME.SetText(Last(e));
        FNAME.SetText(First(e));
    }
    UpdateMemCaption();
}

void Members::BlankCard() {
    for (TextBox* t : {&RNUM, &LNAME, &FNAME}) t->SetText("");
}

bool Members::NumberOk() {
    const std::string n = Trim(RNUM.Text());
    if (!n.empty() && n.size() <= 4 && n.find_first_not_of("0123456789") == std::string::npos && Val(n) >= 1) return true;
    p.host.MsgBox("\"" + n + "\" is not a registration number." + p.CrLf + "Type a number from 1 to 9999.",
                  host::vbExclamation, "SDA Members");
    RNUM.SetFocus();
    return false;
}

bool Members::SaveMemChanges() {
    if (Adding || Current < 1 || Current > p.MemberCount) return true;
    std::string& e = p.MemberList[static_cast<std::size_t>(Current)];
    const std::string line = MemberLine(RNUM.Text(), LNAME.Text(), FNAME.Text());
    if (line == e) return true;
    if (!NumberOk()) return false;
    e = line;
    return true;
}

void Members::WriteFile() {
    if (p.MemberCount > 0) {
        SaveMembers(p);
        return;
    }
    // The store leaves an emptied list's old file in place, so the last member
    // deleted would come back at the next load: here the file is emptied.
    if (!p.MembersFrom.empty() && p.MembersFrom != p.CrusadeFile("mem")) return;
    IgnoreErrors([&] {
        TextWriter w;
        w.Open(p.CrusadeFile("mem"), TextWriter::Mode::Output, true);
        w.Close();
    });
}

void Members::NewRecord() {
    Adding = true;
    MemCaption(true);
    BlankCard();
    UpdateMemCaption();
    RNUM.SetFocus();
}

void Members::Navigate(int kind) {
    if (Adding) {
        Adding = false;
        MemCaption(false);
        if (Current == 0 && p.MemberCount > 0) Current = 1;
    } else if (!SaveMemChanges()) {
        return;
    }
    const int to = kind == 0 ? 1 : kind == 1 ? Current - 1 : kind == 2 ? Current + 1 : p.MemberCount;
    if (p.MemberCount == 0 || to < 1 || to > p.MemberCount || (kind == 1 && Current <= 1) ||
        (kind == 2 && Current >= p.MemberCount)) {
        PlaySound(p, "clunk");
        ShowMemRecord();
        return;
    }
    Current = to;
    ShowMemRecord();
}

void Members::Edit_Click() {
    Adding = false;
    MemCaption(false);
    if (Current == 0 && p.MemberCount > 0) Current = 1;
    ShowMemRecord();
}

void Members::AddMem_Click() {
    if (!Adding && !SaveMemChanges()) return;
    NewRecord();
}

// The card ends when its last box is left with both the number and the last name typed.
void Members::LName_LostFocus() {
    if (Adding && !Trim(FNAME.Text()).empty()) FinishCard();
}

void Members::FName_LostFocus() {
    if (Adding && !Trim(LNAME.Text()).empty()) FinishCard();
}

void Members::FinishCard() {
    if (finishing_) return;
    finishing_ = true;
    struct Done { bool& f; ~Done() { f = false; } } done{finishing_};
    if (Trim(LNAME.Text()).empty()) {
        LNAME.SetFocus();
        return;
    }
    if (!NumberOk()) return;
    const std::string line = MemberLine(RNUM.Text(), LNAME.Text(), FNAME.Text());
    p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
    p.MemberList.push_back(line);
    ++p.MemberCount;
    Current = p.MemberCount;
    WriteFile();
    if (p.host.MsgBox("Add Another Record?", host::vbYesNo | host::vbQuestion) == host::vbYes) {
        NewRecord();
        return;
    }
    SortMembers(p);
    Current = static_cast<int>(std::find(p.MemberList.begin() + 1, p.MemberList.end(), line) - p.MemberList.begin());
    Adding = false;
    MemCaption(false);
    ShowMemRecord();
}

void Members::Search_Click() {
    if (!Adding && !SaveMemChanges()) return;
    const std::string what = UCase(Trim(p.host.InputBox("Enter the Name or Number to Search for", "", "")));
    if (what.empty()) return;
    const bool number = what.find_first_not_of("0123456789") == std::string::npos && what.size() <= 4;
    const std::string num = Right("0000" + what, 4);
    const int before = Current;
    const bool wasAdding = Adding;
    Adding = false;
    MemCaption(false);
    for (int i = 1; i <= p.MemberCount; ++i) {
        const std::string& e = p.MemberList[static_cast<std::size_t>(i)];
        const bool hit = number ? Number(e) == num : InStr(UCase(Mid(e, 5)), what) > 0;
        if (!hit) continue;
        Current = i;
        ShowMemRecord();
        if (p.host.MsgBox("Correct Record?", host::vbYesNo | host::vbQuestion) == host::vbYes) return;
    }
    p.host.MsgBox("Record Not Found.");
    Current = before;
    if (wasAdding) {
        NewRecord();
        return;
    }
    ShowMemRecord();
}

void Members::btnDeleteSDA_Click() {
    if (Adding || Current < 1 || Current > p.MemberCount) return;
    if (!SaveMemChanges()) return;
    const std::string& e = p.MemberList[static_cast<std::size_t>(Current)];
    const std::string& nl = p.CrLf;
    if (p.host.MsgBox("This Will Remove the information for:" + nl + std::string(9, ' ') + Number(e) + "  " + First(e) +
                          " " + Last(e) + nl + "from the SDA Member File." + nl + "Is this what you want to do?",
                      host::vbYesNo | host::vbQuestion, "Remove SDA Names") != host::vbYes)
        return;
    p.MemberList.erase(p.MemberList.begin() + Current);
    --p.MemberCount;
    WriteFile();
    if (p.MemberCount == 0) {
        Current = 0;
        NewRecord();
        return;
    }
    Current = std::min(Current, p.MemberCount);
    ShowMemRecord();
}

void Members::btnPrintMem_Click() {
    if (!Adding && !SaveMemChanges()) return;
    std::vector<std::string> lines;
    for (int i = 1; i <= p.MemberCount; ++i) {
        const std::string& e = p.MemberList[static_cast<std::size_t>(i)];
        lines.push_back(Number(e) + "   " + Last(e) + ", " + First(e));
    }
    PrintTableList(p, "SDA Members", lines, [](int page) { return "SDA's Page " + CStr(page); });
}

void Members::Command4_Click() { Unload(); }
