// Showing a person, the screen's set-up per list kind, and walking the list.
#include <algorithm>

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {
// Right-trims a field of the record and shows it.
template <std::size_t N>
void Put(Control& box, FixedText<N>& field) {
    std::string v = RTrim(field);
    field = v;
    box.SetText(v);
}
}  // namespace

void EditForm::ShowRecord() {
    MasterRecord& r = p.MasterRec;
    NotesWarnedAt = -1;   // the Notes caution comes once per visit
    Put(FName, r.FName);
    Put(LName, r.LName);
    Put(RNum, r.RNum);
    Put(Address, r.Address);
    std::string addr = RTrim(r.Address);
    if (InStr(addr, "PO ") > 0 || addr == "Address Unknown") {
        Address.SetForeColor(vbRed);
        Address.SetFontBold(true);
    } else {
        Address.SetForeColor(vbWindowText);
        Address.SetFontBold(false);
    }
    Put(City, r.City);
    Put(State, r.State);
    Put(Zip, r.Zip);
    Put(Phone, r.Phone);
    if (p.ScratchText != "NotFound") {
        if (RTrim(r.Phone) == "Unknown") {
            Phone.SetForeColor(vbRed);
            Phone.SetFontBold(true);
        } else {
            Phone.SetForeColor(vbWindowText);
            Phone.SetBackColor(vbWhite);
            Phone.SetFontBold(false);
        }
    }
    Put(IntLevel, r.IntLevel);
    Baptized.SetValue(RTrim(r.IntLevel) == "G" ? vbChecked : vbUnchecked);
    MailList.SetValue(r.MailList ? vbChecked : vbUnchecked);
    Put(Age, r.Age);
    Put(RelPref, r.RelPref);
    Put(Visits, r.Visits);
    Put(Advertising, r.Advertising);
    Put(WorkerCode, r.WorkerCode);
    Put(Attend, r.Attend);
    Put(Attendance, r.Attendance);
    Last.SetText(CStr(static_cast<long>(r.Last)));
    Put(Notes, r.Notes);
    for (int n = 1; n <= 9; ++n) Dec[n - 1].SetValue(r.Decisions.At(n) != '-' ? vbChecked : vbUnchecked);
    Put(Decisions, r.Decisions);
    Put(txtEmail, r.Email);
    Put(MapCode, r.MapCode);
    Class.SetValue(r.Class ? vbChecked : vbUnchecked);
    Put(BirthDate, r.BirthDate);
    chkMarkToVisit.SetValue(r.MarkToVisit ? vbChecked : vbUnchecked);
    std::string bapt = Trim(r.BaptDate);
    BaptDate.SetText(bapt == "12:00AM" ? std::string() : bapt);
    p.UndoRec = p.MasterRec;
    if (p.SortName == "religion") {
        std::string rel = RTrim(r.RelPref);
        if (rel != CountedReligion) {
            ReligionCount = 0;
            CountedReligion = rel;
        }
        ++ReligionCount;
    }
    RecordPos.SetCaption(CStr(p.RecordPos));
}

void EditForm::ResetBackColor() {
    for (Control* c : std::initializer_list<Control*>{&Address, &Age, &Attend, &Attendance, &BaptDate,
                                                      &chkMarkToVisit, &Class, &IntLevel, &Last, &LName, &MailList,
                                                      &Notes, &WorkerCode, &RelPref, &Zip, &Advertising})
        c->SetBackColor(vbWhite);
    for (int i = 0; i <= 8; ++i) Dec[i].SetBackColor(vbWhite);
}

void EditForm::SetBackColor() {
    // The highlights of the night, team and decision lists first.
    Last.SetBackColor(vbWhite);
    WorkerCode.SetBackColor(vbWhite);
    Attendance.SetBackColor(vbWhite);
    for (int i = 0; i <= 8; ++i) Dec[i].SetBackColor(vbWhite);
    ResetBackColor();
}

void EditForm::Highlight(Control& c) { c.SetBackColor(HighlightColor); }

