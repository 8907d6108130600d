// The statistical report on paper: the crusade's figures on the left, the tables
// of ages, churches, advertising and decisions on the right.
#include <algorithm>
#include <cmath>

#include "platform/host/Host.h"
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

const char* const AdvertisingLabels[8] = {"", "Mail", "Newspaper", "Radio", "TV", "PreMeeting", "Other", "Invitation"};

void StatsTitle(host::PrintSurface& out, const std::string& title, const vb::DateTime& today) {
    out.SetScaleMode(7);
    out.SetFont(Fonts::fntArial14);
    out.SetCurrentY(0.3f);
    out.SetCurrentX(1.0f);
    out.Print(title, true);
    const std::string date = vb::FormatDate(today, "dddd, mmmm d, yyyy");
    out.SetCurrentX(20 - std::floor(out.TextWidth(date)));
    out.Print(date);
    out.SetDrawWidth(6);
    const float rule = out.CurrentY() + 0.05f;
    out.Line(1.0f, rule, 20.0f, rule);
    out.SetDrawWidth(1);
    out.SetCurrentY(rule + 0.1f);
}

namespace {

constexpr float PageEnd = 25.8f;

struct StatsPage {
    ProgramState& p;
    const StatsCounts& c;
    host::PrintSurface& out;

    void At(float x, const std::string& text) {
        out.SetCurrentX(x);
        out.Print(text, true);
    }
    void EndLine() { out.Print(""); }
    // "###" of the baptized over all, and the share of all baptisms, when any were baptized.
    std::string Shares(int bapt, int all, bool ofBaptisms) const {
        std::string s = "(" + FormatQuotient(bapt, all, "#%", "0%");
        if (ofBaptisms) s += " - " + FormatQuotient(bapt, c.Baptisms, "#%", "0%");
        return s + ")";
    }
    void TableHead(const std::string& head, const std::string& rule) {
        At(12.5f, head);
        At(17.4f, "Baptisms");
        EndLine();
        At(12.5f, rule);
        EndLine();
    }
    void TableRow(const std::string& name, int all, int bapt, bool ofBaptisms) {
        At(12.5f, name);
        At(16.4f, Format(all, "###"));
        At(17.4f, Format(bapt, "###"));
        if (bapt != 0) At(18.1f, Shares(bapt, all, ofBaptisms));
        EndLine();
    }
    void Gap(int lines) {
        for (int i = 0; i < lines; ++i) EndLine();
    }

    void RightColumn() {
        out.SetCurrentY(2.5f);
        const std::string rule = "======================================";
        TableHead("Age Groups", rule);
        for (std::size_t d = 0; d <= 7; ++d) TableRow(p.AgeGroups[d], c.Age[d], c.AgeBapt[d], true);
        At(12.5f, "Avg Baptism Age:");
        At(17.4f, c.AverageBaptismAge(p.AgeGroups));
        EndLine();
        Gap(3);
        TableHead("Religious Preference", rule);
        for (std::size_t i = 1; i <= 14; ++i)
            TableRow(vb::Fixed(p.ReligionList[i], 15), c.Religion[i], c.ReligionBapt[i], true);
        Gap(3);
        TableHead("Advertising Information", rule);
        for (std::size_t i = 1; i <= 7; ++i) TableRow(AdvertisingLabels[i], c.Advert[i], c.AdvertBapt[i], false);
        Gap(3);
        TableHead("Decisions", "==================================");
        for (std::size_t i = 1; i <= 9; ++i) TableRow(p.DecisionNames[i], c.Decision[i], c.DecisionBapt[i], false);
    }

    void Notes() {
        out.SetCurrentY(26.2f);
        out.SetCurrentX(1.0f);
        out.Print("NOTES: Active Names are those who have attended 4 or more meetings.");
        out.SetCurrentX(1.0f);
        out.Print("The first percent is the % of those in that categeory that were baptized, the second is % of all "
                  "baptisms coming from that categeory.");
    }

    // A meeting list of 40 nights runs past the notes: the rest goes on a page of its own.
    void RoomFor(int lines) {
        if (out.CurrentY() + static_cast<float>(lines) * out.LineHeight() <= PageEnd) return;
        out.NewPage();
        out.SetFont(Fonts::fntTimes10);
        out.SetCurrentY(1.5f);
    }

