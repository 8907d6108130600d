// The card's fields: what each does when it gets the focus, on its keys, and
// when the focus leaves it, with the keyboard table that walks the card.
#include <algorithm>

#include "edit/EditForm.h"
#include "store/FieldRules.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Meetings.h"
#include "store/PreCrusade.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"
#include "store/ZipTable.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = 15;
constexpr int vbKeyP = 80;

std::string ShownBaptDate(const MasterRecord& r) {
    std::string t = Trim(r.BaptDate);
    return t == "12:00AM" ? std::string() : t;
}
}  // namespace

void EditForm::WireFields() {
    Label_MailListFocus.Move(688 * px, 187 * px, 70 * px, 16 * px);
    Label_MailListFocus.SetForeColor(vbRed);
    Label_MailListFocus.SetVisible(false);

    auto keys = [this](Control& box) {
        box.KeyDown = [this, &box](int& k, int s) { FieldKeyDown(box, k, s); };
    };
    for (Control* c : std::initializer_list<Control*>{&FName, &LName, &Address, &Zip, &State, &City, &Phone,
                                                      &txtEmail, &MapCode, &Advertising, &WorkerCode, &IntLevel,
                                                      &Class, &chkMarkToVisit, &BirthDate, &Age, &RNum})
        keys(*c);
    ChgRec.KeyDown = [this](int i, int& k, int s) { FieldKeyDown(ChgRec[i], k, s); };
    MailList.KeyDown = [this](int& k, int s) { MailList_KeyDown(k, s); };
    RelPref.KeyDown = [this](int& k, int s) { RelPref_KeyDown(k, s); };
    BaptDate.KeyDown = [this](int& k, int s) { BaptDate_KeyDown(k, s); };

    for (Control* c : std::initializer_list<Control*>{&FName, &LName, &Address, &City, &State, &Zip, &Phone,
                                                      &txtEmail, &Age, &MtgNum, &BaptDate, &BirthDate})
        c->GotFocus = [this, c] { FieldGotFocus(*c); };
    for (Control* c : std::initializer_list<Control*>{&MapCode, &WorkerCode, &IntLevel})
        c->GotFocus = [this, c] { FieldGotFocus(*c, false); };
    RNum.GotFocus = [this] { RNum_GotFocus(); };
    RelPref.GotFocus = [this] { RelPref_GotFocus(); };
    MailList.GotFocus = [this] { MailList_GotFocus(); };

    RNum.LostFocus = [this] { RNum_LostFocus(); };
    FName.LostFocus = [this] { FName_LostFocus(); };
    LName.LostFocus = [this] { LName_LostFocus(); };
    Address.LostFocus = [this] { Address_LostFocus(); };
    Zip.LostFocus = [this] { Zip_LostFocus(); };
    City.LostFocus = [this] { City_LostFocus(); };
    State.LostFocus = [this] { State_LostFocus(); };
    Phone.LostFocus = [this] { Phone_LostFocus(); };
    txtEmail.LostFocus = [this] { txtEmail_LostFocus(); };
    Age.LostFocus = [this] { Age_LostFocus(); };
    RelPref.LostFocus = [this] { RelPref_LostFocus(); };
    WorkerCode.LostFocus = [this] { WorkerCode_LostFocus(); };
    MailList.LostFocus = [this] { MailList_LostFocus(); };
    BaptDate.LostFocus = [this] { BaptDate_LostFocus(); };
    MtgNum.LostFocus = [this] { MtgNum_LostFocus(); };
    BirthDate.LostFocus = [this] { FieldLostFocus(BirthDate); };

    Age.KeyPress = [this](int& k) { Age_KeyPress(k); };
    RelPref.KeyPress = [this](int& k) { RelPref_KeyPress(k); };
    MtgNum.KeyPress = [this](int& k) { MtgNum_KeyPress(k); };
    BaptDate.Change = [this] { BaptDate_Change(); };
    BaptDate.DblClick = [this] { BaptDate_DblClick(); };
}

// The focus rule: the whole text selected, and in add mode the field painted.
void EditForm::FieldGotFocus(Control& box, bool paint) {
    box.SetSelStart(0);
    box.SetSelLength(static_cast<int>(box.Text().size()));
    if (paint && p.AddMode) box.SetBackColor(HighlightColor);
}

