// The visitation report: what each team holds and whom it has visited.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "platform/host/PrintSurface.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Quotient.h"
#include "platform/vb/Strings.h"
#include "reports/Stats.h"
#include "reports/StatsPage.h"
#include "store/State.h"

using host::Fonts;
using vb::Format;
using vb::FormatQuotient;
using vb::Str;

namespace reports {

namespace {

bool IsVisitLetter(char c) { return c == 'h' || c == 'm' || c == 'p' || c == 'l'; }

// Some visit of the field, at or after the meeting. The entries are letter and two
// digits; an appointment ("a") is no visit. All four entries are looked at: the
// newest one is the fourth, which the old count left out.
bool VisitedFrom(const std::string& visits, int meeting) {
    for (std::size_t at = 0; at + 3 <= visits.size(); at += 3) {
        const char letter = vb::LCaseChar(visits[at]);
        const char d1 = visits[at + 1], d2 = visits[at + 2];
        if (!IsVisitLetter(letter) || d1 < '0' || d1 > '9' || d2 < '0' || d2 > '9') continue;
        if ((d1 - '0') * 10 + (d2 - '0') >= meeting) return true;
    }
    return false;
}

// A team line is the name, a colon and the phone. The page's column is headed
// "Name", so it shows the name: the text after the colon is the phone.
std::string TeamName(const std::string& line) { return vb::Trim(line.substr(0, line.find(':'))); }

int Sum20(const std::array<int, 41>& a) {
    int s = 0;
    for (std::size_t i = 1; i <= 20; ++i) s += a[i];
    return s;
}

// The runtime's Print of a number between texts: a blank before (or the sign) and one after.
std::string PrintNum(double v) { return Str(v) + " "; }

}  // namespace

int TeamCounts::SabbathNames() const { return Sum20(TeamSab); }
int TeamCounts::SabbathVisits() const { return Sum20(TeamSabVis); }

void StatsCounter::AddTeam(const MasterRecord& r) {
    TeamCounts& t = t_;
    const double code = vb::Val(r.WorkerCode);
    const bool inTable = code >= 0 && code <= 40;
    const auto team = inTable ? static_cast<std::size_t>(code) : 0;
    auto grow = [&](std::array<int, 41>& a, int by = 1) {
        if (inTable) a[team] += by;
    };
    const int attend = static_cast<int>(vb::Val(r.Attend));
    const bool active = attend > 3;
    ++t.AllNames;
    grow(t.TeamCount);
    if (active) {
        ++t.AllActive;
        grow(t.TeamActive);
    }
    const std::string visits = vb::LCase(vb::Trim(r.Visits));
    for (char ch : visits) {
        if (ch == 'h') grow(t.TeamH);
        else if (ch == 'm') grow(t.TeamM);
        else if (ch == 'p') grow(t.TeamP);
        else if (ch == 'l') grow(t.TeamL);
    }
    const int meeting = s_.MeetingNumber;
    const bool current = meeting < 4 ? attend >= meeting : r.Last > meeting - 3;
    if (current) {
        ++t.AllCurrent;
        grow(t.TeamCurrent);
    }
    if (!visits.empty()) {
        const int lastVisit = static_cast<int>(vb::Val(vb::Right(visits, 2)));
        if (inTable) t.TeamLast[team] = std::max(t.TeamLast[team], lastVisit);
        ++t.AllVisits;
        grow(t.TeamVis);
        if (active) {
            ++t.AllActiveVis;
            grow(t.TeamActiveVis);
        }
        if (current) {
            ++t.AllCurrentVis;
            grow(t.TeamCurrentVis);
        }
    }
    switch (r.IntLevel.At(1)) {
    case 'A': grow(t.TeamA); break;
    case 'B': grow(t.TeamB); break;
    case 'C': grow(t.TeamC); break;
    case 'G': grow(t.TeamBapt); break;
    default: break;
    }
    const std::string& attendance = r.Attendance.str();
    if (r.Decisions.At(1) == 'C' || attendance.find('C') != std::string::npos) {
        grow(t.TeamGospel);
        if (VisitedFrom(visits, t.GospelMeeting)) grow(t.TeamGospelVis);
    }
    if (r.Decisions.At(2) == 'S' || attendance.find('S') != std::string::npos ||
        r.Attendance.At(t.SabbathMeeting) != '-') {
        grow(t.TeamSab);
        if (VisitedFrom(visits, t.SabbathMeeting)) grow(t.TeamSabVis);
    }
}

void PrintTeamStats(ProgramState& p, const TeamCounts& t, host::PrintSurface& out) {
    StatsTitle(out, p.CrusadeName + " Visitation Report", p.host.Now());
    out.SetFont(Fonts::fntTimes8);
    auto at = [&out](float x, const std::string& text) {
        out.SetCurrentX(x);
        out.Print(text, true);
    };
    const float headTop = out.CurrentY();
    at(4.8f, "Total");
    at(6.3f, "Active Visits");
    at(8.7f, "Current");
    at(11.0f, "Gospel");
    at(16.0f, "Interest Level");
    at(18.9f, "Last");
    out.Print("");
    const std::pair<float, const char*> head2[] = {
        {1.3f, "Team"},        {2.7f, "Name    "},     {4.4f, "Names/"},  {5.5f, "Vis"},  {6.3f, "Names/ Vis"},
        {8.5f, "Names/ Vis"},  {10.6f, "Names/ Visits"}, {13.15f, "Sab. / Visits"}, {15.5f, "A"}, {16.3f, "B"},
        {17.1f, "C"},          {17.9f, "Bapt."},        {18.9f, "Report"}};
    for (const auto& [x, text] : head2) at(x, text);
    out.Print("");
    out.SetDrawWidth(1);
    out.Line(1.2f, out.CurrentY(), 19.9f, out.CurrentY());
    out.SetCurrentY(2.4f);
    for (std::size_t i = 0; i <= 40; ++i) {
        char num[8];
        std::snprintf(num, sizeof num, "%02d", static_cast<int>(i));
        at(1.3f, num);
        at(1.8f, TeamName(p.TeamNames[i]));
        const std::pair<float, int> cols[] = {
            {4.5f, t.TeamCount[i]},   {5.3f, t.TeamVis[i]},    {6.5f, t.TeamActive[i]}, {7.4f, t.TeamActiveVis[i]},
            {9.5f, t.TeamCurrentVis[i]}, {10.8f, t.TeamGospel[i]}, {11.7f, t.TeamGospelVis[i]},
            {13.3f, t.TeamSab[i]},    {14.3f, t.TeamSabVis[i]}, {15.5f, t.TeamA[i]},     {16.3f, t.TeamB[i]},
            {17.1f, t.TeamC[i]},      {18.0f, t.TeamBapt[i]}};
        for (const auto& [x, v] : cols) at(x, Str(v));
        at(8.6f, Format(t.TeamCurrent[i], "###"));
        out.SetCurrentX(18.9f);
        out.Print(Str(t.TeamLast[i]));
    }
    // The sections of the table ruled from the head to the last team.
    const float bottom = out.CurrentY();
    for (float x : {1.2f, 4.3f, 6.2f, 8.4f, 10.5f, 13.0f, 15.3f, 18.8f, 19.9f})
        out.Line(x, headTop, x, bottom);
    out.Print("");
    out.Print("");
    at(1.3f, "Total Names: " + PrintNum(t.AllNames));
    at(6.5f, "  Total visits: " + PrintNum(t.AllVisits) + "/ " +
                 (t.AllNames ? PrintNum(t.AllVisits * 100.0 / t.AllNames) : PrintNum(0)) + "%");
    out.Print("");
    auto pct = [](int part, int whole) {
        return part != 0 && whole != 0 ? "(" + Format(static_cast<double>(part) / whole, "#%") + ")" : std::string();
    };
    at(1.3f, "Total Active Names: " + PrintNum(t.AllActive) + pct(t.AllActiveVis, t.AllActive));
    at(6.5f, "  Active visits: " + PrintNum(t.AllActiveVis) + pct(t.AllActiveVis, t.AllActive));
    out.Print("");
    at(1.3f, "Total Current Names: " + PrintNum(t.AllCurrent) +
                 FormatQuotient(t.AllCurrentVis, t.AllCurrent, "#%", "0%"));
    at(6.5f, "  Current visits: " + PrintNum(t.AllCurrentVis) + " ");
    out.Print("");
    const int sab = t.SabbathNames(), sabVis = t.SabbathVisits();
    at(1.3f, "Total Sabbath Names: " + PrintNum(sab) + (sab != 0 ? pct(sabVis, sab) : std::string()));
    at(6.5f, "  Sabbath Visits: " + PrintNum(sabVis));
    out.Print("");
    out.SetCurrentX(1.0f);
    out.SetCurrentY(25.0f);
    out.Print("NOTE: Active Names are those who have attended 4 or more meetings.");
    out.SetCurrentX(2.0f);
    out.Print("Current Names are those who have attended one of the last 3 meetings.");
}

std::string TeamStatsScreenText(const ProgramState& p, const TeamCounts& t) {
    std::string s;
    char line[256];
    std::snprintf(line, sizeof line, "%-18s%6s%7s  %-15s%7s %-9s%8s %-9s%8s%7s%7s\r\n", "", "Total", "", "Interest Level",
                  "Active", " Visits", "Current", " Visits", "Sabbath", "Gospel", "Last");
    s += line;
    std::snprintf(line, sizeof line, "%-5s%-13s%6s%7s  %-3s%-3s%-3s%-6s%7s %4s%5s%8s %4s%5s%8s%7s%7s\r\n", "Team",
                  "    Name    ", "Names", "Visits", "A", "B", "C", "Bpt", "Names", "Yes", "No", "Names", "Yes", "No",
                  "Visits", "Visits", "Report");
    s += line;
    s += std::string(104, '=') + "\r\n";
    for (std::size_t i = 1; i <= 20; ++i) {
        const std::string shown = vb::Left(TeamName(p.TeamNames[i]), 12);
        std::snprintf(line, sizeof line, "%02d   %-13s%6d%7d  %-3d%-3d%-3d%-6d%7d %4d%5d%8d %4d%5d%8d%7d%7d\r\n",
                      static_cast<int>(i), shown.c_str(), t.TeamCount[i], t.TeamVis[i], t.TeamA[i], t.TeamB[i],
                      t.TeamC[i], t.TeamBapt[i], t.TeamActive[i], t.TeamActiveVis[i],
                      t.TeamActive[i] - t.TeamActiveVis[i], t.TeamCurrent[i], t.TeamCurrentVis[i],
                      t.TeamCurrent[i] - t.TeamCurrentVis[i], t.TeamSabVis[i], t.TeamGospelVis[i], t.TeamLast[i]);
        s += line;
    }
    s += "(You must use Printer to see teams 21-40)\r\n\r\n";
    auto pct = [](int part, int whole) { return FormatQuotient(part, whole, "0%", "0%"); };
    const std::string visitsPct =
        t.AllNames ? vb::CStr(t.AllVisits) + "/ " + pct(t.AllVisits, t.AllNames) : std::string("0/ 0%");
    s += "Total Names: " + vb::CStr(t.AllNames) + "  Total visits: " + visitsPct + "\r\n";
    s += "Total Active Names: " + vb::CStr(t.AllActive) + "  Active visits: " + vb::CStr(t.AllActiveVis) + " " +
         pct(t.AllActiveVis, t.AllActive) + "\r\n";
    s += "Total Current Names: " + vb::CStr(t.AllCurrent) + "  Current visits: " + vb::CStr(t.AllCurrentVis) + " " +
         pct(t.AllCurrentVis, t.AllCurrent) + "\r\n";
    const int sab = t.SabbathNames(), sabVis = t.SabbathVisits();
    s += "Total Sabbath Names: " + vb::CStr(sab) + "  Sabbath Visits: " + vb::CStr(sabVis) + " " +
         pct(sabVis, sab) + "\r\n";
    return s;
}

}  // namespace reports
