#pragma once
// The SDA member editor: the crusade's church members, one at a time, in the
// member file (<name>.mem) beside the records.
#include <string>

#include "platform/forms/Form.h"

struct ProgramState;

// The member list in order of its lines (number first).
void SortMembers(ProgramState& p);

class Members : public forms::Form {
public:
    explicit Members(ProgramState& p);

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(int& Cancel) override;

    void ShowMemRecord();
    void MemCaption(bool adding);
    void UpdateMemCaption();
    // Puts the boxes back into the entry shown; false (the operator told) when they cannot stand.
    bool SaveMemChanges();
    void NewRecord();

    void Navigate(int kind);   // 0 first, 1 previous, 2 next, 3 last
    void Edit_Click();
    void AddMem_Click();
    void LName_LostFocus();
    void FName_LostFocus();
    void Search_Click();
    void btnDeleteSDA_Click();
    void btnPrintMem_Click();
    void Command4_Click();

    ProgramState& p;
    int Current = 0;   // the entry shown, 0 when none
    bool Adding = false;

    forms::Label MemTitleBox{*this, "MemTitleBox", "Edit SDA Members"};
    forms::Label RNumLbl{*this, "RNumLbl", "Reg. Num."};
    forms::TextBox RNUM{*this, "RNUM"};
    forms::Label LNameLbl{*this, "LNameLbl", "Last Name"};
    forms::TextBox LNAME{*this, "LNAME"};
    forms::Label FNameLbl{*this, "FNameLbl", "First Name"};
    forms::TextBox FNAME{*this, "FNAME"};
    forms::Label RCounter{*this, "RCounter"};
    forms::CommandButton FirstRecordButton{*this, "FirstRecordButton", "|<"};
    forms::CommandButton PreviousRecord{*this, "PreviousRecord", "<"};
    forms::CommandButton NextRecord_Button{*this, "NextRecord_Button", ">"};
    forms::CommandButton LastRecordButton{*this, "LastRecordButton", ">|"};
    forms::CommandButton Edit{*this, "Edit", "Edit"};
    forms::Label EditLbl{*this, "EditLbl", "Edit Existing Names"};
    forms::CommandButton AddMem{*this, "AddMem", "Add"};
    forms::Label AddMemLbl{*this, "AddMemLbl", "Add New Names to File"};
    forms::CommandButton Search{*this, "Search", "Search"};
    forms::Label SearchLbl{*this, "SearchLbl", "Search by  Name or Number"};
    forms::CommandButton btnPrintMem{*this, "btnPrintMem", "Print"};
    forms::Label Label2{*this, "Label2", "Print Members List"};
    forms::CommandButton btnDeleteSDA{*this, "btnDeleteSDA", "Delete"};
    forms::CommandButton Command4{*this, "Command4", "Close"};

private:
    void BlankCard();
    void FinishCard();
    bool NumberOk();
    void WriteFile();
    bool finishing_ = false;   // a refusal moves the focus, which would end the card again
};
