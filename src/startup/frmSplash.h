#pragma once
// The first screen: which crusade, and the way in.
#include "platform/forms/Form.h"

struct Program;

class frmSplash : public forms::Form {
public:
    explicit frmSplash(Program& p);

    void Form_Load() override;
    void Form_KeyPress(int& KeyAscii) override;
    void Form_Click() override;
    void btnLastCrusade_Click();
    void btSelect_Click();
    void btnExitVestrel_Click();
    // No crusade to open from here: only New or Select and Exit are left.
    void ShowNoCrusade();

    Program& p;
    forms::PictureBox picLogo{*this, "picLogo"};
    forms::Label lblProductName{*this, "lblProductName"};
    forms::Label lblVersion{*this, "lblVersion"};
    forms::Label lblPlatform{*this, "lblPlatform"};
    forms::Label lblCredit1{*this, "lblCredit1"};
    forms::Label lblCredit2{*this, "lblCredit2"};
    forms::Label lblLastCrusade{*this, "lblLastCrusade", "Last crusade used:"};
    forms::Label lblLastCrusadeName{*this, "lblLastCrusadeName"};
    forms::CommandButton btnLastCrusade{*this, "btnLastCrusade", "&Open Last Crusade"};
    forms::CommandButton btSelect{*this, "btSelect", "&New or Select Crusade"};
    forms::CommandButton btnExitVestrel{*this, "btnExitVestrel", "E&xit Vestrel"};
};
