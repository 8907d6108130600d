#pragma once
// The main screen: one person at a time, the whole menu tree and the button bar.
// Its members are defined in src/edit/, one file per concern: EditForm<Concern>.cpp
// holds every handler of the controls and menu entries of that concern
// (EditFormSearch.cpp the search box, EditFormAttend.cpp the ways into the door
// screen, EditFormPrayer.cpp the prayer requests). The form's own events and the
// plain menu entries are in EditFormEvents.cpp, its layout in EditForm.cpp.
#include <set>
#include <string>
#include <vector>

#include "platform/forms/Form.h"

struct Program;
struct ProgramState;
enum class RegistrationKind;

// The Notes box at a key, on the edit and the door screens: 150 characters at
// most, one line, no comma. A refused key is set to 0.
void NotesKeyDown(ProgramState& p, forms::TextBox& notes, int& KeyCode);

class EditForm : public forms::Form {
public:
    explicit EditForm(Program& p);

    // Record display and the screen's set-up for the current list.
    void ShowRecord();
    void SetupScreen(const std::string& labelText);
    void ResetBackColor();
    void SetBackColor();
    using Form::SetBackColor;   // the form's own colour stays reachable
    void UpdateRecentMenu();
    // Adds the path unless the menu already shows it; the menu is refreshed either way.
    void RememberFile(const std::string& path);

    // Form events.
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Deactivate() override;
    void Form_GotFocus() override;
    void Form_LostFocus() override;
    void Form_Unload(int& Cancel) override;

    // Handlers.
    void ChgRec_Click(int Index);
    void ChgRec_MouseUp(int Index, int Button, int Shift, float X, float Y);
    void mnuNextRecord_Click();
    void mnuPreviousRec_Click();
    void btnMark_Click();
    void btnGoTo_Click();
    void ShowAll_Click();
    void EditLabel_DblClick();
    void Label17_DblClick();
    void btnViewFile_Click();
    void mnuInfo_Click();
    void mnuHelpFiles_Click();
    void mnuShortcuts_Click();
    void mnuPrintManual_Click();
    void mnuAbout_Click();
    void mnuExit_Click();
    void mnuEditMode_Click();
    void mnuAddRecords_Click();
    void btnCancelNew_Click();
    void mnuChgCr_Click();
    void mnuNewCr_Click();
    void mnuRecentFile_Click(int Index);
    void EntInd_GotFocus();
    void SDAIdent_GotFocus();

