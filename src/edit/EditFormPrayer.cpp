// The prayer requests of the edit screen: entering one and opening the list.
#include "edit/EditForm.h"
#include "edit/Prayer.h"
#include "platform/vb/Files.h"
#include "program/Program.h"
#include "store/Prayer.h"

void EditForm::EnterPrayer() {
    ::EnterPrayer(p, RNum.Text(), FName.Text(), LName.Text());
    SearchBox.SetFocus();
}

void EditForm::mnuViewPrayerList_Click() {
    const std::string file = PrayerFile(p);
    if (p.host.OpenDocument(file) > 32) return;
    // A list that is there but has nothing to open it is not an empty list: say where it is.
    if (vb::FileExists(file))
        p.host.MsgBox("The Prayer Requests are in the file:" + p.CrLf + file + p.CrLf + p.CrLf +
                          "No program on this computer would open it. Open it with any text editor.",
                      host::vbInformation, "View Prayer List");
    else
        p.host.MsgBox("There are no Prayer Requests to view.");
}