void EditForm::FieldLostFocus(Control& box) {
    if (p.AddMode) box.SetBackColor(vbWindowBackground);
}

bool EditForm::FieldKeyDown(Control& box, int& KeyCode, int /*Shift*/) {
    Control* b = &box;
    const MasterRecord& prev = p.PreviousRec;
    const MasterRecord& undo = p.UndoRec;

    // The field of a record that a box shows, as the box shows it.
    auto recordText = [&](const MasterRecord& r) -> std::string {
        if (b == &LName) return RTrim(r.LName);
        if (b == &Address) return RTrim(r.Address);
        if (b == &Zip) return RTrim(r.Zip);
        if (b == &State) return RTrim(r.State);
        if (b == &City) return RTrim(r.City);
        if (b == &Phone) return RTrim(r.Phone);
        if (b == &txtEmail) return RTrim(r.Email);
        if (b == &MapCode) return RTrim(r.MapCode);
        if (b == &Advertising) return RTrim(r.Advertising);
        if (b == &IntLevel) return RTrim(r.IntLevel);
        if (b == &Visits) return RTrim(r.Visits);
        if (b == &BaptDate) return ShownBaptDate(r);
        return box.Text();
    };
    const bool copies = b == &LName || b == &Address || b == &Zip || b == &State || b == &City || b == &Phone ||
                        b == &txtEmail || b == &MapCode || b == &Advertising || b == &IntLevel || b == &Visits ||
                        b == &BaptDate;

    auto enterTarget = [&]() -> Control* {
        if (b == &RNum) return &FName;
        if (b == &FName) return &LName;
        if (b == &LName) return &Address;
        if (b == &Address) return &Zip;
        if (b == &Zip) return &State;
        if (b == &State) return &City;
        if (b == &City) return &MailList;
        if (b == &Phone) return &txtEmail;
        if (b == &txtEmail) return &Age;
        if (b == &MapCode) return &RelPref;
        if (b == &RelPref) return NextInTabOrder(&RelPref);
        if (b == &Advertising) return p.AddMode ? nullptr : &WorkerCode;
        if (b == &WorkerCode) return p.AddMode ? static_cast<Control*>(&btnSaveNew) : &IntLevel;
        if (b == &IntLevel) return &Visits;
        if (b == &Visits) return &BaptDate;
        if (b == &BaptDate) return &Class;
        if (b == &Class) return &Baptized;
        return nullptr;
    };

    switch (KeyCode) {
    case vbKeyPageUp:
    case vbKeyPageDown: {
        const int dir = KeyCode == vbKeyPageUp ? 1 : 2;
        KeyCode = 0;
        // A card being added is not a person of the list yet: its own buttons leave it.
        if (p.AddMode) {
            PlaySound(p, "clunk");
            return true;
        }
        if (b != &RNum && ReturnToPreviewMsg.Visible()) {
            PlaySound(p, "clunk");
            if (b == &WorkerCode) WorkerCode.SetFocus();
            return true;
        }
        ChgRec_Click(dir);   // saves, then moves
        return true;
    }
    case vbKeyReturn: {
        if (b == &Advertising && p.AddMode) {
            KeyCode = 0;
            return true;
        }
        Control* next = enterTarget();
        if (!next) return false;
        KeyCode = 0;
        next->SetFocus();
        return true;
    }
    case vbKeyF2: {
        if (!p.AddMode) return false;
        if (b == &RNum) {
            KeyCode = 0;
            p.host.MsgBox("Copy Info. to a New Record");
            return true;
        }
        if (b == &WorkerCode) {
            KeyCode = 0;
            Zip.SetText(RTrim(prev.Zip));
            IntLevel.SetFocus();
            return true;
        }
        if (b == &MailList) {
            KeyCode = 0;
            MailList.SetValue(prev.MailList ? vbChecked : vbUnchecked);
            Phone.SetFocus();
            return true;
        }
        if (!copies) return false;
        KeyCode = 0;
        box.SetText(recordText(prev));
        if (b != &Advertising)
            if (Control* next = enterTarget()) next->SetFocus();
        return true;
    }
    case vbKeyF3: {
        if (b != &LName || !p.AddMode) return false;
        KeyCode = 0;
        LName.SetText(RTrim(prev.LName));
        Address.SetText(RTrim(prev.Address));
        City.SetText(RTrim(prev.City));
        State.SetText(RTrim(prev.State));
        Zip.SetText(RTrim(prev.Zip));
        Phone.SetText(RTrim(prev.Phone));
        // A second person at one address gets no second mailing.
        MailList.SetValue(vbUnchecked);
        Age.SetFocus();
        PlaySound(p, "laser");
        return true;
    }
    case vbKeyEscape: {
        if (b == &RNum) p.MasterRec.RNum = undo.RNum;
        else if (b == &FName) RNum.SetText(RTrim(undo.RNum));
        else if (b == &WorkerCode) Zip.SetText(RTrim(undo.Zip));
        else if (b == &Class) IntLevel.SetText(CStr(static_cast<long>(undo.Class)));
        else if (b == &MailList) MailList.SetValue(undo.MailList ? vbChecked : vbUnchecked);
        else if (copies) box.SetText(recordText(undo));
        else return false;
        KeyCode = 0;
        return true;
    }
    default: return false;
    }
}

