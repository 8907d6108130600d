#pragma once
// "Workers": how many live people each team has, and how many have none yet.
#include <array>

#include "platform/forms/Form.h"

struct ProgramState;

// People per team code over the live records: [0] "00" (unassigned), [1..40] the teams.
// Codes that are no team (blank, damaged) are in none of them.
std::array<long, 41> CountTeams(ProgramState& p);

class ZipCnt : public forms::Form {
public:
    explicit ZipCnt(ProgramState& p);
    void Form_Activate() override;

    ProgramState& p;
    forms::TextBox TeamNameBox{*this, "TeamNameBox"};
    forms::TextBox TeamCountBox{*this, "TeamCountBox"};
};
