// The door screen's layout, its life as a form, and showing and saving a person.
#include "attend/AttendF.h"

#include "edit/EditForm.h"
#include "store/FieldRules.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/WriteBack.h"
#include "store/Records.h"

using namespace forms;
using namespace vb;

const char* const AttendF::DefaultDecInAtt =
    "Select a circular button to enter the decision into the Attendance Record. For Example: 12-4C-7---";

namespace {
constexpr int px = TwipsPerPixel;

template <std::size_t N>
void Put(Control& box, const FixedText<N>& field) { box.SetText(RTrim(field)); }
}  // namespace

AttendF::AttendF(Program& prog) : Form(prog.host, "AttendF"), p(prog) {
    Layout();
    Wire();
}

void AttendF::Layout() {
    SetCaption("Attendance Update");
    Move(0, 0, 790 * px, 560 * px);

    Place(lblSearch, 10, 8, 230, 16);
    Place(SearchBox, 10, 26, 210, 28);
    SearchBox.SetFont("MS Sans Serif", 12);
    SearchBox.SetFontBold(true);
    Place(lblMtgNum, 236, 8, 100, 16);
    Place(MtgNum, 236, 26, 44, 28);
    MtgNum.SetFont("MS Sans Serif", 12);
    Place(btnVscrollUp, 282, 26, 22, 14);
    Place(btnVScrollDn, 282, 40, 22, 14);
    btnVscrollUp.SetToolTipText("Next meeting");
    btnVScrollDn.SetToolTipText("Previous meeting");
    Place(fraVid, 316, 4, 150, 50);
    const char* vid[] = {"Live", "Video"};
    for (int i = 0; i <= 1; ++i) {
        Place(optVid[i], 8 + i * 70, 20, 66, 20, &fraVid);
        optVid[i].SetCaption(vid[i]);
        optVid[i].SetVisible(true);
        optVid[i].SetToolTipText(
            "When Video is selected a 'V' will appear in the attendance record in place of the night number.");
    }
    Place(EntInd, 476, 26, 44, 28);
    EntInd.SetFont("MS Sans Serif", 12);
    EntInd.SetFontBold(true);
    EntInd.SetForeColor(vbRed);
    EntInd.Locked = true;
    Place(SDAIdent, 526, 26, 254, 28);
    SDAIdent.Locked = true;
    // Display only: the keyboard never stops there.
    SDAIdent.SetTabStop(false);
    EntInd.SetTabStop(false);
    Place(RecordCounter, 10, 62, 160, 16);

    auto field = [](Label& l, Control& box, int x, int y, int w) {
        Place(l, x, y, w, 15);
        Place(box, x, y + 15, w, 22);
    };
    field(lblRNum, RNum, 10, 84, 56);
    field(lblFName, FName, 74, 84, 150);
    field(lblLName, LName, 232, 84, 170);
    field(lblPhone, Phone, 410, 84, 110);
    field(lblEmail, txtEmail, 528, 84, 252);
    field(lblAddress, Address, 10, 128, 250);
    field(lblCity, City, 268, 128, 150);
    field(lblState, State, 426, 128, 40);
    field(lblZip, Zip, 474, 128, 90);
    field(lblIntLevel, IntLevel, 10, 172, 50);
    field(lblVisits, Visits, 68, 172, 110);
    field(lblWorkerCode, WorkerCode, 186, 172, 50);
    field(lblBirthDate, BirthDate, 244, 172, 80);
    field(lblBaptDate, BaptDate, 332, 172, 80);
    Place(Baptized, 420, 188, 90, 20);
    Place(Class, 520, 188, 90, 20);
    Place(lblAttendance, 10, 218, 340, 15);
    Place(Attendance, 10, 233, 340, 22);
    Attendance.FixedPitch = true;
    Attendance.SetFont("Courier New", 9);
    Attendance.Locked = true;
    Place(lblNotes, 370, 218, 410, 15);
    Place(Notes, 370, 233, 410, 44);
    Notes.MultiLine = true;

    Place(Frame1, 10, 286, 350, 96);
    for (int i = 0; i <= 8; ++i) {
        Place(Dec[i], 8 + (i % 3) * 114, 18 + (i / 3) * 24, 110, 22, &Frame1);
        Dec[i].SetVisible(true);
    }
    Place(fraED, 370, 286, 410, 118);
    Place(Label13, 8, 12, 150, 16, &fraED);
    Place(Label15, 160, 12, 120, 16, &fraED);
    Place(Label16, 280, 12, 126, 16, &fraED);
    for (int i = 0; i <= 8; ++i) {
        int x = 8 + (i % 3) * 134, y = 34 + (i / 3) * 26;
        Place(DecA[i], x, y, 18, 20, &fraED);
        DecA[i].SetVisible(true);
        DecA[i].SetToolTipText("If DecAtt = \"NO\" Then Exit Sub");
        Place(ED[i], x + 20, y, 110, 20, &fraED);
        ED[i].SetVisible(true);
    }
    Place(lblDecInAtt, 10, 388, 350, 44);
    lblDecInAtt.SetCaption(DefaultDecInAtt);
    lblDecInAtt.SetBackColor(0xC0C0C0);
    Place(lblDecInstruct, 370, 410, 410, 30);
    lblDecInstruct.SetCaption(
        "All squares checked above will automatically be updated to the Decisions Made Box on the Interest Card ");

    Place(FirstRecordButton, 10, 450, 40, 30);
    Place(PreviousRecord, 54, 450, 40, 30);
    Place(NextRecord_Button, 98, 450, 40, 30);
    Place(LastRecordButton, 142, 450, 40, 30);
    FirstRecordButton.SetToolTipText("First name in the list");
    PreviousRecord.SetToolTipText("Previous name");
    NextRecord_Button.SetToolTipText("Next name");
    LastRecordButton.SetToolTipText("Last name in the list");
    Place(Undo, 200, 450, 120, 30);
    Undo.SetToolTipText("Undo the attendance of this person for the meeting shown");
    Place(MoveToSDA, 326, 450, 140, 30);
    Place(btnGlobal, 472, 450, 110, 30);
    Place(btnPrayerRequest, 588, 450, 192, 30);
    Place(Exit, 630, 490, 150, 30);
    Exit.SetToolTipText("Close the attendance screen [Esc]");
}

