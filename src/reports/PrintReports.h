#pragma once
// The preview: the workbench of all lists. Shows the current list 25 lines at
// a time, switches filters, cuts by last meeting, restricts to a team or the
// mail list, corrects a person by a click on a line, and prints the list in
// the report that belongs to its kind.
#include <string>

#include "platform/forms/Form.h"
#include "reports/ReportParts.h"

struct ReportRun;
struct ProgramState;
struct MasterRecord;

// One line of the preview list for the person in `r`, whose list entry is `entry`,
// shown as list kind `kind`; without the line end.
std::string PreviewLine(const ProgramState& p, const MasterRecord& r, const std::string& kind,
                        const std::string& entry, reports::DecisionMarks marks);

class PrintReports : public forms::Form {
public:
    explicit PrintReports(ReportRun& p);

    // Public procedures of the form.
    void PreviewReport();
    void showScrollInfo();
    void SelectFilter();
    void ClrDecisions();
    void GetHeadOfHouse();
    void ApplyCutOff();

    // Form events.
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(int& Cancel) override;

    // Handlers.
    void Info_MouseDown(int Button, int Shift, float X, float Y);
    void OptVisit_Click();
    void OptVisit_KeyPress(int& KeyAscii);
    void HelpButton_Click();
    void PrintCutOffBox_Change();
    void btnVscrollUp_Click();
    void btnVScrollDn_Click();
    void chkDisableCutoff_Click();
    void ChkSaveFilter_Click();
    void btnTeamSel_Click();
    void btnTeam_Click(int Index);
    void chkTeam_Click();
    void PVDecisions_Click();
    void btnSelect_Click(int Index);
    void chkMailOpt_Click();
    void chkPrnMailLabels_Click();
    void btnPrint_Click();
    void MasterListButton_Click();
    void PVInterestLevel_Click();
    void btnBaptisms_Click();
    void pvBapDate_Click();
    void CloseBut_Click();
    void VScroll1_KeyDown(int& KeyCode, int Shift);
    // The clean-up list, then the mail-list selection over its households.
    void CleanMailList(const std::string& help);
    // A menu of the form: runs the filter of `kind` and shows it, with its help line.
    void RunMenuFilter(const std::string& kind, const std::string& help, int number = 0,
                       const std::string& option = "");

    // The edit screen comes back from editing one person of the list.
    void ReturnFromEdit();

    ReportRun& p;
    std::string PrevSort;
    int ViewLines = 25;
    int FirstLine = 1;
    std::string LeftMode = "E";
    std::string VisitCode;
    int TeamChosen = 0;
    std::string Church;   // the church the "religion" list was filtered by

    // Twips of the old Courier list box that the click columns were laid out in.
    static constexpr float OldCharWidth = 105, OldLeft = 60, OldLineHeight = 215;

    forms::TextBox CrTitleBox{*this, "CrTitleBox"};
    forms::TextBox boxMailLabelIndicator{*this, "boxMailLabelIndicator"};
    forms::TextBox txtInstructions{*this, "txtInstructions"};
    forms::TextBox Info{*this, "Info"};
    forms::ScrollBar VScroll1{*this, "VScroll1", true};

    forms::Frame optES{*this, "optES", "Left Mouse Button Function"};
    forms::OptionButton OptVisit{*this, "OptVisit", "Visit"};
    forms::OptionButton OptIntML{*this, "OptIntML", "Interest"};
    forms::OptionButton optAt{*this, "optAt", "Attend 24"};
    forms::OptionButton optEd{*this, "optEd", "Edit"};
    forms::CommandButton HelpButton{*this, "HelpButton", "?"};

    forms::Frame Frame3{*this, "Frame3", "Sort Options"};
    forms::ControlArray<forms::OptionButton> optSortOpt{*this, "optSortOpt", 2, std::string()};

    forms::Label Label3{*this, "Label3", "Meeting Cut Off"};
    forms::TextBox PrintCutOffBox{*this, "PrintCutOffBox"};
    forms::CommandButton btnVscrollUp{*this, "btnVscrollUp", "^"};
    forms::CommandButton btnVScrollDn{*this, "btnVScrollDn", "v"};
    forms::CheckBox chkDisableCutoff{*this, "chkDisableCutoff", "Disable"};

    forms::Label lblMailOpt{*this, "lblMailOpt", "Mail List Options"};
    forms::CheckBox chkMailOpt{*this, "chkMailOpt", "Mail List Only"};
    forms::CheckBox chkPrnMailLabels{*this, "chkPrnMailLabels", "Mail Labels"};
    forms::CommandButton Command2{*this, "Command2", "Clean Up Mail List"};

    forms::CheckBox CkIncludeF{*this, "CkIncludeF", "Include 'F'"};
    forms::CheckBox chkTeam{*this, "chkTeam", "Teams"};
    forms::CheckBox ChkSaveFilter{*this, "ChkSaveFilter", "Save Filter on Exit"};

    forms::Label lblSelTeamToVies{*this, "lblSelTeamToVies", "Select Team Number to View"};
    forms::ControlArray<forms::CommandButton> btnTeam{*this, "btnTeam", 22, std::string()};
    forms::CommandButton btnTeamSel{*this, "btnTeamSel", "21-40"};
    forms::ControlArray<forms::OptionButton> btnSelect{*this, "btnSelect", 15, std::string("Option1")};

