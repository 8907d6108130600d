#pragma once
// The zip table editor: one zip at a time, its city, state and team, and the
// pass that writes the zips' teams into the people still without one.
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/Form.h"

struct ProgramState;

// What the team pass did.
struct TeamAssignment {
    long written = 0;   // records given their zip's team
    bool ok = true;     // false when the file refused a write (the operator has been told)
};

// The file part of "Update File": every live record whose team is "00" takes the
// team of the first zip entry that contains its zip's key. Found through an index
// of every 10-character stretch of every entry, so the hit is the one a walk of
// the table would find.
TeamAssignment AssignTeams(ProgramState& p);

// Sorts the table: 0 by zip, 1 by city, 2 by count (largest first).
void SortZipStrings(ProgramState& p, int by);

class EditZip : public forms::Form {
public:
    explicit EditZip(ProgramState& p);

    void Form_Load() override;
    void Form_Unload(int& Cancel) override;

    void ShowZipRecord();
    void ZipCaption();
    void UpdateZipCaption();
    // Puts the boxes back into the entry shown; false (the operator told) when they cannot stand.
    bool SaveZipChanges();
    void ZipSort(int by);
    void NewRecord();

    void Navigate(int kind);   // 0 first, 1 previous, 2 next, 3 last
    void SortOpt_Click(int Index);
    void WorkerCode_LostFocus();
    void State_LostFocus();
    void Search_Click();
    void Edit_Click();
    void AddZip_Click();
    void AssignNames_Click();
    void PrintZips_Click();
    void CoseForm_Click();

    ProgramState& p;
    int Current = 0;       // the entry shown, 0 when none
    bool Adding = false;
    // Opens the team names (the edit screen sets it when that work is there).
    std::function<void()> EditTeamNames;

    forms::Label ZipLbl{*this, "ZipLbl", "Zip Code"};
    forms::TextBox Zip{*this, "Zip"};
    forms::Label CityLbl{*this, "CityLbl", "City"};
    forms::TextBox City{*this, "City"};
    forms::Label StateLbl{*this, "StateLbl", "State"};
    forms::TextBox State{*this, "State"};
    forms::Label WCLbl{*this, "WCLbl", "Team Code:"};
    forms::TextBox WorkerCode{*this, "WorkerCode"};
    forms::Label NumberAddressesLbl{*this, "NumberAddressesLbl", "Count"};
    forms::TextBox NumberAddresses{*this, "NumberAddresses"};
    forms::Label RCounter{*this, "RCounter"};
    forms::CommandButton FirstRecordButton{*this, "FirstRecordButton", "|<"};
    forms::CommandButton PreviousRecord{*this, "PreviousRecord", "<"};
    forms::CommandButton NextRecord_Button{*this, "NextRecord_Button", ">"};
    forms::CommandButton LastRecordButton{*this, "LastRecordButton", ">|"};
    forms::Frame Frame1{*this, "Frame1", "Sort Zip Codes"};
    forms::ControlArray<forms::OptionButton> SortOpt{*this, "SortOpt", 3, std::string()};
    forms::CommandButton Search{*this, "Search", "Search"};
    forms::Label SearchLbl{*this, "SearchLbl", "Search by  Zipcode or by City"};
    forms::CommandButton Edit{*this, "Edit", "Edit"};
    forms::Label EditLbl{*this, "EditLbl", "Edit Existing Records"};
    forms::CommandButton AddZip{*this, "AddZip", "Add"};
    forms::Label AddZipLbl{*this, "AddZipLbl", "Add New Names to File"};
    forms::CommandButton AssignNames{*this, "AssignNames", "Update File"};
    forms::Label Label1{*this, "Label1", "Update the file with the designated team number"};
    forms::CommandButton PrintZips{*this, "PrintZips", "Print"};
    forms::CommandButton btnEditTeamNames{*this, "btnEditTeamNames", "Edit Team Names"};
    forms::CommandButton CoseForm{*this, "CoseForm", "Close"};

private:
    void BlankCard();
    void FinishCard();
    bool Refuse(const std::string& text, forms::Control& back);
};

// A side table printed as a list under a report heading, a line each, through the
// printer dialog; `pageLine` gives what ends each page (its number given).
void PrintTableList(ProgramState& p, const std::string& heading, const std::vector<std::string>& lines,
                    const std::function<std::string(int)>& pageLine);