void AttendF::Wire() {
    SearchBox.KeyDown = [this](int& k, int s) { SearchBox_KeyDown(k, s); };
    MtgNum.KeyPress = [this](int& k) { MtgNum_KeyPress(k); };
    MtgNum.LostFocus = [this] { MtgNum_LostFocus(); };
    btnVscrollUp.Click = [this] { btnVscrollUp_Click(); };
    btnVScrollDn.Click = [this] { btnVScrollDn_Click(); };
    DecA.MouseDown = [this](int i, int b, int s, float x, float y) { DecA_MouseDown(i, b, s, x, y); };
    DecA.Click = [this](int i) { DecA_Click(i); };
    Dec.Click = [this](int i) { Dec_Click(i); };
    Undo.Click = [this] { Undo_Click(); };
    FirstRecordButton.Click = [this] { FirstRecordButton_Click(); };
    PreviousRecord.Click = [this] { PreviousRecord_Click(); };
    NextRecord_Button.Click = [this] { NextRecord_Button_Click(); };
    LastRecordButton.Click = [this] { LastRecordButton_Click(); };
    RNum.GotFocus = [this] { RNum_GotFocus(); };
    RNum.LostFocus = [this] { RNum_LostFocus(); };
    Attendance.Click = [this] { Attendance_Click(); };
    btnGlobal.Click = [this] { btnGlobal_Click(); };
    MoveToSDA.Click = [this] { MoveToSDA_Click(); };
    btnPrayerRequest.Click = [this] { EnterPrayerFromAttend(); };
    mnuAtPrayerReq.Click = [this] { EnterPrayerFromAttend(); };
    Exit.Click = [this] { Exit_Click(); };
    IntLevel.Change = [this] { IntLevel_Change(); };
    Baptized.Click = [this] { Baptized_Click(); };
    Notes.KeyDown = [this](int& k, int s) { Notes_KeyDown(k, s); };
    Notes.MouseDown = [this](int b, int s, float x, float y) { Notes_MouseDown(b, s, x, y); };
    Class.MouseUp = [this](int b, int s, float x, float y) { Class_MouseUp(b, s, x, y); };
    BaptDate.KeyDown = [this](int& k, int s) { BaptDate_KeyDown(k, s); };
    BaptDate.DblClick = [this] { BaptDate_DblClick(); };
    BaptDate.LostFocus = [this] { BaptDate.SetText(PadDate(BaptDate.Text())); };
    // The press comes before the box turns: what it showed is what a Cancel puts back.
    Class.MouseDown = [this](int, int, float, float) { classAtPress_ = Class.Value(); };
    // A warning colour lasts until the box is left.
    Phone.LostFocus = [this] {
        Phone.SetForeColor(vbWindowText);
        Phone.SetBackColor(vbWhite);
        Phone.SetFontBold(false);
    };
    Address.LostFocus = [this] {
        Address.SetForeColor(vbWindowText);
        Address.SetFontBold(false);
    };
    // Kept as it stands: the box is for display only.
    SDAIdent.GotFocus = [this] { MtgNum.SetText("7"); };
    EntInd.GotFocus = [this] { SearchBox.SetFocus(); };
}

