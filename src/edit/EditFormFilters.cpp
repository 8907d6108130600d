// The Filters menu of the edit screen: each entry builds its list, shows its
// first person with the fields it looks at painted, and says what was done.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "lists/Lists.h"
#include "lists/Questions.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/ListEntry.h"
#include "store/Records.h"
#include "store/SortIndex.h"

using namespace forms;
using namespace vb;

namespace {
const char* const ClickShowAll = "Click the 'Show All Names' button to restore all names in alphabetical order.";
const char* const PressRedShowAll =
    "Press the Red 'Show All Names' button on the button bar to restore all names in alphabetical order.";

// The number a double click on the caption hands to the menu entry it reruns.
int TakeHandedNumber(ProgramState& p) {
    int n = IsNumeric(p.ScratchValue) ? static_cast<int>(Val(p.ScratchValue)) : 0;
    p.ScratchValue.clear();
    return n;
}
}  // namespace

void EditForm::WireFilters() {
    ShowAllPlace[0] = ShowAll.Left(), ShowAllPlace[1] = ShowAll.Top();
    ShowAllPlace[2] = ShowAll.Width(), ShowAllPlace[3] = ShowAll.Height();
    for (Menu* m : {&mPrCut, &mnuAllAlpha, &mnuAlphaCutOffFilter, &mnuTeamfilters, &mnuSpecialAttend, &mnuAdvFilter,
                    &mnuAgeFilter, &mnuBaptisms, &mnuBapDate, &mnuDecisionsFilter, &mnuAddressFilter, &mnuIntLevel,
                    &mnuMailList, &mnuNeedInterview, &mnuNotes, &munPre, &mnuReligion, &mnuZips, &mnuMarked,
                    &mnuMarkMarkers}) {
        notBuilt_.erase(m);
        m->SetEnabled(true);
    }
    mPrCut.Click = [this] { mPrCut_Click(); };
    mnuAllAlpha.Click = [this] { ShowAll_Click(); };
    mnuAlphaCutOffFilter.Click = [this] { mnuAlphaCutOffFilter_Click(); };
    mnuSelTeamCode.Click = [this] { mnuSelTeamCode_Click(); };
    mnuWCAlpha.Click = [this] { mnuWCAlpha_Click(); };
    mnuAttendFilter.Click = [this] { mnuAttendFilter_Click(); };
    // Picked from the menu nobody hands a number: a word left by another routine is not for these.
    mnuFilterSelMtg.Click = [this] {
        p.ScratchValue.clear();
        mnuFilterSelMtg_Click();
    };
    mnuFilterMissedMtgs.Click = [this] {
        p.ScratchValue.clear();
        mnuFilterMissedMtgs_Click();
    };
    mnuTotalAttend.Click = [this] { mnuTotalAttend_Click(); };
    mnuAdvFilter.Click = [this] { mnuAdvFilter_Click(); };
    mnuAgeFilter.Click = [this] { mnuAgeFilter_Click(); };
    mnuBaptisms.Click = [this] { mnuBaptisms_Click(); };
    mnuBapDate.Click = [this] { mnuBapDate_Click(); };
    mnuDecisionsFilter.Click = [this] { mnuDecisionsFilter_Click(); };
    mnuAddressFilter.Click = [this] { mnuAddressFilter_Click(); };
    mnuIntLevel.Click = [this] { mnuIntLevel_Click(); };
    mnuMailList.Click = [this] { mnuMailList_Click(); };
    mnuNeedInterview.Click = [this] { mnuNeedInterview_Click(); };
    mnuNotes.Click = [this] { mnuNotes_Click(); };
    munPre.Click = [this] { munPre_Click(); };
    mnuReligion.Click = [this] { mnuReligion_Click(); };
    mnuZips.Click = [this] { mnuZips_Click(); };
    mnuMarked.Click = [this] { mnuMarked_Click(); };
    mnuMarkMarkers.Click = [this] { mnuMarkMarkers_Click(); };
}

