#include "reports/Stats.h"

#include <algorithm>

#include "platform/vb/Quotient.h"
#include "platform/vb/Strings.h"
#include "reports/ReportParts.h"
#include "store/Records.h"
#include "store/State.h"

using vb::Trim;

namespace reports {

namespace {

bool Deleted(const MasterRecord& r) { return r.WorkerCode == "##"; }

// "N" and every other character that is no number are index 0, as the runtime's
// Val makes them. An 8 or 9 would lie past the table: those are 0 as well.
int AgeIndex(const MasterRecord& r) {
    const char c = r.Age.At(1);
    return c >= '0' && c <= '7' ? c - '0' : 0;
}

bool Has(const std::string& s, char c) { return s.find(c) != std::string::npos; }

}  // namespace

CountSettings CountSettings::Of(const ProgramState& p) {
    CountSettings s;
    s.MeetingNumber = p.MeetingNumber;
    s.ReligionList = p.ReligionList;
    s.SermonTitles = p.SermonTitles;
    return s;
}

StatsCounter::StatsCounter(const CountSettings& s) : s_(s) {
    c_.MeetingNumber = std::clamp(s.MeetingNumber, 0, 40);
    // The first title from 1 to 30 that names the message; Sabbath is 8 when none does.
    t_.SabbathMeeting = 8;
    t_.GospelMeeting = 0;
    bool sabbath = false, gospel = false;
    for (int i = 1; i <= 30; ++i) {
        const std::string& title = s.SermonTitles[static_cast<std::size_t>(i)];
        if (!sabbath && vb::InStr(title, "Sabbath") > 0) {
            t_.SabbathMeeting = i;
            sabbath = true;
        }
        if (!gospel && vb::InStr(title, "Gospel") > 0) {
            t_.GospelMeeting = i;
            gospel = true;
        }
    }
}

void StatsCounter::Add(const MasterRecord& r) {
    if (Deleted(r)) return;
    AddStats(r);
    AddTeam(r);
}

void StatsCounter::AddStats(const MasterRecord& r) {
    StatsCounts& c = c_;
    const char level = r.IntLevel.At(1);
    const bool baptized = level == 'G';
    const int attend = static_cast<int>(vb::Val(r.Attend));
    const std::string& attendance = r.Attendance.str();

    c.TotalNames += Has(r.FName.str(), '&') ? 2 : 1;   // a couple is two persons
    if (r.Last > s_.MeetingNumber - 3) ++c.CurrentNames;
    if (r.Class != 0) {
        ++c.ClassCount;
        if (baptized) ++c.ClassBaptized;
    }
    const bool dateSet = HasBaptDate(r);
    if (dateSet && !baptized) ++c.DateSet;
    if (r.Class != 0 && !dateSet && static_cast<unsigned char>(level) < 'C') ++c.InterviewsLeft;
    switch (level) {
    case 'A': ++c.LevelA; break;
    case 'B': ++c.LevelB; break;
    case 'C': ++c.LevelC; break;
    case 'G': ++c.Baptisms; break;
    default: break;
    }
    if (r.MailList != 0) ++c.MailCount;
    if (attend > 3) ++c.ActiveNames;

    auto count = [baptized](auto& all, auto& bapt, int i) {
        ++all[static_cast<std::size_t>(i)];
        if (baptized) ++bapt[static_cast<std::size_t>(i)];
    };
    // A person counts at the first entry that names the church, else at 12. A blank
    // entry of the list names no church, so a blank preference goes to 12 as well.
    const std::string religion = Trim(r.RelPref);
    int rel = 12;
    for (int i = 1; i <= 14; ++i) {
        const std::string& entry = s_.ReligionList[static_cast<std::size_t>(i)];
        if (!entry.empty() && religion == entry) {
            rel = i;
            break;
        }
    }
    count(c.Religion, c.ReligionBapt, rel);
    for (int i = 1; i <= 7; ++i)
        if (r.Advertising.At(i) != '.') count(c.Advert, c.AdvertBapt, i);
    for (int i = 1; i <= 9; ++i) {
        bool made;
        switch (i) {
        case 1: made = r.Decisions.At(1) == 'C' || Has(attendance, 'C'); break;
        case 2: made = r.Decisions.At(2) == 'S' || Has(attendance, 'S'); break;
        case 9: made = r.Decisions.At(9) == 'U' || Has(attendance, 'U'); break;
        default: made = r.Decisions.At(i) != '-'; break;
        }
        if (made) count(c.Decision, c.DecisionBapt, i);
    }
    const int age = AgeIndex(r);
    count(c.Age, c.AgeBapt, age);
    if (baptized) c.BaptAgeSum += 10 * age;

    const int last = std::clamp<int>(r.Last, 0, 40);
    bool first = true, everyNight = true;
    int lastPresent = 0;
    for (int i = 1; i <= last; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const bool present = attendance[at - 1] != '-';
        everyNight = everyNight && present;
        if (everyNight) ++c.AllNights[at];
        if (!present) continue;
        ++c.Present[at];
        ++c.AgeAt[static_cast<std::size_t>(age)][at];
        if (first) ++c.NewAt[at];
        first = false;
        lastPresent = i;
    }
    if (lastPresent > 0) ++c.Losses[static_cast<std::size_t>(lastPresent)];
    ++c.TotalHist[static_cast<std::size_t>(std::clamp(attend, 0, 40))];
}

std::string StatsCounts::AverageAge(int i) const {
    const auto at = static_cast<std::size_t>(i);
    long sum = 0;
    for (std::size_t d = 1; d <= 7; ++d) sum += AgeAt[d][at] * static_cast<long>(10 * d + 5);
    const int withAge = Present[at] - AgeAt[0][at];
    return withAge > 0 ? vb::FormatQuotient(static_cast<double>(sum), withAge, "##", "na") : "na";
}

std::string StatsCounts::AverageBaptismAge(const std::array<std::string, 8>& ageGroups) const {
    const int divisor = Baptisms - AgeBapt[0];
    if (divisor <= 0) return "";
    const long whole = BaptAgeSum / divisor;
    return ageGroups[static_cast<std::size_t>(std::clamp<long>(whole / 10, 0, 7))];
}

CrusadeCounts CountCrusade(ProgramState& p) {
    ReportGuard guard(p);
    const CountSettings settings = CountSettings::Of(p);
    StatsCounter counter(settings);
    for (long n = 1; n <= p.RecordCount; ++n) {
        if (!GetRecord(p, n)) break;
        counter.Add(p.MasterRec);
    }
    return {counter.Counts(), counter.Teams()};
}

}  // namespace reports
