#include "attend/AttendFieldUpdate.h"

#include <algorithm>

#include "attend/AttendF.h"
#include "edit/EditForm.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Attendance.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {
const char* const DefaultDecision = "Click to show Decision Code Instead of Meeting Number";

std::string Forty(const std::string& s) { return vb::Left(s + std::string(40, '-'), 40); }
}  // namespace

AttendFieldUpdate::AttendFieldUpdate(Program& prog) : Form(prog.host, "AttendFieldUpdate"), p(prog) {
    SetCaption("Attendance Update");
    Move(0, 0, 6600, 5700);
    lblName.Move(210, 120, 4000, 300);
    lblName.SetFontBold(true);
    Attendance.Move(210, 480, 4560, 330);
    Attendance.FixedPitch = true;
    Attendance.SetFont("Courier New", 9);
    Attendance.Locked = true;
    lblAttend.Move(4860, 510, 600, 250);
    Attend.Move(5460, 510, 400, 250);
    lblLast.Move(4860, 780, 800, 250);
    Last.Move(5660, 780, 400, 250);
    Label16.Move(210, 870, 4200, 250);
    // Meetings 1 to 20 in one row and 21 to 40 in the next, 300 twips apart.
    for (int i = 0; i < 40; ++i) {
        const std::string n = CStr(i + 1);
        ATD[i].SetCaption(Right(n, 2));
        ATD[i].Move(210 + (i % 20) * 300, i < 20 ? 1140 : 1440, 285, 285);
        ATD[i].SetVisible(true);
        ATD[i].SetToolTipText("Meeting " + n);
    }
    fraDecision.Move(120, 1860, 6300, 2640);
    for (int i = 0; i <= 9; ++i) {
        optAtDe[i].SetContainer(&fraDecision);
        optAtDe[i].Move(120, 120 + i * 240, 4000, 240);
        optAtDe[i].SetVisible(true);
    }
    lblDecision.Move(210, 4560, 6000, 300);
    lblDecision.SetCaption(DefaultDecision);
    btnFill.Move(210, 4980, 900, 360);
    btnFill.SetToolTipText("Add all meetings up to the current meeting");
    btnClearAttend.Move(1200, 4980, 900, 360);
    btnClearAttend.SetToolTipText("Remove all meetings except the last meeting");
    ExitAttendUpdate.Move(3600, 4980, 1200, 360);
    CancelAttendUpdate.Move(4900, 4980, 1200, 360);

    ATD.Click = [this](int i) { ATD_Click(i); };
    optAtDe.MouseDown = [this](int i, int b, int s, float x, float y) { optAtDe_MouseDown(i, b, s, x, y); };
    optAtDe.MouseUp = [this](int i, int b, int s, float x, float y) { optAtDe_MouseUp(i, b, s, x, y); };
    optAtDe.Click = [this](int i) {
        if (clearing_) optAtDe[i].SetValue(false);
        clearing_ = false;
    };
    btnFill.Click = [this] { btnFill_Click(); };
    btnClearAttend.Click = [this] { btnClearAttend_Click(); };
    Attendance.Click = [this] { Attendance_Click(); };
    ExitAttendUpdate.Click = [this] { ExitAttendUpdate_Click(); };
    CancelAttendUpdate.Click = [this] { CancelAttendUpdate_Click(); };
}

void AttendFieldUpdate::Form_Load() {
    Caller = p.CallerForm == "attend" ? "attend" : "edit";
    optAtDe[0].SetCaption("no decision");
    for (int i = 1; i <= 9; ++i)
        optAtDe[i].SetCaption(p.DecisionCodes[i] + " (" + p.DecisionNames[i] + ")");
    for (int i = 0; i <= 9; ++i) optAtDe[i].SetValue(false);
    SelectedCode.clear();
    lblDecision.SetCaption(DefaultDecision);
    lblDecision.SetBackColor(vbButtonFace);
    if (Caller == "attend") {
        AttendF& a = p.Attend();
        lblName.SetCaption(Trim(a.FName.Text()) + " " + Trim(a.LName.Text()));
        WorkingText = Forty(RTrim(a.Attendance.Text()));
    } else {
        EditForm& e = p.Edit();
        lblName.SetCaption(Trim(e.FName.Text()) + " " + Trim(e.LName.Text()));
        WorkingText = Forty(RTrim(e.Attendance.Text()));
    }
    Attendance.SetText(WorkingText);
    ShowCounts();
}

void AttendFieldUpdate::Form_Activate() {
    PlaySound(p, "laser");
    ExitAttendUpdate.SetFocus();
}

