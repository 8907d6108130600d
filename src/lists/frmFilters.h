#pragma once
// The special attendance filter: total meetings attended and the cut-off.
#include "platform/forms/Form.h"

struct ProgramState;

class frmFilters : public forms::Form {
public:
    explicit frmFilters(ProgramState& p);

    void Form_Load() override;
    void txtTotalAttend_Change();
    void btnSave_Click();
    void btnCancel_Click();

    ProgramState& p;
    forms::Label lblHeading{*this, "lblHeading", "Special Attendance Filters"};
    forms::Label lblTotalAttend{*this, "lblTotalAttend", "Total Attendance"};
    forms::TextBox txtTotalAttend{*this, "txtTotalAttend"};
    forms::Label lblLastMtgCutoff{*this, "lblLastMtgCutoff", "Last Meeting Cut Off"};
    forms::TextBox txtLastMtgCutoff{*this, "txtLastMtgCutoff"};
    forms::ControlArray<forms::OptionButton> optTotal{*this, "optTotal", 2, std::string()};
    forms::CommandButton btnSave{*this, "btnSave", "Save"};
    forms::CommandButton btnCancel{*this, "btnCancel", "Cancel"};
};