void AttendF::Form_Load() {
    EntryMeeting = static_cast<int>(Val(p.ScratchValue));
    p.ScratchValue.clear();
    // Just opened: no dialog of this screen is coming back, and no search of it left a word.
    if (p.CallerForm == "attendupdate" || p.CallerForm == "Appointment") p.CallerForm.clear();
    if (p.ScratchText == "NotFound") p.ScratchText.clear();
    if (p.MeetingNumber == 0) p.MeetingNumber = 1;
    SavedMeetingNumber = p.MeetingNumber;
    if (EntryMeeting > p.MeetingNumber) p.MeetingNumber = EntryMeeting;
    MtgNum.SetText(CStr(EntryMeeting));
    goodMeeting_ = EntryMeeting;
    PendingDecision = "-";
    EnteredCount = 0;
}

void AttendF::Form_Activate() {
    if (p.CallerForm != "attendupdate" && p.CallerForm != "Appointment") {
        if (FetchCurrentRecord(p)) ShowRecord();
    }
    p.CallerForm = "attend";
    RecordCounter.SetCaption(CStr(p.CurrentIndex) + " of " + CStr(p.IndexCount));
    optVid[0].SetValue(true);
    for (int i = 0; i <= 8; ++i) {
        ED[i].SetCaption(p.DecisionNames[i + 1]);
        Dec[i].SetCaption(p.DecisionNames[i + 1]);
    }
    SearchBox.SetFocus();
}

void AttendF::Form_Deactivate() {
    p.CallerForm = "attend";
    SaveRecord();
}

void AttendF::Exit_Click() {
    if (!SaveRecord()) return;   // the person stays on screen until the disk takes him
    ClearPendingDecision();
    Unload();
    p.CallerForm = "attend";
}

void AttendF::Form_Unload(int& Cancel) {
    // Closed from its window's title bar too: the person on screen is not lost.
    if (!SaveRecord()) {
        Cancel = 1;
        return;
    }
    if (p.MeetingNumber < SavedMeetingNumber) p.MeetingNumber = SavedMeetingNumber;
    PendingDecision = "-";
    p.Edit().Show();
}