void AttendFieldUpdate::Form_Unload(int&) { SelectedCode.clear(); }

void AttendFieldUpdate::ShowCounts() {
    std::string s = Attendance.Text();
    std::int16_t last = 0;
    std::int16_t total = CountAttendance(s, last);
    Attend.SetCaption(CStr(static_cast<long>(total)));
    Last.SetCaption(CStr(static_cast<long>(last)));
}

void AttendFieldUpdate::ATD_Click(int Index) {
    const int m = Index + 1;
    if (m > p.MeetingNumber) {
        p.host.MsgBox("The Meeting Number you have entered is greater than the Last Meeting Number." + p.CrLf +
                          "You can change the Last Meeting Number on the File Prefrences Menu.",
                      host::vbInformation, "Attendance Update");
        return;
    }
    std::string s = Forty(Attendance.Text());
    char& at = s[static_cast<std::size_t>(Index)];
    at = at == '-' ? (SelectedCode.empty() ? LastDigit(m) : SelectedCode[0]) : '-';
    std::int16_t last = 0;
    if (CountAttendance(s, last) == 0) {
        p.host.MsgBox("You must show at least one meeting attended.", host::vbCritical, "Attendance Update");
        return;
    }
    Attendance.SetText(s);
    ShowCounts();
    CancelAttendUpdate.SetFocus();
}

void AttendFieldUpdate::btnFill_Click() {
    if (p.host.MsgBox("Do you want to fill the attendance record up to the last meemting?",
                      host::vbYesNo | host::vbCritical, "Fill the Attendance Record ") != host::vbYes)
        return;
    std::string s = Forty(Attendance.Text());
    for (int m = 1; m <= p.MeetingNumber && m <= 40; ++m) s[static_cast<std::size_t>(m - 1)] = LastDigit(m);
    Attendance.SetText(s);
    ShowCounts();
}

void AttendFieldUpdate::btnClearAttend_Click() {
    if (p.MeetingNumber < 1) return;
    if (p.host.MsgBox("Do you want to erase the attendance record up to the last meemting?",
                      host::vbYesNo | host::vbCritical, "Fill the Attendance Record ") != host::vbYes)
        return;
    std::string s = Forty(Attendance.Text());
    const int top = std::min(p.MeetingNumber, 40);
    for (int m = 1; m < top; ++m) s[static_cast<std::size_t>(m - 1)] = '-';
    s[static_cast<std::size_t>(top - 1)] = LastDigit(top);
    Attendance.SetText(s);
    ShowCounts();
}

void AttendFieldUpdate::optAtDe_MouseDown(int Index, int, int, float, float) {
    OptionHeld = optAtDe[Index].Value() != 0;
    clearing_ = false;
}

void AttendFieldUpdate::optAtDe_MouseUp(int Index, int, int, float, float) {
    if (OptionHeld || Index == 0) {
        clearing_ = true;
        for (int i = 0; i <= 9; ++i) optAtDe[i].SetValue(false);
        SelectedCode.clear();
        lblDecision.SetCaption("Click to show Decision Code Instead of Number");
        lblDecision.SetBackColor(vbButtonFace);
    } else {
        optAtDe[Index].SetValue(true);
        SelectedCode = vb::Left(p.DecisionCodes[Index], 1);
        lblDecision.SetCaption("'" + SelectedCode + "' will show in Attendance Record Instead of Number");
        lblDecision.SetBackColor(HighlightColor);
    }
    OptionHeld = false;
    ExitAttendUpdate.SetFocus();
}

void AttendFieldUpdate::Attendance_Click() {
    p.host.MsgBox("You cannot edit the attendance record directly, you must use the buttons below for changing the attendance.");
    ExitAttendUpdate.SetFocus();
}

void AttendFieldUpdate::ExitAttendUpdate_Click() {
    std::string s = Attendance.Text();
    std::int16_t last = 0;
    std::int16_t total = CountAttendance(s, last);
    if (Caller == "attend") {
        AttendF& a = p.Attend();
        a.Attendance.SetText(s);
        a.Attended = CStr(static_cast<long>(total));
        a.LastAttended = last;
    } else {
        EditForm& e = p.Edit();
        p.MasterRec.Attendance = s;
        e.Attendance.SetText(s);
        e.Attend.SetText(CStr(static_cast<long>(total)));
        e.Last.SetText(CStr(static_cast<long>(last)));
    }
    Unload();
    p.CallerForm = "attendupdate";
}

void AttendFieldUpdate::CancelAttendUpdate_Click() {
    Unload();
    p.CallerForm = "attendupdate";
}