bool EditForm::StartFilter(const FilterStart& f) {
    if (p.AddMode) return false;
    if (p.IndexCount != 0 && !SaveChanges()) return false;
    if (!lists::BuildList(p, f.kind, f.number, f.option)) return false;
    // Some builders go back to all names themselves when nobody is left.
    bool fellBack = p.SortName == "alpha" && f.kind != "alpha";
    if (p.IndexCount == 0 || fellBack) {
        if (!f.empty.empty() && !f.emptySaidByBuilder) p.host.MsgBox(f.empty);
        ShowAll_Click();
        return false;
    }
    FetchCurrentRecord(p);
    ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen(f.label);
    // The searches read the alphabetical entries, so they wait for all names.
    SearchBox.SetVisible(false);
    SearchBoxLabel.SetVisible(false);
    ShowAll.Move(SearchBox.Left(), SearchBoxLabel.Top(), SearchBox.Width(),
                 SearchBox.Top() + SearchBox.Height() - SearchBoxLabel.Top());
    ShowAll.SetCaption("Show All Names");
    ShowAll.SetVisible(true);
    lblNextFieldBtn.SetVisible(false);
    ResetBackColor();
    for (Control* c : f.highlight) Highlight(*c);
    if (!f.label.empty()) EditLabel.SetCaption(f.label);
    p.host.MsgBox(f.message + p.CrLf + (f.ending.empty() ? std::string(ClickShowAll) : f.ending));
    return true;
}

void EditForm::ShowAll_Click() {
    SetTopMenus(true);
    for (Control* c : std::initializer_list<Control*>{&SearchBox, &SearchBoxLabel, &FndNameBx, &btnGlobal,
                                                      &btnAddName, &btnSDA, &btnDelete, &btnUndelete, &btnMark,
                                                      &btnGoTo, &btnUndo, &btnAttend, &btnViewFile, &btnExcel,
                                                      &btnStats, &lblNextFieldBtn})
        c->SetVisible(true);
    lblShowButtonLabels.SetVisible(p.ShowButtonLabels);
    lblShowButtonLabels.SetCaption(ButtonLabelsText);
    FndNameBx.SetCaption("");
    p.SavedIndex = 0;
    SetBackColor();
    for (int i = 0; i <= 3; ++i) ChgRec[i].SetVisible(true);
    // Back to its place on the bar.
    ShowAll.Move(ShowAllPlace[0], ShowAllPlace[1], ShowAllPlace[2], ShowAllPlace[3]);
    ShowAll.SetCaption("");
    bool keep = p.SortName == "interest" || p.SortName == "baptism" || vb::Left(p.SortName, 9) == "decisions";
    ShowAll.SetVisible(keep);
    if (p.IndexCount != 0 && !SaveChanges()) return;
    if (p.SortName != "alpha") {
        long shown = p.IndexCount != 0 ? p.RecordPos : 0;
        lists::BuildList(p, "alpha");
        // The person who was on screen stays there.
        int at = shown > 0 ? FindByRecord(p, shown) : 0;
        if (at > 0) p.CurrentIndex = at;
    }
    if (p.IndexCount == 0) return;
    FetchCurrentRecord(p);
    ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("");
    EditLabel.SetCaption("All Names Sorted Alphabeticaly");
}

