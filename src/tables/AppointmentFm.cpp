#include "tables/AppointmentFm.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/State.h"

using namespace forms;
using namespace vb;

namespace {
constexpr int px = TwipsPerPixel;
const char* const Days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
const char* const Hours[] = {"8:00am", "9:00am", "10:00am", "11:00a", "12:00", "1:00pm", "2:00pm",
                             "3:00pm", "4:00pm", "5:00pm", "6:00pm", "7:00pm", "8:00pm", "9:00pm"};
const char* const HourChars = "abcd0123456789";

int Selected(const ControlArray<OptionButton>& a, int count) {
    for (int i = 0; i < count; ++i)
        if (a[i].Value()) return i;
    return -1;
}
}  // namespace

AppointmentFm::AppointmentFm(ProgramState& prog) : Form(prog.host, "AppointmentFm"), p(prog) {
    SetCaption("Set Appointment Date and Time");
    Move(0, 0, 400 * px, 330 * px);
    lblAptName.Move(10 * px, 8 * px, 370 * px, 18 * px);
    lblAptName.SetFontBold(true);
    Frame1.Move(10 * px, 30 * px, 110 * px, 200 * px);
    for (int i = 0; i < 7; ++i) {
        optAptDay[i].SetContainer(&Frame1);
        optAptDay[i].Move(8 * px, (18 + i * 25) * px, 95 * px, 22 * px);
        optAptDay[i].SetCaption(Days[i]);
        optAptDay[i].SetVisible(true);
    }
    Frame2.Move(130 * px, 30 * px, 250 * px, 200 * px);
    for (int i = 0; i < 14; ++i) {
        optAptTime[i].SetContainer(&Frame2);
        optAptTime[i].Move((8 + (i / 7) * 120) * px, (18 + (i % 7) * 25) * px, 110 * px, 22 * px);
        optAptTime[i].SetCaption(Hours[i]);
        optAptTime[i].SetVisible(true);
    }
    btnUnspecified.Move(10 * px, 236 * px, 120 * px, 22 * px);
    btnUnspecified.SetToolTipText("An appointment agreed without a fixed day and time");
    lblApt.Move(140 * px, 238 * px, 240 * px, 18 * px);
    btnSave.Move(10 * px, 268 * px, 110 * px, 30 * px);
    btnSave.SetToolTipText("Save this appointment");
    btnClear.Move(140 * px, 268 * px, 110 * px, 30 * px);
    btnClear.SetToolTipText("Erase the appointment from this record");
    btnCancelApt.Move(270 * px, 268 * px, 110 * px, 30 * px);
    btnCancelApt.SetToolTipText("Close this form without making any changes");

    optAptDay.MouseUp = [this](int i, int b, int s, float x, float y) { optAptDay_MouseUp(i, b, s, x, y); };
    optAptTime.MouseUp = [this](int i, int b, int s, float x, float y) { optAptTime_MouseUp(i, b, s, x, y); };
    btnUnspecified.Click = [this] { ShowChoice(); };
    // A click may come after the mouse-up on the desktop: the label follows the option either way.
    optAptDay.Click = [this](int) { ShowChoice(); };
    optAptTime.Click = [this](int) { ShowChoice(); };
    btnSave.Click = [this] { btnSave_Click(); };
    btnClear.Click = [this] { btnClear_Click(); };
    btnCancelApt.Click = [this] { btnCancelApt_Click(); };
}

