// The list reports by team: the list is in team order, each team on its own
// pages or under its own heading.
#include <algorithm>
#include <cmath>
#include <vector>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "reports/SelPrinter.h"

using host::Fonts;
using namespace reports;
using vb::Left;
using vb::Mid;
using vb::RTrim;
using vb::Trim;

namespace {

constexpr float PageLimit = 24.9f;

bool BuildForCode(ReportRun& p, int code) {
    switch (code) {
    case 1: return lists::BuildList(p, "wcalpha");
    case 5: return lists::BuildList(p, "TotalAttend", 0, "TC");
    case 6: return lists::BuildList(p, "baptism", 0, "TC");
    case 7: return lists::BuildList(p, "interest", 0, "TC");
    case 8: return lists::BuildList(p, "WCNeedInterview");
    default: return lists::BuildList(p, "wcattend");
    }
}

std::string TitleFor(const ReportRun& p, int code) {
    const std::string meeting = MeetingTitle(p, p.MeetingNumber);
    switch (code) {
    case 1: return " Team Alphabetical List";
    case 2: return " Attendance: " + meeting;
    case 3: return " Attendance Report by MapCode";
    case 4: return " Master Attendance List by Team: " + meeting;
    case 5:
        return p.ScratchValue == "equal" ? " Attending " + Num(p.FilterTotalAttend) + " Meetings"
                                         : " Attending at Least " + Num(p.FilterTotalAttend) + " Meetings";
    case 6: return " Baptisms by Team";
    case 7: return " Priority List by Team";
    case 8: return " Needs Baptism Interview List by Team";
    default: return " Master Attendance Report";
    }
}

std::string TeamName(const ReportRun& p, const std::string& team) {
    int n = static_cast<int>(vb::Val(team));
    std::string name = n >= 0 && n <= 40 ? p.TeamNames[static_cast<std::size_t>(n)] : std::string();
    std::replace(name.begin(), name.end(), ':', ' ');
    return name;
}

struct TeamReport {
    ReportRun& p;
    host::PrintSurface& out;
    int code;
    bool breaks;
    std::string title;
    Pager pager;
    std::string team;

    std::string HeaderTitle() const {
        return breaks ? TeamName(p, team) + "      Team " + team + ":  " + title : title;
    }

    void TeamHeading() {
        out.SetCurrentX(0.6f);
        out.SetFont(Fonts::fntArial14);
        out.Print("Team " + team + "  " + TeamName(p, team));
    }

    void Header() {
        out.SetFont(Fonts::fntArial14);
        out.SetCurrentX(0.6f);
        out.SetCurrentY(0.3f);
        out.Print(HeaderTitle(), true);
        out.SetFont(Fonts::fntArial28B);
        out.SetCurrentY(0);
        out.SetCurrentX(18.5f);
        out.Print(p.MeetingNumber);
        out.SetCurrentX(1.0f);
        out.SetCurrentY(out.CurrentY() - 0.05f);
        out.SetFont(Fonts::fntTimes8);
        std::string date = vb::FormatDate(p.host.Now(), "dddd, mmmm d, yyyy");
        out.SetCurrentX(20 - std::floor(out.TextWidth(date)));
        out.Print(date);
        out.SetDrawWidth(6);
        out.Line(0.6f, 1.0f, 19.9f, 1.0f);
        out.SetCurrentY(1.9f);
        out.SetCurrentX(0);
        if (!breaks && (code == 4 || code == 6)) TeamHeading();
    }

    void Footer(float y) {
        if (pager.page < 2) return;
        out.SetCurrentX(1.0f);
        out.SetCurrentY(y);
        out.SetFont(Fonts::fntTimes8);
        out.Print(HeaderTitle() + ": Page " + Num(pager.page));
    }

    void PersonLine() {
        const MasterRecord& r = p.MasterRec;
        out.SetFont(Fonts::fntTimes8);
        out.SetCurrentX(0.8f);
        out.Print(r.WorkerCode.str() + " " + r.RNum.str() + " ", true);
        if (HasBaptDate(r)) out.SetFont(Fonts::fntTimes8B);
        out.Print(RTrim(r.LName) + ", " + RTrim(r.FName), true);
        out.SetFont(Fonts::fntTimes8);
        out.SetCurrentX(4.91f);
        out.Print(r.Address, true);
        out.SetCurrentX(8.1f);
        out.Print(Left(r.City, 3) + Left(r.Zip, 5) + " (" + Trim(r.Phone) + ")", true);
        out.SetCurrentX(11.2f);
        out.SetFont(Fonts::fntCourier7B);
        out.Print(Left(r.RelPref, 3) + "/" + Left(r.Age, 1) + "/ " + Att28(p, r) + " " + r.IntLevel.str() + "/" +
                  RTrim(r.Decisions) + "  " + r.Visits.str());
        out.SetCurrentY(out.CurrentY() + 0.17f);
    }