void EditForm::EditLabel_DblClick() {
    std::string kind = p.PriorSortName;
    for (const char* s : {"attendnight", "missednight"})
        if (vb::Left(kind, static_cast<long>(std::string(s).size())) == s) {
            p.ScratchValue = Trim(Right(kind, 2));
            kind = s;
        }
    if (vb::Left(kind, 8) == "decision") kind = "decisions";
    static const std::pair<const char*, void (EditForm::*)()> handlers[] = {
        {"DupAddress", &EditForm::mnuAddressFilter_Click}, {"decisions", &EditForm::mnuDecisionsFilter_Click},
        {"attendnight", &EditForm::mnuFilterSelMtg_Click}, {"notes", &EditForm::mnuNotes_Click},
        {"mail", &EditForm::mnuMailList_Click},            {"NeedInterview", &EditForm::mnuNeedInterview_Click},
        {"date", &EditForm::mnuBapDate_Click},             {"missednight", &EditForm::mnuFilterMissedMtgs_Click},
        {"zip", &EditForm::mnuZips_Click},                 {"marked", &EditForm::mnuMarked_Click},
        {"SelWCAttend", &EditForm::mnuSelTeamCode_Click},  {"TotalAttend", &EditForm::mnuTotalAttend_Click},
        {"PreCrusade", &EditForm::munPre_Click},           {"alphafilter", nullptr},
        {"wcalpha", &EditForm::mnuWCAlpha_Click},          {"attend", &EditForm::mnuAttendFilter_Click},
        {"age", &EditForm::mnuAgeFilter_Click},            {"Advertising", &EditForm::mnuAdvFilter_Click},
        {"baptism", &EditForm::mnuBaptisms_Click},         {"interest", &EditForm::mnuIntLevel_Click},
        {"religion", &EditForm::mnuReligion_Click}};
    for (const auto& [name, handler] : handlers)
        if (kind == name && handler) return (this->*handler)();
    ShowAll_Click();
}

void EditForm::mPrCut_Click() {
    const std::string& nl = p.CrLf;
    std::string answer = Trim(p.host.InputBox(
        "Enter the Meeting Number that you would like to Begin With." + nl + nl +
            "For example: If you select a Cut Off number of 8, you will eliminate those who have not attended since "
            "the 7th meeting." + nl + nl + "Enter 0 (zero) to show all names.",
        "Set Meeting Cut Off", CStr(p.PrintCutOff)));
    if (answer.empty()) return;
    int n = static_cast<int>(Val(answer));
    if (!IsNumeric(answer) || n < 0 || n >= p.MeetingNumber) {
        p.host.MsgBox("You must select a meeting between 0 and " + CStr(p.MeetingNumber - 1));
        return;
    }
    p.PrintCutOff = n;
    mPrCut.SetCaption("Printer Cutoff Point (Meeting " + CStr(n) + ")");
}

void EditForm::mnuAddressFilter_Click() {
    StartFilter({"DupAddress", 0, "All", "Duplicate" + p.CrLf + "Address ", {&Address},
                 "Names have been sorted and filtered to show only those who have DUPLICATE ADDRESESS",
                 "There are no duplicate addresses to display."});
}

void EditForm::mnuDecisionsFilter_Click() {
    if (p.AddMode) return;
    // The decision is always chosen in the dialog, which opens on the one set before.
    int n = lists::AskDecision(p);
    if (n < 1 || n > 9) return;
    std::string option = n == 9 && lists::AskArrangeByLevel(p) ? "IL" : "Al";
    StartFilter({"decisions", n, option, p.DecisionNames[n], {&Dec[n - 1]},
                 "Names have been sorted and filtered to show only those who have made the DECISION: " + p.CrLf +
                     p.DecisionNames[n],
                 "There are no decisions to display"});
}

void EditForm::mnuFilterSelMtg_Click() {
    if (p.AddMode) return;
    int n = TakeHandedNumber(p);
    if (n == 0) n = lists::AskMeetingToView(p);
    if (n == 0) return;
    FilterStart f{"attendnight", n, "", "", {&Attendance},
                  "Names have been sorted and filtered to show only those who ATTENDED MEETING " + CStr(n),
                  "There are no names to display"};
    f.emptySaidByBuilder = true;
    StartFilter(f);
}

void EditForm::mnuNotes_Click() {
    StartFilter({"notes", 0, "", "Cards with Notes", {&Notes},
                 "Names have been sorted and filtered to show only those who have NOTES on their cards.",
                 "There are no Cards with Notes to display"});
}

