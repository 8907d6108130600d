#include "edit/EditForm.h"

#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

const char* const ButtonLabelsText =
    "Global  New  SDA   Del/ Restore  Mark  GoTo      Name        Undo  Attend   PreV  Chart  Stats";

namespace {
constexpr int px = TwipsPerPixel;
}  // namespace

EditForm::EditForm(Program& prog) : Form(prog.host, "EditForm"), p(prog) {
    KeyPreview = true;
    Layout();
    Wire();
    // Work that is not part of the program yet stays disabled.
    for (Control* c : std::initializer_list<Control*>{
             &btnDelete, &btnUndelete, &btnAttend, &btnViewFile, &btnExcel, &btnPrayer, &mnuBackup, &mnuRestoreCr,
             &mnuErase, &mnuMergeAttendance, &mnuExportToAccess, &mnuCompact, &mnuFixFile,
             &mnuDeleteRecord, &munUndeleteRec, &mnuAddLastMeeting, &mnuAttendUpdate,
             &mnuMarkMarkers, &mnuClearIntFlag, &mnuExcel, &mnuMMergeTitle, &mnuEmail, &mnuExpMap,
             &mnuExportText, &mnuEnterPrayerRequest, &mnuViewPrayerList, &mnuPreMasterLists, &mnuPreBap,
             &mnuPreDec, &mnuPreInt, &mnuPreMailList, &mnuPreAddress, &mPrCut, &mnuPrRptMasters, &mnuPrRptWorkerCode,
             &mnuPrBapt, &mnuPrDecisions, &mnuICard, &mnuPrIntLevel, &mnuPrMailLbl, &mnuMapCode,
             &mnuPreCrusade, &mnuPrMarked, &mnuAllAlpha, &mnuAlphaCutOffFilter, &mnuTeamfilters,
             &mnuSpecialAttend, &mnuAdvFilter, &mnuAgeFilter, &mnuBaptisms, &mnuBapDate, &mnuDecisionsFilter,
             &mnuAddressFilter, &mnuIntLevel, &mnuMailList, &mnuNeedInterview, &mnuNotes, &munPre, &mnuReligion,
             &mnuZips, &mnuMarked}) {
        notBuilt_.insert(c);
        c->SetEnabled(false);
    }
    // The attendance and its totals change only through the attendance routines.
    for (Control* c : {static_cast<Control*>(&Attendance), static_cast<Control*>(&Attend),
                       static_cast<Control*>(&Last), static_cast<Control*>(&Decisions)})
        c->Locked = true;
    for (int i = 0; i <= 8; ++i) Dec[i].SetEnabled(false);
    for (Control* c : {static_cast<Control*>(&Baptized), static_cast<Control*>(&AutoUpdateVisits)})
        c->SetEnabled(false);
    // Field entry rules.
    WireFields();

    // Coded fields, add and save, search.
    for (Control* c : std::initializer_list<Control*>{&Visits, &IntLevel, &Notes, &Advertising, &MtgNum,
                                                      &boxVisitVisits, &boxVisitInterest})
        c->Locked = false;
    for (int i = 0; i <= 8; ++i) Dec[i].SetEnabled(true);
    Baptized.SetEnabled(true);
    AutoUpdateVisits.SetEnabled(true);
    frameVisit.SetVisible(false);   // shown from the Edit menu
    Visits.KeyDown = [this](int& k, int s) { Visits_KeyDown(k, s); };
    mnuVisits.Click = [this] { mnuVisits_Click(); };
    frameVisit.DblClick = [this] { mnuVisits_Click(); };
    boxVisitVisits.LostFocus = [this] { boxVisitVisits_LostFocus(); };
    boxVisitInterest.Change = [this] { boxVisitInterest_Change(); };
    btnVisitUpdate.Click = [this] { btnVisitUpdate_Click(); };
    Advertising.GotFocus = [this] { Advertising_GotFocus(); };
    Advertising.LostFocus = [this] { Advertising_LostFocus(); };
    Dec.Click = [this](int i) { ToggleDecision(i); };
    Dec.MouseUp = [this](int i, int b, int s, float x, float y) { Dec_MouseUp(i, b, s, x, y); };
    IntLevel.Change = [this] { IntLevel_Change(); };
    Baptized.Click = [this] { Baptized_Click(); };
    Notes.KeyDown = [this](int& k, int s) { Notes_KeyDown(k, s); };
    Notes.MouseDown = [this](int b, int s, float x, float y) { Notes_MouseDown(b, s, x, y); };
    mnuClearMark.Click = [this] { mnuClearMark_Click(); };
    mnuClearMarks.Click = [this] { mnuClearMarks_Click(); };
    mnuAddRecords.Click = [this] { mnuAddRecords_Click(); };
    btnAddName.Click = [this] { mnuAddRecords_Click(); };
    btnSaveNew.Click = [this] { btnSaveNew_Click(); };
    btnSaveExit.Click = [this] { btnSaveExit_Click(); DropExitWords(); };
    btnCancelNew.MouseDown = [this](int, int, float, float) { p.ScratchText = "StopImport"; };
    btnSaveExit.MouseDown = [this](int, int, float, float) { p.ScratchText = "StopImport"; };
    mnuCopy.Click = [this] { if (SaveChanges()) CopyCurrentRecord(); };
    mnuUndo.Click = [this] { mnuUndo_Click(); };
    btnUndo.Click = [this] { mnuUndo_Click(); };
    SearchBox.KeyDown = [this](int& k, int s) { SearchBox_KeyDown(k, s); };
    SearchBox.KeyPress = [this](int& k) { SearchBox_KeyPress(k); };
    mnuGlobal.Click = [this] { mnuGlobal_Click(); };
    btnGlobal.Click = [this] { mnuGlobal_Click(); };
    WireDoorScreens();
    WireMergeAttendance();
    WirePreview();
    // The printed reports.
    WireReports();
    WireRegistration();

    // Filters.
    WireFilters();
    WireStats();
    WireFileCare();
    WireMerge();
    WireExchange();
    WireExports();
    WirePrefs();
    WireZipMembers();
}

