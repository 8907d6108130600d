#include "reports/PrintReports.h"

#include <algorithm>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/BlankFrm.h"
#include "reports/ReportRun.h"
#include "reports/ReportParts.h"
#include "store/Records.h"
#include "store/SortIndex.h"

using namespace forms;
using namespace vb;

namespace {

constexpr int px = TwipsPerPixel;

char DecisionAt(const MasterRecord& r, int i) { return i >= 1 ? r.Decisions.At(i) : ' '; }

std::string TwoDigits(int n) { return Format(n, "00"); }

// A team's name as the titles show it: without its colon.
std::string TeamName(const ProgramState& p, int team) {
    if (team < 0 || team > 40) return "";
    std::string s = p.TeamNames[static_cast<std::size_t>(team)];
    s.erase(std::remove(s.begin(), s.end(), ':'), s.end());
    return s;
}

}  // namespace

std::string PreviewLine(const ProgramState& p, const MasterRecord& r, const std::string& kind,
                        const std::string& entry, reports::DecisionMarks marks) {
    const bool dated = reports::HasBaptDate(r);   // a stored "12:00AM" is no date
    const bool baptized = r.IntLevel == "G";
    std::string head = r.WorkerCode.str() + " " + r.RNum.str() + " ";
    if (dated) head += baptized ? " " : "#";
    else head += r.Class ? "@" : " ";
    head += RTrim(r.LName) + ", " + RTrim(r.FName);
    if (dated || baptized) {
        // The printed reports test the unite mark differently; the preview keeps its own test.
        if (DecisionAt(r, marks.BaptIdx) == '-') head += "*";
        if (DecisionAt(r, marks.BaptIdx) != '-' && DecisionAt(r, marks.UniteIdx) != 'U') head += "(r)";
    }
    head = Fixed(head, 30);

    const std::string& att = r.Attendance;
    const std::string att24 = p.MeetingNumber < 25 ? Left(att, 24) : Mid(att, p.MeetingNumber - 23, 24);
    const std::string level = r.IntLevel;
    const std::string lastMet = TwoDigits(r.Last);

    if (kind == "decisions9") {
        std::string visits = Trim(r.Visits);
        std::string s = head + "  " + att24 + "/" + level + "  " + Trim(r.Decisions) + "  " +
                        (visits.empty() ? std::string(" ") : Right(visits, 3));
        if (r.Class) s += dated ? " Apt-CL" : " Apt";
        return s;
    }
    if (kind == "religion") return head + "  " + att24 + " " + level + "  (" + Trim(r.RelPref) + ")";
    if (kind == "date" || kind == "FutureBapDateSet")
        return head + "  " + att24 + " " + level + "  (" + r.BaptDate.str() + ")";
    if (kind == "BaptClass") {
        int day = static_cast<int>(Val(Mid(entry, 6, 1)));
        int hour = static_cast<int>(Val(Mid(entry, 7)));
        std::string dayName = day >= 0 && day <= 6 ? p.WeekDays[static_cast<std::size_t>(day)] : "";
        std::string hourName = hour >= 0 && hour <= 13 ? p.HourLabels[static_cast<std::size_t>(hour)] : "";
        return head + "  " + att24 + " " + level + "  (" + Fixed(dayName + ": ", 11) + hourName + ")";
    }
    if (kind == "zip")
        return head + "  (" + Left(r.Zip, 5) + Left(r.City, 5) + ") " + Left(r.Address, 24) + "    " +
               Left(att24, 10);
    if (kind == "PreCrusade") {
        std::string adv = Trim(r.Advertising);
        long dash = InStr(adv, "-");
        std::string after = dash > 0 ? Mid(adv, dash + 1) : "";
        return head + "  (" + Fixed(after, 12) + ")    " + att24 + " /" + level;
    }
    if (kind == "notes") return head + "  " + Left(r.Notes, 34) + "    " + Left(att24, 10);
    if (kind == "mail")
        return Mid(head, 9, 21) + (r.MailList ? "(ML) " : "     ") + "  (" + Left(r.City, 3) + Trim(r.Zip) + ") " +
               Left(r.Address, 24) + "  T=" + r.Attend.str() + " LM=" + lastMet + "/  " + Trim(r.Age);
    if (kind == "TDupAddress" || kind == "NDupAddress" || kind == "DupAddress" || kind == "CleanMailList") {
        std::string city = Left(r.City, 3);
        return head + "  " + (r.MailList ? "*" + city + "* " : "(" + city + ") ") + Left(r.Address, 24) +
               "  T=" + r.Attend.str() + " LM=" + lastMet + "/  " + Trim(r.Age);
    }
    return head + "  " + att24 + "/" + level + "  " + Trim(r.Decisions) + "/" + r.Visits.str();
}

