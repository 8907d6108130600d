#pragma once
// Walks the households the mail-list clean-up found, one address at a time,
// with a tick for each person who gets a mail label.
#include <string>
#include <vector>

#include "platform/forms/Form.h"

struct ProgramState;

class FamilyMem : public forms::Form {
public:
    explicit FamilyMem(ProgramState& p);

    // Opens modally at household `group` of the list. Afterwards FamilyList holds the
    // last household shown, each entry's first character "$" for a label, "-" for none.
    void ShowAt(int group);

    void ChangeFamily(int group);
    void SaveFamily();
    void FirstFmy_Click();
    void btnPrevFmy_Click();
    void btmNextFmy_Click();
    void LastFamily_Click();
    void SelMlLClose_Click();
    void Form_Unload(int& Cancel) override;

    ProgramState& p;
    // Entries 1.. of the household shown, copied from SortIndex.
    std::vector<std::string> FamilyList{std::string()};
    int FamilyMemberCount = 0;

    forms::Label Label1{*this, "Label1", "Edit Mail List "};
    forms::Label txtEditFamily{*this, "txtEditFamily"};
    forms::ControlArray<forms::CheckBox> ckFamily{*this, "ckFamily", 2, std::string()};
    forms::ControlArray<forms::Label> MLAge{*this, "MLAge", 2, std::string()};
    forms::Label RecordCounter{*this, "RecordCounter"};
    forms::CommandButton FirstFmy{*this, "FirstFmy", "|<"};
    forms::CommandButton btnPrevFmy{*this, "btnPrevFmy", "<"};
    forms::CommandButton btmNextFmy{*this, "btmNextFmy", ">"};
    forms::CommandButton LastFamily{*this, "LastFamily", ">|"};
    forms::CommandButton SelMlLClose{*this, "SelMlLClose", "Close"};

private:
    int ShownGroup() const;
    void Go(int group);
};