    // Field entry rules.
    // The keyboard table of the card: Enter, F2, F3, Esc, PgUp and PgDn for the
    // field `box`. True when the key was one of them (KeyCode is then 0). The
    // coded fields' own KeyDown handlers pass these keys here.
    bool FieldKeyDown(forms::Control& box, int& KeyCode, int Shift);
    void FieldGotFocus(forms::Control& box, bool paint = true);
    void FieldLostFocus(forms::Control& box);
    // 3 when another entry of the list has the number; RNum is then emptied.
    int CheckDuplicate(const std::string& number);
    void RNum_GotFocus();
    void RNum_LostFocus();
    void FName_LostFocus();
    void LName_LostFocus();
    void Address_LostFocus();
    void Zip_LostFocus();
    void City_LostFocus();
    void State_LostFocus();
    void Phone_LostFocus();
    void txtEmail_LostFocus();
    void Age_KeyPress(int& KeyAscii);
    void Age_LostFocus();
    void RelPref_GotFocus();
    void RelPref_KeyDown(int& KeyCode, int Shift);
    void RelPref_KeyPress(int& KeyAscii);
    void RelPref_LostFocus();
    void WorkerCode_LostFocus();
    void MailList_GotFocus();
    void MailList_LostFocus();
    void MailList_KeyDown(int& KeyCode, int Shift);
    void BaptDate_KeyDown(int& KeyCode, int Shift);
    void BaptDate_Change();
    void BaptDate_LostFocus();
    void BaptDate_DblClick();
    void MtgNum_KeyPress(int& KeyAscii);
    void MtgNum_LostFocus();
    int ZipHitIndex = 0;
    bool AskCanada = true;
    forms::Label Label_MailListFocus{*this, "Label_MailListFocus", "<< any key"};
    // Coded fields, add and save, search.
    void Visits_KeyDown(int& KeyCode, int Shift);
    void mnuVisits_Click();
    void boxVisitVisits_LostFocus();
    void boxVisitInterest_Change();
    void btnVisitUpdate_Click();
    void Advertising_GotFocus();
    void Advertising_LostFocus();
    void Dec_MouseUp(int Index, int Button, int Shift, float X, float Y);
    void ToggleDecision(int Index);
    void IntLevel_Change();
    void Baptized_Click();
    void Notes_KeyDown(int& KeyCode, int Shift);
    void Notes_MouseDown(int Button, int Shift, float X, float Y);
    void mnuClearMark_Click();
    void mnuClearMarks_Click();
    // False when the disk refused the record; the boxes still hold the edits.
    bool SaveChanges();
    void ScreenToRecord();
    void AddSlot();
    void AddNewRecord();
    // The card on screen written as a new person; false when the disk refused it.
    bool SaveTypedCard();
    void btnSaveNew_Click();
    void btnSaveExit_Click();
    void CopyCurrentRecord();
    void mnuUndo_Click();
    // The one place a registration number is drawn.
    std::string DrawRNum();
    // The meeting of the cards about to be typed; 0 when the operator backed out.
    int AskAddMeeting();
    void SearchBox_KeyDown(int& KeyCode, int Shift);
    void SearchBox_KeyPress(int& KeyAscii);
    void SearchFor(const std::string& text);
    void mnuGlobal_Click();
    int AddMeeting = 1;          // the meeting of the cards in add mode
    long NotesWarnedAt = -1;     // record whose Notes caution was shown since it was last shown
    // Nightly attendance, delete and restore, prayer requests, appointments.
    void mnuAttendUpdate_Click();
    void Attendance_Click();
    void Class_MouseUp(int Button, int Shift, float X, float Y);
    void mnuDeleteRecord_Click();
    void btnDelete_Click();
    void btnSDA_Click();
    void btnSDA_MouseUp(int Button, int Shift, float X, float Y);
    void munUndeleteRec_Click();
    void btnUndelete_Click();
    void ShowDeletedView();
    void EnterPrayer();
    void mnuViewPrayerList_Click();
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void WireDoorScreens();
    void WireMergeAttendance();
    void mnuMergeAttendance_Click();
    // A safety copy of the crusade before a whole-file operation; false (the operator
    // told) when it could not be made, and then nothing may be changed.
    bool KeepSafetyCopy(const std::string& operation, std::string& folder);
    std::string DeleteTitle;     // tells a delete from a move to the member file
    void DropExitWords();
    int ClassAtPress = -1;       // Class before the click that opens the appointment dialog

    // The preview: the View Reports entries, the interest cards, and editing one
    // person of the preview's list.
    void mnuPreAlpha_Click();
    void mnuPreviewFile_Click();
    void mnuPreZipMaster_Click();
    void mnuPreBap_Click();
    void mnuPreInt_Click();
    void mnuPreAddress_Click();
    void mnuPreMailList_Click();
    void mnuPreDec_Click();
    void mnuICard_Click();
    void EnterPreviewEdit();
    void LeavePreviewEdit();
    void WirePreview();
    // Saves the person on screen and shows the preview on the list as it stands.
    void OpenPreview();
    // The printed reports of the Print Reports menu.
    void WireReports();
    void WireStats();
    // File care: backup, restore, compact, Fix Files, erase, and the undo of the last of these.
    void WireFileCare();
    // Merge of another crusade and the compare with a backup.
    void WireMerge();
    void mnuMerge_Click();
    void mnuCompare_Click();
    void CompareFiles();
    void mnuBackup_Click();
    void BackupFiles();
    void mnuRestoreCr_Click();
    void RestoreCrusade();
    void mnuCompact_Click();
    void mnuFixFile_Click();
    void mnuClearIntFlag_Click();
    void FixFiles(bool clearFlag);
    void mnuErase_Click();
    void mnuUndoFileOp_Click();
    // The import of a comma-separated file and the update check (EditFormImport.cpp).
    void WireExchange();
    void mnuImportText_Click();
    void RunReport(void (*report)(Program&, int), int code);
    // Registration lists and tickets, and the label test sheet.
    void mnuIntMem_Click();
    void mnunamesbynumber_Click();
    void mnuMemIntTickets_Click();
    void mnuLabelTestSheet_Click();
    void PrintRegistration(RegistrationKind kind);
    void WireRegistration();
    // The exports.
    void WireExports();
    void mnuMailMerge_Click();
    void mnuExpMap_Click();
    void mnuExportText_Click();
    // Filters.
    void mPrCut_Click();
    void mnuAlphaCutOffFilter_Click();
    void mnuSelTeamCode_Click();
    void mnuWCAlpha_Click();
    void mnuAttendFilter_Click();
    void mnuFilterSelMtg_Click();
    void mnuFilterMissedMtgs_Click();
    void mnuTotalAttend_Click();
    void mnuAdvFilter_Click();
    void mnuAgeFilter_Click();
    void mnuBaptisms_Click();
    void mnuBapDate_Click();
    void mnuDecisionsFilter_Click();
    void mnuAddressFilter_Click();
    void mnuIntLevel_Click();
    void mnuMailList_Click();
    void mnuNeedInterview_Click();
    void mnuNotes_Click();
    void munPre_Click();
    void mnuReligion_Click();
    void mnuZips_Click();
    void mnuMarked_Click();
    void mnuMarkMarkers_Click();
    // What one Filters entry builds, paints and says.
    struct FilterStart {
        FilterStart(std::string k, int n, std::string o, std::string l, std::vector<forms::Control*> h,
                    std::string m, std::string e)
            : kind(std::move(k)), number(n), option(std::move(o)), label(std::move(l)), highlight(std::move(h)),
              message(std::move(m)), empty(std::move(e)) {}
        std::string kind;
        int number = 0;
        std::string option;
        std::string label;                       // EditLabel; empty keeps the screen's own
        std::vector<forms::Control*> highlight;  // the fields the list looks at
        std::string message;
        std::string empty;                       // said when nobody is in the list
        std::string ending;                      // the message's last line; empty for the usual one
        bool emptySaidByBuilder = false;
    };
    // Saves, builds and shows the first person; false when there is nobody or the operator backed out.
    bool StartFilter(const FilterStart& f);

