// Add mode: the meeting box, the blank card, saving a card and leaving add mode;
// the save of every move, undo and copy.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/Lifecycle.h"
#include "store/Attendance.h"
#include "store/ListEntry.h"
#include "store/Meetings.h"
#include "store/Records.h"
#include "store/Sounds.h"
#include "store/WriteBack.h"

using namespace forms;
using namespace vb;

namespace {
// Text of a box into a fixed field; the width cuts what does not fit.
template <std::size_t N>
void Take(FixedText<N>& field, const Control& box) { field = box.Text(); }

std::int16_t ToInt16(const std::string& text, std::int16_t old) {
    double v = Val(text);
    if (v < -32768 || v > 32767) return old;   // an overflow leaves the old value
    return static_cast<std::int16_t>(v);
}
}  // namespace

std::string EditForm::DrawRNum() { return NextRNum(p); }

void EditForm::ScreenToRecord() {
    MasterRecord& r = p.MasterRec;
    Take(r.RNum, RNum);
    Take(r.FName, FName);
    Take(r.LName, LName);
    Take(r.Address, Address);
    Take(r.City, City);
    Take(r.State, State);
    Take(r.Zip, Zip);
    Take(r.Phone, Phone);
    Take(r.Age, Age);
    Take(r.Advertising, Advertising);
    Take(r.RelPref, RelPref);
    Take(r.IntLevel, IntLevel);
    Take(r.Visits, Visits);
    Take(r.WorkerCode, WorkerCode);
    Take(r.Attend, Attend);
    Take(r.Attendance, Attendance);
    // The export files are comma-separated and one line a person.
    std::string notes;
    for (char ch : Notes.Text())
        if (ch != ',') notes += ch == '\r' || ch == '\n' ? ' ' : ch;
    r.Notes = notes;
    r.Last = ToInt16(Last.Text(), r.Last);
    Take(r.Decisions, Decisions);
    Take(r.BaptDate, BaptDate);
    r.Class = static_cast<std::int16_t>(Class.Value());
    r.MailList = -1;
    r.MailList = static_cast<std::int16_t>(MailList.Value());
    Take(r.MapCode, MapCode);
    Take(r.BirthDate, BirthDate);
    r.MarkToVisit = chkMarkToVisit.Value() == vbChecked ? -1 : 0;
    Take(r.Email, txtEmail);
    // A box that still shows what the file holds keeps the file's bytes, so that a person
    // only looked at is never rewritten: older files hold -1 or 1 for a ticked box, a
    // "12:00AM" baptism date shows empty, and the notes of an imported file may hold a comma.
    // A new card has no file bytes; the person shown as add mode begins is still one read.
    const MasterRecord& u = p.UndoRec;
    if (p.AddMode && RNum.Text() != RTrim(u.RNum)) return;
    for (auto [field, stored] : {std::pair{&r.MailList, u.MailList}, std::pair{&r.Class, u.Class},
                                 std::pair{&r.MarkToVisit, u.MarkToVisit}})
        if ((*field != 0) == (stored != 0)) *field = stored;
    if (BaptDate.Text().empty() && Trim(u.BaptDate) == "12:00AM") r.BaptDate = u.BaptDate;
    if (Notes.Text() == RTrim(u.Notes)) r.Notes = u.Notes;
}

