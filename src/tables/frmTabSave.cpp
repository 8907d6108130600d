// Save: the checks, the last-meeting questions, the Erase pass and the information file.
#include <cmath>

#include "platform/host/Host.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/Meetings.h"
#include "store/Records.h"
#include "store/State.h"
#include "tables/PrefsErase.h"
#include "tables/frmTab.h"

using namespace forms;
using namespace vb;

namespace {
// A whole number written as one: digits with at most a sign, nothing else.
bool WholeNumber(const std::string& text, long& value) {
    const std::string t = Trim(text);
    if (t.empty() || !IsNumeric(t) || t.find_first_of(".,eE") != std::string::npos) return false;
    value = static_cast<long>(Val(t));
    return true;
}
// The runtime's conversion to a whole number: halves go to the even neighbour.
long ToLong(const std::string& text) { return static_cast<long>(std::nearbyint(Val(Trim(text)))); }
}  // namespace

bool frmTab::InputFits() {
    auto refuse = [this](int tab, Control& box, const std::string& text) {
        p.host.MsgBox(text, host::vbExclamation, "Vestrel Preferences");
        ShowTab(tab, &box);
        return false;
    };
    // The information file ends a value at a comma and reads the rest into the next line's value.
    struct Box { int tab; Control* box; std::string what; };
    std::vector<Box> texts{{TabGeneral, &CrNameM_Box, "The crusade name"}, {TabGeneral, &CrDateM_Box, "The crusade date"}};
    for (int i = 1; i <= 40; ++i) {
        texts.push_back({TabTeams, &Team[i], "The name of team" + Str(static_cast<long>(i))});
        texts.push_back({TabTeams, &TmPhone[i], "The phone of team" + Str(static_cast<long>(i))});
    }
    for (int i = 1; i <= 9; ++i) texts.push_back({TabDecisions, &prefDec[i], "Decision" + Str(static_cast<long>(i))});
    for (int i = 1; i <= 14; ++i) texts.push_back({TabChurch, &prefReligion[i], "Church" + Str(static_cast<long>(i))});
    for (int i = 1; i <= 40; ++i) texts.push_back({TabSermons, &prefSerm[i], "Sermon title" + Str(static_cast<long>(i))});
    for (const Box& b : texts)
        if (InStr(b.box->Text(), ",") > 0)
            return refuse(b.tab, *b.box,
                          b.what + " holds a comma." + p.CrLf +
                              "The crusade file ends a value at a comma, so the rest would be lost and the values "
                              "after it would move. Please use another sign in its place.");
    for (int i = 1; i <= 40; ++i)
        if (InStr(Team[i].Text(), ":") > 0)
            return refuse(TabTeams, Team[i],
                          "The name of team" + Str(static_cast<long>(i)) + " holds a colon (\":\")." + p.CrLf +
                              "The colon parts a team's name from its phone number in the crusade file. Please "
                              "use another sign in its place.");
    for (int i = 1; i <= 9; ++i) {
        const std::string code = UCase(Trim(prefDecCode[i].Text()));
        if (code.size() != 1 || code[0] < 'A' || code[0] > 'Z' || code == "V")
            return refuse(TabDecisions, prefDecCode[i],
                          "Decision" + Str(static_cast<long>(i)) + " needs a code of one letter (but not V, which "
                          "marks a video night)." + p.CrLf +
                              "The codes stand in the attendance of each person, one letter for each decision.");
    }
    long meeting = 0;
    if (!WholeNumber(LastMeetingBox.Text(), meeting) || meeting < 1 || meeting > 40) {
        p.host.MsgBox("The Meeting number you entered is invalid." + p.CrLf +
                          "You must select a Meeting Number between 1 and 40",
                      host::vbCritical);
        LastMeetingBox.SetText(CStr(openedMeeting_));
        ShowTab(TabGeneral, &LastMeetingBox);
        return false;
    }
    long reserved = 0;
    if (!WholeNumber(ResNumMM.Text(), reserved) || reserved < 0 || reserved > 9999)
        return refuse(TabGeneral, ResNumMM,
                      "The Reserved Number must be a whole number from 0 to 9999." + p.CrLf +
                          "Registration numbers have four digits.");
    return true;
}