int EditForm::CheckDuplicate(const std::string& number) {
    if (FirstEntryWithNumber(p, number, p.AddMode ? 0 : p.CurrentIndex) != 0) {
        p.host.MsgBox(number + " is a duplicate record number" + p.CrLf + "The Registration Number will be reset." +
                          p.CrLf + "You must enter a different Number.",
                      host::vbCritical);
        RNum.SetText("");
        return 3;
    }
    return 0;
}

void EditForm::RNum_GotFocus() {
    OpenRNum = RNum.Text();
    FieldGotFocus(RNum);
}

void EditForm::RNum_LostFocus() {
    FieldLostFocus(RNum);
    // The word is taken here and cleared. It counts only while the press that
    // left it is still under way: a word left by a press that left another box
    // would let the next number through unchecked, letters and duplicates too.
    const bool stopImport = p.ScratchText == "StopImport" && (btnSaveExit.Pressed() || btnCancelNew.Pressed());
    if (p.ScratchText == "StopImport") p.ScratchText.clear();
    if (stopImport || (RNum.Text() == OpenRNum && !p.AddMode)) {
        p.ScratchText.clear();
        return;
    }
    std::string text = Trim(RNum.Text());
    if (text.empty()) text = NextRNum(p);
    if (text.empty()) {
        // The information file refused the new number: none is given out, the box stays empty.
        p.ScratchText.clear();
        return;
    }
    std::string number;
    if (CleanRegNumber(text, number)) {
        if (CheckDuplicate(number) == 3) {
            RNum.SetText(p.AddMode ? std::string() : RTrim(p.MasterRec.RNum));
            RNum.SetFocus();
        } else {
            RNum.SetText(number);
            OpenRNum = number;
            if (!p.AddMode) SetEntryNumber(p, p.CurrentIndex, number);
        }
    } else {
        RNum.SetText(RTrim(p.MasterRec.RNum));
        RNum.SetFocus();
        p.host.MsgBox("You entered << " + text + " >> for the Registration Number." + p.CrLf +
                      "The Registration Number cannot have any letters in it, it must be all numbers.");
    }
    p.ScratchText.clear();
}

void EditForm::FName_LostFocus() {
    FieldLostFocus(FName);
    std::string t = Trim(FName.Text());
    FName.SetText(t.empty() ? std::string("Unknown") : Capitalize(t));
}

void EditForm::LName_LostFocus() {
    LName.SetText(Capitalize(Trim(LName.Text())));
    FieldLostFocus(LName);
    if (p.AddMode) PreCrusadeLookup();
}

