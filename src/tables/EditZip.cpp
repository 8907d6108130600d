#include "tables/EditZip.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/SelPrinter.h"
#include "store/Members.h"
#include "store/State.h"
#include "store/Sounds.h"
#include "store/ZipTable.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = TwipsPerPixel;
const char* const AssignTitle = "Assign Teams to Records";

std::string CountText(const std::string& entry) { return Trim(Mid(entry, 30, 4)); }
}  // namespace

EditZip::EditZip(ProgramState& prog) : Form(prog.host, "EditZip"), p(prog) {
    Move(0, 0, 520 * px, 400 * px);
    const int lx = 10, bx = 110;
    Control* rows[][2] = {{&ZipLbl, &Zip}, {&CityLbl, &City}, {&StateLbl, &State}, {&WCLbl, &WorkerCode},
                          {&NumberAddressesLbl, &NumberAddresses}};
    const int widths[] = {110, 160, 40, 40, 50};
    for (int r = 0; r < 5; ++r) {
        rows[r][0]->Move(lx * px, (14 + r * 30) * px, 95 * px, 20 * px);
        rows[r][1]->Move(bx * px, (10 + r * 30) * px, widths[r] * px, 24 * px);
    }
    Zip.MaxLength = 10;
    City.MaxLength = 15;
    State.MaxLength = 2;
    WorkerCode.MaxLength = 2;
    // The count is the people's, recounted from the file; it is not typed.
    NumberAddresses.Locked = true;
    NumberAddresses.SetTabStop(false);
    RCounter.Move(lx * px, 166 * px, 260 * px, 20 * px);
    CommandButton* nav[] = {&FirstRecordButton, &PreviousRecord, &NextRecord_Button, &LastRecordButton};
    for (int i = 0; i < 4; ++i) nav[i]->Move((lx + i * 45) * px, 190 * px, 40 * px, 28 * px);
    Frame1.Move(300 * px, 10 * px, 200 * px, 110 * px);
    const char* sorts[] = {"by Zip", "by City", "by Count"};
    for (int i = 0; i < 3; ++i) {
        SortOpt[i].SetContainer(&Frame1);
        SortOpt[i].Move(12 * px, (22 + i * 28) * px, 170 * px, 22 * px);
        SortOpt[i].SetCaption(sorts[i]);
        SortOpt[i].SetVisible(true);
    }
    struct Row { CommandButton* b; Label* l; };
    const Row actions[] = {{&Search, &SearchLbl}, {&Edit, &EditLbl}, {&AddZip, &AddZipLbl}, {&AssignNames, &Label1}};
    for (int i = 0; i < 4; ++i) {
        actions[i].b->Move(lx * px, (236 + i * 36) * px, 90 * px, 28 * px);
        actions[i].l->Move(110 * px, (242 + i * 36) * px, 300 * px, 20 * px);
    }
    PrintZips.Move(300 * px, 130 * px, 95 * px, 28 * px);
    btnEditTeamNames.Move(405 * px, 130 * px, 95 * px, 28 * px);
    CoseForm.Move(410 * px, 344 * px, 90 * px, 28 * px);
    btnEditTeamNames.SetEnabled(false);   // until the team names can be edited

    FirstRecordButton.Click = [this] { Navigate(0); };
    PreviousRecord.Click = [this] { Navigate(1); };
    NextRecord_Button.Click = [this] { Navigate(2); };
    LastRecordButton.Click = [this] { Navigate(3); };
    SortOpt.Click = [this](int i) { SortOpt_Click(i); };
    WorkerCode.LostFocus = [this] { WorkerCode_LostFocus(); };
    State.LostFocus = [this] { State_LostFocus(); };
    Search.Click = [this] { Search_Click(); };
    Edit.Click = [this] { Edit_Click(); };
    AddZip.Click = [this] { AddZip_Click(); };
    AssignNames.Click = [this] { AssignNames_Click(); };
    PrintZips.Click = [this] { PrintZips_Click(); };
    btnEditTeamNames.Click = [this] { if (EditTeamNames) EditTeamNames(); };
    CoseForm.Click = [this] { CoseForm_Click(); };
    for (TextBox* t : {&Zip, &City, &State, &WorkerCode})
        t->KeyDown = [this](int& k, int) {
            if (k != vbKeyReturn) return;
            k = 0;
            if (Control* next = NextInTabOrder(ActiveControl())) next->SetFocus();
        };
}