bool frmTab::AskLastMeeting(int n, int c) {
    bool yes = true;
    if (n < c) {
        const std::string& nl = p.CrLf;
        yes = p.host.MsgBox("You have changed the Last Meeting to (" + CStr(n) + ") which is less " +
                                "than the current last meeting (" + CStr(c) + ")." + nl + nl +
                                "The Attendance Record past Meeting Number: " + CStr(n) + " will be erased " +
                                "for each name." + nl + nl + "Is this what you want to do?" + nl + nl +
                                "It is highly recommended that you back up your file first." + nl +
                                "If you wish to make a backup then click NO and proceed.",
                            host::vbYesNo | host::vbCritical, "Erase Attendance After Meeting " + CStr(c)) ==
              host::vbYes;
    } else if (n > c + 1) {
        // The night's own question, asked against the counter as the dialog found it.
        yes = CheckMeetingEntry(p, CStr(n), MeetingEntryFor::NightlyAttendance) == n;
    }
    if (!yes) {
        LastMeetingBox.SetText(CStr(c));
        ShowTab(TabGeneral, &LastMeetingBox);
    }
    return yes;
}

void frmTab::CopyOut() {
    p.CrusadeName = CrNameM_Box.Text();
    p.CrusadeDate = CrDateM_Box.Text();
    TextBox* sab[] = {&bxSabAM1, &bxSabAM2, &bxSabAM3, &bxSabAM4};
    for (int i = 0; i < 4; ++i) {
        if (Trim(sab[i]->Text()).empty()) sab[i]->SetText("0");
        p.SabAM[static_cast<std::size_t>(i + 1)] = static_cast<int>(Val(sab[i]->Text()));
    }
    p.PrintCutOff = static_cast<int>(Val(PrintCutOffBox.Text()));
    if (ResDirMM[0].Value()) p.NumberDirection = "UP";
    else if (ResDirMM[1].Value()) p.NumberDirection = "DOWN";
    p.LastRNum = static_cast<long>(Val(ResNumMM.Text()));
    p.ShowButtonLabels = boxShowButtonLabels.Value() == vbChecked;
    p.SoundOn = ckSoundOff.Value() != vbChecked;
    p.CanadaSorter = ckCanada.Value() == vbChecked;
    for (int i = 1; i <= 9; ++i) {
        p.DecisionNames[static_cast<std::size_t>(i)] = prefDec[i].Text();
        p.DecisionCodes[static_cast<std::size_t>(i)] = UCase(Trim(prefDecCode[i].Text()));
    }
    for (int i = 1; i <= 14; ++i) p.ReligionList[static_cast<std::size_t>(i)] = prefReligion[i].Text();
    for (int i = 1; i <= 40; ++i) p.SermonTitles[static_cast<std::size_t>(i)] = prefSerm[i].Text();
    for (int i = 1; i <= 40; ++i) {
        std::string t = Team[i].Text() + ":" + TmPhone[i].Text();
        // As the next load would read it back, so that every screen shows it the same way now.
        if (Trim(t) == ":") t = "Team # " + Str(static_cast<long>(i));
        p.TeamNames[static_cast<std::size_t>(i)] = t;
    }
    p.LabelTop = ToLong(bxLabelTop.Text());
    p.LabelRight = ToLong(bxLabelRight.Text());
}

void frmTab::Erase(int n, int c) {
    host::BusyPointer busy(p.host);
    const std::string& nl = p.CrLf;
    EraseAttendanceAfter(p, n, c, [&](const LateComer& who) {
        p.host.MsgBox(Trim(std::string(who.RNum)) + " " + Trim(std::string(who.FName)) + " " +
                      Trim(std::string(who.LName)) + nl + "Had not attended before meeting number " + CStr(c) + nl +
                      "This record has been adjusted to show  attendance for meeting number: " + CStr(n) + nl +
                      "You may want to make a note of the number and edit this record manually or delete it.");
    });
    if (p.RecordPos >= 1 && p.RecordPos <= p.RecordCount) GetRecord(p, p.RecordPos);
}

void frmTab::btnSave_Click() {
    if (!changed_) {
        Close();
        return;
    }
    if (!InputFits()) return;
    const int n = static_cast<int>(Val(LastMeetingBox.Text()));
    const int c = openedMeeting_;
    if (!AskLastMeeting(n, c)) return;
    CopyOut();
    if (n < c && p.File1.IsOpen()) {
        try {
            Erase(n, c);
        } catch (const RuntimeError& e) {
            p.host.MsgBox("The attendance could not be cut back to meeting " + CStr(n) + "." + p.CrLf + "Error # " +
                              CStr(static_cast<long>(e.Number)) + ": " + e.Description() + p.CrLf + p.CrLf +
                              "The Last Meeting stays at " + CStr(c) + ".",
                          host::vbExclamation, "Vestrel Preferences");
            LastMeetingBox.SetText(CStr(c));
            ShowTab(TabGeneral, &LastMeetingBox);
            return;
        }
    }
    p.MeetingNumber = n;
    openedMeeting_ = n;
    if (!SaveInfo(p)) return;   // the operator was told; the dialog stays for another try
    Close();
}