    // Enables a control unless its work is not part of the program yet.
    void Enable(forms::Control& c, bool on);

    Program& p;
    std::string OpenRNum;     // RNum as it stood when the person was shown
    int HeldPosition = 0;     // where the last move started, for btnGoTo
    int AddedCount = 0;
    int ReligionCount = 0;
    std::string CountedReligion;

    // Record fields.
    forms::Label lblRNum{*this, "lblRNum", "Reg. No."};
    forms::TextBox RNum{*this, "RNum"};
    forms::Label lblFName{*this, "lblFName", "First Name"};
    forms::TextBox FName{*this, "FName"};
    forms::Label lblLName{*this, "lblLName", "Last Name"};
    forms::TextBox LName{*this, "LName"};
    forms::Label lblPhone{*this, "lblPhone", "Phone:"};
    forms::TextBox Phone{*this, "Phone"};
    forms::Label lblEmail{*this, "lblEmail", "EMail"};
    forms::TextBox txtEmail{*this, "txtEmail"};
    forms::Label lblAddress{*this, "lblAddress", "Address:"};
    forms::TextBox Address{*this, "Address"};
    forms::Label lblCity{*this, "lblCity", "City:"};
    forms::TextBox City{*this, "City"};
    forms::Label lblState{*this, "lblState", "State:"};
    forms::TextBox State{*this, "State"};
    forms::Label lblZip{*this, "lblZip", "ZipCode"};
    forms::TextBox Zip{*this, "Zip"};
    forms::Label lblAge{*this, "lblAge", "Age:"};
    forms::TextBox Age{*this, "Age"};
    forms::CheckBox MailList{*this, "MailList"};
    forms::Label Label_Mailist{*this, "Label_Mailist", "Mail List"};
    forms::Label lblRelPref{*this, "lblRelPref", "Religion:"};
    forms::ComboBox RelPref{*this, "RelPref"};
    forms::Label lblAdvertising{*this, "lblAdvertising", "Advertising:"};
    forms::TextBox Advertising{*this, "Advertising"};
    forms::Label lblWorkerCode{*this, "lblWorkerCode", "Team Code:"};
    forms::TextBox WorkerCode{*this, "WorkerCode"};
    forms::Label lblIntLevel{*this, "lblIntLevel", "Interest:"};
    forms::TextBox IntLevel{*this, "IntLevel"};
    forms::Label lblVisits{*this, "lblVisits", "Visits:"};
    forms::TextBox Visits{*this, "Visits"};
    forms::Label lblMapCode{*this, "lblMapCode", "Map Code:"};
    forms::TextBox MapCode{*this, "MapCode"};
    forms::Label lblBaptDate{*this, "lblBaptDate", "Bapt.Date:"};
    forms::TextBox BaptDate{*this, "BaptDate"};
    forms::Label lblBapDate{*this, "lblBapDate", "M/D/Y"};
    forms::Label lblBirthDate{*this, "lblBirthDate", "Birth Date:"};
    forms::TextBox BirthDate{*this, "BirthDate"};
    forms::Label lblClass{*this, "lblClass", "Bapt. Interview:"};
    forms::CheckBox Class{*this, "Class"};
    forms::CheckBox Baptized{*this, "Baptized"};
    forms::Label lBaptized{*this, "lBaptized", "Baptized/ POF"};
    forms::CheckBox chkMarkToVisit{*this, "chkMarkToVisit", "Marked to Print"};
    forms::Label lblAttendance{*this, "lblAttendance", "Attendance"};
    forms::TextBox Attendance{*this, "Attendance"};
    forms::Label lblAttend{*this, "lblAttend", "Total"};
    forms::TextBox Attend{*this, "Attend"};
    forms::Label lblLast{*this, "lblLast", "Last"};
    forms::TextBox Last{*this, "Last"};
    forms::Frame Frame1{*this, "Frame1", "Decisions"};
    forms::ControlArray<forms::CheckBox> Dec{*this, "Dec", 9, std::string()};
    forms::TextBox Decisions{*this, "Decisions"};
    forms::Label Label17{*this, "Label17", "Notes for Data Entry Only"};
    forms::TextBox Notes{*this, "Notes"};
    forms::Label MtgNumLabel{*this, "MtgNumLabel", "MeetingNumber"};
    forms::TextBox MtgNum{*this, "MtgNum"};