PrintReports::PrintReports(ReportRun& prog) : Form(prog.host, "PrintReports"), p(prog) {
    Layout();
    Wire();
}

void PrintReports::Layout() {
    SetCaption("Vestrel PreView");
    Move(0, 0, 1010 * px, 690 * px);

    Place(CrTitleBox, 8, 6, 520, 24);
    CrTitleBox.Locked = true;
    CrTitleBox.SetFont("Arial", 12);
    CrTitleBox.SetFontBold(true);
    Place(boxMailLabelIndicator, 536, 6, 150, 24);
    boxMailLabelIndicator.Locked = true;
    Place(txtInstructions, 8, 34, 680, 22);
    txtInstructions.Locked = true;
    txtInstructions.SetToolTipText("Instructions for special lists");

    // The list: a fixed-pitch box of 25 lines, its columns answering clicks.
    Info.MultiLine = true;
    Info.FixedPitch = true;
    Info.Locked = true;
    Info.SetFont("Courier New", 9);
    Place(Info, 8, 60, 660, 362);
    Info.SetToolTipText("You can Click Team Code to Change Team Code");
    Place(VScroll1, 670, 60, 18, 362);
    VScroll1.SmallChange = 1;
    VScroll1.LargeChange = 25;

    Place(optES, 698, 6, 300, 96);
    Place(OptVisit, 10, 18, 130, 20, &optES);
    Place(OptIntML, 10, 42, 130, 20, &optES);
    Place(optAt, 150, 18, 140, 20, &optES);
    Place(optEd, 150, 42, 140, 20, &optES);
    Place(HelpButton, 10, 68, 40, 22, &optES);
    HelpButton.SetToolTipText("Help on entering visits");

    Place(Frame3, 698, 108, 300, 48);
    for (int i = 0; i <= 1; ++i) Place(optSortOpt[i], 10 + 140 * i, 20, 130, 20, &Frame3);
    optSortOpt[0].SetCaption("Alphabet");
    optSortOpt[1].SetCaption("Attend");
    optSortOpt[1].SetVisible(true);

    Place(Label3, 698, 166, 110, 18);
    Place(PrintCutOffBox, 808, 164, 40, 22);
    PrintCutOffBox.SetToolTipText("Will remove names from the list who have not attended since this meeting.");
    Place(btnVscrollUp, 850, 162, 24, 13);
    Place(btnVScrollDn, 850, 175, 24, 13);
    Place(chkDisableCutoff, 884, 164, 110, 22);
    chkDisableCutoff.SetToolTipText(
        "Will temporarily reset the cutoff to 0 until you close the filter or uncheck this box.");

    Place(lblMailOpt, 698, 196, 200, 18);
    Place(chkMailOpt, 698, 216, 140, 22);
    chkMailOpt.SetToolTipText("This will only include those names with the Mail List box checked.");
    Place(chkPrnMailLabels, 846, 216, 140, 22);
    chkPrnMailLabels.SetToolTipText(
        "This report will print the names and addresses on a mail label when the print button is selected.");
    Place(Command2, 698, 242, 150, 26);

    Place(CkIncludeF, 698, 278, 120, 22);
    CkIncludeF.SetToolTipText("Include 'F' Level Names");
    Place(chkTeam, 826, 278, 80, 22);
    Place(ChkSaveFilter, 698, 304, 200, 22);

    Place(lblSelTeamToVies, 8, 430, 300, 18);
    btnTeam[0].SetVisible(false);
    for (int i = 1; i <= 21; ++i) {
        Place(btnTeam[i], 8 + (i - 1) * 30, 450, 28, 24);
        btnTeam[i].SetCaption(i == 21 ? std::string("All") : Right(Format(i, "00"), 2));
        btnTeam[i].SetVisible(true);
    }
    Place(btnTeamSel, 8 + 21 * 30 + 4, 450, 50, 24);

    for (int i = 0; i <= 14; ++i) {
        Place(btnSelect[i], 8 + (i % 5) * 136, 482 + (i / 5) * 24, 132, 22);
        btnSelect[i].SetVisible(false);
    }

    int x = 8;
    for (Control* c : std::initializer_list<Control*>{&MasterListButton, &PVInterestLevel, &btnBaptisms, &pvBapDate,
                                                      &NeedBapDate, &Appointments, &btnInterviewNeeded, &PVDecisions}) {
        Place(*c, x, 560, 84, 30);
        x += 86;
    }
    Place(Command1, 8, 596, 84, 30);
    Place(btnPrint, 716, 560, 130, 66);
    btnPrint.SetFont("Arial", 14);
    btnPrint.SetFontBold(true);
    Place(CloseBut, 856, 560, 130, 66);
}

