#pragma once
// Sets the one appointment of a person's Visits by clicks: "A", the day, the hour.
#include <string>

#include "platform/forms/Form.h"

struct ProgramState;

// An appointment agreed without a day or an hour. Its digits read as meeting 0,
// so no visit report counts it as a visit after a meeting.
inline constexpr const char* UnspecifiedAppointment = "A00";

class AppointmentFm : public forms::Form {
public:
    explicit AppointmentFm(ProgramState& p);

    // Opens modally over the screen whose Visits and Class boxes are given. The click that
    // opened it has already turned the Class box; classBefore is its value before that click,
    // put back when the dialog closes without a Save.
    void ShowFor(forms::Control& visits, forms::Control& cls, const std::string& name, int classBefore);
    // The three characters the options make; empty when nothing is chosen, "?" when only one side is.
    std::string Code() const;

    void optAptDay_MouseUp(int Index, int Button, int Shift, float X, float Y);
    void optAptTime_MouseUp(int Index, int Button, int Shift, float X, float Y);
    void btnSave_Click();
    void btnClear_Click();
    void btnCancelApt_Click();

    ProgramState& p;
    std::string WorkingVisits;

    forms::Label lblAptName{*this, "lblAptName"};
    forms::Label lblApt{*this, "lblApt"};
    forms::Frame Frame1{*this, "Frame1", "Day"};
    forms::ControlArray<forms::OptionButton> optAptDay{*this, "optAptDay", 7, std::string()};
    forms::Frame Frame2{*this, "Frame2", "Time"};
    forms::ControlArray<forms::OptionButton> optAptTime{*this, "optAptTime", 14, std::string()};
    forms::CheckBox btnUnspecified{*this, "btnUnspecified", "Unspecified"};
    forms::CommandButton btnSave{*this, "btnSave", "Save"};
    forms::CommandButton btnClear{*this, "btnClear", "Clear Appt."};
    forms::CommandButton btnCancelApt{*this, "btnCancelApt", "Cancel"};

private:
    void ShowChoice();
    forms::Control* visits_ = nullptr;
    forms::Control* class_ = nullptr;
    int classBefore_ = -1;
    bool saved_ = false;
};