void AttendF::RefreshCaption() {
    SetCaption(EnteredCount != 0 ? "Attendance: " + CStr(EnteredCount) : std::string("Attendance Update"));
    RecordCounter.SetCaption(CStr(p.CurrentIndex) + " of " + CStr(p.IndexCount));
}

void AttendF::ShowRecord() {
    const MasterRecord& r = p.MasterRec;
    showing_ = true;
    Put(RNum, r.RNum);
    Put(FName, r.FName);
    Put(LName, r.LName);
    Put(Address, r.Address);
    std::string addr = RTrim(r.Address);
    bool badAddress = InStr(addr, "PO ") > 0 || addr == "Address Unknown";
    Address.SetForeColor(badAddress ? vbRed : vbWindowText);
    Address.SetFontBold(badAddress);
    Put(City, r.City);
    Put(State, r.State);
    Put(Zip, r.Zip);
    Put(Phone, r.Phone);
    // The word quiets only the showing it was left for.
    const bool quiet = p.ScratchText == "NotFound";
    if (quiet) p.ScratchText.clear();
    if (!quiet) {
        if (RTrim(r.Phone) == "Unknown") {
            // Ask the person for a number while he is still at the table.
            Phone.SetForeColor(vbWhite);
            Phone.SetBackColor(vbRed);
            Phone.SetFontBold(true);
            if (p.SoundOn) p.host.PlayWave(p.AppPath + "/ring.wav");
        } else {
            Phone.SetForeColor(vbWindowText);
            Phone.SetBackColor(vbWhite);
            Phone.SetFontBold(false);
        }
    }
    Put(txtEmail, r.Email);
    Put(IntLevel, r.IntLevel);
    Baptized.SetValue(RTrim(r.IntLevel) == "G" ? vbChecked : vbUnchecked);
    Put(Visits, r.Visits);
    Put(WorkerCode, r.WorkerCode);
    Put(BirthDate, r.BirthDate);
    std::string bapt = Trim(r.BaptDate);
    BaptDate.SetText(bapt == "12:00AM" ? std::string() : bapt);
    Class.SetValue(r.Class ? vbChecked : vbUnchecked);
    Put(Notes, r.Notes);
    Put(Attendance, r.Attendance);
    Attended = RTrim(r.Attend);
    LastAttended = r.Last;
    DecisionText = vb::Left(r.Decisions.str() + "---------", 9);
    for (int i = 0; i <= 8; ++i) Dec[i].SetValue(DecisionText[i] != '-' ? vbChecked : vbUnchecked);
    showing_ = false;
    openRNum_ = RNum.Text();
    notesWarnedAt_ = -1;
    p.UndoRec = p.MasterRec;
}

bool AttendF::SaveRecord() {
    if (p.IndexCount == 0 || p.RecordPos < 1) return true;
    MasterRecord& r = p.MasterRec;
    r.RNum = RNum.Text();
    r.FName = FName.Text();
    r.LName = LName.Text();
    r.Address = Address.Text();
    r.City = City.Text();
    r.State = State.Text();
    r.Zip = Zip.Text();
    r.Phone = Phone.Text();
    r.Email = txtEmail.Text();
    r.IntLevel = IntLevel.Text();
    r.Visits = Visits.Text();
    r.WorkerCode = WorkerCode.Text();
    r.BirthDate = BirthDate.Text();
    r.BaptDate = BaptDate.Text();
    r.Class = static_cast<std::int16_t>(Class.Value());
    // The export files are comma-separated and one line a person.
    std::string notes;
    for (char ch : Notes.Text())
        if (ch != ',') notes += ch == '\r' || ch == '\n' ? ' ' : ch;
    r.Notes = notes;
    r.Attendance = Attendance.Text();
    r.Attend = Attended;
    r.Last = static_cast<std::int16_t>(LastAttended);
    r.Decisions = DecisionText;
    if (!WriteBack(p, "the person")) return false;
    p.UndoRec = r;
    RefreshCaption();
    return true;
}
