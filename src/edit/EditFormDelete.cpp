// Delete, restore and the move to the member file. A record is never taken out
// of the file here: it is marked "##" and leaves the list.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "lists/Lists.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/ListEntry.h"
#include "store/Members.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {
const char* const MoveTitle = "                     Remove SDA Names";
}  // namespace

void EditForm::mnuDeleteRecord_Click() {
    const std::string& nl = p.CrLf;
    if (p.AttendLoaded()) {
        p.host.MsgBox("You cannot delete a record while the Attendance form is open.  " + nl +
                      "Click OK, then Click the 'Return to Attend' button and close the Attendance form in order to delete this record.");
        return;
    }
    if (p.IndexCount <= 1) {
        p.host.MsgBox("You Cannot Delete the Last Record from the File.");
        return;
    }
    const bool move = DeleteTitle == MoveTitle;
    const std::string title = move ? std::string(MoveTitle) : std::string("Delete Record");
    std::string question = "Are you sure you want to remove this record from the INTEREST file?";
    if (move) question += nl + "and add it to the SDA MEMBER File?";
    PlaySound(p, "carbrake");
    if (p.host.MsgBox(question, host::vbYesNo | host::vbCritical, title) != host::vbYes) return;
    if (!move && p.host.MsgBox(question + nl + nl + "This is your last chance to back out.",
                               host::vbYesNo | host::vbCritical, title) != host::vbYes)
        return;
    const std::string member = MemberLine(RNum.Text(), LName.Text(), FName.Text());
    const std::string team = WorkerCode.Text();
    WorkerCode.SetText("##");
    if (!SaveChanges()) {
        WorkerCode.SetText(team);
        return;
    }
    // The member line follows the record, so a refused write leaves neither.
    if (move) AddMember(p, member);
    DropCurrentEntry(p);
    if (FetchCurrentRecord(p)) ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("");
}

void EditForm::btnDelete_Click() {
    mnuDeleteRecord_Click();
    SearchBox.SetFocus();
}

void EditForm::btnSDA_Click() {
    if (p.ScratchValue == "right click") {
        p.ScratchValue.clear();
        return;
    }
    const std::string& nl = p.CrLf;
    int a = p.host.MsgBox("This Will Remove the information for," + nl + std::string(9, ' ') + RNum.Text() + "  " +
                              FName.Text() + " " + LName.Text() + nl +
                              "and add the name and number to the SDA members File." + nl +
                              "All other information will be lost." + nl +
                              "  Are you sure you want to Remove this Record?",
                          host::vbYesNo, MoveTitle);
    if (a == host::vbYes) {
        DeleteTitle = MoveTitle;
        mnuDeleteRecord_Click();
    }
    DeleteTitle.clear();
}

void EditForm::btnSDA_MouseUp(int Button, int, float, float) {
    if (Button != vbRightButton || !mnuMembers.Enabled()) return;
    mnuMembers.Fire(mnuMembers.Click);
    p.ScratchValue = "right click";
}

void EditForm::munUndeleteRec_Click() {
    p.host.MsgBox("Only those who have been Deleted are shown here." + p.CrLf +
                      "Select the 'Show all Names' button to return to the main file.",
                  host::vbOKOnly, "Undelete Records");
    if (p.IndexCount != 0 && !SaveChanges()) return;
    if (!lists::BuildList(p, "undelete") || p.IndexCount == 0) {
        p.host.MsgBox("There are no deleted records to display", host::vbOKOnly, "Undelete Records");
        ShowAll_Click();
        return;
    }
    ShowDeletedView();
}

void EditForm::ShowDeletedView() {
    p.CurrentIndex = 1;
    if (FetchCurrentRecord(p)) ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("Undelete Names");
    for (Control* c : std::initializer_list<Control*>{&mnuEdit, &mnuRecords, &mnuFilterS, &mnuFile, &mnuPreview,
                                                      &mnuTools, &mnuPrint})
        c->SetEnabled(false);
    for (Control* c : std::initializer_list<Control*>{&btnGlobal, &btnSDA, &btnDelete, &btnMark, &btnGoTo, &FndNameBx,
                                                      &btnUndo, &btnExcel, &btnAttend, &btnViewFile, &btnAddName,
                                                      &btnStats})
        c->SetVisible(false);
    btnUndelete.SetVisible(true);
    ShowAll.SetVisible(true);
    lblShowButtonLabels.SetVisible(true);
    lblShowButtonLabels.SetCaption("                        Click to Restore displayed name to the file.");
    EditLabel.SetCaption("Undelete Names");
}

void EditForm::btnUndelete_Click() {
    if (p.SortName != "undelete") {
        munUndeleteRec_Click();
        return;
    }
    if (p.IndexCount == 0 ||
        p.host.MsgBox("Are you sure you want to restore this record to the file?", host::vbYesNo, "Delete Record ") !=
            host::vbYes)
        return;
    const long restored = p.RecordPos;
    const std::string who = Trim(FName.Text()) + " " + Trim(LName.Text());
    WorkerCode.SetText("00");
    if (!SaveChanges()) return;
    // Back to the whole file, on the person just restored.
    ShowAll_Click();
    p.CurrentIndex = std::max(1, FindByRecord(p, restored));
    if (FetchCurrentRecord(p)) ShowRecord();
    OpenRNum = RNum.Text();
    SetupScreen("");
    p.host.MsgBox("The Record for " + who + " has been successfully restored to the INTEREST file.");
}
