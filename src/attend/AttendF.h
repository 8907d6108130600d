#pragma once
// The door screen: a ticket number or the first letters of a last name, Enter,
// and the person is marked present and written to disk. The cursor stays in
// SearchBox; everything else on the screen is for corrections.
#include <string>

#include "platform/forms/Form.h"

struct Program;

class AttendF : public forms::Form {
public:
    explicit AttendF(Program& p);

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Deactivate() override;
    void Form_Unload(int& Cancel) override;

    // Writes the person on screen and renews the list entry; false when the disk refused.
    bool SaveRecord();
    void ShowRecord();
    // What the Enter key does in SearchBox.
    void EnterTicket();
    void Mark();
    void Decisions();

    void SearchBox_KeyDown(int& KeyCode, int Shift);
    void MtgNum_KeyPress(int& KeyAscii);
    void MtgNum_LostFocus();
    void btnVscrollUp_Click();
    void btnVScrollDn_Click();
    void DecA_MouseDown(int Index, int Button, int Shift, float X, float Y);
    void DecA_Click(int Index);
    void Dec_Click(int Index);
    void Undo_Click();
    void FirstRecordButton_Click();
    void PreviousRecord_Click();
    void NextRecord_Button_Click();
    void LastRecordButton_Click();
    void RNum_GotFocus();
    void RNum_LostFocus();
    void Attendance_Click();
    void btnGlobal_Click();
    void MoveToSDA_Click();
    void EnterPrayerFromAttend();
    void Exit_Click();
    void IntLevel_Change();
    void Baptized_Click();
    void Notes_KeyDown(int& KeyCode, int Shift);
    void Notes_MouseDown(int Button, int Shift, float X, float Y);
    void Class_MouseUp(int Button, int Shift, float X, float Y);
    void BaptDate_KeyDown(int& KeyCode, int Shift);
    void BaptDate_DblClick();

    // The meeting in MtgNum, or 0 when the box holds no meeting from 1 to 40.
    int Meeting() const;
    void RefreshCaption();

    Program& p;
    int EntryMeeting = 0;
    int SavedMeetingNumber = 0;
    int EnteredCount = 0;
    std::string PendingDecision = "-";
    std::string Attended;
    int LastAttended = 0;
    std::string DecisionText;

    forms::Label lblSearch{*this, "lblSearch", "Enter Number or Name to search for"};
    forms::TextBox SearchBox{*this, "SearchBox"};
    forms::Label lblMtgNum{*this, "lblMtgNum", "Meeting Number"};
    forms::TextBox MtgNum{*this, "MtgNum"};
    forms::CommandButton btnVscrollUp{*this, "btnVscrollUp", "+"};
    forms::CommandButton btnVScrollDn{*this, "btnVScrollDn", "-"};
    forms::Frame fraVid{*this, "fraVid"};
    forms::ControlArray<forms::OptionButton> optVid{*this, "optVid", 2, std::string()};
    forms::TextBox EntInd{*this, "EntInd"};
    forms::TextBox SDAIdent{*this, "SDAIdent"};