    // List and search.
    forms::Label EditLabel{*this, "EditLabel", "All Names Alphabetical"};
    forms::Label RecordCounter{*this, "RecordCounter"};
    forms::Label RecordPos{*this, "RecordPos"};
    forms::Label FndNameBx{*this, "FndNameBx", "Marked name"};
    forms::Label SearchBoxLabel{*this, "SearchBoxLabel", "Enter Number or Name to search for"};
    forms::TextBox SearchBox{*this, "SearchBox"};
    forms::Label ReturnToPreviewMsg{*this, "ReturnToPreviewMsg",
                                    "Buttons are disabled, you can only edit this record.                     Click the Preview Button to Return to the Preview Screen."};
    forms::Label lblNextFieldBtn{*this, "lblNextFieldBtn", "Right Click for next field"};
    forms::Label AddNameLabel{*this, "AddNameLabel", "Add Names"};
    forms::Label lblShowButtonLabels{*this, "lblShowButtonLabels"};
    forms::TextBox EntInd{*this, "EntInd"};
    forms::TextBox SDAIdent{*this, "SDAIdent"};
    forms::PictureBox Picture1{*this, "Picture1"};

    // Visits frame.
    forms::Frame frameVisit{*this, "frameVisit", "Update Visits"};
    forms::Label lblVisitVisit{*this, "lblVisitVisit", "Visit:"};
    forms::TextBox boxVisitVisits{*this, "boxVisitVisits"};
    forms::Label lblVisitInt{*this, "lblVisitInt", "Interest"};
    forms::TextBox boxVisitInterest{*this, "boxVisitInterest"};
    forms::CommandButton btnVisitUpdate{*this, "btnVisitUpdate", "Update"};
    forms::CheckBox AutoUpdateVisits{*this, "AutoUpdateVisits"};
    forms::Label Label4{*this, "Label4", "Auto Update"};

    // Buttons.
    forms::CommandButton btnSaveNew{*this, "btnSaveNew", "Save        and  New"};
    forms::CommandButton btnSaveExit{*this, "btnSaveExit", "Save        and Exit"};
    forms::CommandButton btnCancelNew{*this, "btnCancelNew", "Cancel    and Exit"};
    forms::CommandButton btnPrayer{*this, "btnPrayer", "Coments/ Prayer Requests"};
    forms::ControlArray<forms::CommandButton> ChgRec{*this, "ChgRec", 4, std::string()};
    forms::CommandButton btnGlobal{*this, "btnGlobal"};
    forms::CommandButton btnAddName{*this, "btnAddName"};
    forms::CommandButton btnSDA{*this, "btnSDA"};
    forms::CommandButton btnDelete{*this, "btnDelete"};
    forms::CommandButton btnUndelete{*this, "btnUndelete"};
    forms::CommandButton btnMark{*this, "btnMark"};
    forms::CommandButton btnGoTo{*this, "btnGoTo"};
    forms::CommandButton ShowAll{*this, "ShowAll", "All Names"};
    forms::CommandButton btnUndo{*this, "btnUndo"};
    forms::CommandButton btnAttend{*this, "btnAttend"};
    forms::CommandButton btnViewFile{*this, "btnViewFile"};
    forms::CommandButton btnExcel{*this, "btnExcel"};
    forms::CommandButton btnStats{*this, "btnStats"};

