#pragma once
// Asks for the interest level of one person; the reports open it.
#include "platform/forms/Form.h"

struct ProgramState;

class SelIntFm : public forms::Form {
public:
    explicit SelIntFm(ProgramState& p);

    void Form_Load() override;
    void Form_KeyPress(int& KeyAscii) override;
    void btnInt_Click(int Index);
    void OKBut_Click();
    void CancelBut_Click();

    ProgramState& p;
    forms::Label lblName{*this, "lblName"};
    forms::ControlArray<forms::CommandButton> btnInt{*this, "btnInt", 8, std::string()};
    forms::CommandButton OKBut{*this, "OKBut", "Clear Int"};
    forms::CommandButton CancelBut{*this, "CancelBut", "Cancel"};

private:
    void Choose(const std::string& level);
};