void PrintReports::Wire() {
    Info.MouseDown = [this](int b, int s, float x, float y) { Info_MouseDown(b, s, x, y); };
    VScroll1.Change = [this] {
        if (!drawing_) showScrollInfo();
    };
    VScroll1.KeyDown = [this](int& k, int s) { VScroll1_KeyDown(k, s); };
    OptVisit.Click = [this] { OptVisit_Click(); };
    OptVisit.DblClick = [this] { OptVisit_Click(); };
    OptVisit.KeyPress = [this](int& k) { OptVisit_KeyPress(k); };
    optEd.Click = [this] { LeftMode = "E"; };
    optAt.Click = [this] { LeftMode = "A"; };
    OptIntML.Click = [this] { LeftMode = chkPrnMailLabels.Value() ? "ML" : "I"; };
    HelpButton.Click = [this] { HelpButton_Click(); };
    PrintCutOffBox.Change = [this] { PrintCutOffBox_Change(); };
    btnVscrollUp.Click = [this] { btnVscrollUp_Click(); };
    btnVScrollDn.Click = [this] { btnVScrollDn_Click(); };
    chkDisableCutoff.Click = [this] { chkDisableCutoff_Click(); };
    ChkSaveFilter.Click = [this] { ChkSaveFilter_Click(); };
    btnTeamSel.Click = [this] { btnTeamSel_Click(); };
    btnTeam.Click = [this](int i) { btnTeam_Click(i); };
    chkTeam.Click = [this] { chkTeam_Click(); };
    CkIncludeF.Click = [this] {
        if (!quiet_) p.IncludeFLevel = CkIncludeF.Value() != 0;
    };
    PVDecisions.Click = [this] { PVDecisions_Click(); };
    btnSelect.Click = [this](int i) { btnSelect_Click(i); };
    chkMailOpt.Click = [this] { chkMailOpt_Click(); };
    chkPrnMailLabels.Click = [this] { chkPrnMailLabels_Click(); };
    btnPrint.Click = [this] { btnPrint_Click(); };
    MasterListButton.Click = [this] { MasterListButton_Click(); };
    PVInterestLevel.Click = [this] { PVInterestLevel_Click(); };
    btnBaptisms.Click = [this] { btnBaptisms_Click(); };
    pvBapDate.Click = [this] { pvBapDate_Click(); };
    CloseBut.Click = [this] { CloseBut_Click(); };

    const std::string mlHelp = "(ML) indicates Mail List----  T = xx is Total Meetings attended and L = xx is the "
                               "last meeting atttended.";
    const std::string abcNoInterview = "A, B, or C names who do not have a baptism interview scheduled.";
    mnuPreMeeting.Click = [this] {
        RunMenuFilter("PreCrusade",
                      "Must select 'P' for Pre Meeting Interest in the Advertising field to appear on this list");
    };
    mnuTotalAttendance.Click = [this] { RunMenuFilter("TotalAttend", ""); };
    mnuByZip.Click = [this] { RunMenuFilter("zip", ""); };
    mnuMLAllNames.Click = [this] { RunMenuFilter("mail", ""); };
    mnuCleanMList.Click = [this, mlHelp] { CleanMailList(mlHelp); };
    Command2.Click = [this, mlHelp] { CleanMailList(mlHelp); };
    mnuMissedMtgs.Click = [this] { RunMenuFilter("missednight", ""); };
    mnuSelMtg.Click = [this] { RunMenuFilter("attendnight", ""); };
    mnuDupAdd.Click = [this, mlHelp] { RunMenuFilter("DupAddress", mlHelp); };
    mnuDupAddName.Click = [this, mlHelp] { RunMenuFilter("NDupAddress", mlHelp); };
    mnuDupAddTeam.Click = [this, mlHelp] { RunMenuFilter("TDupAddress", mlHelp); };
    mnuNeedSabVis.Click = [this] {
        RunMenuFilter("needsabvis", "All who heard the Sabbath sermon and have not been visited yet.");
    };
    mnuNeedIntLev.Click = [this] {
        RunMenuFilter("NoAssignedInterest", "All Current names with NO Interest Level Assigned.");
    };
    mnuMap.Click = [this] { RunMenuFilter("map", ""); };
    mnuMarkedCards.Click = [this] {
        RunMenuFilter("marked", "Only names with a check in the marked box will appear here.");
    };
    mnuNotes.Click = [this] { RunMenuFilter("notes", "Only records with notes with appear in this list."); };
    auto interviewSet = [this] {
        RunMenuFilter("BaptClass", "Check the Bapt. Interview/ Class checkbox for a name to appear on this list");
    };
    MnuInterviewSet.Click = interviewSet;
    Appointments.Click = interviewSet;
    mnuBapIntRem.Click = [this] {
        RunMenuFilter("InterviewRemain",
                      "A, B, or C names who have a baptism interview scheduled but do not have a baptism date set.");
    };
    auto needInterview = [this, abcNoInterview] {
        RunMenuFilter(chkTeam.Value() ? "WCNeedInterview" : "NeedInterview", abcNoInterview);
    };
    MnuInterview.Click = needInterview;
    btnInterviewNeeded.Click = needInterview;
    auto needDate = [this] { RunMenuFilter("NeedDate", "A or B names who do not have a baptism date scheduled."); };
    mnuNeedDate.Click = needDate;
    NeedBapDate.Click = needDate;
    mnuBapDateSet.Click = [this] { RunMenuFilter("FutureBapDateSet", ""); };
    mnuAllBapDates.Click = [this] { RunMenuFilter("date", ""); };
    mnuBaptisms.Click = [this] { btnBaptisms_Click(); };
    Command1.Click = [this] { p.Blank().Show(true); };
}

