#pragma once
// Preferences: every setting of the crusade on one tabbed dialog. Nothing
// reaches the crusade until Save.
#include <string>

#include "platform/forms/Form.h"

struct ProgramState;

class frmTab : public forms::Form {
public:
    explicit frmTab(ProgramState& p);

    // The tabs of tabPref, 1-based.
    enum Tab { TabTeams = 1, TabGeneral, TabDecisions, TabChurch, TabSermons };
    // The frame fraTab(i) each tab shows: the Teams tab shows two.
    static constexpr int FrameTeams1 = 0, FrameTeams2 = 1, FrameGeneral = 2, FrameDecisions = 3,
                         FrameChurch = 4, FrameSermons = 5;

    void Form_Load() override;
    void Form_Unload(int& Cancel) override;

    void tabPref_Click();
    void prefDec_Click(int Index);
    void prefDecCode_Click(int Index);
    void prefSerm_KeyPress(int Index, int& KeyAscii);
    void Team_DblClick(int Index);
    void HelpButton_Click();
    void btnSave_Click();
    void btnCancel_Click();
    void btnPrintTeams_Click();

    // The General tab's help, as HelpButton shows it.
    std::string HelpText() const;
    bool Changed() const { return changed_; }

    ProgramState& p;

    forms::TabStrip tabPref{*this, "tabPref"};
    forms::ControlArray<forms::Frame> fraTab{*this, "fraTab", 6, std::string()};

    // Teams: index 1 to 40; lblTeam(0..3) head the two frames' columns.
    forms::ControlArray<forms::Label> lblTeam{*this, "lblTeam", 4, std::string()};
    forms::ControlArray<forms::Label> lblTeamNumber{*this, "lblTeamNumber", 0, std::string()};
    forms::ControlArray<forms::TextBox> Team{*this, "Team", 0};
    forms::ControlArray<forms::TextBox> TmPhone{*this, "TmPhone", 0};
    forms::CommandButton btnPrintTeams{*this, "btnPrintTeams", "Print Teams"};

    // General.
    forms::Label lblCrName{*this, "lblCrName", "Crusade Name:"};
    forms::TextBox CrNameM_Box{*this, "CrNameM_Box"};
    forms::Label lblCrDate{*this, "lblCrDate", "Crusade Date:"};
    forms::TextBox CrDateM_Box{*this, "CrDateM_Box"};
    forms::Label lblLastMeeting{*this, "lblLastMeeting", "Last Meeting:"};
    forms::TextBox LastMeetingBox{*this, "LastMeetingBox"};
    forms::Frame fraSabAM{*this, "fraSabAM", "Sabbath AM Meetings"};
    forms::TextBox bxSabAM1{*this, "bxSabAM1"};
    forms::TextBox bxSabAM2{*this, "bxSabAM2"};
    forms::TextBox bxSabAM3{*this, "bxSabAM3"};
    forms::TextBox bxSabAM4{*this, "bxSabAM4"};
    forms::Label lblPrintCutOff{*this, "lblPrintCutOff", "Print Cut Off"};
    forms::TextBox PrintCutOffBox{*this, "PrintCutOffBox"};
    forms::Label lblResNum{*this, "lblResNum", "Reserved Number"};
    forms::TextBox ResNumMM{*this, "ResNumMM"};
    forms::Frame fraResDir{*this, "fraResDir", "Direction for Reserved Numbers"};
    forms::ControlArray<forms::OptionButton> ResDirMM{*this, "ResDirMM", 2, std::string()};
    forms::CheckBox boxShowButtonLabels{*this, "boxShowButtonLabels", "Show Toolbar Button Labels"};
    forms::CheckBox ckSoundOff{*this, "ckSoundOff", "Turn Sound off"};
    forms::CheckBox ckCanada{*this, "ckCanada", "Use Canadian Zip Codes"};
    forms::Label lblLabels{*this, "lblLabels",
                           "You can adjust the position of Mail labels.  Enter the number of milimeters to move "
                           "down or right."};
    forms::Label lblLabelTop{*this, "lblLabelTop", "Down"};
    forms::TextBox bxLabelTop{*this, "bxLabelTop"};
    forms::Label lblLabelRight{*this, "lblLabelRight", "Right"};
    forms::TextBox bxLabelRight{*this, "bxLabelRight"};
    forms::CommandButton HelpButton{*this, "HelpButton", "Help"};

    // Decisions: index 1 to 9.
    forms::Label lblDecisions{*this, "lblDecisions", "Decision Titles and Codes"};
    forms::ControlArray<forms::TextBox> prefDec{*this, "prefDec", 0};
    forms::ControlArray<forms::TextBox> prefDecCode{*this, "prefDecCode", 0};
    forms::TextBox PrefWarning{*this, "PrefWarning"};

    // Church: index 1 to 14.
    forms::Label lblChurch{*this, "lblChurch", "Church Preferences"};
    forms::ControlArray<forms::TextBox> prefReligion{*this, "prefReligion", 0};

    // Sermons: index 1 to 40.
    forms::Label lblSermons{*this, "lblSermons", "Sermon Titles"};
    forms::ControlArray<forms::Label> lblSermNumber{*this, "lblSermNumber", 0, std::string()};
    forms::ControlArray<forms::TextBox> prefSerm{*this, "prefSerm", 0};

    forms::CommandButton btnSave{*this, "btnSave", "Save"};
    forms::CommandButton btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Layout();
    void CopyIn();
    // Refuses what the crusade's files could not hold or would read back otherwise;
    // the operator is told and the box gets the focus. False then.
    bool InputFits();
    // The last-meeting questions; false when the operator said No.
    bool AskLastMeeting(int n, int c);
    void CopyOut();
    void Erase(int n, int c);
    void Close();
    void ShowTab(int tab, forms::Control* focus = nullptr);

    bool changed_ = false;
    bool closing_ = false;
    int openedMeeting_ = 0;   // c: MeetingNumber as the dialog opened
};
