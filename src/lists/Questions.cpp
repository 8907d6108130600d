#include "lists/Questions.h"

#include "lists/ListRun.h"
#include "lists/SelDecFm.h"
#include "lists/frmFilters.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"

using namespace vb;

namespace lists {

int AskMeetingToView(ListRun& p) {
    std::string prompt = "Enter the Meeting number you would like to see." + p.CrLf + "Must be between 1 and " +
                         CStr(p.MeetingNumber);
    for (;;) {
        std::string answer = Trim(p.host.InputBox(prompt, "Select a Meeting to View", ""));
        int n = static_cast<int>(Val(answer));
        // Letters are a wrong answer, not the 0 that ends the command.
        if (answer.empty() || (n == 0 && IsNumeric(answer))) return 0;
        if (n >= 1 && n <= p.MeetingNumber && n <= 40) return n;
        prompt = "You must enter a number between 1 and " + CStr(p.MeetingNumber);
    }
}

int AskNightsMissed(ListRun& p) {
    const std::string& nl = p.CrLf;
    std::string answer = Trim(p.host.InputBox(
        "You would like to see those who have not attended since how many nights?" + nl + nl +
            "For example: If you enter 3, then you will only see those names that have missed at least the last "
            "three meetings" + nl + nl + "but have attended since meeting (" + CStr(p.PrintCutOff) +
            ") the meeting cutoff night.",
        "Select Missing Names to view", ""));
    if (answer.empty()) return 0;
    int n = static_cast<int>(Val(answer));
    if (n < 1 || n == p.MeetingNumber) {
        p.host.MsgBox("You must select a meeting between 0 and " + CStr(p.MeetingNumber - 1));
        return 0;
    }
    return n;
}

std::string AskTeamCode(ListRun& p) {
    std::string team = Trim(p.host.InputBox("Enter the desired Team Code (01-20)", "", ""));
    if (team.size() == 1) team = "0" + team;
    return team;
}

int AskDecision(ListRun& p) {
    // The dialog leaves its choice in SortName; the list before is still the one in force.
    std::string before = p.SortName;
    SelDecFm& f = p.SelDec();
    f.Show(true);
    int n = f.Chosen;
    p.SortName = before;
    return n;
}

bool AskArrangeByLevel(ListRun& p) {
    return p.host.MsgBox("Do you want to arrange these decisions by Interest Level?", host::vbYesNo,
                         "Arrange Decisions by Interest Level or Alphabetical") == host::vbYes;
}

int AskCardLimits(ListRun& p) {
    const std::string& nl = p.CrLf;
    int code = 0;
    if (p.host.MsgBox("You can print card labels for all names or you can" + nl +
                          "limit the cards printed to those who have attended 4 or more times." + nl + nl +
                          "Do you want to limit the cards printed to those who have attended 4 or more times?",
                      host::vbYesNo) == host::vbYes)
        code = 1;
    bool team = p.host.MsgBox("You can also limit the cards printed to include " + nl +
                                  "only those who have an assigned Team Code." + nl + nl +
                                  "Do you want to limit the cards printed to those who have an assigned Team Code?",
                              host::vbYesNo) == host::vbYes;
    return code + (team ? 4 : 2);
}

std::string AskTotalAttend(ListRun& p) {
    p.ScratchValue = "cancel";
    p.Filters().Show(true);
    std::string how = p.ScratchValue;
    // "equal" stays for the title of the report that printed the list; a "cancel" is taken here.
    if (how == "cancel") p.ScratchValue.clear();
    return how;
}

}  // namespace lists