void EditForm::Enable(Control& c, bool on) { c.SetEnabled(on && !notBuilt_.count(&c)); }

void EditForm::Layout() {
    SetCaption("Vestrel Edit Screen");
    Move(0, 0, 920 * px, 580 * px);

    // The caption line over the bar, in a fixed-pitch face, with each button under its word.
    lblShowButtonLabels.SetCaption(ButtonLabelsText);
    lblShowButtonLabels.FixedPitch = true;
    lblShowButtonLabels.SetFont("Courier New", 9);
    const int charW = 7, left0 = 10;
    Place(lblShowButtonLabels, left0, 4, 688, 16);
    CommandButton* bar[] = {&btnGlobal, &btnAddName, &btnSDA, &btnDelete, &btnUndelete, &btnMark, &btnGoTo,
                            &ShowAll, &btnUndo, &btnAttend, &btnViewFile, &btnExcel, &btnStats};
    const char* tips[] = {"Global Search", "Add a New Name to the File",
                          "Move to SDA Member File or Right Click to Edit Member File", "Remove name from the file",
                          "Restore Deleted Name", "Mark displayed name to return to later", "Return to marked name",
                          "Display all names", "Undo Changes made to this record", "Go to Attendance Update Screen",
                          "Preview the Files", "Look at Charts in MS Excel", "Statistical Data"};
    std::string text = ButtonLabelsText;
    std::size_t pos = 0;
    for (int b = 0; b < 13; ++b) {
        std::size_t start = text.find_first_not_of(' ', pos);
        std::size_t end = text.find_first_of(' ', start);
        if (end == std::string::npos) end = text.size();
        if (text.compare(start, 4, "Del/") == 0) end = start + 4;
        int centre = left0 + static_cast<int>((start + end) * charW / 2);
        // Narrower than the room under a word, so that neighbours never touch.
        Place(*bar[b], centre - 15, 21, 31, 34);
        bar[b]->SetToolTipText(tips[b]);
        bar[b]->SetPicture(bar[b]->Name());
        pos = end;
    }
    ShowAll.SetCaption("");

    Place(SearchBoxLabel, 700, 4, 206, 16);
    Place(SearchBox, 700, 21, 200, 22);
    Place(FndNameBx, 700, 46, 200, 16);

    // The list and where we stand in it.
    EditLabel.SetFontBold(true);
    EditLabel.SetForeColor(vbDarkBlue);
    Place(EditLabel, 10, 64, 260, 34);
    Place(RecordCounter, 280, 64, 120, 16);
    Place(RecordPos, 280, 82, 120, 16);
    RecordPos.SetVisible(false);
    Place(AddNameLabel, 410, 64, 120, 20);
    AddNameLabel.SetFontBold(true);
    Place(MtgNumLabel, 540, 64, 100, 16);
    Place(MtgNum, 640, 62, 40, 22);

    // The card.
    auto field = [](Label& l, Control& box, int x, int y, int w) {
        Place(l, x, y, w, 15);
        Place(box, x, y + 15, w, 22);
    };
    field(lblRNum, RNum, 10, 102, 56);
    field(lblFName, FName, 74, 102, 170);
    field(lblLName, LName, 252, 102, 170);
    field(lblPhone, Phone, 430, 102, 110);
    field(lblEmail, txtEmail, 548, 102, 240);
    field(lblAddress, Address, 10, 148, 250);
    field(lblCity, City, 268, 148, 160);
    field(lblState, State, 436, 148, 40);
    field(lblZip, Zip, 484, 148, 90);
    field(lblAge, Age, 582, 148, 76);
    Place(Label_Mailist, 666, 148, 70, 15);
    Place(MailList, 666, 165, 20, 20);
    field(lblRelPref, RelPref, 10, 194, 170);
    field(lblAdvertising, Advertising, 188, 194, 150);
    field(lblWorkerCode, WorkerCode, 346, 194, 70);
    field(lblIntLevel, IntLevel, 424, 194, 60);
    field(lblVisits, Visits, 492, 194, 110);
    field(lblMapCode, MapCode, 610, 194, 80);
    field(lblBaptDate, BaptDate, 10, 240, 80);
    Place(lblBapDate, 94, 259, 40, 16);
    field(lblBirthDate, BirthDate, 140, 240, 80);
    Place(lblClass, 232, 240, 100, 15);
    Place(Class, 232, 257, 20, 20);
    Place(lBaptized, 340, 240, 90, 15);
    Place(Baptized, 340, 257, 20, 20);
    Place(chkMarkToVisit, 440, 256, 130, 22);
    Place(btnPrayer, 740, 148, 130, 44);
    btnPrayer.SetToolTipText("Use this instead of Notes  for all pertinant Comments or Prayer Requests [Ctrl-P]");
    btnPrayer.SetPicture("btnPrayer");
    RelPref.SetToolTipText("Select from List or type in name");

    Place(lblAttendance, 10, 286, 100, 15);
    Place(Attendance, 10, 301, 340, 22);
    Attendance.FixedPitch = true;
    Attendance.SetFont("Courier New", 9);
    Place(lblAttend, 358, 286, 40, 15);
    Place(Attend, 358, 301, 40, 22);
    Place(lblLast, 406, 286, 40, 15);
    Place(Last, 406, 301, 40, 22);
    Place(Decisions, 454, 301, 100, 22);
    Decisions.SetVisible(false);

    Place(Frame1, 10, 332, 540, 100);
    for (int i = 0; i <= 8; ++i) {
        Place(Dec[i], 10 + (i % 3) * 176, 20 + (i / 3) * 24, 170, 22, &Frame1);
        Dec[i].SetVisible(true);
    }
    Place(Label17, 560, 332, 310, 15);
    Place(Notes, 560, 349, 310, 83);
    Notes.MultiLine = true;

    Place(frameVisit, 560, 238, 310, 88);
    Place(lblVisitVisit, 10, 22, 50, 16, &frameVisit);
    Place(boxVisitVisits, 60, 20, 90, 22, &frameVisit);
    Place(lblVisitInt, 160, 22, 60, 16, &frameVisit);
    Place(boxVisitInterest, 220, 20, 30, 22, &frameVisit);
    Place(btnVisitUpdate, 10, 54, 80, 26, &frameVisit);
    Place(AutoUpdateVisits, 110, 58, 20, 20, &frameVisit);
    Place(Label4, 132, 60, 100, 16, &frameVisit);

    // Walking the list.
    const char* chgTips[] = {"First name in the list", "Right Click for next  alphabet, worker code, etc.",
                             "Right Click for next church, alphabet, worker code, etc.", "Last name in the list"};
    for (int i = 0; i <= 3; ++i) {
        Place(ChgRec[i], 10 + i * 52, 450, 48, 40);
        ChgRec[i].SetVisible(true);
        ChgRec[i].SetPicture("ChgRec" + std::to_string(i));
        ChgRec[i].SetToolTipText(chgTips[i]);
    }
    Place(lblNextFieldBtn, 230, 464, 200, 16);
    // Narrow, so that each caption wraps where its blanks push the second line down.
    Place(btnSaveNew, 600, 446, 64, 46);
    Place(btnSaveExit, 672, 446, 64, 46);
    Place(btnCancelNew, 744, 446, 64, 46);
    // Shown only while one person is edited from the preview: under the card, not above it.
    Place(ReturnToPreviewMsg, 10, 500, 900, 16);
    ReturnToPreviewMsg.SetForeColor(vbRed);

    // Focus catchers and the picture box take no room.
    Place(EntInd, 0, 0, 0, 0);
    Place(SDAIdent, 0, 0, 0, 0);
    Place(Picture1, 0, 0, 0, 0);
    Picture1.SetVisible(false);

    for (int i = 0; i <= 4; ++i) mnuRecentFile[i].SetVisible(false);
    // The screen starts in the view and edit state.
    AddVisibility();
    ViewEditVisibility();
    SetTopMenus(true);
    for (int i = 0; i <= 3; ++i) ChgRec[i].SetVisible(true);
    ShowAll.SetVisible(false);
}

