// The one-line list reports: one person a line, grouped by the code's key.
#include <algorithm>
#include <cctype>
#include <vector>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/PageLayout.h"
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
const char* const NoMatch = "There were no names in the file that match your search criteria.";

// The list of a code when the report is not run from the preview; false when
// there is nothing to print (the operator backed out or the list is empty).
bool BuildForCode(ReportRun& p, int code) {
    auto build = [&](const std::string& kind, const std::string& option = "") {
        return lists::BuildList(p, kind, 0, option);
    };
    bool built = true;
    switch (code) {
    case 1: built = build("alpha"); break;
    case 2: built = build("attend"); break;
    case 3: case 9: built = build("map"); break;
    case 4: built = build("zip"); break;
    case 5: built = build("date"); break;
    case 6: if (p.SortName != "interest") built = build("interest", "Al"); break;
    case 7: built = build("BaptClass"); break;
    case 8: built = build("PreCrusade"); break;
    case 10: {
        lists::ListKind k = lists::SplitKind(p.SortName);
        if (k.stem != "marked") built = lists::BuildList(p, k.stem, k.number);
        break;
    }
    case 11: built = build("religion", "SDA"); break;
    case 12: built = build("attendnight"); break;
    case 13: built = build("TotalAttend"); break;
    default: built = build("wcalpha"); break;
    }
    // A builder says itself when the operator backed out; a "cancel" lying in the
    // shared word may be left by some other dialog.
    if (!built) return false;
    // The meeting and total builders go back to all names when nobody is left.
    const bool fellBack = (code == 12 || code == 13) && p.SortName == "alpha";
    if (p.IndexCount == 0 || fellBack) {
        p.host.MsgBox(NoMatch);
        p.ShowAllOnEdit();
        return false;
    }
    return true;
}

// The title after CrusadeName. Code 10 may go on as 5 or 6; empty ends the report.
std::string TitleFor(ReportRun& p, int& code, int present) {
    const std::string n = Num(p.IndexCount);
    switch (code) {
    case 1: return " Master Alphabetical List";
    case 2:
        return " Master Attendance List:  " + MeetingTitle(p, p.MeetingNumber) + " " +
               SabbathMark(p, p.MeetingNumber) + "(" + Num(present) + " present)";
    case 3: return " Attendance Report by MapCode";
    case 4: return " Names by Zipcode";
    case 5: return " All Baptism Dates Set";
    case 6: return " Priority Interest List";
    case 7: return " Bible School (" + n + " Names)";
    case 8: return " Pre-Crusade Invitations (" + n + " Names)";
    case 9: return " Names Selected to Visit Arranged by MapCode";
    case 11: return " Adventist Names";
    case 12: return " Attending Meeting " + Num(lists::SplitKind(p.SortName).number);
    case 13:
        return p.ScratchValue == "equal" ? " Attending " + Num(p.FilterTotalAttend) + " Meetings"
                                         : " Attending at Least " + Num(p.FilterTotalAttend) + " Meetings";
    case 10: break;
    default: return " Master Report";
    }
    lists::ListKind k = lists::SplitKind(p.SortName);
    const std::string& s = k.stem;
    if (s == "mail") return " Mail List";
    if (s == "TDupAddress") return " Addresses with Multiple Teams Assigned";
    if (s == "NDupAddress") return " Duplicate Address with Different Last Name";
    if (s == "DupAddress") return " Duplicate Addresses- All Names";
    if (s == "WCNeedInterview" || s == "NeedInterview") {
        code = 6;
        return " Need Baptism Interview (" + n + ")";
    }
    if (s == "BaptClass") return " Baptism Interview Set";
    if (s == "InterviewRemain") return " Baptism Interviews Remaining";
    if (s == "NeedDate") {
        code = 6;
        return " Need Baptism Date";
    }
    if (s == "FutureBapDateSet") {
        code = 5;
        return " Future Baptism Dates Set";
    }
    if (s == "notes") return ": Notes and Comments ";
    if (s == "religion") return " Adventists";
    if (s == "attendnight") return ", Meeting: " + Num(k.number) + ": " + MeetingTitle(p, k.number);
    if (s == "missednight") return ", Missed Last " + Num(k.number) + " Meetings";
    if (s == "needsabvis") return ", Need Sabbath Visit";
    if (s == "SelWCAttend") return ", Team " + Num(k.number);
    if (Left(s, 11) == "NoAssignedI") return ", Need Interest Level Assigned  (" + n + ")";
    std::string t = p.host.InputBox("Enter the Title you desire for this report.", "Report Title",
                                    " Names Selected From the Main File");
    if (t.empty()) return t;
    // The crusade's name stands in front of every title: typed again it is printed once,
    // and a typed word does not run into it.
    const std::string name = vb::Trim(p.CrusadeName);
    const std::string typed = vb::LTrim(t);
    if (!name.empty() && vb::UCase(Left(typed, static_cast<long>(name.size()))) == vb::UCase(name)) {
        t = Mid(typed, static_cast<long>(name.size()) + 1);
        if (t.empty()) return " ";
    }
    const unsigned char first = static_cast<unsigned char>(t[0]);
    if (std::isalnum(first) || first >= 0x80) t = " " + t;
    return t;
}

