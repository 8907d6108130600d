// Prayer requests and comments: what the visiting teams should read, kept out of Notes.
#include "store/Prayer.h"

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

std::string PrayerFile(const ProgramState& p) {
    return Left(p.DataFile, static_cast<long>(p.DataFile.size()) - 4) + "_prayer" + ".txt";
}

bool AppendPrayer(ProgramState& p, const std::string& rnum, const std::string& first, const std::string& last,
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
