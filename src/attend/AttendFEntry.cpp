// The door: a ticket keyed, the person found and marked; the meeting box, the
// pending decision, undo and walking the list.
#include <algorithm>

#include "attend/AttendF.h"
#include "attend/AttendFieldUpdate.h"
#include "edit/BoxRules.h"
#include "edit/EditForm.h"
#include "store/FieldRules.h"
#include "edit/Navigate.h"
#include "edit/Prayer.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Attendance.h"
#include "store/ListEntry.h"
#include "store/Meetings.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"
#include "tables/AppointmentFm.h"

using namespace forms;
using namespace vb;

namespace {
// The entry begins with `key`, compared without regard to case, from character `from`.
bool SameAt(const std::string& entry, const std::string& key, std::size_t from) {
    if (entry.size() < from + key.size()) return false;
    for (std::size_t k = 0; k < key.size(); ++k)
        if (UCaseChar(entry[from + k]) != key[k]) return false;
    return true;
}

bool AllDigits(const std::string& t) {
    return !t.empty() && std::all_of(t.begin(), t.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Forty(const std::string& s) { return vb::Left(s + std::string(40, '-'), 40); }
}  // namespace

int AttendF::Meeting() const {
    std::string t = Trim(MtgNum.Text());
    if (!AllDigits(t) || t.size() > 2) return 0;
    int m = static_cast<int>(Val(t));
    return m >= 1 && m <= 40 ? m : 0;
}

void AttendF::SearchBox_KeyDown(int& KeyCode, int) {
    switch (KeyCode) {
    case vbKeyReturn:
        KeyCode = 0;
        EnterTicket();
        break;
    case vbKeyEscape:
        KeyCode = 0;
        Exit_Click();
        break;
    case 999:   // no key has this code: the program sends it to mark the person shown without a search
        KeyCode = 0;
        Mark();
        SaveRecord();
        break;
    default: break;
    }
}

void AttendF::EnterTicket() {
    const std::string raw = SearchBox.Text();
    if (p.IndexCount == 0) {
        SearchBox.SetText("");
        return;
    }
    if (Meeting() == 0) {
        // Nobody is marked at a meeting that does not exist.
        p.host.MsgBox("The Meeting Number must be a number from 1 to 40." + p.CrLf +
                          "Correct it in the Meeting Number box, then key the ticket again.",
                      host::vbExclamation, "Meeting Number");
        MtgNum.SetFocus();
        return;
    }
    if (!SaveRecord()) return;
    p.AddMode = false;
    EntInd.SetText("");
    SDAIdent.SetText("");
    if (p.ScratchText == "NotFound") p.ScratchText.clear();
    if (p.CurrentIndex < 1 || p.CurrentIndex > p.IndexCount) p.CurrentIndex = 1;
    const int held = p.CurrentIndex;
    const std::string text = UCase(Trim(raw));
    if (text.empty()) {
        EndEntry();
        return;
    }

    int hit = 0;
    bool cancelled = false;
    if (IsNumeric(text)) {
        // The last four digits of a longer printed number; a short one is not padded.
        const std::string key = text.size() <= 4 ? text : Right(text, 4);
        hit = FirstEntryWithNumber(p, key);
    } else {
        const std::string key = vb::Left(text, 3);
        const long width = static_cast<long>(text.size());
        for (int i = 1; i <= p.IndexCount && !hit && !cancelled; ++i) {
            // Three letters of the entry against the key: one or two letters find nobody.
            if (key.size() < 3 || !SameAt(p.SortIndex[i], key, 4)) continue;
            long n = static_cast<long>(Val(Right(p.SortIndex[i], 4)));
            if (n < 1 || !GetRecord(p, n)) continue;
            const MasterRecord& r = p.MasterRec;
            if (UCase(vb::Left(r.LName, width)) != text) continue;
            int a = p.host.MsgBox("Is this the Correct Name?" + p.CrLf + p.CrLf + RTrim(r.RNum) + "   " +
                                      Trim(r.FName) + " " + Trim(r.LName) + p.CrLf + RTrim(r.Address) + ", " +
                                      RTrim(r.City),
                                  host::vbYesNoCancel | host::vbQuestion, "Searching for Last Name");
            if (a == host::vbYes) hit = i;
            else if (a == host::vbCancel) cancelled = true;
        }
    }

    if (hit) {
        p.CurrentIndex = hit;
        if (FetchCurrentRecord(p)) {
            ShowRecord();
            RefreshCaption();
            Mark();
            Decisions();
            SaveRecord();
        }
        RefreshCaption();
        SearchBox.SetText("");
        SearchBox.SetFocus();
        return;
    }
    if (!cancelled) {
        PlaySound(p, LookUpMember(p, EntInd, SDAIdent, text, raw, false));
        p.ScratchText = "NotFound";
    }
    p.CurrentIndex = held;
    EndEntry();
}

void AttendF::EndEntry() {
    if (FetchCurrentRecord(p)) ShowRecord();
    if (p.ScratchText == "NotFound") p.ScratchText.clear();
    RefreshCaption();
    SearchBox.SetText("");
    SearchBox.SetFocus();
}

void AttendF::Mark() {
    const int m = Meeting();
    if (m == 0) return;
    std::string s = Forty(Attendance.Text());
    const std::size_t at = static_cast<std::size_t>(m - 1);
    if (s[at] == '-') {
        EntInd.SetText("");
        ++EnteredCount;
    } else {
        EntInd.SetText("E");
    }
    // A decision letter wins over Video, Video over the night's digit.
    if (PendingDecision != "-" && !PendingDecision.empty()) s[at] = PendingDecision[0];
    else s[at] = optVid[1].Value() ? 'V' : LastDigit(m);
    Recount(s, 0);
}

void AttendF::Recount(const std::string& s, std::int16_t keptLast) {
    p.MasterRec.Attendance = s;
    CountAttendance(p.MasterRec, keptLast);
    Attendance.SetText(p.MasterRec.Attendance.str());
    Attended = RTrim(p.MasterRec.Attend);
    LastAttended = p.MasterRec.Last;
}

void AttendF::Decisions() {
    for (int i = 0; i <= 8; ++i)
        if (ED[i].Value() == vbChecked) Dec[i].SetValue(vbChecked);
}

void AttendF::Dec_Click(int Index) {
    if (showing_) return;
    std::string d = vb::Left(DecisionText + "---------", 9);
    const std::string& code = p.DecisionCodes[Index + 1];
    d[Index] = Dec[Index].Value() == vbChecked && !code.empty() ? code[0] : '-';
    DecisionText = d;
}

void AttendF::ClearPendingDecision() {
    PendingDecision = "-";
    for (int i = 0; i <= 8; ++i) DecA[i].SetValue(false);
    lblDecInAtt.SetCaption(DefaultDecInAtt);
    lblDecInAtt.SetBackColor(0xC0C0C0);
}

void AttendF::DecA_MouseDown(int Index, int, int, float, float) {
    // Set or cleared at every press: a press that never became a click leaves no word for the next.
    if (DecA[Index].Value()) p.ScratchText = "ClearButton";
    else if (p.ScratchText == "ClearButton") p.ScratchText.clear();
    for (int i = 0; i <= 8; ++i) DecA[i].SetValue(false);
    PendingDecision = "-";
}

void AttendF::DecA_Click(int Index) {
    if (p.ScratchText == "ClearButton") {
        p.ScratchText.clear();
        ClearPendingDecision();
        return;
    }
    const std::string& code = p.DecisionCodes[Index + 1];
    if (code.empty()) {
        ClearPendingDecision();
        return;
    }
    PendingDecision = vb::Left(code, 1);
    lblDecInAtt.SetCaption(p.DecisionNames[Index + 1] + " will be entered as '" + PendingDecision +
                           "' into the Attendance Record.For Example: ---" + PendingDecision + "---");
    lblDecInAtt.SetBackColor(HighlightColor);
    SearchBox.SetFocus();
}

void AttendF::MtgNum_KeyPress(int& KeyAscii) {
    EnteredCount = 0;
    if (KeyAscii == vbKeyReturn) {
        KeyAscii = 0;
        SearchBox.SetFocus();
    }
}

void AttendF::MtgNum_LostFocus() {
    int m = Meeting();
    if (m == 0) {
        std::string typed = MtgNum.Text();
        MtgNum.SetText(CStr(goodMeeting_));
        p.host.MsgBox("<< " + typed + " >> is not a meeting." + p.CrLf +
                          "The Meeting Number must be a number from 1 to 40.",
                      host::vbExclamation, "Meeting Number");
        MtgNum.SetFocus();
        return;
    }
    ChangeMeeting(m);
}

void AttendF::ChangeMeeting(int m) {
    if (m != goodMeeting_) EnteredCount = 0;
    if (m >= 1) {
        goodMeeting_ = m;
        RaiseMeetingNumber(p, m);
    }
    ClearPendingDecision();
    RefreshCaption();
}

void AttendF::btnVscrollUp_Click() {
    int m = static_cast<int>(Val(MtgNum.Text()));
    if (m != 40) {
        m = std::clamp(m + 1, 0, 40);
        MtgNum.SetText(CStr(m));
        ChangeMeeting(m);
    }
    p.host.MsgBox("You have just changed the meeting number" + p.CrLf + "Check that the Live or Video option is correct.");
    SearchBox.SetFocus();
}

void AttendF::btnVScrollDn_Click() {
    int m = static_cast<int>(Val(MtgNum.Text()));
    if (m != 0) {
        m = std::clamp(m - 1, 0, 40);
        MtgNum.SetText(CStr(m));
        ChangeMeeting(m);
    }
    p.host.MsgBox("You have just changed the meeting number" + p.CrLf + "Check that the Live or Video option is correct.");
    SearchBox.SetFocus();
}

void AttendF::Undo_Click() {
    const int m = Meeting();
    std::string s = Forty(Attendance.Text());
    if (m == 0 || s[static_cast<std::size_t>(m - 1)] == '-') {
        SearchBox.SetFocus();
        return;
    }
    s[static_cast<std::size_t>(m - 1)] = '-';
    // A person whose only mark goes keeps this meeting as his last, with no total.
    Recount(s, static_cast<std::int16_t>(m));
    if (EnteredCount > 0) --EnteredCount;
    SaveRecord();
    const std::string& nl = p.CrLf;
    for (int i = 0; i <= 8; ++i) {
        if (ED[i].Value() != vbChecked || DecisionText[static_cast<std::size_t>(i)] == '-') continue;
        const std::string& name = p.DecisionNames[i + 1];
        int a = p.host.MsgBox(name + nl + "There is no way for Vestrel to know if this decision had been previously entered." +
                                  nl + "If in doubt, check no and review your records or check with the visiting person to get the proper information." +
                                  nl + nl + "Do you want to undo the " + name + " decision now?",
                              host::vbYesNo, "Remove the " + name + " Decision?");
        if (a != host::vbYes) continue;
        DecisionText[static_cast<std::size_t>(i)] = '-';
        Dec[i].SetValue(vbUnchecked);
    }
    SearchBox.SetFocus();
}

void AttendF::Walk(int kind) {
    if (p.IndexCount == 0 || !SaveRecord()) return;
    StepCurrentIndex(p, kind);
    if (FetchCurrentRecord(p)) ShowRecord();
    RefreshCaption();
    SearchBox.SetFocus();
}

void AttendF::FirstRecordButton_Click() { Walk(0); }
void AttendF::PreviousRecord_Click() { Walk(1); }
void AttendF::NextRecord_Button_Click() { Walk(2); }
void AttendF::LastRecordButton_Click() { Walk(3); }

void AttendF::RNum_GotFocus() { openRNum_ = RNum.Text(); }

void AttendF::RNum_LostFocus() {
    std::string t = Trim(RNum.Text());
    if (t == openRNum_) return;
    if (t.empty()) t = NextRNum(p);
    std::string number;
    if (t.empty()) {
        RNum.SetText(openRNum_);
        return;
    }
    if (!CleanRegNumber(t, number)) {
        RNum.SetText(openRNum_);
        p.host.MsgBox("You entered << " + t + " >> for the Registration Number." + p.CrLf +
                      "The Registration Number cannot have any letters in it, it must be all numbers.");
        RNum.SetFocus();
        return;
    }
    if (FirstEntryWithNumber(p, number, p.CurrentIndex) != 0) {
        p.host.MsgBox(number + " is a duplicate record number" + p.CrLf + "The Registration Number will be reset." +
                          p.CrLf + "You must enter a different Number.",
                      host::vbCritical);
        RNum.SetText(openRNum_);
        RNum.SetFocus();
        return;
    }
    RNum.SetText(number);
    openRNum_ = number;
    SetEntryNumber(p, p.CurrentIndex, number);
}

void AttendF::Attendance_Click() {
    p.CallerForm = "attend";
    SearchBox.SetFocus();
    p.AttendUpdate().Show(true);
}

void AttendF::btnGlobal_Click() {
    if (!SaveRecord()) return;
    std::string answer = p.host.InputBox(
        "You can search for all or part of the First Name- Last Name- Address- City- State- Zipcode- Phone Number- and Religion.",
        "Enter the Item to search for", "");
    if (answer.empty()) {
        SearchBox.SetFocus();
        return;
    }
    const std::string& nl = p.CrLf;
    const std::string find = UCase(answer);
    auto show = [&](int at) {
        p.CurrentIndex = at;
        if (FetchCurrentRecord(p)) ShowRecord();
        RefreshCaption();
        SearchBox.SetFocus();
    };
    const int shown = p.CurrentIndex;
    for (long n = 1; n <= p.RecordCount; ++n) {
        if (!GetRecord(p, n)) break;
        const MasterRecord& r = p.MasterRec;
        std::string hay = RTrim(r.FName) + "--" + RTrim(r.LName) + "--" + RTrim(r.Address) + "--" + RTrim(r.City) +
                          "--" + RTrim(r.State) + "--" + RTrim(r.Zip) + "--" + RTrim(r.Phone) + "--" + RTrim(r.RelPref);
        if (InStr(UCase(hay), find) == 0) continue;
        const std::string line = RTrim(r.RNum) + "   " + RTrim(r.FName) + " " + RTrim(r.LName);
        if (r.WorkerCode == "##") {
            int a = p.host.MsgBox(
                line + nl + RTrim(r.Address) + nl + nl +
                    "This Record had been deleted from the file.  You must restore it to the file in order to read it.  The Team Code will be changed to '00'." +
                    nl + "Do you want to restore it to the file?",
                host::vbYesNo, "A Deleted Record Found");
            if (a != host::vbYes) continue;
            p.MasterRec.WorkerCode = "00";
            PutRecord(p, n);
            std::string who = RTrim(p.MasterRec.FName) + " " + RTrim(p.MasterRec.LName);
            RebuildAlpha(p);
            show(std::max(1, FindByRecord(p, n)));
            p.host.MsgBox("The Record for " + who + " has been successfully restored to the INTEREST file.");
            return;
        }
        int a = p.host.MsgBox(line + nl + RTrim(r.Address) + ", " + RTrim(r.City) + ", " + RTrim(r.Phone) + nl + nl +
                                  "Is this the correct name?",
                              host::vbYesNoCancel, "Global Search for: " + answer);
        if (a == host::vbCancel) {
            show(shown);   // the operator stopped the search: nothing to tell him
            return;
        }
        if (a != host::vbYes) continue;
        int at = FindByRecord(p, n);
        if (at == 0) {
            show(shown);
            p.host.MsgBox("This name is not in the list on the screen." + nl +
                          "Click the 'All Names' button to show all names, then search again.");
            return;
        }
        show(at);
        return;
    }
    show(shown);
    if (p.RecordCount > 0) p.host.MsgBox("Search item: " + answer + "- not found");
}

void AttendF::MoveToSDA_Click() {
    if (p.IndexCount <= 1) {
        p.host.MsgBox("You Cannot Delete the Last Record from the File.");
        return;
    }
    PlaySound(p, "carbrake");
    const std::string& nl = p.CrLf;
    int a = p.host.MsgBox("This Will Remove the information for," + nl + RNum.Text() + "  " + FName.Text() + " " +
                              LName.Text() + nl + Address.Text() + nl + "and add it to the SDA members File." + nl +
                              "  Are you sure you want to Remove this Entry?",
                          host::vbYesNo | host::vbCritical, "Remove SDA Names");
    if (a != host::vbYes) {
        SearchBox.SetFocus();
        return;
    }
    const std::string team = WorkerCode.Text();
    WorkerCode.SetText("##");
    if (!SaveRecord()) {
        WorkerCode.SetText(team);
        return;
    }
    AddMember(p, MemberLine(RNum.Text(), LName.Text(), FName.Text()));
    DropCurrentEntry(p);
    if (FetchCurrentRecord(p)) ShowRecord();
    RefreshCaption();
    SearchBox.SetFocus();
}

void AttendF::EnterPrayerFromAttend() {
    EnterPrayer(p, RNum.Text(), FName.Text(), LName.Text());
    SearchBox.SetFocus();
}

void AttendF::Class_MouseUp(int, int, float, float) {
    p.Appointment().ShowFor(Visits, Class, Trim(FName.Text()) + " " + Trim(LName.Text()), classAtPress_);
}

void AttendF::IntLevel_Change() {
    if (!showing_) IntLevelChange(p, IntLevel);
}

void AttendF::Baptized_Click() {
    if (showing_) return;
    if (Baptized.Value() == vbChecked) {
        IntLevel.SetText("G");
        if (Val(BaptDate.Text()) == 0) BaptDate.SetText(FormatDate(p.host.Now(), "mm/dd/yy"));
    } else if (Trim(IntLevel.Text()) == "G") {
        p.host.MsgBox("Please Enter the Correct Interest Level.");
        IntLevel.SetText("");
        IntLevel.SetFocus();
    }
}

void AttendF::Notes_KeyDown(int& KeyCode, int) { NotesKeyDown(p, Notes, KeyCode); }

void AttendF::Notes_MouseDown(int, int, float, float) {
    if (notesWarnedAt_ == p.RecordPos) return;
    notesWarnedAt_ = p.RecordPos;
    p.host.MsgBox("Use the 'Comments/ Prayer Request'  button for information the teams should see.",
                  host::vbExclamation, "Note Box Caution!");
}

void AttendF::BaptDate_KeyDown(int& KeyCode, int) {
    if (KeyCode == vbKeyA + ('P' - 'A')) {
        KeyCode = 0;
        // The key writes this fixed date, as on the edit screen.
        BaptDate.SetText("05/23/09");
        IntLevel.SetText("A");
        return;
    }
    if (KeyCode != 43 && KeyCode != 187 && KeyCode != 189) return;
    std::string next;
    const bool ok = StepDate(BaptDate.Text(), KeyCode == 189 ? -1 : 1, next);
    KeyCode = 0;
    if (ok) BaptDate.SetText(next);
    else PlaySound(p, "clunk");
}

void AttendF::BaptDate_DblClick() {
    BaptDate.SetText(FormatDate(p.host.Now(), "mm/dd/yy"));
    if (p.host.MsgBox("Has this interest already been baptized?", host::vbYesNo, "Enter Interest Level") == host::vbYes) {
        IntLevel.SetText("G");
        Baptized.SetValue(vbChecked);
    } else {
        IntLevel.SetText("A");
    }
}