void EditForm::mnuMailList_Click() {
    StartFilter({"mail", 0, "", "Mail List Filter", {&MailList},
                 "Names have been sorted and filtered to show only those who are on the MAIL LIST.",
                 "There are no names on the mail list to display"});
}

void EditForm::mnuNeedInterview_Click() {
    StartFilter({"NeedInterview", 0, "", "Baptism List", {&Class},
                 "Names have been sorted and filtered to show only those 'A' Interests who have not made an "
                 "appointment for a baptism interview.",
                 "There are no names to display"});
}

void EditForm::mnuBapDate_Click() {
    FilterStart f{"date", 0, "", "", {},
                  "Names have been sorted by Baptism Dates Set and filtered to show only those who have a baptism "
                  "date set.",
                  "There are no baptisms dates set."};
    f.ending = PressRedShowAll;
    StartFilter(f);
}

void EditForm::mnuFilterMissedMtgs_Click() {
    if (p.AddMode) return;
    int n = TakeHandedNumber(p);
    if (n == 0) n = lists::AskNightsMissed(p);
    if (n == 0) return;
    StartFilter({"missednight", n, "", "Missed Last " + CStr(n), {&Last},
                 "Names have been filtered to show those who have missed " + CStr(n) + " night(s).",
                 "There were no names who have missed " + CStr(n) + " night(s)."});
}

void EditForm::mnuZips_Click() {
    StartFilter({"zip", 0, "", "", {}, "Names have been sorted and filtered By ZIP CODES.",
                 "There are no names to display"});
}

void EditForm::mnuMarked_Click() {
    FilterStart f{"marked", 0, "", "marked", {},
                  "Names have been filtered to show only those which you have selected with the 'Mark to Print' box.",
                  "There are no marked cards to display"};
    f.ending = PressRedShowAll;
    StartFilter(f);
}

void EditForm::mnuSelTeamCode_Click() {
    if (p.AddMode) return;
    std::string team = lists::AskTeamCode(p);
    if (team.empty()) return;
    int number = static_cast<int>(Val(team));
    std::string name = IsNumeric(team) && number >= 0 && number <= 40 ? Trim(p.TeamNames[number]) : std::string();
    StartFilter({"SelWCAttend", 0, team, "TEAM: " + team + ":" + name, {&WorkerCode},
                 "Names have been sorted and filtered to show only those who have been ASSIGNED TO " +
                     (name.empty() ? team : name),
                 "There are no names to display"});
}

void EditForm::mnuTotalAttend_Click() {
    if (p.AddMode) return;
    std::string how = lists::AskTotalAttend(p);
    if (how == "cancel") return;
    std::string total = CStr(p.FilterTotalAttend);
    FilterStart f{"TotalAttend", 0, how, "Total Meetings" + p.CrLf + "Attended =" + total, {&Attend},
                  (how == "equal" ? "Names have been sorted to show those who have attended "
                                  : "Names have been sorted to show those who have attended at least ") +
                      total + " times.",
                  "There are no names to view."};
    if (p.PrintCutOff > 0) f.highlight.push_back(&Last);
    f.emptySaidByBuilder = true;
    StartFilter(f);
}

void EditForm::munPre_Click() {
    FilterStart f{"PreCrusade", 0, "", "Pre-Crusade" + p.CrLf + "Names", {},
                  "Names have been filtered to show only those who attended as a result of Pre-Crusade "
                  "Invitations." + p.CrLf +
                      "These names are selected by the 'O' for other and 'I' for Invitation fields being marked.    ",
                  "There are no names for this filter."};
    f.ending = PressRedShowAll;
    StartFilter(f);
}