void EditForm::SetupScreen(const std::string& labelText) {
    const std::string nl = p.CrLf;
    if (p.AddMode) {
        // The blank card keeps its own caption and count whoever sets the screen up.
        RecordCounter.SetCaption(CStr(p.IndexCount + 1));
        SetCaption("Vestrel Add Name Screen: " + RTrim(p.CrusadeName) + " Crusade (Meeting # " +
                   CStr(p.MeetingNumber) + ")");
    } else {
        RecordCounter.SetCaption(CStr(p.CurrentIndex) + " of " + CStr(p.IndexCount));
        SetCaption("Vestrel Edit Screen: " + RTrim(p.CrusadeName) + " Crusade (Meeting # " +
                   CStr(p.MeetingNumber) + ")");
    }
    std::string heading = p.PrintCutOff != 0 ? nl + "Last Mtg >" + CStr(p.PrintCutOff) : nl + "All Names";
    std::string cutOff = CStr(p.PrintCutOff);

    std::string stem = p.SortName, number;
    for (const char* s : {"attendnight", "missednight", "SelWCAttend"})
        if (vb::Left(stem, static_cast<long>(std::string(s).size())) == s) {
            number = Trim(Right(stem, 2));
            stem = s;
        }
    if (vb::Left(stem, 9) == "decisions") {
        number = Right(stem, 1);
        stem = "decisions";
    }

    SetBackColor();
    std::string label = labelText;
    if (stem == "age") Highlight(Age);
    else if (stem == "Advertising") Highlight(Advertising);
    else if (stem == "alpha") label = "All Names Sorted Alphabetially";
    else if (stem == "alphafilter") label = "Alphabetical List" + heading;
    else if (stem == "wcalpha") { label = "Team Codes" + heading; Highlight(Last); Highlight(WorkerCode); }
    else if (stem == "interest") { label = "Priority List"; Highlight(IntLevel); }
    else if (stem == "baptism") { label = "Baptisms List"; Highlight(IntLevel); }
    else if (stem == "date") { label = "Baptism Dates"; Highlight(BaptDate); }
    else if (stem == "FutureBapDateSet") { label = "Future Baptism Dates Set"; Highlight(BaptDate); }
    else if (stem == "attend") { label = "Attendance " + nl + "Last Mtg >" + cutOff; Highlight(Last); Highlight(Attendance); }
    else if (stem == "zip") { label = "Zip Code Filter"; Highlight(Zip); }
    else if (stem == "religion") label = "Religion" + nl + "Last Mtg >" + cutOff;
    else if (stem == "attendnight") { label = "Attendance for " + nl + "Mtg: " + number; Highlight(Last); }
    else if (stem == "mail") label = "Mail List";
    else if (stem == "DupAddress") { label = "Duplicate" + nl + "Addresses"; Highlight(Address); }
    else if (stem == "NDupAddress") { label = "Dup Address" + nl + "Different Name"; Highlight(Address); Highlight(LName); }
    else if (stem == "TDupAddress") { label = "Duplicate Address" + nl + "Different Team"; Highlight(Address); Highlight(WorkerCode); }
    else if (stem == "CleanMailList") { label = "Clean up Mail List"; Highlight(Address); Highlight(WorkerCode); }
    else if (stem == "PreCrusade") label = "Pre-Crusade" + nl + "Guests";
    else if (stem == "marked") { label = "Marked Names"; Highlight(chkMarkToVisit); }
    else if (stem == "SelWCAttend") {
        int team = static_cast<int>(Val(number));
        std::string name = team >= 0 && team <= 40 ? p.TeamNames[team] : std::string();
        long colon = InStr(name, ":");
        if (colon > 0) name = vb::Left(name, colon - 1);
        label = "Team Code: " + number + nl + name;
        Highlight(WorkerCode);
        Highlight(Attendance);
    }
    else if (stem == "TotalAttend") { label = "Total Meetings" + nl + "Attended =" + CStr(p.FilterTotalAttend); Highlight(Attendance); }
    else if (stem == "wcattend") { Highlight(WorkerCode); Highlight(Attendance); }
    else if (stem == "decisions") {
        int n = static_cast<int>(Val(number));
        label = "Decision:" + nl + (n >= 1 && n <= 9 ? p.DecisionNames[n] : std::string());
        if (n >= 1 && n <= 9) Highlight(Dec[n - 1]);
    }
    else if (stem == "missednight") label = "Missed " + nl + number + " night(s).";
    else if (stem.empty()) label.clear();
    else if (stem == "notes") Highlight(Notes);
    EditLabel.SetCaption(label);
}

void EditForm::ChgRec_Click(int Index) {
    if (p.ScratchValue == "dontexit") {
        p.ScratchValue.clear();
        return;
    }
    HeldPosition = p.CurrentIndex;
    if (!SaveChanges()) return;
    if (p.ScratchText == "StayHere") {
        p.ScratchText.clear();
        return;
    }
    GoRecord(p, Index);
    OpenRNum = RNum.Text();
}

void EditForm::ChgRec_MouseUp(int Index, int Button, int, float, float) {
    if (Button != vbRightButton || (Index != 1 && Index != 2)) return;
    std::string key;
    long width = 0;
    const std::string& entry = p.SortIndex[p.CurrentIndex];
    if (p.SortName == "zip") { key = vb::Left(Zip.Text(), 5); width = 5; }
    else if (p.SortName == "religion") { key = RelPref.Text(); width = 20; }
    else if (p.SortName == "attend") { key = Mid(entry, 5, 3); width = 3; }
    else if (p.SortName == "wcalpha") { key = Mid(entry, 5, 2); width = 2; }
    else if (p.SortName == "interest" || p.SortName == "alphafilter" || p.SortName == "alpha") {
        key = Mid(entry, 5, 1);
        width = 1;
    }
    key = Trim(key);
    auto inGroup = [&](int pos) { return Trim(Mid(p.SortIndex[pos], 5, width)) == key; };
    int pos = p.CurrentIndex;
    if (Index == 2) {
        while (pos < p.IndexCount && inGroup(pos)) ++pos;
    } else {
        while (pos >= 2 && inGroup(pos)) --pos;
    }
    if (pos == p.IndexCount || pos == 1) {
        PlaySound(p, "clunk");
        return;
    }
    p.CurrentIndex = pos;
    SaveChanges();
    FetchCurrentRecord(p);
    ShowRecord();
    SetupScreen("");
    OpenRNum = RNum.Text();
}

void EditForm::mnuNextRecord_Click() { ChgRec_Click(2); }
void EditForm::mnuPreviousRec_Click() { ChgRec_Click(1); }

void EditForm::btnMark_Click() {
    p.SavedIndex = p.CurrentIndex;
    FndNameBx.SetCaption(LName.Text());
}

void EditForm::btnGoTo_Click() {
    int target = p.SavedIndex != 0 ? p.SavedIndex : HeldPosition;
    if (target == 0) {
        // Nothing marked and no move made yet: nowhere to go back to.
        PlaySound(p, "clunk");
        return;
    }
    if (!SaveChanges()) return;
    p.CurrentIndex = std::min(target, p.IndexCount);
    FetchCurrentRecord(p);
    ShowRecord();
    SetupScreen("");
    OpenRNum = RNum.Text();
}

void EditForm::Label17_DblClick() { Notes.SetText(""); }

