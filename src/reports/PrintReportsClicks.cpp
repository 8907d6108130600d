// The preview's clicks: on the list's lines, the visit code, the cut-off, the
// teams, the decision and church buttons, the mail options and the print button.
#include <algorithm>
#include <cmath>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/PrintReports.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "reports/SelIntFm.h"
#include "store/Attendance.h"
#include "store/Records.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;
using namespace host;

void PrintReports::SetQuietly(Control& c, int value) {
    quiet_ = true;
    c.SetValue(value);
    quiet_ = false;
}

void PrintReports::RunMenuFilter(const std::string& kind, const std::string& help, int number,
                                 const std::string& option) {
    ClrDecisions();
    SetQuietly(chkMailOpt, vbUnchecked);
    boxMailLabelIndicator.SetText("");
    txtInstructions.SetText(help);
    if (!lists::BuildList(p, kind, number, option)) return;
    drawing_ = true;
    VScroll1.SetValue(0);
    drawing_ = false;
    PreviewReport();
}

void PrintReports::CleanMailList(const std::string& help) {
    RunMenuFilter("CleanMailList", help);
    if (p.SortName != "CleanMailList" || p.FamilyCount == 0) return;
    p.SelectMailList(1);
    PreviewReport();
}

void PrintReports::Info_MouseDown(int Button, int Shift, float X, float Y) {
    if (Button != vbLeftButton) return;
    Control* remembered = SelectedOption();
    auto restore = [&] {
        if (remembered && !remembered->Value()) remembered->SetValue(-1);
    };

    // The columns were laid out in twips of the old list box: the click is taken to a
    // character column by the box's own metrics, then to those twips.
    const TextMetrics& m = Info.Metrics;
    const bool measured = m.CharWidth > 0 && m.LineHeight > 0;
    const float charWidth = measured ? m.CharWidth : OldCharWidth;
    const float left = measured ? m.Left : OldLeft;
    const float lineHeight = measured ? m.LineHeight : OldLineHeight;
    const float top = measured ? m.Top : 0;
    const float x = OldLeft + (X - left) / charWidth * OldCharWidth;

    std::string mode;
    if (!chkPrnMailLabels.Value()) {
        if (x > 15 && x < 195) {
            mode = "T";
        } else if (x > 7290) {
            mode = "V";
        } else if (x > 5900 && x < 6240) {
            OptIntML.SetValue(-1);
        } else if (x > 3420 && x < 5800 && !optAt.Value()) {
            if (p.host.MsgBox("This will update the attendance record for meeting #" + CStr(p.MeetingNumber),
                              vbOKCancel, "Automatic Attendance Update") != vbOK)
                return;
            optAt.SetValue(-1);
        }
    }

    const float rows = (Y - top) / lineHeight;
    const int line = VScroll1.Value() + static_cast<int>(std::floor(rows));
    if (rows < 0 || line < 1 || line > p.IndexCount || line >= static_cast<int>(p.SortIndex.size())) {
        restore();
        return;
    }
    const long n = static_cast<long>(Val(Right(p.SortIndex[static_cast<std::size_t>(line)], 4)));
    if (!GetRecord(p, n)) {
        restore();
        return;
    }
    if (mode.empty()) mode = ModeFromOptions();
    MasterRecord& r = p.MasterRec;

    if (mode == "E") {
        restore();
        p.CurrentIndex = line;
        p.ShowCurrentOnEdit();
        p.EnterPreviewEdit();
        Hide();
        p.ShowEdit();
        return;
    }
    if (mode == "A") {
        const int meeting = p.MeetingNumber;
        const char mark = r.Attendance.At(meeting);
        if (mark == '-' || mark == ' ') {
            r.Attendance.SetChar(meeting, LastDigit(meeting));
        } else {
            PlaySound(p, "carbrake");
            int answer = p.host.MsgBox(RTrim(r.RNum) + "  " + RTrim(r.FName) + " " + RTrim(r.LName) + p.CrLf +
                                           "This Will Undo the Attendance for Night" + Str(meeting) + p.CrLf +
                                           "Are you sure you want to Undo this Entry?",
                                       vbOKCancel | vbQuestion, "Undo the Attendance Update");
            if (answer != vbOK) {
                restore();
                return;
            }
            r.Attendance.SetChar(meeting, '-');
        }
        CountAttendance(r);
    } else if (mode == "I") {
        SelIntFm dialog(p);
        dialog.Show(true);
    } else if (mode == "V") {
        if (VisitCode.empty()) {
            p.host.MsgBox("You must select 'Visit' in the 'Left Mouse Button Funcion' Box above, in order to "
                          "enter a visit.");
            restore();
            return;
        }
        std::string visits = RTrim(r.Visits);
        if (Shift == vbCtrlMask) {
            visits = visits.size() < 3 ? std::string() : vb::Left(visits, static_cast<long>(visits.size()) - 3);
        } else {
            const bool full = visits.size() == 12;
            visits += VisitCode;
            if (full) visits = Right(visits, 12);
        }
        r.Visits = visits;
    } else if (mode == "T") {
        std::string answer = Trim(p.host.InputBox("Enter Team Code"));
        if (answer.empty()) {
            restore();
            return;
        }
        const double v = Val(answer);
        if (!IsNumeric(answer) || v != std::floor(v) || v < 0 || v > 40) {
            p.host.MsgBox("You have entered an invalid Team code.  " + p.CrLf + "It must be a number between 00 and 40");
            restore();
            return;
        }
        r.WorkerCode = Format(v, "00");
    } else if (mode == "ML") {
        r.MailList = r.MailList ? 0 : -1;
    } else {
        // "M": the household of this line, ticked in the mail-list selection. Each
        // record it marks is written there; the clicked one, read before, is not
        // written back over it.
        const int group = static_cast<int>(Val(Mid(p.SortIndex[static_cast<std::size_t>(line)], 78, 4)));
        for (const std::string& entry : p.SelectMailList(group)) {
            const long rec = static_cast<long>(Val(Right(entry, 4)));
            if (entry.empty() || !GetRecord(p, rec)) continue;
            r.MailList = static_cast<std::int16_t>(entry[0] == '$' ? -1 : 0);
            PutRecord(p, rec);
        }
        showScrollInfo();
        restore();
        return;
    }
    PutRecord(p, n);
    showScrollInfo();
    restore();
}