void EditForm::Wire() {
    ChgRec.Click = [this](int i) { ChgRec_Click(i); };
    ChgRec.MouseUp = [this](int i, int b, int s, float x, float y) { ChgRec_MouseUp(i, b, s, x, y); };
    mnuNextRecord.Click = [this] { mnuNextRecord_Click(); };
    mnuPreviousRec.Click = [this] { mnuPreviousRec_Click(); };
    btnMark.Click = [this] { btnMark_Click(); };
    btnGoTo.Click = [this] { btnGoTo_Click(); };
    ShowAll.Click = [this] { ShowAll_Click(); };
    EditLabel.DblClick = [this] { EditLabel_DblClick(); };
    Label17.DblClick = [this] { Label17_DblClick(); };
    mnuInfo.Click = [this] { mnuInfo_Click(); };
    mnuHelpFiles.Click = [this] { mnuHelpFiles_Click(); };
    mnuShortcuts.Click = [this] { mnuShortcuts_Click(); };
    mnuPrintManual.Click = [this] { mnuPrintManual_Click(); };
    mnuAbout.Click = [this] { mnuAbout_Click(); };
    mnuExit.Click = [this] { mnuExit_Click(); };
    mnuEditMode.Click = [this] { mnuEditMode_Click(); };
    btnCancelNew.Click = [this] { btnCancelNew_Click(); DropExitWords(); };
    mnuChgCr.Click = [this] { mnuChgCr_Click(); };
    mnuNewCr.Click = [this] { mnuNewCr_Click(); };
    mnuRecentFile.Click = [this](int i) { mnuRecentFile_Click(i); };
    EntInd.GotFocus = [this] { EntInd_GotFocus(); };
    SDAIdent.GotFocus = [this] { SDAIdent_GotFocus(); };
}