void PrintReports::Form_Load() {
    inLoad_ = true;
    StartAsDesigned();
    if (!p.SaveFilterOnExit) {
        ChkSaveFilter.SetValue(vbUnchecked);
    } else {
        ChkSaveFilter.SetValue(p.SortName == "DupAddress" ? vbUnchecked : vbChecked);
    }
    SetCaption("Preview " + p.CrusadeName + " Meeting Number: " + CStr(p.MeetingNumber));
    Info.SetVisible(true);
    PrintCutOffBox.SetText(CStr(p.PrintCutOff));
    optAt.SetCaption("Attend " + CStr(p.MeetingNumber));
    optEd.SetValue(-1);
    LeftMode = "E";
    optSortOpt[p.SortName == "attend" || p.SortName == "wcattend" ? 1 : 0].SetValue(-1);
    CkIncludeF.SetToolTipText(
        "Includes Interest Level 'F' in the list.  F means a future interest, not ready for Baptism yet.");
    PVInterestLevel.SetToolTipText("Displays Names arranged by Interest Level.  " + p.CrLf +
                                   "Includes Interest Levels A, B, C and G  " + p.CrLf +
                                   "Level G is for those who have been Baptized");
    p.ReligionList[0] = "Church Preference";
    decisionsShowing_ = true;
    for (int i = 1; i <= 9; ++i) {
        btnSelect[i].SetCaption(p.DecisionNames[static_cast<std::size_t>(i)]);
        btnSelect[i].SetVisible(true);
    }
    inLoad_ = false;
    PreviewReport();
}

// What the operator set on the last preview, perhaps in another crusade, is gone
// when the form loads again.
void PrintReports::StartAsDesigned() {
    quiet_ = true;
    for (CheckBox* b : {&chkTeam, &chkMailOpt, &chkPrnMailLabels, &chkDisableCutoff, &CkIncludeF})
        b->SetValue(vbUnchecked);
    ClrDecisions();
    quiet_ = false;
    p.IncludeFLevel = false;
    for (Control* c : std::initializer_list<Control*>{&PrintCutOffBox, &btnVscrollUp, &btnVScrollDn})
        c->SetEnabled(true);
    optAt.SetVisible(true);
    OptIntML.SetVisible(true);
    OptIntML.SetCaption("Interest");
    boxMailLabelIndicator.SetText("");
    txtInstructions.SetText("");
    VisitCode.clear();
    OptVisit.SetCaption("Visit");
    Church.clear();
    TeamChosen = 0;
    PrevSort.clear();
    if (btnTeamSel.Caption() != "21-40") btnTeamSel_Click();
    PVDecisions.SetCaption("View Decisions");
    btnSelect[0].SetVisible(false);
    for (int i = 10; i <= 14; ++i) btnSelect[i].SetVisible(false);
}