bool EditForm::SaveChanges() {
    if (LName.Text().empty()) LName.SetText("Unknown");
    if (RNum.Text().empty()) RNum.SetText(DrawRNum());
    if (RNum.Text().empty()) return false;   // no number could be given out; the card stays as typed
    ScreenToRecord();
    const MasterRecord& r = p.MasterRec;
    const MasterRecord& u = p.UndoRec;
    bool differs = r.FName != u.FName || r.LName != u.LName || r.RNum != u.RNum || r.Attendance != u.Attendance ||
                   r.Address != u.Address || r.City != u.City || r.State != u.State || r.Zip != u.Zip ||
                   r.Phone != u.Phone || r.MailList != u.MailList || r.WorkerCode != u.WorkerCode ||
                   r.Visits != u.Visits || r.IntLevel != u.IntLevel || r.MapCode != u.MapCode ||
                   r.Attend != u.Attend || r.Last != u.Last || r.Age != u.Age || r.Advertising != u.Advertising ||
                   r.RelPref != u.RelPref || r.Notes != u.Notes || r.Decisions != u.Decisions ||
                   r.Class != u.Class || r.BaptDate != u.BaptDate || r.IntFlag != u.IntFlag ||
                   r.BirthDate != u.BirthDate || r.MarkToVisit != u.MarkToVisit || r.Email != u.Email;
    // With nobody in the list there is no place to write the card to: the run ends, without a word.
    if (p.IndexCount == 0) p.End();
    bool inList = p.CurrentIndex >= 1 && p.CurrentIndex < static_cast<int>(p.SortIndex.size());
    if (differs || (inList && p.SortIndex[p.CurrentIndex] == "NotSavedYet")) {
        if (!WriteBack(p, "the card")) return false;
        p.LastUpdated = FormatDate(p.host.Now(), "mm/dd/yy");
        p.IsNewFile = false;
    }
    p.PreviousRec = p.MasterRec;
    p.Loaded = true;
    return true;
}

int EditForm::AskAddMeeting() {
    if (!p.Loaded) return 1;
    std::string answer;
    while (true) {
        answer = p.ImportMode ? std::string("1")
                              : p.host.InputBox("Enter the Meeting Number" + p.CrLf + p.CrLf +
                                                    "HELPFUL HINT- Remember the F2 Function key will automatically copy the information for that field from the previous record and F3 will copy the essential parts of the entire record.",
                                                "Add Names", CStr(p.MeetingNumber));
        if (!answer.empty()) break;
        if (p.RecordCount != 0) return 0;
    }
    return CheckMeetingEntry(p, answer, MeetingEntryFor::AddNames);
}

void EditForm::mnuAddRecords_Click() {
    const bool wasAdding = p.AddMode;
    p.AddMode = true;
    for (int i = 0; i <= 8; ++i) Dec[i].SetCaption(p.DecisionNames[i + 1]);
    // Backing out of the meeting box leaves add mode: the person still on screen would
    // otherwise meet the card's number rules, see his own number as a duplicate and be
    // saved under a new one.
    if (p.Loaded && !SaveChanges()) {
        p.AddMode = wasAdding;
        return;
    }
    int meeting = AskAddMeeting();
    if (meeting == 0) {
        p.AddMode = wasAdding;
        return;
    }
    AddMeeting = meeting;
    MtgNum.SetText(CStr(meeting));
    if (meeting > p.MeetingNumber) p.MeetingNumber = meeting;
    AddVisibility();
    lblNextFieldBtn.SetCaption("Total Records");
    AddNewRecord();
}

void EditForm::AddNewRecord() {
    Enable(mnuEditMode, true);
    Enable(mnuAddRecords, false);
    AddNameLabel.SetCaption("Add New Names");
    AddVisibility();
    for (Control* c : std::initializer_list<Control*>{&RNum, &FName, &LName, &Address, &City, &State, &Zip, &Phone,
                                                      &Age, &RelPref, &IntLevel, &Visits, &Notes, &BaptDate, &MapCode,
                                                      &BirthDate, &txtEmail})
        c->SetText("");
    Advertising.SetText(".......");
    WorkerCode.SetText("00");
    Decisions.SetText("---------");
    for (int i = 0; i <= 8; ++i) Dec[i].SetValue(vbUnchecked);
    Class.SetValue(vbUnchecked);
    MailList.SetValue(vbUnchecked);
    chkMarkToVisit.SetValue(vbUnchecked);
    p.MasterRec.Decisions = "---------";
    Attendance.SetText(FirstAttendance(AddMeeting));
    Attend.SetText("1");
    Last.SetText(CStr(AddMeeting));
    MailList.SetValue(vbChecked);
    OpenRNum = RNum.Text();
    RecordCounter.SetCaption(CStr(p.IndexCount + 1));
    SetCaption("Vestrel Add Name Screen: " + RTrim(p.CrusadeName) + " Crusade (Meeting # " +
               CStr(p.MeetingNumber) + ")");
    RNum.SetFocus();
}