    // Menus.
    forms::Menu mnuFile{*this, "mnuFile", "&File"};
    forms::Menu mnuBackup{*this, "mnuBackup", "&Backup File", &mnuFile};
    forms::Menu mnuRestoreCr{*this, "mnuRestoreCr", "&Restore from Backup", &mnuFile};
    forms::Menu mnuNewCr{*this, "mnuNewCr", "&New Meeting", &mnuFile};
    forms::Menu mnuChgCr{*this, "mnuChgCr", "C&hange Meeting", &mnuFile};
    forms::Menu mnuErase{*this, "mnuErase", "&Erase Meeting Files", &mnuFile};
    forms::Menu mnuMerge{*this, "mnuMerge", "&Merge Files", &mnuFile};
    forms::Menu mnuMergeAttendance{*this, "mnuMergeAttendance", "Merge &Attendance Updates", &mnuFile};
    forms::Menu mnuImportText{*this, "mnuImportText", "Import from Text File", &mnuFile};
    forms::Menu mnuExportToAccess{*this, "mnuExportToAccess", "Export to MSAccess", &mnuFile};
    forms::Menu mnuFileLine1{*this, "mnuFileLine1", "-", &mnuFile};
    forms::Menu mnuCompact{*this, "mnuCompact", "&Compact Database", &mnuFile};
    forms::Menu mnuFixFile{*this, "mnuFixFile", "&Fix  the File", &mnuFile};
    forms::Menu mnuUndoFileOp{*this, "mnuUndoFileOp", "&Undo Last File Operation", &mnuFile};
    forms::Menu mnuInfo{*this, "mnuInfo", "File &Information", &mnuFile};
    forms::Menu mnuPref{*this, "mnuPref", "Vestrel &Preferences", &mnuFile};
    forms::Menu mnuCompare{*this, "mnuCompare", "Compare", &mnuFile};
    forms::ControlArray<forms::Menu> mnuRecentFile{*this, "mnuRecentFile", 5, std::string("-"), &mnuFile};
    forms::Menu mnuSepF1{*this, "mnuSepF1", "-", &mnuFile};
    forms::Menu mnuExit{*this, "mnuExit", "E&xit", &mnuFile};

    forms::Menu mnuEdit{*this, "mnuEdit", "&Edit"};
    forms::Menu mnuUndo{*this, "mnuUndo", "&Undo Changes", &mnuEdit};
    forms::Menu mnuEditMode{*this, "mnuEditMode", "&Edit Mode", &mnuEdit};
    forms::Menu mnuMembers{*this, "mnuMembers", "SDA &Members", &mnuEdit};
    forms::Menu mnuZipCodes{*this, "mnuZipCodes", "&Assign ZipCodes", &mnuEdit};
    forms::Menu mnuEditTeamNames{*this, "mnuEditTeamNames", "Edit &Team Names", &mnuEdit};
    forms::Menu mnuVisits{*this, "mnuVisits", "Enter &Visits", &mnuEdit};
    forms::Menu mnuSepE1{*this, "mnuSepE1", "-", &mnuEdit};
    forms::Menu mnuGlobal{*this, "mnuGlobal", "&Global Search", &mnuEdit};

    forms::Menu mnuRecords{*this, "mnuRecords", "&Records"};
    forms::Menu mnuAddRecords{*this, "mnuAddRecords", "&Add New Records", &mnuRecords};
    forms::Menu mnuCopy{*this, "mnuCopy", "&Copy to New Record", &mnuRecords};
    forms::Menu mnuDeleteRecord{*this, "mnuDeleteRecord", "&Delete Record", &mnuRecords};
    forms::Menu munUndeleteRec{*this, "munUndeleteRec", "&Undelete Records", &mnuRecords};
    forms::Menu mnuRecordsFirstLine{*this, "mnuRecordsFirstLine", "-", &mnuRecords};
    forms::Menu mnuPreviousRec{*this, "mnuPreviousRec", "&Previous Record", &mnuRecords};
    forms::Menu mnuNextRecord{*this, "mnuNextRecord", "&Next Record", &mnuRecords};

