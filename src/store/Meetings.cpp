#include "store/Meetings.h"

#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/State.h"

using namespace vb;

int CheckMeetingEntry(ProgramState& p, const std::string& entry, MeetingEntryFor kind) {
    const bool night = kind == MeetingEntryFor::NightlyAttendance;
    if (!night && entry.empty()) return 0;
    double value = Val(entry);
    if (night && value == 0) return 0;
    if (value < 1 || value > 40) {
        p.host.MsgBox("The Meeting number you entered is invalid." + p.CrLf +
                          "You must select a Meeting Number between 1 and 40",
                      host::vbCritical);
        return 0;
    }
    int e = static_cast<int>(value);
    if (e > p.MeetingNumber + 1) {
        int answer = p.host.MsgBox("The last meeting was: " + CStr(p.MeetingNumber) + p.CrLf +
                                       "The next meeting should be Meeting Number: " + CStr(p.MeetingNumber + 1) +
                                       p.CrLf + "You have entered Meeting Number: " + CStr(e) + "." + p.CrLf +
                                       (night ? p.CrLf : std::string()) + "Is this what you want to do?",
                                   host::vbYesNo | host::vbQuestion);
        if (answer == host::vbNo) return 0;
    }
    return e;
}

void RaiseMeetingNumber(ProgramState& p, int typed) {
    if (typed > p.MeetingNumber) p.MeetingNumber = typed;
}

std::string FirstAttendance(int m) {
    std::string att(40, '-');
    if (m >= 1 && m <= 40) att[static_cast<std::size_t>(m - 1)] = LastDigit(m);
    return att;
}
