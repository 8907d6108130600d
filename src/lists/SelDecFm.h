#pragma once
// Asks which decision a list or report is about.
#include "platform/forms/Form.h"

struct ProgramState;

class SelDecFm : public forms::Form {
public:
    explicit SelDecFm(ProgramState& p);

    void Form_Load() override;
    void Dec_Click(int Index);
    void OKBut_Click();
    void CancelBut_Click();

    ProgramState& p;
    int Chosen = 0;   // the decision taken by OK; 0 after Cancel
    forms::Frame Frame1{*this, "Frame1"};
    forms::ControlArray<forms::OptionButton> Dec{*this, "Dec", 10, std::string()};
    forms::CommandButton OKBut{*this, "OKBut", "OK"};
    forms::CommandButton CancelBut{*this, "CancelBut", "Cancel"};

private:
    int index_ = 0;
};
