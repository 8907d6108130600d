// The coded fields: visits, advertising, decisions, interest level, baptism and notes.
#include "edit/BoxRules.h"
#include "edit/EditForm.h"
#include "store/FieldRules.h"
#include "edit/Navigate.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Records.h"
#include "store/Sounds.h"
#include "tables/AppointmentFm.h"

using namespace forms;
using namespace vb;

namespace {
const char* const AdvertisingLetters = "NMRTPOI";

// Keeps the last 12 characters, so the oldest visit falls off.
std::string AppendVisit(const std::string& visits, const std::string& entry) {
    std::string v = RTrim(visits) + entry;
    if (v.size() > 12) v = Right(v, 12);
    return v;
}
}  // namespace

std::string EnterVisitCode(ProgramState& p, const std::string& visits, int key) {
    const std::string& nl = p.CrLf;
    std::string letter = LCase(std::string(1, static_cast<char>(key)));
    std::string answer;
    if (letter != "a") {
        answer = p.host.InputBox("Enter: " + nl + "   'L' for Left Sermon or Message" + nl + "   'H' for Home visit" + nl +
                                     "   'P' for Phone visit" + nl + "   'M' for Meeting visit" + nl +
                                     "   'A' for Appointment" + nl + "Followed by the number of the last meeting" + nl +
                                     nl + "For Example:" + nl + "H07 Would be a visit in the home" + nl +
                                     " following the seventh meeting." + nl + nl +
                                     "Or press Delete and Enter to Remove the last visit entry.",
                                 "Enter Visitation Code", CStr(p.MeetingNumber));
    } else {
        answer = p.host.InputBox("Enter: " + nl + "   'A' for Appointment" + nl +
                                     "Followed by the number of the day of the week" + nl +
                                     "Followed by a number for the hour" + nl + nl + "For Example:" + nl +
                                     "A24 Would show an appointment (A) on Monday (2) at 4:00 (4)" + nl + nl +
                                     "Or press Delete and Enter to Remove the last visit entry.",
                                 "Enter Appointment Code", "");
    }
    std::string current = RTrim(visits);
    if (answer.empty()) {
        if (current.size() >= 3 &&
            p.host.MsgBox("Do you want to delete the last visit?", host::vbYesNo, "Delete Visit") == host::vbYes)
            current.resize(current.size() - 3);
        return current;
    }
    answer = letter + answer;
    if (InStr("ALHMPalhmp", vb::Left(answer, 1)) == 0) return current;
    if (answer[0] == 'a') answer[0] = 'A';
    if (answer.size() == 2) answer = answer.substr(0, 1) + "0" + answer.substr(1);
    if (answer.size() != 3) {
        PlaySound(p, "clunk");
        return current;
    }
    return AppendVisit(current, answer);
}

void EditForm::Visits_KeyDown(int& KeyCode, int Shift) {
    if (FieldKeyDown(Visits, KeyCode, Shift)) return;
    switch (KeyCode) {
    case 'A': case 'L': case 'H': case 'M': case 'P':
        Visits.SetText(EnterVisitCode(p, Visits.Text(), KeyCode));
        KeyCode = 0;
        return;
    case vbKeyBack: case vbKeyDelete: case vbKeyReturn: case vbKeyF2: case vbKeyEscape: case vbKeyPageUp:
    case vbKeyPageDown: case vbKeyShift: case vbKeyControl: case vbKeyMenu: case vbKeyTab:
    case vbKeyLeft: case vbKeyRight: case vbKeyHome: case vbKeyEnd:
        return;
    default: break;
    }
    const std::string& nl = p.CrLf;
    p.host.MsgBox("You must enter one of the following codes: " + nl +
                      "   'L' for Left Sermon at the door or phone message" + nl + "   'H' for Home visit" + nl +
                      "   'P' for Phone visit" + nl + "   'M' for Meeting visit" + nl + "   'A' for Appointment",
                  host::vbOKCancel, "Enter Visitation Code");
    KeyCode = 0;
}