void EditForm::mnuAlphaCutOffFilter_Click() {
    mPrCut_Click();
    FilterStart f{"alphafilter", 0, "", "Alphabetical" + p.CrLf + "last mtg >" + CStr(p.PrintCutOff), {},
                  "Names have been sorted and filtered ALPHABETICALLY Print cutoff is " + CStr(p.PrintCutOff),
                  "There are no names to display"};
    f.ending = "Click the red 'Show All Names' Button to restore all names in alphabetical order.";
    StartFilter(f);
}

void EditForm::mnuWCAlpha_Click() {
    mPrCut_Click();
    FilterStart f{"wcalpha", 0, "", "Team Code" + p.CrLf + "last mtg >" + CStr(p.PrintCutOff), {},
                  "Names have been sorted and filtered by TEAM CODE.", "There are no names to display"};
    f.ending = "Click the 'Show all Names' button to restore all names in alphabetical order.";
    StartFilter(f);
}

void EditForm::mnuAttendFilter_Click() {
    mPrCut_Click();
    FilterStart f{"attend", 0, "", "Attendance" + p.CrLf + "last mtg >" + CStr(p.PrintCutOff), {&Attendance},
                  "Names have been sorted according to the Nightly Attendance.  All names present at the last "
                  "meeting will be first Followed by the next to last meeting, etc.",
                  "There are no names to display"};
    if (p.PrintCutOff > 0) f.highlight.push_back(&Last);
    StartFilter(f);
}

void EditForm::mnuAgeFilter_Click() {
    mPrCut_Click();
    StartFilter({"age", 0, "", "Age " + p.CrLf + "Last mtg >" + CStr(p.PrintCutOff), {&Age},
                 "Names have been sorted according to Age.", "There are no names to display"});
}

void EditForm::mnuAdvFilter_Click() {
    mPrCut_Click();
    StartFilter({"Advertising", 0, "", "Advertising " + p.CrLf + "Last mtg >" + CStr(p.PrintCutOff), {&Advertising},
                 "Names have been sorted according to Advertising.  All names present at the last meeting will be "
                 "first Followed by the next to last meeting, etc." + p.CrLf +
                     "There will be more names present than the total names in the file because each person may "
                     "have checked one or more advertising methods.",
                 "There are no names to display"});
}

void EditForm::mnuBaptisms_Click() {
    StartFilter({"baptism", 0, "", "Baptism List", {&IntLevel},
                 "Names have been sorted and filtered to show only those who have been BAPTIZED",
                 "There are no baptisms to display"});
}

void EditForm::mnuIntLevel_Click() {
    FilterStart f{"interest", 0, "", "", {&IntLevel},
                  "Names have been sorted by Interest Level and filtered to show only those who have an Interest "
                  "Level of A, B, C, or have been Baptized",
                  "There are no Priority Interests to display"};
    f.ending = "Press the  'All Names' button on the button bar to restore all names in alphabetical order.";
    StartFilter(f);
}

void EditForm::mnuReligion_Click() {
    FilterStart f{"religion", 0, "", "Religious" + p.CrLf + "Preference", {&RelPref},
                  "Names have been sorted and filtered by RELIGIOUS PREFERENCE.", "There are no names to display"};
    f.ending = "Click the 'Show all Names' button to restore all names in alphabetical order.";
    StartFilter(f);
}

void EditForm::mnuMarkMarkers_Click() {
    if (p.AddMode || p.IndexCount == 0 || !SaveChanges()) return;
    // Every person of the list on screen is marked, so that the marked list can be printed.
    long shown = p.RecordPos;
    for (int i = 1; i <= p.IndexCount; ++i) {
        long n = static_cast<long>(Val(Right(p.SortIndex[i], 4)));
        if (n < 1 || !GetRecord(p, n)) continue;
        p.MasterRec.MarkToVisit = -1;
        PutRecord(p, n);
    }
    p.RecordPos = shown;
    FetchCurrentRecord(p);
    ShowRecord();
    SetupScreen("");
}
