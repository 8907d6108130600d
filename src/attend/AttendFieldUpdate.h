#pragma once
// Corrects one person's whole attendance by clicking meeting numbers; the
// string itself cannot be typed in.
#include <string>

#include "platform/forms/Form.h"

struct Program;

class AttendFieldUpdate : public forms::Form {
public:
    explicit AttendFieldUpdate(Program& p);

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(int& Cancel) override;

    void ATD_Click(int Index);
    void optAtDe_MouseDown(int Index, int Button, int Shift, float X, float Y);
    void optAtDe_MouseUp(int Index, int Button, int Shift, float X, float Y);
    void btnFill_Click();
    void btnClearAttend_Click();
    void Attendance_Click();
    void ExitAttendUpdate_Click();
    void CancelAttendUpdate_Click();

    Program& p;
    std::string WorkingText;
    std::string SelectedCode;
    bool OptionHeld = false;
    bool clearing_ = false;   // the mouse-up turned the options off
    std::string Caller;   // "edit" or "attend", as it stood when the dialog opened

    forms::Label lblName{*this, "lblName"};
    forms::TextBox Attendance{*this, "Attendance"};
    forms::Label lblAttend{*this, "lblAttend", "Total:"};
    forms::Label Attend{*this, "Attend"};
    forms::Label lblLast{*this, "lblLast", "Last Mtg:"};
    forms::Label Last{*this, "Last"};
    forms::Label Label16{*this, "Label16", "Click the meeting number to Update or to Delete."};
    forms::ControlArray<forms::CommandButton> ATD{*this, "ATD", 40, std::string()};
    forms::Frame fraDecision{*this, "fraDecision"};
    forms::ControlArray<forms::OptionButton> optAtDe{*this, "optAtDe", 10, std::string()};
    forms::Label lblDecision{*this, "lblDecision"};
    forms::CommandButton btnClearAttend{*this, "btnClearAttend", "Clear"};
    forms::CommandButton btnFill{*this, "btnFill", "Fill"};
    forms::CommandButton ExitAttendUpdate{*this, "ExitAttendUpdate", "Save"};
    forms::CommandButton CancelAttendUpdate{*this, "CancelAttendUpdate", "Cancel"};

private:
    void ShowCounts();
};