void EditForm::mnuVisits_Click() {
    if (!frameVisit.Visible()) {
        for (Control* c : std::initializer_list<Control*>{&frameVisit, &lblVisitInt, &boxVisitVisits,
                                                          &boxVisitInterest, &btnVisitUpdate})
            c->SetVisible(true);
        mnuVisits.SetChecked(true);
    } else {
        frameVisit.SetVisible(false);
        mnuVisits.SetChecked(false);
        AutoUpdateVisits.SetValue(vbUnchecked);
    }
}

void EditForm::boxVisitVisits_LostFocus() {
    std::string v = LCase(Trim(boxVisitVisits.Text()));
    if (v.empty()) return;
    if (v.size() == 2) v = v.substr(0, 1) + "0" + v.substr(1);
    if (v.size() != 3) {
        PlaySound(p, "clunk");
        v.clear();
    }
    boxVisitVisits.SetText(v);
}

void EditForm::boxVisitInterest_Change() {
    std::string up = UCase(boxVisitInterest.Text());
    if (up != boxVisitInterest.Text()) boxVisitInterest.SetText(up);
}

void EditForm::btnVisitUpdate_Click() {
    if (!boxVisitInterest.Text().empty()) IntLevel.SetText(boxVisitInterest.Text());
    if (!boxVisitVisits.Text().empty()) Visits.SetText(AppendVisit(Visits.Text(), boxVisitVisits.Text()));
    SearchBox.SetFocus();
}

void EditForm::Advertising_GotFocus() {
    if (p.AddMode) Advertising.SetBackColor(HighlightColor);
    const std::string& nl = p.CrLf;
    const std::string prompt = "Enter the Letter(s):" + nl + "  M-  for Mail" + nl + "  N-  for NewsPaper" + nl +
                               "  R-  for Radio" + nl + "  T-  for Television" + nl +
                               "  P-  for Pre Meeting Interest" + nl + "  O-  for Other" + nl +
                               "  I-  for Personal Invitation" + nl + "To Delete, enter a second time.";
    while (true) {
        std::string current = Advertising.Text().empty() ? std::string(".......") : Advertising.Text();
        std::string flags = vb::Left(current + ".......", 7);
        std::string tail = current.size() > 7 ? current.substr(7) : std::string();
        std::string answer = p.host.InputBox(prompt, "Advertising Information", "");
        std::string letters = answer;
        bool tailTyped = false;
        long dash = InStr(answer, "-");
        if (dash > 0) {
            letters = vb::Left(answer, dash - 1);
            tail = "-" + Mid(answer, dash + 1);
            tailTyped = true;
        }
        letters = UCase(letters);
        if (InStr(letters, "I") > 0 && !tailTyped)
            tail = "-" + p.host.InputBox("Enter the Last Name of the Person who invited them:" + nl + nl +
                                             "(Note: you can enter  I-Lastname in the previous box to avoid this second box.)",
                                         "Advertising Information", "");
        for (char ch : letters) {
            long place = InStr(AdvertisingLetters, std::string(1, ch));
            if (place == 0) continue;
            char& slot = flags[place - 1];
            if (slot == ch) {
                slot = '.';
                if (ch == 'I') {
                    tail.clear();
                    flags[4] = '.';
                }
            } else if (slot == '.') {
                slot = ch;
                if (ch == 'I' && vb::Left(Attendance.Text(), 1) == "1") flags[4] = 'P';
            }
        }
        if (flags.size() + tail.size() > 20) {
            p.host.MsgBox("The Persons name is too long." + nl + "Retype it with less than 13 Characters");
            continue;
        }
        Advertising.SetText(flags + tail);
        break;
    }
    WorkerCode.SetFocus();
}

void EditForm::Advertising_LostFocus() {
    if (p.AddMode) Advertising.SetBackColor(vbWindowBackground);
}

void EditForm::ToggleDecision(int Index) {
    std::string d = vb::Left(Decisions.Text() + "---------", 9);
    const std::string& code = p.DecisionCodes[Index + 1];
    d[Index] = Dec[Index].Value() == vbChecked && !code.empty() ? code[0] : '-';
    if (d != Decisions.Text()) Decisions.SetText(d);
}