void PrintReports::OptVisit_Click() {
    VisitCode = "h" + Format(p.MeetingNumber, "00");
    OptVisit.SetCaption("Visit " + VisitCode);
    LeftMode = "V";
}

void PrintReports::OptVisit_KeyPress(int& KeyAscii) {
    const int k = KeyAscii;
    KeyAscii = 0;
    if (VisitCode.size() < 3) OptVisit_Click();
    int meeting = static_cast<int>(Val(Mid(VisitCode, 2)));
    char letter = VisitCode[0];
    switch (k) {
    case 'H': case 'h': letter = 'h'; break;
    case 'M': case 'm': letter = 'm'; break;
    case 'P': case 'p': letter = 'p'; break;
    case 'L': case 'l': letter = 'l'; break;
    case '+': case '=': if (meeting < p.MeetingNumber) ++meeting; break;
    case '-': if (meeting > 0) --meeting; break;
    default: return;
    }
    VisitCode = std::string(1, letter) + Format(meeting, "00");
    OptVisit.SetCaption("Visit " + VisitCode);
}

void PrintReports::HelpButton_Click() {
    const std::string& nl = p.CrLf;
    p.host.MsgBox("First click the Visits Option Button." + nl +
                      "The default display appears as a home visit with the last meeting number." + nl +
                      "For Example- if the last meeting was 5 the code would be h05." + nl +
                      "Double Click the Visit button will reset the visit to default." + nl +
                      "You can change the type visit by typing H or P or M or L" + nl +
                      "You can change the meeting number by typing '+ or =' to increase or '-' to decrease." + nl +
                      "Click anywhere in the Visits area for the name to automatically enter the displayed code" +
                      nl +
                      "Hold the Ctrl key and Click anywhere in the Visits area for the name to delete the last visit.",
                  vbOKOnly, "Entering Visit Information");
}