void EditForm::SetTopMenus(bool on) {
    for (Menu* m : {&mnuFile, &mnuEdit, &mnuRecords, &mnuTools, &mnuPreview, &mnuPrint, &mnuFilterS})
        Enable(*m, on);
}

void EditForm::SetBarButtons(bool on) {
    for (Control* c : std::initializer_list<Control*>{&btnViewFile, &btnAttend, &btnGoTo, &btnDelete, &btnUndelete,
                                                      &btnSDA, &btnMark, &btnGlobal, &btnExcel, &btnAddName,
                                                      &btnStats, &btnUndo})
        Enable(*c, on);
}

void EditForm::ViewEditVisibility() {
    for (Control* c : std::initializer_list<Control*>{&SearchBox, &SearchBoxLabel, &EditLabel, &Visits, &lblVisits,
                                                      &IntLevel, &lblIntLevel, &BaptDate, &lblBaptDate, &lblBapDate,
                                                      &MapCode, &lblMapCode, &Class, &lblClass, &Baptized, &lBaptized,
                                                      &BirthDate, &lblBirthDate})
        c->SetVisible(true);
    for (Control* c : std::initializer_list<Control*>{&btnSaveNew, &btnSaveExit, &btnCancelNew, &MtgNum,
                                                      &MtgNumLabel, &AddNameLabel, &ReturnToPreviewMsg})
        c->SetVisible(false);
    SetBarButtons(true);
    Enable(mnuEditMode, false);
    Enable(mnuAddRecords, true);
    lblNextFieldBtn.SetCaption("Right Click for Next Field");
}

void EditForm::AddVisibility() {
    for (Control* c : std::initializer_list<Control*>{&btnSaveNew, &btnSaveExit, &btnCancelNew, &AddNameLabel,
                                                      &MtgNum, &MtgNumLabel})
        c->SetVisible(true);
    for (Control* c : std::initializer_list<Control*>{&Visits, &lblVisits, &IntLevel, &lblIntLevel, &SearchBox,
                                                      &SearchBoxLabel, &BaptDate, &lblBaptDate, &lblBapDate, &MapCode,
                                                      &lblMapCode, &Class, &lblClass, &Baptized, &lBaptized,
                                                      &BirthDate, &lblBirthDate, &EditLabel})
        c->SetVisible(false);
    for (int i = 0; i <= 3; ++i) ChgRec[i].SetVisible(false);
    SetBarButtons(false);
    SetTopMenus(false);
}

void EditForm::DropExitWords() {
    // "dontexit" is for the closing of the screen, and "StopImport" for the number box the
    // press left: after a click on the button itself neither has a reader left, and a word
    // lying there would swallow the next move.
    if (p.ScratchValue == "dontexit") p.ScratchValue.clear();
    if (p.ScratchText == "StopImport") p.ScratchText.clear();
}
