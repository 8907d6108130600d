// The statistical report as BlankFrm shows it: three columns of fixed-pitch text.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "platform/vb/Quotient.h"
#include "platform/vb/Strings.h"
#include "reports/Stats.h"
#include "store/State.h"

using vb::CStr;
using vb::Format;
using vb::FormatQuotient;

namespace reports {

namespace {

using Column = std::vector<std::string>;

std::string Pad(const std::string& s, std::size_t w) { return vb::Fixed(s, w); }
std::string RightIn(const std::string& s, std::size_t w) {
    return s.size() >= w ? s : std::string(w - s.size(), ' ') + s;
}

// Name, count, "###" baptized, and "/" with the share when any were baptized.
std::string TableRow(const std::string& name, int all, int bapt) {
    std::string row = Pad(name, 17) + RightIn(CStr(all), 5) + RightIn(Format(bapt, "###"), 5);
    if (bapt != 0) row += " /" + RightIn(FormatQuotient(bapt, all, "#%", "0%"), 5);
    return row;
}

Column Meetings(const StatsCounts& c) {
    Column col{"Mtg.  Attendance    New   Losses Avg", "                                 Age",
               "==============================="};
    const int mn = c.MeetingNumber;
    for (int i = 1; i <= mn; ++i) {
        const auto at = static_cast<std::size_t>(i);
        char line[96];
        const std::string losses = i == mn ? std::string() : CStr(c.Losses[at]);
        std::snprintf(line, sizeof line, "%-4d%5s %4s /%5s%7s%5s", i, Format(c.Present[at], "##########").c_str(),
                      FormatQuotient(c.Present[at], c.Present[1], "0%", "0%").c_str(),
                      Format(c.NewAt[at], "####").c_str(), losses.c_str(), c.AverageAge(i).c_str());
        col.emplace_back(line);
    }
    col.emplace_back("");
    col.emplace_back(" Special Attendance Stats");
    col.emplace_back("========================");
    for (const auto& [label, n] : SpecialLines(c)) col.push_back(Pad(label, 24) + RightIn(CStr(n), 5));
    return col;
}

Column Tables(const ProgramState& p, const StatsCounts& c) {
    const std::string rule = "==========================";
    Column col{"Religious Prefrence      Baptisms", rule};
    for (std::size_t i = 1; i <= 14; ++i) col.push_back(TableRow(p.ReligionList[i], c.Religion[i], c.ReligionBapt[i]));
    col.emplace_back("");
    col.emplace_back("Advertising");
    col.push_back(rule);
    for (std::size_t i = 1; i <= 7; ++i) col.push_back(TableRow(AdvertisingLabels[i], c.Advert[i], c.AdvertBapt[i]));
    col.emplace_back("");
    col.emplace_back("Interviews & Baptism Dates");
    col.emplace_back("============================");
    // The share after each of these three lines is a fixed 12 % that shows only while
    // the scratch value holds a number other than 0; kept as the report always had it.
    const std::string fixed = vb::Val(p.ScratchValue) != 0 ? Format(12.0 / 100, "0%") : std::string();
    col.push_back("Interviews Set: " + CStr(c.ClassCount) + " " + fixed);
    col.push_back("Interviews Left: " + CStr(c.InterviewsLeft) + " " + fixed);
    col.push_back("Bapts Date Set: " + CStr(c.DateSet) + "?" + " " + fixed);
    col.push_back("Possible Baptisms: " + CStr(c.DateSet + c.Baptisms) + " - " +
                  CStr(c.Baptisms + c.LevelA + c.LevelB));
    return col;
}

Column Figures(const ProgramState& p, const StatsCounts& c) {
    auto figure = [](const std::string& label, const std::string& value) { return Pad(label, 18) + value; };
    Column col;
    col.push_back(figure("Total Names: ", Format(c.TotalNames, "####")));
    col.push_back(figure("Mail List: ", Format(c.MailCount, "####")));
    std::string active = Format(c.ActiveNames, "####") + " " + FormatQuotient(c.ActiveNames, c.TotalNames, "#%", "0%");
    if (c.ActiveNames != 0) active += FormatQuotient(c.Baptisms, c.ActiveNames, "  #%", "0%");
    col.push_back(figure("Active Names: ", active));
    col.push_back(figure("Current Names: ", Format(c.CurrentNames, "####")));
    col.push_back(figure("Baptisms: ",
                         CStr(c.Baptisms) + " " + FormatQuotient(c.Baptisms, c.TotalNames, "#%", "0%")));
    col.push_back(figure("Baptism Date: ", CStr(c.DateSet)));
    col.push_back(figure("A Interests: ", Format(c.LevelA, "####")));
    col.push_back(figure("B Interests: ", Format(c.LevelB, "####")));
    col.push_back(figure("C Interests: ", Format(c.LevelC, "####")));
    col.push_back(figure("Bapt Class/ Apt: ", Format(c.ClassCount, "####")));
    col.emplace_back("");
    col.emplace_back("Decisions");
    col.emplace_back("==========================");
    for (std::size_t i = 1; i <= 9; ++i)
        col.push_back(Pad(p.DecisionNames[i], 17) + RightIn(Format(c.Decision[i], "###"), 5) +
                      RightIn(Format(c.DecisionBapt[i], "###"), 5) + " " +
                      FormatQuotient(c.DecisionBapt[i], c.Decision[i], "0%", "0%"));
    col.emplace_back("");
    col.emplace_back("Age Groups         Baptisms");
    col.emplace_back("==========================");
    for (std::size_t d = 0; d <= 7; ++d) col.push_back(TableRow(p.AgeGroups[d], c.Age[d], c.AgeBapt[d]));
    col.push_back(figure("Avg Baptism Age:", c.AverageBaptismAge(p.AgeGroups)));
    return col;
}

}  // namespace

std::string StatsScreenText(const ProgramState& p, const StatsCounts& c) {
    const Column cols[] = {Meetings(c), Tables(p, c), Figures(p, c)};
    const std::size_t widths[] = {38, 38, 0};
    std::size_t rows = 0;
    for (const Column& col : cols) rows = std::max(rows, col.size());
    std::string text;
    for (std::size_t r = 0; r < rows; ++r) {
        std::string line;
        for (std::size_t k = 0; k < 3; ++k) {
            const std::string cell = r < cols[k].size() ? cols[k][r] : std::string();
            line += widths[k] ? Pad(cell, widths[k]) + "  " : cell;
        }
        text += vb::RTrim(line) + "\r\n";
    }
    return text;
}

}  // namespace reports