void EditZip::Form_Load() {
    if (p.CanadaSorter &&
        p.host.MsgBox("Vestrel is set for Canadian Zipcodes.  Is this what you want?", host::vbYesNo | host::vbQuestion,
                      "Select Canada or USA") == host::vbNo)
        p.CanadaSorter = false;
    ZipCaption();
    btnEditTeamNames.SetEnabled(static_cast<bool>(EditTeamNames));
    Adding = false;
    Current = p.ZipCount > 0 ? 1 : 0;
    if (Current == 0) {
        AddZip_Click();
        return;
    }
    ShowZipRecord();
}

void EditZip::Form_Unload(int& Cancel) {
    if (!SaveZipChanges()) {
        Cancel = 1;
        return;
    }
    SaveZips(p);
}

void EditZip::ZipCaption() { SetCaption(std::string("Assign Teams to Zip Codes") + (p.CanadaSorter ? " (Canadian)" : "")); }

void EditZip::UpdateZipCaption() {
    if (Adding)
        RCounter.SetCaption("Adding Record Number " + CStr(p.ZipCount + 1) + " to " + CStr(p.ZipCount + 1));
    else
        RCounter.SetCaption(CStr(Current) + " of " + CStr(p.ZipCount));
}

void EditZip::ShowZipRecord() {
    if (Current < 1 || Current > p.ZipCount) {
        BlankCard();
    } else {
        const std::string& e = p.ZipList[static_cast<std::size_t>(Current)];
        Zip.SetText(Trim(vb::Left(e, 10)));
        State.SetText(ZipState(e));
        WorkerCode.SetText(ZipTeam(e));
        City.SetText(Trim(ZipCity(e)));
        NumberAddresses.SetText(CountText(e));
    }
    UpdateZipCaption();
}

void EditZip::BlankCard() {
    for (TextBox* t : {&Zip, &City, &State, &NumberAddresses}) t->SetText("");
    WorkerCode.SetText("00");
}

bool EditZip::Refuse(const std::string& text, Control& back) {
    p.host.MsgBox(text, host::vbExclamation, "Zip Codes");
    back.SetFocus();
    return false;
}

bool EditZip::SaveZipChanges() {
    if (Adding || Current < 1 || Current > p.ZipCount) return true;
    std::string& e = p.ZipList[static_cast<std::size_t>(Current)];
    // A zip left as shown keeps its key: browsing never rewrites an entry made
    // before the Canadian setting changed.
    const std::string key = Trim(Zip.Text()) == Trim(vb::Left(e, 10)) ? Fixed(vb::Left(e, 10), 10) : ZipKey(p, Trim(Zip.Text()));
    const std::string entry = key + Fixed(UCase(Trim(State.Text())), 2) + Fixed(WorkerCode.Text(), 2) +
                              Fixed(Trim(City.Text()), 15) + Right("    " + CountText(e), 4);
    if (entry == e) return true;
    // The people of a zip find it by its key and take its city: neither may go.
    if (Trim(Zip.Text()).empty()) return Refuse("A zipcode cannot be left empty.", Zip);
    if (Trim(City.Text()).empty())
        return Refuse("Zipcode " + Trim(Zip.Text()) + " has no city." + p.CrLf + "Type the city of this zipcode.", City);
    for (int i = 1; i <= p.ZipCount; ++i)
        if (i != Current && vb::Left(p.ZipList[static_cast<std::size_t>(i)], 10) == key)
            return Refuse("Zipcode " + Trim(key) + " is already in the table.", Zip);
    e = entry;
    return true;
}

void EditZip::ZipSort(int by) {
    SortZipStrings(p, by);
    Current = p.ZipCount > 0 ? 1 : 0;
    ShowZipRecord();
}

void EditZip::NewRecord() {
    Adding = true;
    BlankCard();
    UpdateZipCaption();
    Zip.SetFocus();
}

void EditZip::Navigate(int kind) {
    if (Adding) {
        Adding = false;
        if (Current == 0 && p.ZipCount > 0) Current = 1;
    } else if (!SaveZipChanges()) {
        return;
    }
    int to = kind == 0 ? 1 : kind == 1 ? Current - 1 : kind == 2 ? Current + 1 : p.ZipCount;
    if (to < 1 || to > p.ZipCount || (kind == 1 && Current <= 1) || (kind == 2 && Current >= p.ZipCount)) {
        PlaySound(p, "clunk");
        ShowZipRecord();
        return;
    }
    Current = to;
    ShowZipRecord();
}

void EditZip::SortOpt_Click(int Index) {
    if (!Adding && !SaveZipChanges()) return;
    Adding = false;
    ZipSort(Index);
}