    forms::Menu mnuTools{*this, "mnuTools", "&Tools"};
    forms::Menu mnuAddLastMeeting{*this, "mnuAddLastMeeting", "Add &Last Meeting", &mnuTools};
    forms::Menu mnuAttendUpdate{*this, "mnuAttendUpdate", "&Attendance Update Form", &mnuTools};
    forms::Menu mnuCntWorkers{*this, "mnuCntWorkers", "Count &Team Names", &mnuTools};
    forms::Menu mnuTeamAssignments{*this, "mnuTeamAssignments", "&Team Assignments", &mnuTools};
    forms::Menu munMarkedLine{*this, "munMarkedLine", "-", &mnuTools};
    forms::Menu mnuMarkMarkers{*this, "mnuMarkMarkers", "Mark all Displayed Records", &mnuTools};
    forms::Menu mnuClearMark{*this, "mnuClearMark", "Clear Markers", &mnuTools};
    forms::Menu mnuClearMrkLine{*this, "mnuClearMrkLine", "-", &mnuTools};
    forms::Menu mnuClearIntFlag{*this, "mnuClearIntFlag", "Clear Interest Card Flag", &mnuTools};
    forms::Menu mnuExcel{*this, "mnuExcel", "Open &Excel Charts", &mnuTools};
    forms::Menu mnuMMergeTitle{*this, "mnuMMergeTitle", "Mail Merge Files", &mnuTools};
    forms::Menu mnuMailMerge{*this, "mnuMailMerge", "Write &Mail Merge File", &mnuMMergeTitle};
    forms::Menu mnuNamAndNum{*this, "mnuNamAndNum", "Merge Name and Number", &mnuMMergeTitle};
    forms::Menu mnuMMDupIntMemNam{*this, "mnuMMDupIntMemNam", "Duplicate Int and Mem Names", &mnuMMergeTitle};
    forms::Menu mnuEmail{*this, "mnuEmail", "Export to E-Mail File", &mnuTools};
    forms::Menu mnuExpMap{*this, "mnuExpMap", "Export To Street Atlas Maps", &mnuTools};
    forms::Menu mnuExportText{*this, "mnuExportText", "Export to Text File", &mnuTools};
    forms::Menu mnuPrayerEntryLine{*this, "mnuPrayerEntryLine", "-", &mnuTools};
    forms::Menu mnuEnterPrayerRequest{*this, "mnuEnterPrayerRequest", "Enter &Prayer Request", &mnuTools};
    forms::Menu mnuViewPrayerList{*this, "mnuViewPrayerList", "&View Prayer List", &mnuTools};

    forms::Menu mnuPreview{*this, "mnuPreview", "&View Reports"};
    forms::Menu mnuPreMasterLists{*this, "mnuPreMasterLists", "Master Lists", &mnuPreview};
    forms::Menu mnuPreAlpha{*this, "mnuPreAlpha", "Master Alphabetical List", &mnuPreMasterLists};
    forms::Menu mnuPreviewFile{*this, "mnuPreviewFile", "Master Attendance List", &mnuPreMasterLists};
    forms::Menu mnuPreZipMaster{*this, "mnuPreZipMaster", "Master by Zipcode List", &mnuPreMasterLists};
    forms::Menu mnuPreBap{*this, "mnuPreBap", "&Baptism List", &mnuPreview};
    forms::Menu mnuPreDec{*this, "mnuPreDec", "&Decisions", &mnuPreview};
    forms::Menu mnuPreInt{*this, "mnuPreInt", "&Interest Level", &mnuPreview};
    forms::Menu mnuPreMailList{*this, "mnuPreMailList", "Preview Mail List", &mnuPreview};
    forms::Menu mnuPreAddress{*this, "mnuPreAddress", "Duplicate Addresses", &mnuPreview};
    forms::Menu mnuStats{*this, "mnuStats", "&Statistics", &mnuPreview};
    forms::Menu mnuWkrStats{*this, "mnuWkrStats", "&Visitation Stats", &mnuPreview};