void AppointmentFm::ShowFor(Control& visits, Control& cls, const std::string& name, int classBefore) {
    visits_ = &visits;
    class_ = &cls;
    classBefore_ = classBefore;
    saved_ = false;
    WorkingVisits = RTrim(visits.Text());
    lblAptName.SetCaption(name);
    for (int i = 0; i < 7; ++i) optAptDay[i].SetValue(false);
    for (int i = 0; i < 14; ++i) optAptTime[i].SetValue(false);
    btnUnspecified.SetValue(vbUnchecked);
    long at = InStr(WorkingVisits, "A");
    if (at > 0) {
        const std::string code = Mid(WorkingVisits, at, 3);
        if (code == UnspecifiedAppointment) {
            btnUnspecified.SetValue(vbChecked);
        } else {
            int day = static_cast<int>(Val(Mid(code, 2, 1))) - 1;
            if (day >= 0 && day < 7) optAptDay[day].SetValue(true);
            const std::string hour = Mid(code, 3, 1);
            long h = hour.empty() ? 0 : InStr(HourChars, hour);
            if (h > 0) optAptTime[static_cast<int>(h - 1)].SetValue(true);
        }
    }
    ShowChoice();
    Show(true);
    // Cancel, or the window closed: nothing changes, the box included.
    if (!saved_ && class_ && classBefore_ >= 0) class_->SetValue(classBefore_);
}

std::string AppointmentFm::Code() const {
    if (btnUnspecified.Value() == vbChecked) return UnspecifiedAppointment;
    int day = Selected(optAptDay, 7), hour = Selected(optAptTime, 14);
    if (day < 0 && hour < 0) return "";
    if (day < 0 || hour < 0) return "?";
    return "A" + CStr(day + 1) + std::string(1, HourChars[hour]);
}

void AppointmentFm::ShowChoice() {
    if (btnUnspecified.Value() == vbChecked) {
        lblApt.SetCaption("Unspecified: no fixed day or time");
        return;
    }
    int day = Selected(optAptDay, 7), hour = Selected(optAptTime, 14);
    lblApt.SetCaption(std::string(day < 0 ? "No Date Set" : Days[day]) + ": " + (hour < 0 ? "No Time Set" : Hours[hour]));
}

void AppointmentFm::optAptDay_MouseUp(int, int, int, float, float) {
    btnUnspecified.SetValue(vbUnchecked);
    ShowChoice();
}

void AppointmentFm::optAptTime_MouseUp(int, int, int, float, float) {
    btnUnspecified.SetValue(vbUnchecked);
    ShowChoice();
}

void AppointmentFm::btnSave_Click() {
    const std::string code = Code();
    if (code == "?") {
        p.host.MsgBox("Choose both a day and a time for the appointment," + p.CrLf +
                          "or tick 'Unspecified' when no time has been fixed.",
                      host::vbExclamation, "Set Appointment Date and Time");
        return;
    }
    p.CallerForm = "Appointment";
    long at = InStr(WorkingVisits, "A");
    if (at > 0) WorkingVisits = vb::Left(WorkingVisits, at - 1) + code + Mid(WorkingVisits, at + 3);
    else WorkingVisits += code;
    // Visits holds 12 characters: the oldest visit falls off, as when a visit is keyed.
    if (WorkingVisits.size() > 12) WorkingVisits = Right(WorkingVisits, 12);
    if (class_) class_->SetValue(code.empty() ? vbUnchecked : vbChecked);
    if (visits_) visits_->SetText(WorkingVisits);
    saved_ = true;
    Unload();
}

void AppointmentFm::btnClear_Click() {
    long at = InStr(WorkingVisits, "A");
    if (at == 0) return;
    if (p.host.MsgBox(std::string("You are about to erase this Appointment ") + " that has been scheduled." + p.CrLf +
                          "Is that what you want to do?",
                      host::vbYesNo | host::vbQuestion, "Erase Appointment") != host::vbYes)
        return;
    WorkingVisits = vb::Left(WorkingVisits, at - 1) + Mid(WorkingVisits, at + 3);
    for (int i = 0; i < 7; ++i) optAptDay[i].SetValue(false);
    for (int i = 0; i < 14; ++i) optAptTime[i].SetValue(false);
    btnUnspecified.SetValue(vbUnchecked);
    ShowChoice();
}

void AppointmentFm::btnCancelApt_Click() {
    p.CallerForm = "Appointment";
    Unload();
}