    forms::Label lblRNum{*this, "lblRNum", "Reg. No."};
    forms::TextBox RNum{*this, "RNum"};
    forms::Label lblFName{*this, "lblFName", "First Name"};
    forms::TextBox FName{*this, "FName"};
    forms::Label lblLName{*this, "lblLName", "Last Name"};
    forms::TextBox LName{*this, "LName"};
    forms::Label lblAddress{*this, "lblAddress", "Address"};
    forms::TextBox Address{*this, "Address"};
    forms::Label lblCity{*this, "lblCity", "City"};
    forms::TextBox City{*this, "City"};
    forms::Label lblState{*this, "lblState", "State"};
    forms::TextBox State{*this, "State"};
    forms::Label lblZip{*this, "lblZip", "Zip"};
    forms::TextBox Zip{*this, "Zip"};
    forms::Label lblPhone{*this, "lblPhone", "Phone"};
    forms::TextBox Phone{*this, "Phone"};
    forms::Label lblEmail{*this, "lblEmail", "EMail"};
    forms::TextBox txtEmail{*this, "txtEmail"};
    forms::Label lblIntLevel{*this, "lblIntLevel", "Interest"};
    forms::TextBox IntLevel{*this, "IntLevel"};
    forms::Label lblVisits{*this, "lblVisits", "Visits"};
    forms::TextBox Visits{*this, "Visits"};
    forms::Label lblWorkerCode{*this, "lblWorkerCode", "Team"};
    forms::TextBox WorkerCode{*this, "WorkerCode"};
    forms::Label lblBirthDate{*this, "lblBirthDate", "Birth Date"};
    forms::TextBox BirthDate{*this, "BirthDate"};
    forms::Label lblBaptDate{*this, "lblBaptDate", "Bapt. Date"};
    forms::TextBox BaptDate{*this, "BaptDate"};
    forms::CheckBox Baptized{*this, "Baptized", "Baptized"};
    forms::CheckBox Class{*this, "Class", "Interview"};
    forms::Label lblNotes{*this, "lblNotes", "Notes"};
    forms::TextBox Notes{*this, "Notes"};
    forms::Label lblAttendance{*this, "lblAttendance", "Click inside Box to Change Attendance"};
    forms::TextBox Attendance{*this, "Attendance"};

    forms::Frame Frame1{*this, "Frame1", "Decisions Made"};
    forms::ControlArray<forms::CheckBox> Dec{*this, "Dec", 9, std::string()};
    forms::Frame fraED{*this, "fraED"};
    forms::Label Label13{*this, "Label13", "Decisions to be Entered in:"};
    forms::Label Label15{*this, "Label15", "- Attendance Record"};
    forms::Label Label16{*this, "Label16", "- Decisions Made  Box"};
    forms::ControlArray<forms::CheckBox> ED{*this, "ED", 9, std::string()};
    forms::ControlArray<forms::OptionButton> DecA{*this, "DecA", 9, std::string()};
    forms::Label lblDecInAtt{*this, "lblDecInAtt"};
    forms::Label lblDecInstruct{*this, "lblDecInstruct"};

    forms::Label RecordCounter{*this, "RecordCounter"};
    forms::CommandButton FirstRecordButton{*this, "FirstRecordButton", "|<"};
    forms::CommandButton PreviousRecord{*this, "PreviousRecord", "<"};
    forms::CommandButton NextRecord_Button{*this, "NextRecord_Button", ">"};
    forms::CommandButton LastRecordButton{*this, "LastRecordButton", ">|"};
    forms::CommandButton Undo{*this, "Undo", "Undo Attendance"};
    forms::CommandButton MoveToSDA{*this, "MoveToSDA", "Move to SDA Members"};
    forms::CommandButton btnGlobal{*this, "btnGlobal", "Global Search"};
    forms::CommandButton btnPrayerRequest{*this, "btnPrayerRequest", "Coments/ Prayer Requests"};
    forms::CommandButton Exit{*this, "Exit", "Return to Edit Screen"};

    forms::Menu mnuAtTools{*this, "mnuAtTools", "&Tools"};
    forms::Menu mnuAtPrayerReq{*this, "mnuAtPrayerReq", "Prayer Requests", &mnuAtTools};

    static const char* const DefaultDecInAtt;

private:
    void Layout();
    void Wire();
    // Save, move, show: the four walking buttons.
    void Walk(int kind);
    // Back to the common end of an entry: the person at CurrentIndex on screen, the box empty.
    void EndEntry();
    void ClearPendingDecision();
    // Counts the marks of s and puts them on the person and on the screen.
    void Recount(const std::string& s, std::int16_t keptLast);
    void ChangeMeeting(int m);
    std::string openRNum_;
    int classAtPress_ = -1;
    int goodMeeting_ = 0;     // the last meeting the box held that was one
    bool showing_ = false;   // boxes filled from the record: no rule runs
    long notesWarnedAt_ = -1;
};