void EditForm::PreCrusadeLookup() {
    MasterRecord guest;
    switch (FindPreCrusadeGuest(p, FName.Text(), LName.Text(), guest)) {
    case PreCrusadeResult::NoFile:
    case PreCrusadeResult::NotFound: return;
    case PreCrusadeResult::WrongLength:
        // Said once a run: the operator keys on without the guests.
        if (!preCrusadeWarned_)
            p.host.MsgBox("The pre-crusade guest file " + PreCrusadePath(p) +
                              " is damaged or is not a file of this program: its length is not a whole number of "
                              "records." + p.CrLf + "The guests in it cannot be looked up.",
                          host::vbExclamation);
        preCrusadeWarned_ = true;
        return;
    case PreCrusadeResult::Found: break;
    }
    Address.SetText(RTrim(guest.Address));
    Address_LostFocus();
    City.SetText(RTrim(guest.City));
    State.SetText(RTrim(guest.State));
    Zip.SetText(RTrim(guest.Zip));
    Phone.SetText(RTrim(guest.Phone));
    txtEmail.SetText(RTrim(guest.Email));
    guest.Advertising.SetChar(5, 'P');
    Advertising.SetText(RTrim(guest.Advertising));
    std::string age = Trim(guest.Age);
    Age.SetText(age.empty() ? std::string("NIF") : age);
    RelPref.SetText(RTrim(guest.RelPref));
    MailList.SetValue(vbChecked);
    Notes.SetText(RTrim(guest.Notes));
    PlaySound(p, "laser");
    Age.SetFocus();
}

void EditForm::Address_LostFocus() {
    Address.SetText(CleanAddress(Address.Text()));
    Address.SetForeColor(vbWindowText);
    Address.SetFontBold(false);
    FieldLostFocus(Address);
}

void EditForm::Zip_LostFocus() {
    std::string zip = Zip.Text();
    if (zip.empty()) zip = "NoZip";
    if (Trim(zip) != "NoZip" && !IsNumeric(Trim(zip))) {
        zip = CanadianZip(zip);
        if (!p.CanadaSorter && AskCanada) {
            int a = p.host.MsgBox(
                "It appears you are entering a Canadian zip code. Do you wish to set the zip code sorter for Canadian "
                "zip codes?" + p.CrLf +
                    "If most of your names are in Canada then it is recommmended that you select the 'Yes' button. " +
                    p.CrLf + "You can change this selection later in the Preference settings.",
                host::vbYesNo, "Select Canadian Zip Code Sorter");
            if (a == host::vbYes) p.CanadaSorter = true;
            AskCanada = false;
        }
    }
    Zip.SetText(zip);
    // The table's first state is the usual one; a state already on the card is the person's own.
    if (p.ZipCount > 0 && Trim(State.Text()).empty()) State.SetText(ZipState(p.ZipList[1]));
    const bool noZip = zip == "NoZip";
    ZipHitIndex = FindZip(p, ZipKey(p, zip));
    if (ZipHitIndex > 0) {
        const std::string& entry = p.ZipList[static_cast<std::size_t>(ZipHitIndex)];
        std::string team = Trim(WorkerCode.Text());
        if (team.empty() || team == "00") WorkerCode.SetText(ZipTeam(entry));
        if (City.Text().empty() && p.AddMode) {
            City.SetText(RTrim(ZipCity(entry)));
            State.SetText(ZipState(entry));
            FieldLostFocus(Zip);
            Phone.SetFocus();
        }
    }
    // No zip at all is never a new entry of the table.
    MarkZipNotSaved(p, ZipHitIndex == 0 && !noZip);
    FieldLostFocus(Zip);
}

