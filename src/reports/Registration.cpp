// Registration lists and tickets: the whole file (or this meeting's people), the
// members if the operator wants them, three columns a page from the label offsets.
#include "reports/Registration.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "platform/host/Host.h"
#include "platform/vb/DateTime.h"
#include "platform/vb/Strings.h"
#include "reports/Labels.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/SelPrinter.h"
#include "store/Records.h"
#include "store/SortIndex.h"

using namespace vb;
using namespace host;

namespace {

constexpr std::size_t EntryWidth = 34;

// The entries of everybody in the file, or of those whose last meeting is this one.
std::vector<std::string> EntriesFromFile(ProgramState& p, bool tickets) {
    std::vector<std::string> entries;
    for (long i = 1; i <= p.RecordCount; ++i) {
        if (!GetRecord(p, i)) break;
        const MasterRecord& r = p.MasterRec;
        if (r.WorkerCode == "##") continue;
        if (tickets && r.Last != p.MeetingNumber) continue;
        entries.push_back(RegistrationEntry(r));
    }
    return entries;
}

// Members whose number is not in the list yet join it; a number already there
// (a member who also registered, or a member line twice) is passed over.
void AddMembers(const ProgramState& p, std::vector<std::string>& entries) {
    std::unordered_set<std::string> numbers;
    for (const std::string& e : entries) numbers.insert(Left(e, 4));
    for (int j = 1; j <= p.MemberCount && j < static_cast<int>(p.MemberList.size()); ++j) {
        const std::string& line = p.MemberList[static_cast<std::size_t>(j)];
        if (!numbers.insert(Left(line, 4)).second) continue;
        entries.push_back(Fixed(line, EntryWidth));
    }
}

}  // namespace

std::string RegistrationEntry(const MasterRecord& r) {
    return Right("   " + Trim(r.RNum), 4) + Fixed(Trim(r.LName), 15) + Fixed(Trim(r.FName), 15);
}

std::string RegistrationLine(const std::string& entry) {
    return Left(entry, 4) + "    " + Trim(Mid(entry, 5, 15)) + ", " + Right(entry, 15);
}

void PrintRegistrationList(ReportRun& p, RegistrationKind kind) {
    reports::ReportGuard guard(p);
    const bool tickets = kind == RegistrationKind::Tickets;
    std::vector<std::string> entries = EntriesFromFile(p, tickets);
    if (p.host.MsgBox("Do you want to include SDA members in this list?", vbYesNo,
                      "Arrange Decisions by Interest Level or Alphabetical") == vbYes)
        AddMembers(p, entries);

    // The list is the report's now; by name it sorts on the names, by number on the whole entry.
    p.SortName = kind == RegistrationKind::ByNumber ? "byNum" : "RegList";
    p.SortIndex.assign(1, p.SortName);
    p.SortIndex.insert(p.SortIndex.end(), entries.begin(), entries.end());
    p.IndexCount = static_cast<int>(entries.size());
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
    SortEntries(p);

    const SelPrinterResult dialog = SelPrinter(p.host);
    if (!dialog.Ok) return;

    PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    reports::Pager pager(p.host, out, dialog.FromPage);
    const MailLabelGeometry g = MailLabelGeometry::For(p);
    const int rows = RegistrationLayout::RowsPerColumn(kind);
    const std::string pageLine = (tickets ? "Tickets for Meeting #" : "Registration List  as of Meeting #") +
                                 CStr(p.MeetingNumber) + " p ";
    const PrintFont& text = Fonts::fntTimes10;
    out.SetScaleMode(7);
    if (tickets) {
        out.SetFont(text);
        out.SetCurrentY(RegistrationLayout::TicketLineY);
        out.SetCurrentX(g.columnX[0]);
        out.Print(pageLine + "1");
    } else {
        out.SetFont(Fonts::fntArial14);
        out.SetCurrentY(RegistrationLayout::HeadY);
        out.SetCurrentX(g.columnX[0]);
        out.Print("Registration List for " + p.CrusadeName + " " + FormatDate(p.host.Now(), "Long Date"));
    }
    out.SetCurrentY(RegistrationLayout::FirstRowY);
    out.SetScaleMode(7);
    out.SetFont(text);

    int column = 0, row = 0;
    for (int i = 1; i <= p.IndexCount; ++i) {
        if (row == rows) {
            row = 0;
            out.SetCurrentY(RegistrationLayout::FirstRowY);
            if (++column == RegistrationLayout::Columns) {
                column = 0;
                pager.EndPage();
                out.SetFont(text);
                out.SetCurrentY(RegistrationLayout::PageLineY);
                out.SetCurrentX(g.columnX[0]);
                out.Print(pageLine + CStr(pager.page));
                out.SetCurrentY(RegistrationLayout::FirstRowY);
            }
        }
        out.SetCurrentX(g.columnX[static_cast<std::size_t>(column)]);
        out.Print(FitText(out, RegistrationLine(p.SortIndex[static_cast<std::size_t>(i)]),
                          RegistrationLayout::TextRoom));
        if (tickets) {
            out.PrintEmptyLine();
            out.PrintEmptyLine();
        }
        ++row;
    }
    pager.Finish();
    guard.Done();
}