    forms::CommandButton MasterListButton{*this, "MasterListButton", "Master List"};
    forms::CommandButton PVInterestLevel{*this, "PVInterestLevel", "Interest Lvl."};
    forms::CommandButton btnBaptisms{*this, "btnBaptisms", "Baptisms"};
    forms::CommandButton pvBapDate{*this, "pvBapDate", "BapDate Set"};
    forms::CommandButton NeedBapDate{*this, "NeedBapDate", "NeedBapDate"};
    forms::CommandButton Appointments{*this, "Appointments", "Appointments"};
    forms::CommandButton btnInterviewNeeded{*this, "btnInterviewNeeded", "Need Apt."};
    forms::CommandButton PVDecisions{*this, "PVDecisions", "View Decisions"};
    forms::CommandButton Command1{*this, "Command1", "Statistics"};
    forms::CommandButton btnPrint{*this, "btnPrint", "Print"};
    forms::CommandButton CloseBut{*this, "CloseBut", "Close Preview"};

    forms::Menu mnuReports{*this, "mnuReports", "Reports"};
    forms::Menu mnuPreMeeting{*this, "mnuPreMeeting", "PreMeeting Interests", &mnuReports};
    forms::Menu mnuTotalAttendance{*this, "mnuTotalAttendance", "Total Attendance", &mnuReports};
    forms::Menu mnuByZip{*this, "mnuByZip", "By Zipcode", &mnuReports};
    forms::Menu mnuMailList{*this, "mnuMailList", "&Mail List"};
    forms::Menu mnuMLAllNames{*this, "mnuMLAllNames", "Sorted by Zipcode", &mnuMailList};
    forms::Menu mnuCleanMList{*this, "mnuCleanMList", "Clean Up Mail List", &mnuMailList};
    forms::Menu mnuAttendLists{*this, "mnuAttendLists", "&Attendance Lists"};
    forms::Menu mnuMissedMtgs{*this, "mnuMissedMtgs", "Missed Last Meetings", &mnuAttendLists};
    forms::Menu mnuSelMtg{*this, "mnuSelMtg", "Selected Meeting", &mnuAttendLists};
    forms::Menu mnuDuplicates{*this, "mnuDuplicates", "Duplicate Addresses"};
    forms::Menu mnuDupAdd{*this, "mnuDupAdd", "All Duplicate Addresses", &mnuDuplicates};
    forms::Menu mnuDupAddName{*this, "mnuDupAddName", "Dup. Address with Different Last Names", &mnuDuplicates};
    forms::Menu mnuDupAddTeam{*this, "mnuDupAddTeam", "Dup. Address with Different Team Codes", &mnuDuplicates};
    forms::Menu mnuVisitationTools{*this, "mnuVisitationTools", "&Visitation Tools"};
    forms::Menu mnuNeedSabVis{*this, "mnuNeedSabVis", "Need Sabbath Visits", &mnuVisitationTools};
    forms::Menu mnuNeedIntLev{*this, "mnuNeedIntLev", "Needs Interest Level Assignment", &mnuVisitationTools};
    forms::Menu mnuMap{*this, "mnuMap", "Map Code", &mnuVisitationTools};
    forms::Menu mnuMarkedCards{*this, "mnuMarkedCards", "Marked Names", &mnuVisitationTools};
    forms::Menu mnuNotes{*this, "mnuNotes", "Notes and Coments", &mnuVisitationTools};
    forms::Menu mnuBaptAndAppointments{*this, "mnuBaptAndAppointments", "&Baptisms and Appointments"};
    forms::Menu MnuInterviewSet{*this, "MnuInterviewSet", "&Interview Appointment Set", &mnuBaptAndAppointments};
    forms::Menu mnuBapIntRem{*this, "mnuBapIntRem", "Interview Appointments &Remaining", &mnuBaptAndAppointments};
    forms::Menu MnuInterview{*this, "MnuInterview", "&Needs Interview Appointment", &mnuBaptAndAppointments};
    forms::Menu mnuNeedDate{*this, "mnuNeedDate", "Needs Baptism Date", &mnuBaptAndAppointments};
    forms::Menu mnuBapDateSet{*this, "mnuBapDateSet", "Future Baptism Date Set", &mnuBaptAndAppointments};
    forms::Menu mnuAllBapDates{*this, "mnuAllBapDates", "All Baptism Dates", &mnuBaptAndAppointments};
    forms::Menu mnuBaptisms{*this, "mnuBaptisms", "Baptisms", &mnuBaptAndAppointments};

private:
    void Layout();
    void Wire();
    void StartAsDesigned();
    // The option of the left mouse button, as a mode letter.
    std::string ModeFromOptions() const;
    forms::Control* SelectedOption() const;
    void ShowList(const std::string& emptyEnd = "a different Filter.");
    void PrintTeamByAttendance();
    // Sets a check box or option from code without running its handler.
    void SetQuietly(forms::Control& c, int value);
    bool quiet_ = false;
    bool decisionsShowing_ = false;
    bool inLoad_ = false;
    bool drawing_ = false;
};
