// Prayer requests and comments: what the visiting teams should read, kept out of Notes.
#include "edit/Prayer.h"

#include "edit/EditForm.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"

using namespace forms;
using namespace vb;

std::string PrayerFile(const ProgramState& p) {
    return Left(p.DataFile, static_cast<long>(p.DataFile.size()) - 4) + "_prayer" + ".txt";
}

bool AppendPrayer(Program& p, const std::string& rnum, const std::string& first, const std::string& last,
                  const std::string& request) {
    std::string line = "    " + Trim(rnum) + "  " + Trim(first) + " " + Trim(last) + "- " + request;
    std::size_t comma = line.find(',');
    if (comma != std::string::npos) line[comma] = '-';
    const std::string path = PrayerFile(p);
    TextWriter w;
    try {
        const bool isNew = !FileExists(path);
        // Written whole beside the old file and put in its place: a fault leaves it as it stood.
        w.Open(path, TextWriter::Mode::Append, true);
        if (isNew) {
            w.PrintLine("PRAYER REQUESTS AND COMMENTS FOR: " + p.CrusadeName + " Meeting");
            w.PrintLine();
        }
        if (p.LastPrayerMeeting < p.MeetingNumber) {
            w.PrintLine();
            w.PrintLine("PRAYER REQUESTS AND COMMENTS FOR MEETING: " + CStr(p.MeetingNumber));
        }
        w.PrintLine(line);
        w.Close();
    } catch (const RuntimeError&) {
        w.Abandon();
        return false;
    }
    if (p.LastPrayerMeeting < p.MeetingNumber) p.LastPrayerMeeting = p.MeetingNumber;
    return true;
}

void EnterPrayer(Program& p, const std::string& rnum, const std::string& first, const std::string& last) {
    std::string request = p.host.InputBox(
        "The Prayer Requests will not be visible from this screen.  You must select the View Prayer Requests option from the tools menu to see them." +
            p.CrLf + p.CrLf + "Type in the Request below.",
        "Enter the Prayer Request", "");
    if (request.empty()) return;
    AppendPrayer(p, rnum, first, last, request);
}

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

void EditForm::Form_KeyDown(int& KeyCode, int Shift) {
    if ((Shift & vbCtrlMask) && KeyCode == 'P' && !p.AddMode && btnPrayer.Enabled()) {
        KeyCode = 0;
        EnterPrayer();
    } else if (KeyCode == vbKeyF1 && Shift == 0) {
        // As on any desktop program: F1 opens the help.
        KeyCode = 0;
        mnuHelpFiles_Click();
    }
}