    void Heading(const std::string& text) {
        out.SetCurrentX(0.8f);
        out.SetFont(Fonts::fntArial10U);
        out.Print(text);
        out.SetCurrentY(out.CurrentY() + 0.12f);
    }
};

}  // namespace

void PrintWCReport(ReportRun& p, int Code) {
    if (!p.PrintingFromPreview && !BuildForCode(p, Code)) return;
    // The total builder goes back to all names when nobody attended enough.
    const bool fellBack = !p.PrintingFromPreview && Code == 5 && p.SortName == "alpha";
    if (p.IndexCount == 0 || fellBack) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }
    bool breaks = Code != 4 && Code != 8;
    if (Code == 6)
        breaks = p.host.MsgBox("Separate the Teams with a page break?", host::vbYesNo | host::vbQuestion,
                               "Select Print Format") == host::vbYes;
    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;

    ReportGuard guard(p);
    host::PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    TeamReport rep{p, out, Code, breaks, p.CrusadeName + TitleFor(p, Code), Pager(p.host, out, sel.FromPage), ""};
    const lists::ListKind kind = lists::SplitKind(p.SortName);
    const std::string selTeam = kind.stem == "SelWCAttend" ? vb::Fixed(Num(kind.number), 2) : std::string();
    const bool subGroups = Code == 2 || Code == 7;

    // Within a team, code 2 groups by the meeting last attended and code 7 by level.
    auto subKey = [&](int i) {
        const std::string& e = p.SortIndex[static_cast<std::size_t>(i)];
        return Code == 2 ? Num(999 - static_cast<long>(vb::Val(Mid(e, 7, 3)))) : Mid(e, 7, 1);
    };

    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        bool first = true;
        std::string group;
        for (int i = 1; i <= p.IndexCount; ++i) {
            const std::string& entry = p.SortIndex[static_cast<std::size_t>(i)];
            const std::string team = Mid(entry, 5, 2);
            ReadEntry(p, i);
            if (!selTeam.empty() && vb::Val(p.MasterRec.WorkerCode) != kind.number) continue;
            if (first) {
                first = false;
                rep.team = team;
                rep.Header();
                if (!breaks && Code != 4 && Code != 6) {
                    out.PrintEmptyLine();
                    out.PrintEmptyLine();
                    rep.TeamHeading();
                }
            } else if (team != rep.team) {
                group.clear();
                if (breaks) {
                    rep.Footer(25.5f);
                    rep.pager.EndPage();
                    rep.pager.page = 1;
                    rep.team = team;
                    out.SetCurrentY(0.4f);
                    rep.Header();
                } else {
                    rep.team = team;
                    out.PrintEmptyLine();
                    out.PrintEmptyLine();
                    rep.TeamHeading();
                }
            }
            if (subGroups) {
                std::string key = subKey(i);
                if (key != group) {
                    group = key;
                    if (Code == 2) {
                        int m = static_cast<int>(vb::Val(key));
                        rep.Heading("Missing Since Meeting # " + key + ": " + MeetingTitle(p, m) + SabbathMark(p, m));
                    } else {
                        int count = 0;
                        for (int j = i; j <= p.IndexCount && Mid(p.SortIndex[static_cast<std::size_t>(j)], 5, 2) == team &&
                                        subKey(j) == key;
                             ++j)
                            ++count;
                        rep.Heading(key == "G" ? "Baptized/ *Profession of Faith     (" + Num(count) + ")"
                                               : "Interest Level: " + key + "    (" + Num(count) + ")");
                    }
                }
            }
            rep.PersonLine();
            if (out.CurrentY() > PageLimit) {
                if (breaks) rep.Footer(26.3f);
                rep.pager.EndPage();
                out.SetCurrentY(0.4f);
                rep.Header();
            }
        }
        if (first) {
            // Every name belonged to another team.
            p.host.MsgBox("There are no names in this list to print");
            return;
        }
        rep.Footer(25.4f);
        if (!rep.pager.Finish()) break;
    }
    guard.Done();
}
