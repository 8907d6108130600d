// The edit screen's ways into the door screen and the attendance correction,
// and the wiring of the entries built with them.
#include "attend/AttendF.h"
#include "attend/AttendFieldUpdate.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "lists/Lists.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "reports/PrintReports.h"
#include "store/Meetings.h"

using namespace forms;
using namespace vb;

void EditForm::WireDoorScreens() {
    mnuAttendUpdate.Click = [this] { mnuAttendUpdate_Click(); };
    btnAttend.Click = [this] {
        // A preview left open over the door would mark whoever stands at its lines after the rebuild.
        if (p.ReportsLoaded()) p.Reports().Unload();
        mnuAttendUpdate_Click();
    };
    Attendance.Click = [this] { Attendance_Click(); };
    Class.MouseUp = [this](int b, int s, float x, float y) { Class_MouseUp(b, s, x, y); };
    // The press comes before the box turns: what it showed is what a Cancel puts back.
    Class.MouseDown = [this](int, int, float, float) { ClassAtPress = Class.Value(); };
    mnuDeleteRecord.Click = [this] { mnuDeleteRecord_Click(); };
    btnDelete.Click = [this] { btnDelete_Click(); };
    btnSDA.Click = [this] { btnSDA_Click(); };
    btnSDA.MouseUp = [this](int b, int s, float x, float y) { btnSDA_MouseUp(b, s, x, y); };
    // "right click" is for the click of the same press; a new press finds none of its own.
    btnSDA.MouseDown = [this](int, int, float, float) {
        if (p.ScratchValue == "right click") p.ScratchValue.clear();
    };
    munUndeleteRec.Click = [this] { munUndeleteRec_Click(); };
    btnUndelete.Click = [this] { btnUndelete_Click(); };
    btnPrayer.Click = [this] { EnterPrayer(); };
    mnuEnterPrayerRequest.Click = [this] { EnterPrayer(); };
    mnuViewPrayerList.Click = [this] { mnuViewPrayerList_Click(); };
    for (Control* c : std::initializer_list<Control*>{&mnuAttendUpdate, &btnAttend, &mnuDeleteRecord, &btnDelete,
                                                      &btnSDA, &munUndeleteRec, &btnUndelete, &btnPrayer,
                                                      &mnuEnterPrayerRequest, &mnuViewPrayerList}) {
        notBuilt_.erase(c);
        c->SetEnabled(true);
    }
}

void EditForm::mnuAttendUpdate_Click() {
    const std::string& nl = p.CrLf;
    if (p.AddMode) return;
    if (p.IndexCount == 0) {
        p.host.MsgBox("There is nobody in the file to take attendance for." + nl + "Add the names first.",
                      host::vbExclamation, "Nightly Attendance Update");
        return;
    }
    std::string answer = p.host.InputBox("Enter the Meeting Number for which you are updating the Attendance",
                                         "Nightly Attendance Update", CStr(p.MeetingNumber));
    int meeting = CheckMeetingEntry(p, answer, MeetingEntryFor::NightlyAttendance);
    if (meeting == 0) return;
    if (!SaveChanges()) return;
    if (p.SortName != "alpha") {
        lists::BuildList(p, "alpha");
        p.CurrentIndex = 1;
        if (p.IndexCount == 0) return;
        if (FetchCurrentRecord(p)) ShowRecord();
        SetupScreen("");
        ShowAll.SetVisible(false);
        SearchBox.SetVisible(true);
        SearchBoxLabel.SetVisible(true);
    }
    p.ScratchValue = CStr(meeting);
    p.Attend().Show();
    Hide();
}

void EditForm::Attendance_Click() {
    if (p.AddMode || p.IndexCount == 0) return;
    p.CallerForm = "edit";
    p.AttendUpdate().Show(true);
}