// Group keys of every entry, so a heading can count its group by scanning ahead.
std::vector<std::string> GroupKeys(ReportRun& p, int code, bool apptGroups) {
    std::vector<std::string> keys(static_cast<std::size_t>(p.IndexCount) + 1);
    bool grouped = code == 2 || code == 3 || code == 4 || code == 5 || code == 6 || code == 13 || apptGroups;
    if (!grouped) return keys;
    for (int i = 1; i <= p.IndexCount; ++i) {
        const std::string& e = p.SortIndex[static_cast<std::size_t>(i)];
        std::string& k = keys[static_cast<std::size_t>(i)];
        if (apptGroups) {
            k = Mid(e, 6, 1);
        } else if (code == 2 || code == 3) {
            k = Num(999 - static_cast<long>(vb::Val(Mid(e, 5, 3))));
        } else if (code == 6) {
            k = Mid(e, 5, 1);
        } else if (code == 13) {
            k = Num(static_cast<long>(vb::Val(Mid(e, 5, 2))));
        } else {
            ReadEntry(p, i);
            const MasterRecord& r = p.MasterRec;
            k = code == 5 ? r.BaptDate.str()
                          : (p.CanadaSorter ? Left(r.Zip, 3) + std::string(7, ' ') : Left(r.Zip, 10));
        }
    }
    return keys;
}

int GroupCount(const std::vector<std::string>& keys, int i) {
    int n = 0;
    for (std::size_t j = static_cast<std::size_t>(i); j < keys.size() && keys[j] == keys[static_cast<std::size_t>(i)]; ++j)
        ++n;
    return n;
}

const char* const Days[] = {"No Appointment Date Scheduled ", "Sunday ", "Monday ", "Tuesday ",
                            "Wednesday ", "Thursday ", "Friday "};

struct OneLine {
    ReportRun& p;
    host::PrintSurface& out;
    int code;
    std::string kind;
    DecisionMarks marks;

    void PersonLine() {
        const MasterRecord& r = p.MasterRec;
        const bool baptized = r.IntLevel == "G";
        std::string name = r.WorkerCode.str() + " " + r.RNum.str() + " " + RTrim(r.LName) + ", " + RTrim(r.FName);
        if (code == 5 || (code == 6 && baptized)) name += BaptismMarks(r, marks);
        name = vb::Fixed(name, 30);
        bool bold = code != 5 && !baptized && (HasBaptDate(r) || r.Class != 0);
        out.SetFont(bold ? Fonts::fntTimes8B : Fonts::fntTimes8);
        out.SetCurrentX(0.6f);
        out.Print(name, true);
        if (kind == "notes") {
            std::string notes = Trim(r.Notes);
            out.SetCurrentX(4.71f);
            while (notes.size() > 150) {
                out.Print(Left(notes, 150) + "-");
                notes = Mid(notes, 151);
                out.SetCurrentX(4.71f);
            }
            out.Print(notes);
        } else {
            std::string second = r.Address;
            if (kind == "PreCrusade") {
                std::string adv = Trim(r.Advertising);
                second = "(" + Mid(adv, vb::InStr(adv, "-") + 1) + ")";
            }
            out.SetCurrentX(4.71f);
            out.Print(second, true);
            std::string map = Trim(r.MapCode);
            out.SetCurrentX(8.5f);
            out.Print(Left(r.City, 3) + " (" + (map != "" && map != "xxxx" ? map : Left(r.Zip, 5)) + ") " +
                          Trim(r.Phone),
                      true);
            out.SetCurrentX(11.7f);
            out.SetFont(Fonts::fntCourier7B);
            out.Print(Left(r.RelPref, 3) + "/" + Left(r.Age, 1) + "/ ", true);
            out.Print(Att28(p, r) + " " + r.IntLevel.str() + "/" + RTrim(r.Decisions) + " " + r.Visits.str());
        }
        out.SetCurrentY(out.CurrentY() + 0.17f);
    }

    // A person of the interview lists under the hour of the appointment; the
    // free hours before it are listed for the day's planning.
    void InterviewLine(int hour, int& lastHour) {
        const MasterRecord& r = p.MasterRec;
        out.SetFont(Fonts::fntTimes12);
        std::string name = vb::Fixed(r.WorkerCode.str() + " " + RTrim(r.LName) + ", " + RTrim(r.FName), 30);
        auto label = [&](int h) {
            return h >= 0 && h < static_cast<int>(p.HourLabels.size()) ? p.HourLabels[static_cast<std::size_t>(h)]
                                                                       : std::string();
        };
        for (int h = lastHour + 1; h < hour; ++h) {
            out.SetCurrentY(out.CurrentY() + 0.3f);
            out.SetCurrentX(2.0f);
            out.Print(label(h));
        }
        if (hour != lastHour) {
            out.SetCurrentY(out.CurrentY() + 0.3f);
            out.SetCurrentX(2.0f);
            out.Print(label(hour), true);
        }
        lastHour = std::max(lastHour, hour);
        out.SetCurrentX(4.0f);
        out.Print(name, true);
        out.SetCurrentX(11.0f);
        out.Print(Trim(r.Phone), true);
        out.SetFont(Fonts::fntTimes8);
        out.SetCurrentX(14.0f);
        out.SetCurrentY(out.CurrentY() + 0.1f);
        out.Print("(" + Trim(r.IntLevel) + ")", true);
        out.SetCurrentX(15.2f);
        out.Print(Trim(r.Decisions));
    }