    forms::Menu mnuPrint{*this, "mnuPrint", "&Print Reports"};
    forms::Menu mPrCut{*this, "mPrCut", "&Meeting Cut Off Point", &mnuPrint};
    forms::Menu mnuIntMem{*this, "mnuIntMem", "Interest and Members Numbers", &mnuPrint};
    forms::Menu mnuMemIntTickets{*this, "mnuMemIntTickets", "Interest and Members Tickets", &mnuPrint};
    forms::Menu mnunamesbynumber{*this, "mnunamesbynumber", "Interest and Members by Number", &mnuPrint};
    forms::Menu mprSpace1{*this, "mprSpace1", "-", &mnuPrint};
    forms::Menu mnuPrRptMasters{*this, "mnuPrRptMasters", "Master Reports", &mnuPrint};
    forms::Menu mnuPrRptSubAlpha{*this, "mnuPrRptSubAlpha", "Alphabetical Report", &mnuPrRptMasters};
    forms::Menu mnuRptSubAttend{*this, "mnuRptSubAttend", "Attendance Report", &mnuPrRptMasters};
    forms::Menu mnuPrRptSelectedMtg{*this, "mnuPrRptSelectedMtg", "Attending a Selected Meeting", &mnuPrRptMasters};
    forms::Menu mnuPrnTotalAttended{*this, "mnuPrnTotalAttended", "Total Meetings Attended", &mnuPrRptMasters};
    forms::Menu mnuRptSubZip{*this, "mnuRptSubZip", "Names by Zipcode", &mnuPrRptMasters};
    forms::Menu mnuPrRptWorkerCode{*this, "mnuPrRptWorkerCode", "Reports by Team", &mnuPrint};
    forms::Menu mnuPrintAlphaWC{*this, "mnuPrintAlphaWC", "Alphabetical by Team", &mnuPrRptWorkerCode};
    forms::Menu mnuPrintAttendWC{*this, "mnuPrintAttendWC", "Attendance by Team", &mnuPrRptWorkerCode};
    forms::Menu mnuTeamMaster{*this, "mnuTeamMaster", "Master List by Teams", &mnuPrRptWorkerCode};
    forms::Menu mnuPrnTotalAttendedWC{*this, "mnuPrnTotalAttendedWC", "Total Meetings Attended by Team", &mnuPrRptWorkerCode};
    forms::Menu mnuPrBapt{*this, "mnuPrBapt", "&Baptisms", &mnuPrint};
    forms::Menu mnuPrintBaptClass{*this, "mnuPrintBaptClass", "Baptismal/ Bible Class List", &mnuPrBapt};
    forms::Menu mnuPrBaptDate{*this, "mnuPrBaptDate", "Baptism Dates", &mnuPrBapt};
    forms::Menu mnuSDARpt{*this, "mnuSDARpt", "Church Pref. SDA", &mnuPrBapt};
    forms::Menu mnuPrDecisions{*this, "mnuPrDecisions", "&Decisions", &mnuPrint};
    forms::Menu mnuICard{*this, "mnuICard", "&Interest Card Labels", &mnuPrint};
    forms::Menu mnuPrIntLevel{*this, "mnuPrIntLevel", "&Interest Level", &mnuPrint};
    forms::Menu mnuPrMailLbl{*this, "mnuPrMailLbl", "&Mail Labels", &mnuPrint};
    forms::Menu mnuLabelTestSheet{*this, "mnuLabelTestSheet", "Label &Test Sheet", &mnuPrint};
    forms::Menu mnuMapCode{*this, "mnuMapCode", "&by Map Code", &mnuPrint};
    forms::Menu mnuPreCrusade{*this, "mnuPreCrusade", "Pre-Crusade Invitations", &mnuPrint};
    forms::Menu mnuPrMarked{*this, "mnuPrMarked", "Special Marked Names", &mnuPrint};
    forms::Menu mnuPrBaptList{*this, "mnuPrBaptList", "Baptisms and Professions of Faith", &mnuPrBapt};