void EditForm::City_LostFocus() {
    City.SetText(Capitalize(City.Text()));
    const std::string zip = Zip.Text();
    const std::string key = ZipKey(p, zip);
    if (ZipNotSaved(p) && zip != "NoZip" && FindZip(p, key) == 0) {
        std::string state = Trim(State.Text());
        while (state.empty()) {
            state = UCase(Trim(p.host.InputBox("Error- You must enter a State.", "Enter the State")));
            if (!state.empty()) State.SetText(state);
        }
        if (!AddZip(p, key, state, City.Text()))
            p.host.MsgBox("The zip code table is full: it holds " + CStr(ZipTableLimit) + " zip codes." + p.CrLf +
                              "Zip code " + Trim(zip) + " was not added to it. The person's card keeps it.",
                          host::vbExclamation);
    } else {
        Zip_LostFocus();
        if (ZipHitIndex > 0) {
            std::string& entry = p.ZipList[static_cast<std::size_t>(ZipHitIndex)];
            if (Fixed(City.Text(), 15) != ZipCity(entry) && zip != "NoZip") {
                int a = p.host.MsgBox("Zipcode: " + vb::Left(zip, 5) + p.CrLf +
                                          " Has already been assigned to a different city-- " + RTrim(ZipCity(entry)) +
                                          p.CrLf + p.CrLf + "Do you want to reassign " + Trim(vb::Left(entry, 10)) +
                                          " to " + City.Text() + "?",
                                      host::vbYesNo, "Check Assigned City");
                if (a == host::vbYes) SetZipCity(entry, City.Text());
            }
            if (p.AddMode) CountZipUse(p, ZipHitIndex);
        } else if (zip != "NoZip" && p.ZipCount >= ZipTableLimit) {
            p.host.MsgBox("The zip code table is full: it holds " + CStr(ZipTableLimit) + " zip codes." + p.CrLf +
                              "Zip code " + Trim(zip) + " was not added to it. The person's card keeps it.",
                          host::vbExclamation);
        }
    }
    FieldLostFocus(City);
}

void EditForm::State_LostFocus() {
    std::string state = CleanState(State.Text());
    while (state.empty()) state = UCase(Trim(p.host.InputBox("Error- You must enter a State.", "Enter the State")));
    State.SetText(state);
    FieldLostFocus(State);
}

void EditForm::Phone_LostFocus() {
    Phone.SetText(CleanPhone(Phone.Text()));
    Phone.SetForeColor(vbWindowText);
    Phone.SetBackColor(vbWhite);
    Phone.SetFontBold(false);
    FieldLostFocus(Phone);
}

void EditForm::txtEmail_LostFocus() {
    txtEmail.SetText(CleanEmail(txtEmail.Text()));
    FieldLostFocus(txtEmail);
}

void EditForm::Age_KeyPress(int& KeyAscii) {
    if (KeyAscii < 32 && KeyAscii != vbKeyReturn) return;
    // One keystroke per age group: the key is the box, and the card moves on.
    if (KeyAscii != vbKeyReturn) Age.SetText(std::string(1, static_cast<char>(KeyAscii)));
    KeyAscii = 0;
    if (p.AddMode) RelPref.SetFocus();
    else MapCode.SetFocus();
}

void EditForm::Age_LostFocus() {
    std::string group;
    switch (CleanAge(Age.Text(), p.AgeGroups, group)) {
    case AgeResult::LeftAlone: break;
    case AgeResult::Group: Age.SetText(group); break;
    case AgeResult::NotANumber:
        p.host.MsgBox("You must enter a number between 1 and 7.  Try again");
        Age.SetText("");
        Age.SetFocus();
        return;
    }
    FieldLostFocus(Age);
}

void EditForm::RelPref_GotFocus() {
    if (p.AddMode) {
        RelPref.SetBackColor(HighlightColor);
        if (RelPref.Text().empty()) RelPref.SetText("UnSpecified");
    }
    FieldGotFocus(RelPref, false);
}

void EditForm::RelPref_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == vbKeyDelete) {
        RelPref.SetText("");
        KeyCode = 0;
        return;
    }
    FieldKeyDown(RelPref, KeyCode, Shift);
}

void EditForm::RelPref_KeyPress(int& KeyAscii) {
    if (KeyAscii < 32) return;
    std::string typed = vb::Left(RelPref.Text(), RelPref.SelStart()) + static_cast<char>(KeyAscii);
    KeyAscii = 0;
    for (const std::string& item : RelPref.List()) {
        if (StrCompText(vb::Left(item, static_cast<long>(typed.size())), typed) != 0) continue;
        RelPref.SetText(item);
        RelPref.SetSelStart(static_cast<int>(typed.size()));
        RelPref.SetSelLength(static_cast<int>(item.size() - typed.size()));
        return;
    }
    // A church not in the list is typed in full rather than refused key by key: the
    // names the leaving rule turns into list names ("Mormon", "Church of Christ") can
    // only arrive this way, and the operator's church is never silently dropped.
    RelPref.SetText(typed);
    RelPref.SetSelStart(static_cast<int>(typed.size()));
}