void PrintReports::Form_Activate() {
    if (!chkDisableCutoff.Value()) {
        inLoad_ = true;
        PrintCutOffBox.SetText(CStr(p.PrintCutOff));
        inLoad_ = false;
    }
    if (p.IndexCount > 0) showScrollInfo();
}

void PrintReports::Form_Unload(int& /*Cancel*/) {
    p.host.Printer().KillDoc();
    // "Include 'F'" belongs to this form: the edit screen's interest list goes without it.
    p.IncludeFLevel = false;
    // "Disable" set the cut-off to 0 only while the preview is open.
    if (chkDisableCutoff.Value()) p.PrintCutOff = static_cast<int>(Val(PrintCutOffBox.Text()));
    if (p.EditLoaded()) {
        p.LeavePreviewEdit();
        if (!p.SaveFilterOnExit && p.SortName != "alpha") RebuildAlpha(p);
        p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
        p.ShowCurrentOnEdit();
    }
}

void PrintReports::CloseBut_Click() { Unload(); }

void PrintReports::VScroll1_KeyDown(int& KeyCode, int /*Shift*/) {
    if (KeyCode == vbKeyEscape) {
        KeyCode = 0;
        Unload();
    } else if (KeyCode == vbKeyF1) {
        KeyCode = 0;
        p.host.MsgBox("Help for Viewing Reports");
    }
}

void PrintReports::ChkSaveFilter_Click() { p.SaveFilterOnExit = ChkSaveFilter.Value() != 0; }

void PrintReports::ClrDecisions() {
    for (int i = 0; i <= 14; ++i) btnSelect[i].SetValue(0);
}

void PrintReports::PreviewReport() {
    const lists::ListKind k = lists::SplitKind(p.SortName);
    const std::string& s = k.stem;
    const std::string n = CStr(k.number);
    std::string title;
    static const std::pair<const char*, const char*> fixed[] = {
        {"alpha", "Master Alphabetical List"},
        {"alphafilter", "Master Alphabetical List"},
        {"attend", "Master Attendance List"},
        {"wcalpha", "Alphabetical List by Team"},
        {"wcattend", "Attendance List by Team"},
        {"date", "All Baptism Dates"},
        {"FutureBapDateSet", "Baptism Date Set"},
        {"CleanMailList", "Clean up Mail List"},
        {"DupAddress", "Duplicate Addresses- All"},
        {"TDupAddress", "Multiple Teams Per Address"},
        {"NDupAddress", "Duplicate Address- Last Name"},
        {"NeedInterview", "Needs Baptism Interview"},
        {"WCNeedInterview", "Needs Baptism Interview- Team List"},
        {"NeedDate", "A and B Interests that Need Baptism Date"},
        {"needsabvis", "Needs Sabbath Visit"},
        {"NoAssignedInterest", "Need Interest Level Assignment"},
        {"InterviewRemain", "Baptism Interviews Remaining"},
        {"BaptClass", "Baptism Interview Set"},
        {"zip", "Zipcode List"},
        {"map", "Map Code List"},
        {"marked", "Marked Cards"},
        {"notes", "Notes and Coments"},
        {"PreCrusade", "Pre-Crusade Invitations"},
    };
    bool known = false;
    for (const auto& [kind, t] : fixed)
        if (s == kind) {
            title = t;
            known = true;
        }
    if (!known) {
        known = true;
        if (s == "TotalAttend") title = "Attended at least " + CStr(p.FilterTotalAttend) + " Meetings";
        else if (s == "religion") title = p.ReligionList[0];
        else if (s == "decisions")
            title = p.CrusadeName + ": " +
                    (k.number >= 0 && k.number <= 9 ? p.DecisionNames[static_cast<std::size_t>(k.number)] : "");
        else if (s == "SelWCAttend") title = n + "- " + TeamName(p, k.number) + " ";
        else if (s == "missednight") title = "Missed Last " + n + " Night(s)";
        else if (s == "attendnight") title = p.CrusadeName + ": Meeting: " + n;
        else if (s == "mail") {
            title = p.CrusadeName;
            boxMailLabelIndicator.SetText(chkPrnMailLabels.Value() ? "Print Mail Labels For" : "Mail List for");
        } else if (s == "interest") title = chkTeam.Value() ? "Team Priority Interest List" : "Priority Interest List";
        else if (s == "baptism") title = chkTeam.Value() ? "Team Baptism List" : "Baptism List";
        else known = false;
    }
    if (!known) title = "Need a Filter";
    CrTitleBox.SetText(title + " (" + CStr(p.IndexCount) + ")");
    if (s != "mail") PrevSort = p.SortName;
    ShowList();
}