void PrintReports::PrintCutOffBox_Change() {
    if (inLoad_) return;
    const std::string t = Trim(PrintCutOffBox.Text());
    if (IsNumeric(t)) {
        p.PrintCutOff = static_cast<int>(Val(t));
        SelectFilter();
        PreviewReport();
    } else {
        p.PrintCutOff = 0;
        PrintCutOffBox.SetText("0");
    }
}

void PrintReports::btnVscrollUp_Click() {
    if (p.PrintCutOff < p.MeetingNumber) PrintCutOffBox.SetText(CStr(p.PrintCutOff + 1));
}

void PrintReports::btnVScrollDn_Click() {
    if (p.PrintCutOff > 0) PrintCutOffBox.SetText(CStr(p.PrintCutOff - 1));
}

void PrintReports::chkDisableCutoff_Click() {
    if (quiet_) return;
    const bool off = chkDisableCutoff.Value() != 0;
    for (Control* c : std::initializer_list<Control*>{&PrintCutOffBox, &btnVscrollUp, &btnVScrollDn})
        c->SetEnabled(!off);
    p.PrintCutOff = off ? 0 : static_cast<int>(Val(PrintCutOffBox.Text()));
    SelectFilter();
    PreviewReport();
}

void PrintReports::btnTeamSel_Click() {
    const bool toHigh = btnTeamSel.Caption() == "21-40";
    for (int i = 1; i <= 20; ++i) btnTeam[i].SetCaption(Right(Format(toHigh ? i + 20 : i, "00"), 2));
    btnTeamSel.SetCaption(toHigh ? "0-20" : "21-40");
    btnTeam[21].SetVisible(!toHigh);
}

void PrintReports::btnTeam_Click(int Index) {
    if (Index == 21) {
        MasterListButton_Click();
        return;
    }
    txtInstructions.SetText("");
    ClrDecisions();
    const int team = Index + (btnTeamSel.Caption() == "0-20" ? 20 : 0);
    TeamChosen = team;
    const std::string keep = PrevSort;
    if (!lists::BuildList(p, "SelWCAttend", team, optSortOpt[1].Value() ? "At" : "Al")) return;
    PrevSort = keep;
    const std::string& name = p.TeamNames[static_cast<std::size_t>(team)];
    std::string title = vb::Left(name, 6) == "Team #" ? "Team- " + CStr(team) : CStr(team) + "-" + name;
    CrTitleBox.SetText(title + " (" + CStr(p.IndexCount) + ")");
    drawing_ = true;
    VScroll1.SetValue(0);
    drawing_ = false;
    ShowList("a different Team Code.");
}

namespace {
// The list in hand, put back when the scope ends.
struct KeepList {
    explicit KeepList(ProgramState& ps)
        : p(ps), list(ps.SortIndex), count(ps.IndexCount), current(ps.CurrentIndex), kind(ps.SortName),
          prior(ps.PriorSortName) {}
    ~KeepList() {
        p.SortIndex = list;
        p.IndexCount = count;
        p.CurrentIndex = current;
        p.SortName = kind;
        p.PriorSortName = prior;
    }
    ProgramState& p;
    std::vector<std::string> list;
    int count, current;
    std::string kind, prior;
};

// The team form of a list that has one, and back.
std::string TeamKindOf(const std::string& kind) {
    if (kind == "alpha" || kind == "alphafilter") return "wcalpha";
    if (kind == "attend") return "wcattend";
    if (kind == "NeedInterview") return "WCNeedInterview";
    return kind;
}
std::string PlainKindOf(const std::string& kind) {
    if (kind == "wcalpha") return "alphafilter";
    if (kind == "wcattend") return "attend";
    if (kind == "WCNeedInterview") return "NeedInterview";
    return kind;
}
}  // namespace