void EditForm::RelPref_LostFocus() {
    RelPref.SetText(CleanReligion(RelPref.Text()));
    if (p.AddMode) FieldLostFocus(RelPref);
    else if (Control* next = NextInTabOrder(&RelPref)) next->SetFocus();
}

void EditForm::WorkerCode_LostFocus() {
    std::string team;
    if (!CleanTeamCode(WorkerCode.Text(), team)) {
        p.host.MsgBox("You have entered an invalid Team code.  " + p.CrLf + "It must be a number between 00 and 40");
        WorkerCode.SetFocus();
        return;
    }
    WorkerCode.SetText(team);
}

void EditForm::MailList_GotFocus() { Label_MailListFocus.SetVisible(true); }

void EditForm::MailList_LostFocus() {
    Label_MailListFocus.SetVisible(false);
    if (Address.Text() == "Address Unknown" || (FName.Text() == "Unknown" && LName.Text() == "Unknown"))
        MailList.SetValue(vbUnchecked);
}

void EditForm::MailList_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == vbKeyShift || KeyCode == vbKeyControl || KeyCode == vbKeyMenu) return;
    if (FieldKeyDown(MailList, KeyCode, Shift)) return;
    KeyCode = 0;
    Phone.SetFocus();
}

void EditForm::BaptDate_KeyDown(int& KeyCode, int Shift) {
    if (FieldKeyDown(BaptDate, KeyCode, Shift)) return;
    if (KeyCode == vbKeyP) {
        KeyCode = 0;
        BaptDate.SetText(FormatDate(p.host.Now(), "mm/dd/yy"));
        // The key writes this fixed date.
        BaptDate.SetText("05/23/09");
        IntLevel.SetText("A");
        return;
    }
    if (KeyCode == 43 || KeyCode == 187 || KeyCode == 189) {
        std::string next;
        if (!StepDate(BaptDate.Text(), KeyCode == 189 ? -1 : 1, next)) {
            KeyCode = 0;
            PlaySound(p, "clunk");
            return;
        }
        // The new date waits until the key has changed the box.
        p.ScratchText = "Chg Date";
        p.ScratchValue = next;
    }
}

void EditForm::BaptDate_Change() {
    if (p.ScratchText != "Chg Date") return;
    std::string next = p.ScratchValue;
    p.ScratchText.clear();
    p.ScratchValue.clear();
    BaptDate.SetText(next);
}

void EditForm::BaptDate_LostFocus() {
    BaptDate.SetText(PadDate(BaptDate.Text()));
    FieldLostFocus(BaptDate);
}

void EditForm::BaptDate_DblClick() {
    BaptDate.SetText(FormatDate(p.host.Now(), "mm/dd/yy"));
    int a = p.host.MsgBox("Has this interest already been baptized?", host::vbYesNo, "Enter Interest Level");
    if (a == host::vbYes) {
        IntLevel.SetText("G");
        Baptized.SetValue(vbChecked);
    } else {
        IntLevel.SetText("A");
    }
}

void EditForm::MtgNum_KeyPress(int& KeyAscii) {
    if (KeyAscii != vbKeyReturn) return;
    KeyAscii = 0;
    if (p.AddMode) RNum.SetFocus();
    else SearchBox.SetFocus();
}

void EditForm::MtgNum_LostFocus() {
    FieldLostFocus(MtgNum);
    std::string t = Trim(MtgNum.Text());
    int m = static_cast<int>(Val(t));
    if (t.empty() || !std::all_of(t.begin(), t.end(), [](char c) { return c >= '0' && c <= '9'; }) || m < 1 ||
        m > 40) {
        p.host.MsgBox("The Meeting number you entered is invalid." + p.CrLf +
                          "You must select a Meeting Number between 1 and 40",
                      host::vbCritical);
        MtgNum.SetText(Trim(Last.Text()));
        MtgNum.SetFocus();
        return;
    }
    RaiseMeetingNumber(p, m);
    if (p.AddMode) {
        AddMeeting = m;
        Attendance.SetText(FirstAttendance(m));
        Attend.SetText("1");
        Last.SetText(CStr(m));
    }
}