void EditForm::Dec_MouseUp(int Index, int, int, float, float) {
    if (Index == 8) {
        if (Dec[8].Value() == vbChecked) {
            std::string lvl = Trim(IntLevel.Text());
            if (lvl != "G" && lvl != "A") IntLevel.SetText("B");
        } else {
            p.host.MsgBox("You have removed the Decision to Unite with the church." + p.CrLf +
                          "This may effect the Interest level" + p.CrLf +
                          "Check the Interest Level and make appropriate changes if necessary.");
        }
    }
    for (int i = 0; i <= 8; ++i) ToggleDecision(i);
}

void EditForm::IntLevel_Change() { IntLevelChange(p, IntLevel); }

void EditForm::Baptized_Click() {
    if (Baptized.Value() == vbChecked) {
        IntLevel.SetText("G");
        if (Val(BaptDate.Text()) == 0) BaptDate.SetText(FormatDate(p.host.Now(), "mm/dd/yy"));
    } else if (Trim(IntLevel.Text()) == "G") {
        p.host.MsgBox("Please Enter the Correct Interest Level.");
        IntLevel.SetText("");
        IntLevel.SetFocus();
    }
}

void NotesKeyDown(ProgramState& p, TextBox& notes, int& KeyCode) {
    std::size_t len = notes.Text().size();
    if (len >= 150) {
        p.host.MsgBox("You have reached the limit for Notes." + p.CrLf +
                      "The maximum length allowed for notes is 150 characters.");
        notes.SetText(Left(notes.Text(), 150));
    } else if (len == 140) {
        p.host.MsgBox("You only have space for 10 more characters in this box.");
    }
    if (KeyCode == vbKeyReturn) {
        p.host.MsgBox("You cannot enter multiple lines in this box.");
        KeyCode = 0;
    } else if (KeyCode == 188) {
        p.host.MsgBox("You cannot enter a comma in this box.");
        KeyCode = 0;
    }
}

void EditForm::Notes_KeyDown(int& KeyCode, int Shift) {
    if ((KeyCode == vbKeyPageUp || KeyCode == vbKeyPageDown) && FieldKeyDown(Notes, KeyCode, Shift)) return;
    NotesKeyDown(p, Notes, KeyCode);
}

void EditForm::Notes_MouseDown(int, int, float, float) {
    if (p.AddMode || NotesWarnedAt == p.RecordPos) return;
    NotesWarnedAt = p.RecordPos;
    p.host.MsgBox("Notes entered here are only for data entry items and are not available to visitaton teams." +
                      p.CrLf + "Use the 'Comments/ Prayer Request'  button for information the teams should see.",
                  host::vbExclamation, "Note Box Caution!");
}

void EditForm::mnuClearMark_Click() {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    for (long n = 1; n <= p.RecordCount; ++n) {
        if (!GetRecord(p, n)) break;
        if (p.MasterRec.MarkToVisit == 0) continue;
        p.MasterRec.MarkToVisit = 0;
        PutRecord(p, n);
    }
    if (FetchCurrentRecord(p)) ShowRecord();
}

void EditForm::mnuClearMarks_Click() {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    for (int i = 1; i <= p.IndexCount; ++i) {
        long n = static_cast<long>(Val(Right(p.SortIndex[i], 4)));
        if (n < 1 || !GetRecord(p, n) || p.MasterRec.MarkToVisit == 0) continue;
        p.MasterRec.MarkToVisit = 0;
        PutRecord(p, n);
    }
    if (FetchCurrentRecord(p)) ShowRecord();
    p.host.MsgBox("Marks have been removed from all names." + p.CrLf);
}

void EditForm::Class_MouseUp(int, int, float, float) {
    p.Appointment().ShowFor(Visits, Class, Trim(FName.Text()) + " " + Trim(LName.Text()), ClassAtPress);
}