void EditZip::WorkerCode_LostFocus() {
    std::string t = Trim(WorkerCode.Text());
    if (t.empty()) t = "0";
    const std::string code = Right("00" + t, 2);
    if (!IsNumeric(t) || t.size() > 2 || code > "40" || code.find_first_not_of("0123456789") != std::string::npos) {
        p.host.MsgBox("The team code is a number from 00 to 40.", host::vbExclamation, "Zip Codes");
        WorkerCode.SetText(Current >= 1 && Current <= p.ZipCount && !Adding ? ZipTeam(p.ZipList[static_cast<std::size_t>(Current)]) : "00");
        return;
    }
    WorkerCode.SetText(code);
    if (!Adding && Current >= 1 && Current <= p.ZipCount) {
        std::string& e = p.ZipList[static_cast<std::size_t>(Current)];
        e = Fixed(e, 12) + code + Mid(e, 15);
    }
}

void EditZip::State_LostFocus() {
    if (Adding) FinishCard();
}

void EditZip::FinishCard() {
    const std::string zip = Trim(Zip.Text());
    // Leaving an untouched card (to stop adding) is no card.
    if (zip.empty() && Trim(City.Text()).empty() && Trim(State.Text()).empty()) return;
    if (zip.empty() || zip == "NoZip") {
        Refuse("Type the zipcode first.", Zip);
        return;
    }
    if (Trim(City.Text()).empty()) {
        Refuse("Zipcode " + zip + " has no city." + p.CrLf + "Type the city of this zipcode.", City);
        return;
    }
    const std::string key = ZipKey(p, zip);
    for (int i = 1; i <= p.ZipCount; ++i)
        if (vb::Left(p.ZipList[static_cast<std::size_t>(i)], 10) == key) {
            Refuse("Zipcode " + Trim(key) + " is already in the table.", Zip);
            return;
        }
    if (!::AddZip(p, key, UCase(Trim(State.Text())), Trim(City.Text()))) {
        p.host.MsgBox("The zipcode table is full: it holds " + CStr(ZipTableLimit) + " zipcodes.", host::vbExclamation,
                      "Zip Codes");
        Adding = false;
        ShowZipRecord();
        return;
    }
    std::string& e = p.ZipList[static_cast<std::size_t>(p.ZipCount)];
    e = Fixed(e, 12) + Fixed(WorkerCode.Text(), 2) + Mid(e, 15);
    Current = p.ZipCount;
    SaveZips(p);
    if (p.host.MsgBox("Add Another Record?", host::vbYesNo | host::vbQuestion) == host::vbYes) {
        NewRecord();
        return;
    }
    Adding = false;
    ShowZipRecord();
}

void EditZip::Search_Click() {
    if (!Adding && !SaveZipChanges()) return;
    const std::string what = UCase(Trim(p.host.InputBox("Enter the Name or Number to Search for", "", "")));
    if (what.empty()) return;
    const int before = Current;
    Adding = false;
    for (int i = 1; i <= p.ZipCount; ++i) {
        const std::string& e = p.ZipList[static_cast<std::size_t>(i)];
        if (InStr(UCase(vb::Left(e, 10)), what) == 0 && InStr(UCase(ZipCity(e)), what) == 0) continue;
        Current = i;
        ShowZipRecord();
        if (p.host.MsgBox("Correct Record?", host::vbYesNo | host::vbQuestion) == host::vbYes) return;
    }
    p.host.MsgBox("Record Not Found.");
    Current = before;
    ShowZipRecord();
}

void EditZip::Edit_Click() {
    Adding = false;
    if (Current == 0 && p.ZipCount > 0) Current = 1;
    ShowZipRecord();
}

void EditZip::AddZip_Click() {
    if (!Adding && !SaveZipChanges()) return;
    NewRecord();
}

void EditZip::AssignNames_Click() {
    if (!Adding && !SaveZipChanges()) return;
    const std::string& nl = p.CrLf;
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("This will look at the zipcode for each name, and if the current workercode assigned is '00' then "
                      "it will update the Team code in that record with the Team code assigned to that zipcode." + nl +
                          "If there is already a Team code assigned, it will skip that record." + nl +
                          "Are you sure this is what you want to do?",
                      host::vbYesNo | host::vbQuestion, AssignTitle) != host::vbYes)
        return;
    if (p.host.MsgBox("This process cannot be reversed." + nl + "You should have a back up before proceeding." + nl + nl +
                          "Are you sure you want to continue.",
                      host::vbYesNo | host::vbExclamation, AssignTitle) != host::vbYes)
        return;
    TeamAssignment done;
    {
        host::BusyPointer busy(p.host);
        done = AssignTeams(p);
    }
    if (!done.ok) return;
    p.host.MsgBox("Check for Duplicate Address with Different Team Code Assignmnets from the Preview Screen "
                  "'Duplicates' menu",
                  host::vbInformation, AssignTitle);
}

void EditZip::CoseForm_Click() { Unload(); }