void EditForm::AddSlot() {
    ++p.RecordCount;
    p.Loaded = true;
    p.RecordPos = p.RecordCount;
    ++p.IndexCount;
    p.CurrentIndex = p.IndexCount;
    p.SortIndex.resize(p.IndexCount + 1);
    p.SortIndex[p.IndexCount] = "-------" + RecordPointer(p.RecordCount);
    ++AddedCount;
}

namespace {
// Puts back what AddSlot took when the card could not be written.
void UndoSlot(ProgramState& p, int& addedCount) {
    --p.RecordCount;
    --p.IndexCount;
    p.SortIndex.resize(p.IndexCount + 1);
    p.CurrentIndex = p.IndexCount;
    --addedCount;
}
}  // namespace

bool EditForm::SaveTypedCard() {
    MasterRecord before = p.MasterRec;
    AddSlot();
    ClearRecord(p.MasterRec);
    p.MasterRec.Last = static_cast<std::int16_t>(AddMeeting);
    p.MasterRec.Attend = "1";
    p.MasterRec.MapCode = "xxxx";
    p.MasterRec.IntFlag = 0;
    if (SaveChanges()) return true;
    UndoSlot(p, AddedCount);
    p.MasterRec = before;
    return false;
}

void EditForm::btnSaveNew_Click() {
    if (SaveTypedCard()) AddNewRecord();
}

void EditForm::btnSaveExit_Click() {
    if (Trim(LName.Text()).empty() &&
        p.host.MsgBox("This record appears to be incomplete." + p.CrLf + "Are you sure you want to save it?",
                      host::vbYesNo, "Exit Add Mode") == host::vbNo) {
        btnCancelNew_Click();
        return;
    }
    if (SaveTypedCard()) mnuEditMode_Click();
}

void EditForm::btnCancelNew_Click() {
    if (p.RecordCount == 0) {
        p.host.MsgBox("You must save at least one record to exit the program.", host::vbCritical, "Exit Add mode");
        return;
    }
    if (p.ScratchText == "NoImports") {
        p.ScratchText.clear();
    } else {
        int a = p.host.MsgBox("You are exiting this record without saving it." + p.CrLf + "Is this what you want to do?",
                              host::vbYesNo | host::vbDefaultButton2, "Exit Add Mode");
        if (a == host::vbNo) {
            p.ScratchValue = "dontexit";
            return;
        }
    }
    if (p.IndexCount == 0) CloseCrusade(p);
    p.CurrentIndex = p.IndexCount;
    if (FetchCurrentRecord(p)) ShowRecord();
    SetupScreen("");
    mnuEditMode_Click();
}

void EditForm::CopyCurrentRecord() {
    if (p.host.MsgBox("This will copy the Current Record to a new record in the file.  You must supply a new Record Number.  Is this what you want to do?",
                      host::vbYesNo | host::vbQuestion) != host::vbYes)
        return;
    ++p.IndexCount;
    ++p.RecordCount;
    p.CurrentIndex = p.IndexCount;
    p.SortIndex.resize(p.IndexCount + 1);
    p.SortIndex[p.IndexCount] = "NotSavedYet";
    p.RecordPos = p.RecordCount;
    p.MasterRec = p.UndoRec;
    p.MasterRec.MailList = 0;
    p.MasterRec.FName = "";
    ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("");
    RNum.SetText(DrawRNum());
    FName.SetText("");
    Age.SetText("");
    MailList.SetValue(vbUnchecked);
    FName.SetFocus();
    if (!SaveChanges()) {
        // Nothing reached the file: the copy leaves the list again.
        --p.IndexCount;
        --p.RecordCount;
        p.SortIndex.resize(p.IndexCount + 1);
        p.CurrentIndex = p.IndexCount;
    }
}

void EditForm::mnuUndo_Click() {
    PlaySound(p, "carbrake");
    if (p.host.MsgBox("Undo will Erase all of the changes you have made to this record." + p.CrLf + p.CrLf +
                          "Are you sure this is what you want?",
                      host::vbYesNo, "Undo Record Changes") != host::vbYes)
        return;
    p.MasterRec = p.UndoRec;
    if (FetchCurrentRecord(p)) ShowRecord();
    OpenRNum = RNum.Text();
}