void PrintReports::chkTeam_Click() {
    if (quiet_) return;
    const std::string kind = p.SortName;
    if (!chkTeam.Value()) {
        const std::string plain = PlainKindOf(kind);
        if (lists::BuildList(p, plain == "alpha" ? "alphafilter" : plain)) PreviewReport();
        return;
    }
    static const char* const byTeam[] = {"baptism", "interest", "alpha", "attend", "wcalpha", "wcattend",
                                         "alphafilter", "NeedInterview"};
    if (std::none_of(std::begin(byTeam), std::end(byTeam), [&](const char* k) { return kind == k; })) {
        p.host.MsgBox("Vestrel does not print this list by Team");
        SetQuietly(chkTeam, vbUnchecked);
        return;
    }
    // Count the addresses that have more than one team, keeping the list in hand.
    int conflicts = 0;
    {
        KeepList keep(p);
        lists::BuildDuplicates(p, "team error");
        conflicts = p.IndexCount;
    }
    if (conflicts > 0) {
        const std::string& nl = p.CrLf;
        int answer = p.host.MsgBox(
            "There are " + CStr(conflicts) + " addresses with more than one team assigned." + nl + nl +
                "It is highly recommended that you check the Duplicate Name list and " + nl +
                "reassign the names to the same team." + nl + nl + "                  Would you like to change them now?",
            vbYesNo | vbCritical, "Conflicting Team Assignments");
        if (answer == vbYes) {
            mnuDupAddTeam.Fire(mnuDupAddTeam.Click);
            SetQuietly(chkTeam, vbUnchecked);
            return;
        }
    }
    const std::string teamKind = TeamKindOf(kind);
    const std::string option = teamKind == "baptism" || teamKind == "interest" ? "TC" : "";
    if (lists::BuildList(p, teamKind, 0, option)) PreviewReport();
}

void PrintReports::PVDecisions_Click() {
    ClrDecisions();
    if (PVDecisions.Caption() == "View Decisions") {
        decisionsShowing_ = true;
        btnSelect[0].SetVisible(false);
        for (int i = 1; i <= 14; ++i) {
            btnSelect[i].SetVisible(i <= 9);
            if (i <= 9) btnSelect[i].SetCaption(p.DecisionNames[static_cast<std::size_t>(i)]);
        }
        PVDecisions.SetCaption("View Churches");
    } else {
        decisionsShowing_ = false;
        btnSelect[0].SetCaption("All Churches");
        btnSelect[0].SetVisible(true);
        for (int i = 1; i <= 14; ++i) {
            btnSelect[i].SetCaption(p.ReligionList[static_cast<std::size_t>(i)]);
            btnSelect[i].SetVisible(true);
        }
        PVDecisions.SetCaption("View Decisions");
    }
}

void PrintReports::btnSelect_Click(int Index) {
    if (quiet_) return;
    txtInstructions.SetText("");
    SetQuietly(chkMailOpt, vbUnchecked);
    boxMailLabelIndicator.SetText("");
    if (!decisionsShowing_) {
        // Entry 0 stands for every church: the filter then wants nothing.
        p.ReligionList[0] = "";
        Church = Index == 0 ? std::string() : Trim(p.ReligionList[static_cast<std::size_t>(Index)]);
        const bool built = lists::BuildList(p, "religion", 0, Church);
        p.ReligionList[0] = "Church Preference";
        if (built) PreviewReport();
        return;
    }
    SetQuietly(chkTeam, vbUnchecked);
    // A new decision list, with its own question: the answers of the list before are not its own.
    if (lists::BuildList(p, "decisions", Index)) PreviewReport();
}

void PrintReports::chkMailOpt_Click() {
    if (quiet_) return;
    if (chkMailOpt.Value()) {
        if (lists::SplitKind(p.SortName).stem == "decisions") {
            int answer = p.host.MsgBox(
                "It is possible that someone other than the one on the mail list in a household will make a "
                "decision different from the one on the mail list. When selecting this filter with the Decision "
                "List, you may leave out the individual who is not on the mail list, if the one who is did not "
                "make the same decision." + p.CrLf + "Do you want to continue?",
                vbYesNo);
            if (answer == vbNo) {
                SetQuietly(chkMailOpt, vbUnchecked);
                return;
            }
        }
        GetHeadOfHouse();
        boxMailLabelIndicator.SetText(chkPrnMailLabels.Value() ? "Print Mail Labels For" : "Mail List for");
        PreviewReport();
    } else {
        boxMailLabelIndicator.SetText("");
        SelectFilter();
        PreviewReport();
    }
}