    void LeftColumn() {
        out.SetCurrentY(1.5f);
        auto figure = [this](const std::string& label, const std::string& value) {
            At(1.5f, label);
            At(5.0f, value);
        };
        figure("Total Names: ", Format(c.TotalNames, "####") + "  (Mail List: " + Format(c.MailCount, "####") + ")");
        EndLine();
        figure("Total Current Names: ", Str(c.CurrentNames));
        EndLine();
        // The old report stopped with a division by zero on an empty crusade here.
        figure("Active Names: ", Str(c.ActiveNames));
        At(6.0f, "(" + FormatQuotient(c.ActiveNames, c.TotalNames, "#%", "0%") + ")");
        EndLine();
        figure("Percent Baptized: ",
               c.Baptisms == 0 ? std::string("0%") : FormatQuotient(c.Baptisms, c.ActiveNames, "#%", "0%"));
        EndLine();
        figure("Baptisms:", Str(c.Baptisms));
        if (c.Baptisms != 0) At(6.0f, "(" + FormatQuotient(c.Baptisms, c.TotalNames, "#%", "0%") + ")");
        EndLine();
        const std::pair<const char*, int> rest[] = {{"Baptism Date Set: ", c.DateSet},
                                                    {"A Interests: ", c.LevelA},
                                                    {"B Interests:", c.LevelB},
                                                    {"C Interests:", c.LevelC}};
        for (const auto& [label, v] : rest) {
            figure(label, Str(v));
            EndLine();
        }
        EndLine();
        At(4.8f, "All");
        At(9.0f, "Avg");
        EndLine();
        const std::pair<float, const char*> heads[] = {{1.5f, "Mtg."},  {2.5f, "  Attendance"}, {4.8f, "Nites"},
                                                       {6.3f, "New"},   {7.3f, "Losses"},       {9.0f, "Age"}};
        for (const auto& [x, h] : heads) At(x, h);
        EndLine();
        At(1.5f, "==========================================");
        EndLine();
        const int mn = c.MeetingNumber;
        for (int i = 1; i <= mn; ++i) {
            RoomFor(1);
            const auto at = static_cast<std::size_t>(i);
            At(1.5f, vb::CStr(i) + " ");
            At(2.5f, Str(c.Present[at]) + "    " + FormatQuotient(c.Present[at], c.Present[1], "0%", "0%") + " / ");
            At(5.0f, Format(c.AllNights[at], "####"));
            At(6.3f, Format(c.NewAt[at], "####"));
            // Nobody has missed the current meeting yet.
            if (i != mn) At(7.6f, Str(c.Losses[at]));
            At(9.0f, c.AverageAge(i));
            EndLine();
        }
        Gap(2);
        RoomFor(7);
        At(1.5f, " Special Attendance Stats");
        EndLine();
        At(1.5f, "========================");
        EndLine();
        for (const auto& line : SpecialLines(c)) {
            At(1.5f, line.first);
            At(5.5f, Str(line.second));
            EndLine();
        }
    }
};

}  // namespace

std::vector<std::pair<std::string, int>> SpecialLines(const StatsCounts& c) {
    std::vector<std::pair<std::string, int>> lines;
    const int mn = c.MeetingNumber;
    for (int i = mn; i >= std::max(mn - 4, 1); --i) {
        const int missed = mn - i;
        const std::string label = missed == 0   ? " Attended every night- "
                                  : missed == 1 ? " Missed 1 night- "
                                                : " Missed " + vb::CStr(missed) + " nights- ";
        lines.emplace_back(label, c.TotalHist[static_cast<std::size_t>(i)]);
    }
    return lines;
}

void PrintStats(ProgramState& p, const StatsCounts& c, host::PrintSurface& out) {
    StatsTitle(out, p.CrusadeName + " Statistical Report", p.host.Now());
    out.SetFont(Fonts::fntTimes10);
    StatsPage page{p, c, out};
    page.RightColumn();
    page.Notes();
    page.LeftColumn();
}

}  // namespace reports