// The list on screen, or the words for an empty one.
void PrintReports::ShowList(const std::string& emptyEnd) {
    if (p.IndexCount > 0) {
        Info.SetVisible(true);
        VScroll1.SetVisible(true);
        VScroll1.SetFocus();
        if (VScroll1.Value() == 1) showScrollInfo();
        else if (VScroll1.Value() == 0) showScrollInfo();
        else VScroll1.SetValue(1);
    } else {
        Info.SetText("There are no names in this filter to view." + p.CrLf + "Either select a lower Cut Off point or " +
                     emptyEnd);
    }
}

std::string PrintReports::ModeFromOptions() const {
    if (chkPrnMailLabels.Value()) {
        if (OptIntML.Value()) return "ML";
    } else if (OptIntML.Value()) {
        return "I";
    }
    if (p.SortName == "CleanMailList") return "M";
    if (optEd.Value()) return "E";
    if (optAt.Value()) return "A";
    if (OptVisit.Value()) return "V";
    return "E";
}

Control* PrintReports::SelectedOption() const {
    for (Control* c : std::initializer_list<Control*>{const_cast<OptionButton*>(&OptVisit),
                                                      const_cast<OptionButton*>(&OptIntML),
                                                      const_cast<OptionButton*>(&optAt),
                                                      const_cast<OptionButton*>(&optEd)})
        if (c->Value()) return c;
    return nullptr;
}

void PrintReports::showScrollInfo() {
    const reports::DecisionMarks marks = reports::FindDecisionMarks(p);
    if (!chkPrnMailLabels.Value()) {
        if (optEd.Value()) LeftMode = "E";
        else if (optAt.Value()) LeftMode = "A";
        else if (OptIntML.Value()) LeftMode = "I";
    }
    if (p.SortName == "CleanMailList") LeftMode = "M";
    ViewLines = 25;
    VScroll1.Max = std::max(p.IndexCount, 1);
    if (VScroll1.Value() == 0 && p.IndexCount > 0) {
        // Setting the value would redraw through Change; this pass draws anyway.
        drawing_ = true;
        VScroll1.SetValue(1);
        drawing_ = false;
    }
    FirstLine = std::max(VScroll1.Value(), 1);

    std::string kind = p.SortName;
    const bool mailView = chkMailOpt.Value() || chkPrnMailLabels.Value();
    if (mailView) kind = "mail";
    optAt.SetEnabled(!mailView);
    optAt.SetCaption("Attend " + CStr(p.MeetingNumber));

    std::string text;
    MasterRecord keep = p.MasterRec;
    const int last = std::min(p.IndexCount, static_cast<int>(p.SortIndex.size()) - 1);
    for (int line = FirstLine; line <= FirstLine + ViewLines - 1 && line <= last; ++line) {
        const std::string& entry = p.SortIndex[static_cast<std::size_t>(line)];
        long n = static_cast<long>(Val(Right(entry, 4)));
        if (!GetRecord(p, n)) continue;
        text += PreviewLine(p, p.MasterRec, kind, entry, marks) + p.CrLf;
    }
    p.MasterRec = keep;
    Info.SetText(text);
}

void PrintReports::SelectFilter() {
    const std::string stem = lists::SplitKind(p.SortName).stem;
    std::string option;
    if (stem == "SelWCAttend") option = optSortOpt[1].Value() ? "At" : "Al";
    if ((stem == "interest" || stem == "baptism") && chkTeam.Value()) option = "TC";
    if (stem == "religion") option = Church;
    // The kind stays the one the builder leaves, not the one before: a master list
    // comes back in attendance order and is named "attend", since the searches and
    // the save on the edit screen read an "alpha" list as alphabetical entries.
    if (!lists::SelectFilter(p, p.SortName, option)) CrTitleBox.SetText("Need a Filter");
}

void PrintReports::ApplyCutOff() { lists::ApplyCutOff(p); }

void PrintReports::GetHeadOfHouse() {
    std::vector<std::string> kept{p.SortIndex[0]};
    for (int i = 1; i <= p.IndexCount; ++i) {
        const std::string& entry = p.SortIndex[static_cast<std::size_t>(i)];
        if (!GetRecord(p, static_cast<long>(Val(Right(entry, 4))))) continue;
        if (p.MasterRec.MailList && p.MasterRec.WorkerCode != "##") kept.push_back(entry);
    }
    p.SortIndex = std::move(kept);
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
}