void PrintReports::chkPrnMailLabels_Click() {
    if (quiet_) return;
    if (chkPrnMailLabels.Value()) {
        boxMailLabelIndicator.SetText("Print Mail Labels For");
        OptIntML.SetCaption("Mail");
        optAt.SetVisible(false);
        OptIntML.SetVisible(true);
    } else {
        optAt.SetVisible(true);
        OptIntML.SetCaption(p.SortName == "CleanMailList" ? "Mail" : "Interest");
        boxMailLabelIndicator.SetText("");
    }
    optEd.SetValue(-1);
    LeftMode = "E";
    if (p.IndexCount > 0) showScrollInfo();
}

void PrintReports::btnPrint_Click() {
    if (chkPrnMailLabels.Value()) {
        prnMailLabels(p);
        return;
    }
    const lists::ListKind k = lists::SplitKind(p.SortName);
    if (chkMailOpt.Value() && k.stem == "attend") {
        p.host.MsgBox("Vestrel will not print the mail list sorted by attendance." + p.CrLf +
                      "To print the Attendance List you must first uncheck the 'Mail List Only' option. ");
        return;
    }
    p.PrintingFromPreview = true;
    const std::string& s = k.stem;
    const bool team = chkTeam.Value() != 0;
    if (s == "alphafilter") PrintOneLineReport(p, 1);
    else if (s == "attend") PrintOneLineReport(p, 2);
    else if (s == "wcalpha") PrintWCReport(p, 1);
    else if (s == "SelWCAttend") PrintTeamByAttendance();
    else if (s == "WCNeedInterview") PrintWCReport(p, 8);
    else if (s == "wcattend") {
        int answer = p.host.MsgBox("Separate the Teams with a page break?", vbYesNo | vbQuestion, "Select Print Format");
        PrintWCReport(p, answer == vbYes ? 2 : 4);
    } else if (s == "map") PrintOneLineReport(p, 3);
    else if (s == "zip") PrintOneLineReport(p, 4);
    else if (s == "baptism") {
        if (team) PrintWCReport(p, 6);
        else PrintBaptisms(p);
    } else if (s == "decisions") {
        std::int16_t number = static_cast<std::int16_t>(k.number);
        PrintDecisions(p, number);
    } else if (s == "interest") {
        if (team) PrintWCReport(p, 7);
        else PrintOneLineReport(p, 6);
    } else if (s == "date") PrintOneLineReport(p, 5);
    else if (s == "TotalAttend") PrintOneLineReport(p, 13);
    else if (s == "PreCrusade") PrintOneLineReport(p, 8);
    else PrintOneLineReport(p, 10);
    p.PrintingFromPreview = false;
    Show();
}

// The team report groups a team by the meeting last attended, which the
// alphabetical order does not carry: it prints the same team in attendance order.
void PrintReports::PrintTeamByAttendance() {
    if (p.IndexCount < 1 || Mid(p.SortIndex[1], 7, 3) != "000") {
        PrintWCReport(p, 2);
        return;
    }
    KeepList keep(p);
    if (lists::BuildList(p, "SelWCAttend", 0, Right(p.SortName, 2) + "At")) PrintWCReport(p, 2);
}

void PrintReports::MasterListButton_Click() {
    txtInstructions.SetText("# -Baptism Date Set,  @ -Interview Appointment Set,  * -Baptized without the "
                            "baptism decision,  (r) -Baptism decision without uniting");
    SetQuietly(chkTeam, vbUnchecked);
    RunMenuFilter(optSortOpt[1].Value() ? "attend" : "alphafilter", txtInstructions.Text());
}

void PrintReports::PVInterestLevel_Click() {
    RunMenuFilter("interest",
                  "Only interest level of A, B, C or G (Baptized) appear on this list.  #- Bap date set, @- "
                  "Appointment Set.",
                  0, chkTeam.Value() ? "TC" : "");
}

void PrintReports::btnBaptisms_Click() {
    RunMenuFilter("baptism", "Must have an interest level of G (Baptized) to appear on this list.", 0,
                  chkTeam.Value() ? "TC" : "");
}

void PrintReports::pvBapDate_Click() {
    RunMenuFilter("FutureBapDateSet",
                  "Must have a baptism date entered on the edit screen for a name to appear on this list.");
}

void PrintReports::ReturnFromEdit() {
    Show();
    if (p.IndexCount > 0) showScrollInfo();
}
