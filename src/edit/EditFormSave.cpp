// Add mode: the meeting box, the blank card, saving a card and leaving add mode.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "startup/Lifecycle.h"

using namespace forms;
using namespace vb;

void EditForm::mnuAddRecords_Click() {
    p.AddMode = true;
    for (int i = 0; i <= 8; ++i) Dec[i].SetCaption(p.DecisionNames[i + 1]);
    int meeting = 1;
    if (p.Loaded) {
        std::string answer;
        while (true) {
            answer = p.ImportMode ? std::string("1")
                                  : p.host.InputBox("Enter the Meeting Number" + p.CrLf + p.CrLf +
                                                        "HELPFUL HINT- Remember the F2 Function key will automatically copy the information for that field from the previous record and F3 will copy the essential parts of the entire record.",
                                                    "Add Names", CStr(p.MeetingNumber));
            if (!answer.empty()) break;
            if (p.RecordCount != 0) return;
        }
        meeting = static_cast<int>(Val(answer));
    }
    if (meeting < 1 || meeting > 40) {
        p.host.MsgBox("The Meeting number you entered is invalid." + p.CrLf +
                          "You must select a Meeting Number between 1 and 40",
                      host::vbCritical);
        return;
    }
    if (meeting > p.MeetingNumber + 1) {
        int a = p.host.MsgBox("The last meeting was: " + CStr(p.MeetingNumber) + p.CrLf +
                                  "The next meeting should be Meeting Number: " + CStr(p.MeetingNumber + 1) + p.CrLf +
                                  "You have entered Meeting Number: " + CStr(meeting) + "." + p.CrLf +
                                  "Is this what you want to do?",
                              host::vbYesNo | host::vbQuestion);
        if (a == host::vbNo) return;
    }
    MtgNum.SetText(CStr(meeting));
    if (meeting > p.MeetingNumber) p.MeetingNumber = meeting;
    SetBarButtons(false);
    lblNextFieldBtn.SetCaption("Total Records");

    // The blank card.
    Enable(mnuEditMode, true);
    Enable(mnuAddRecords, false);
    AddNameLabel.SetCaption("Add New Names");
    AddVisibility();
    for (Control* c : std::initializer_list<Control*>{&RNum, &FName, &LName, &Address, &City, &State, &Zip, &Phone,
                                                      &Age, &RelPref, &IntLevel, &Visits, &Notes, &BaptDate, &MapCode,
                                                      &BirthDate, &txtEmail})
        c->SetText("");
    Advertising.SetText(".......");
    WorkerCode.SetText("00");
    Decisions.SetText("---------");
    for (int i = 0; i <= 8; ++i) Dec[i].SetValue(vbUnchecked);
    Class.SetValue(vbUnchecked);
    MailList.SetValue(vbUnchecked);
    p.MasterRec.Decisions = "---------";
    std::string att(40, '-');
    att[meeting - 1] = CStr(meeting).back();
    Attendance.SetText(att);
    Attend.SetText("1");
    Last.SetText(CStr(meeting));
    MailList.SetValue(vbChecked);
    OpenRNum = RNum.Text();
    RecordCounter.SetCaption(CStr(p.IndexCount + 1));
    SetCaption("Vestrel Add Name Screen: " + RTrim(p.CrusadeName) + " Crusade (Meeting # " +
               CStr(p.MeetingNumber) + ")");
    RNum.SetFocus();
}

void EditForm::btnCancelNew_Click() {
    if (p.RecordCount == 0) {
        p.host.MsgBox("You must save at least one record to exit the program.", host::vbCritical, "Exit Add mode");
        return;
    }
    if (p.ScratchText == "NoImports") {
        p.ScratchText.clear();
    } else {
        int a = p.host.MsgBox("You are exiting this record without saving it." + p.CrLf + "Is this what you want to do?",
                              host::vbYesNo | host::vbDefaultButton2, "Exit Add Mode");
        if (a == host::vbNo) {
            p.ScratchValue = "dontexit";
            return;
        }
    }
    if (p.IndexCount == 0) CloseCrusade(p);
    p.CurrentIndex = p.IndexCount;
    if (FetchCurrentRecord(p)) ShowRecord();
    SetupScreen("");
    mnuEditMode_Click();
}
