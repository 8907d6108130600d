#pragma once
// The viewer of the two statistics reports: the statistical report, or the
// visitation report after btnSwitchStats, drawn again each time it comes up.
#include <cstdint>
#include <string>

#include "platform/forms/Form.h"

struct ProgramState;

class BlankFrm : public forms::Form {
public:
    explicit BlankFrm(ProgramState& p);

    void Form_Load() override;
    void Form_Activate() override;
    void Form_GotFocus() override;
    void btnSwitchStats_Click();
    void PrintStatsBut_Click();
    void CloseStatsBut_Click();

    // PrintFlag 0 fills the screen, otherwise the report is printed; Mode "fix me"
    // writes the data file instead. False when the data file could not be written.
    bool Stats(std::int16_t PrintFlag, const std::string& Mode = "");
    void TeamStats(std::int16_t PrintFlag);
    bool ShowingStats() const { return showingStats_; }
    // Which report the form shows, with the captions that go with it; drawn at the next Activate.
    void SetReport(bool stats);

    ProgramState& p;
    forms::TextBox txtReport{*this, "txtReport"};
    forms::CommandButton btnSwitchStats{*this, "btnSwitchStats", "Visitation Stats"};
    forms::CommandButton PrintStatsBut{*this, "PrintStatsBut", "Print"};
    forms::CommandButton CloseStatsBut{*this, "CloseStatsBut", "Close"};

private:
    bool showingStats_ = true;
};