    forms::Menu mnuFilterS{*this, "mnuFilterS", "Fi&lters"};
    forms::Menu mnuAllAlpha{*this, "mnuAllAlpha", "&All Names by Alpha", &mnuFilterS};
    forms::Menu mnuAlphaCutOffFilter{*this, "mnuAlphaCutOffFilter", "Alpha Cutoff", &mnuFilterS};
    forms::Menu mnuTeamfilters{*this, "mnuTeamfilters", "Team Code Filters", &mnuFilterS};
    forms::Menu mnuSelTeamCode{*this, "mnuSelTeamCode", "Selected Team Code", &mnuTeamfilters};
    forms::Menu mnuWCAlpha{*this, "mnuWCAlpha", "&Team Code Cutoff Missing", &mnuTeamfilters};
    forms::Menu mnuFilterLine1{*this, "mnuFilterLine1", "-", &mnuFilterS};
    forms::Menu mnuSpecialAttend{*this, "mnuSpecialAttend", "Special Attendance Filters", &mnuFilterS};
    forms::Menu mnuAttendFilter{*this, "mnuAttendFilter", "Sorted by &Attendance", &mnuSpecialAttend};
    forms::Menu mnuFilterSelMtg{*this, "mnuFilterSelMtg", "Attending a Selected Meeting", &mnuSpecialAttend};
    forms::Menu mnuFilterMissedMtgs{*this, "mnuFilterMissedMtgs", "Missed Last Meetings", &mnuSpecialAttend};
    forms::Menu mnuTotalAttend{*this, "mnuTotalAttend", "&Total Meetings Attended", &mnuSpecialAttend};
    forms::Menu mnuAdvFilter{*this, "mnuAdvFilter", "Ad&vertising Filter", &mnuFilterS};
    forms::Menu mnuAgeFilter{*this, "mnuAgeFilter", "A&ge", &mnuFilterS};
    forms::Menu mnuBaptisms{*this, "mnuBaptisms", "&Baptisms", &mnuFilterS};
    forms::Menu mnuBapDate{*this, "mnuBapDate", "Baptism Da&tes", &mnuFilterS};
    forms::Menu mnuDecisionsFilter{*this, "mnuDecisionsFilter", "Decisions", &mnuFilterS};
    forms::Menu mnuAddressFilter{*this, "mnuAddressFilter", "Duplicate Addresses", &mnuFilterS};
    forms::Menu mnuIntLevel{*this, "mnuIntLevel", "&Interest Level", &mnuFilterS};
    forms::Menu mnuMailList{*this, "mnuMailList", "Mail List Filter", &mnuFilterS};
    forms::Menu mnuNeedInterview{*this, "mnuNeedInterview", "Need Baptism Interview", &mnuFilterS};
    forms::Menu mnuNotes{*this, "mnuNotes", "Notes", &mnuFilterS};
    forms::Menu munPre{*this, "munPre", "&PreCrusade", &mnuFilterS};
    forms::Menu mnuReligion{*this, "mnuReligion", "&Religion", &mnuFilterS};
    forms::Menu mnuZips{*this, "mnuZips", "&ZipCodes", &mnuFilterS};
    forms::Menu mnuMarkLine{*this, "mnuMarkLine", "-", &mnuFilterS};
    forms::Menu mnuMarked{*this, "mnuMarked", "Marked Names", &mnuFilterS};
    forms::Menu mnuClearMarks{*this, "mnuClearMarks", "Clear Selection Marks", &mnuFilterS};

    forms::Menu mnuHelp{*this, "mnuHelp", "&Help"};
    forms::Menu mnuHelpFiles{*this, "mnuHelpFiles", "&Help Files", &mnuHelp};
    forms::Menu mnuShortcuts{*this, "mnuShortcuts", "View Shortcuts", &mnuHelp};
    forms::Menu mnuPrintManual{*this, "mnuPrintManual", "Print Vestrel Manual", &mnuHelp};
    forms::Menu mnuUpdate{*this, "mnuUpdate", "Update Vestrel", &mnuHelp};
    forms::Menu mnuAbout{*this, "mnuAbout", "&About Vestrel", &mnuHelp};

private:
    // Field entry rules.
    void WireFields();
    void PreCrusadeLookup();
    bool preCrusadeWarned_ = false;

    void Layout();
    void Wire();
    void ViewEditVisibility();
    void AddVisibility();
    void SetTopMenus(bool on);
    void SetBarButtons(bool on);
    void Highlight(forms::Control& c);
    std::set<const forms::Control*> notBuilt_;
    // Filters.
    void WireFilters();
    // Preferences.
    void WirePrefs();
    void OpenPreferences(bool teamsFirst);
    // The side tables: zip codes and teams, team counts, SDA members.
    void WireZipMembers();
    void OpenZipTable(bool refuseEmpty);
    int ShowAllPlace[4] = {};   // ShowAll's place on the bar; a filter moves it where the search box was
};

// Coded fields, add and save, search.
// Takes the Visits text and the pressed letter's key code; returns the new Visits text.
std::string EnterVisitCode(ProgramState& p, const std::string& visits, int key);

// The exact caption line shown above the bar buttons.
extern const char* const ButtonLabelsText;