    void Heading(const std::string& text) {
        out.SetCurrentX(0.6f);
        out.SetFont(Fonts::fntArial10U);
        out.Print(text);
        out.SetCurrentY(out.CurrentY() + 0.12f);
    }
};

}  // namespace

void PrintOneLineReport(ReportRun& p, int Code) {
    const bool fromPreview = p.PrintingFromPreview;
    if (!fromPreview && !BuildForCode(p, Code)) return;
    if (p.IndexCount == 0) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }
    ReportGuard guard(p);
    int present = 0;
    if (Code == 2)
        while (present < p.IndexCount &&
               999 - vb::Val(Mid(p.SortIndex[static_cast<std::size_t>(present) + 1], 5, 3)) == p.MeetingNumber)
            ++present;
    std::string tail = TitleFor(p, Code, present);
    if (tail.empty()) return;
    const std::string title = p.CrusadeName + tail;

    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;

    host::PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    OneLine line{p, out, Code, p.SortName, FindDecisionMarks(p)};
    const std::string& kind = line.kind;
    const bool apptGroups = Code == 10 && (kind == "BaptClass" || kind == "InterviewRemain");
    const bool dupAddress = vb::Right(kind, 10) == "DupAddress";
    const std::vector<std::string> keys = GroupKeys(p, Code, apptGroups);
    const bool grouped = !keys.empty() && (Code == 2 || Code == 3 || Code == 4 || Code == 5 || Code == 6 ||
                                           Code == 13 || apptGroups);
    const vb::DateTime today = p.host.Now();
    auto header = [&] { DrawReportHeader(out, title, p.MeetingNumber, today); };

    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        Pager pager(p.host, out, sel.FromPage);
        header();
        std::string group = "\x01", lastAddress;
        int baptized = 0, lastHour = -1;
        for (int i = 1; i <= p.IndexCount; ++i) {
            ReadEntry(p, i);
            const MasterRecord& r = p.MasterRec;
            const std::string& key = keys[static_cast<std::size_t>(i)];
            if (grouped && key != group) {
                group = key;
                const std::string count = Num(GroupCount(keys, i));
                if (apptGroups) {
                    int day = static_cast<int>(vb::Val(key));
                    out.SetCurrentX(1.0f);
                    out.SetFont(Fonts::fntArial14);
                    out.Print(key == "N" ? Days[0] : (day >= 1 && day <= 6 ? Days[day] : ""));
                    out.SetCurrentY(out.CurrentY() + 0.15f);
                    lastHour = -1;
                } else if (Code == 2 || Code == 3) {
                    int m = static_cast<int>(vb::Val(key));
                    line.Heading("Missing Since Meeting # " + key + ": " + MeetingTitle(p, m) + " " +
                                 SabbathMark(p, m) + "    (" + count + ")");
                } else if (Code == 4) {
                    line.Heading("Zipcode # " + key + " (" + Trim(r.City) + ")");
                } else if (Code == 5) {
                    line.Heading("Baptisms for: " + key + "  (" + count + ")");
                } else if (Code == 6) {
                    line.Heading(key == "G" ? "Baptized/ *Profession of Faith     (" + count + ")"
                                            : "Interest Level: " + key + "    (" + count + ")");
                } else {
                    line.Heading(key + " Meetings Attended: " + key + "    (" + count + ")");
                }
            }
            if (Code == 5 && r.IntLevel == "G") ++baptized;
            std::string address = Left(vb::UCase(r.Address), 10);
            if (dupAddress && i > 1 && address != lastAddress) out.PrintEmptyLine();
            lastAddress = address;
            if (apptGroups)
                line.InterviewLine(static_cast<int>(vb::Val(Mid(p.SortIndex[static_cast<std::size_t>(i)], 7, 2))),
                                   lastHour);
            else
                line.PersonLine();
            if (out.CurrentY() > PageLimit) {
                DrawReportFooter(out, title, pager.page);
                pager.EndPage();
                out.SetCurrentY(0.2f);
                header();
            }
        }
        if (Code == 5) {
            out.PrintEmptyLine();
            out.PrintEmptyLine();
            auto total = [&](const std::string& label, long n) {
                out.SetCurrentX(1.0f);
                out.Print(label, true);
                out.SetCurrentX(4.5f);
                out.Print(n);
            };
            total("Total Baptism Dates Set: ", p.IndexCount);
            if (title == p.CrusadeName + " All Baptism Dates Set") {
                total("Total Baptized to date: ", baptized);
                total("Total to be Baptized: ", p.IndexCount - baptized);
            }
        }
        DrawReportFooter(out, title, pager.page);
        if (!pager.Finish()) break;
    }
    guard.Done();
}
