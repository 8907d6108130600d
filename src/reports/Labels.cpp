// Mail labels, 30 to a sheet, and interest cards, 10 to a sheet. Both print at
// fixed positions in centimetres, moved by the operator's label offsets.
#include "reports/Labels.h"

#include <algorithm>
#include <array>
#include <vector>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/PrintReports.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "reports/SelPrinter.h"
#include "store/Records.h"
#include "store/SortIndex.h"

using namespace vb;
using namespace host;

namespace {

long RecordOf(const std::string& entry) { return static_cast<long>(Val(Right(entry, 4))); }

// The first page chosen lies past the last sheet: nothing prints and the operator is told.
void PageBeyondEnd(ProgramState& p) {
    p.host.Printer().KillDoc();
    p.host.MsgBox("The page you selected to begin with was greater than the total number of pages available to "
                  "print.",
                  vbOKOnly | vbCritical, "Print Error");
}

int SheetsFor(int count, int perSheet) { return count / perSheet + (count % perSheet ? 1 : 0); }

// What prints on one line: pieces at their X, the line ending after the last.
struct Piece {
    float x;
    std::string text;
    float room;
};

void PrintLine(PrintSurface& out, const std::vector<Piece>& pieces) {
    std::vector<Piece> shown;
    for (const Piece& pc : pieces)
        if (!pc.text.empty()) shown.push_back(pc);
    if (shown.empty()) {
        out.PrintEmptyLine();
        return;
    }
    for (std::size_t i = 0; i < shown.size(); ++i) {
        out.SetCurrentX(shown[i].x);
        out.Print(FitText(out, shown[i].text, shown[i].room), i + 1 < shown.size());
    }
}

void ShowProgress(ReportRun& p, const std::string& text) {
    if (p.ReportsLoaded()) p.Reports().Info.SetText(text);
}

}  // namespace

std::string FitText(PrintSurface& out, const std::string& text, float room) {
    std::string s = text;
    while (!s.empty() && out.TextWidth(s) > room) s.pop_back();
    return s;
}

LabelLines LabelTexts(const MasterRecord& r) {
    return {RTrim(r.FName) + " " + r.LName.str(), r.Address.str(),
            Trim(r.City) + ", " + r.State.str() + "  " + r.Zip.str()};
}

void PrintLabelRow(PrintSurface& out, const MailLabelGeometry& g, float y, const LabelRowTexts& texts) {
    out.SetCurrentY(y);
    for (std::size_t line = 0; line < 3; ++line)
        PrintLine(out, {{g.columnX[0], texts[0][line], MailLabelGeometry::TextRoom},
                        {g.columnX[1], texts[1][line], MailLabelGeometry::TextRoom},
                        {g.columnX[2], texts[2][line], MailLabelGeometry::TextRoom}});
}

void PrintCardRow(PrintSurface& out, const CardGeometry& g, float y, const CardRowTexts& cards) {
    auto text = [&](int col, std::size_t row, bool right) -> std::string {
        if (cards[col].empty()) return "";
        return right ? cards[col][row].second : cards[col][row].first;
    };
    out.SetCurrentY(y);
    out.SetFont(Fonts::fntArial13BU);
    std::vector<Piece> nameLine;
    for (int col = 0; col < 2; ++col) {
        const float x = g.columnX[col];
        nameLine.push_back({x, text(col, 0, false), CardGeometry::NumberOffset - 0.1f});
        nameLine.push_back({x + CardGeometry::NumberOffset, text(col, 0, true),
                            CardGeometry::TextRoom - CardGeometry::NumberOffset});
    }
    PrintLine(out, nameLine);
    out.SetFont(Fonts::fntTimes10);
    out.PrintEmptyLine();
    for (std::size_t row = 1; row < 7; ++row) {
        if (row == 6) out.PrintEmptyLine();
        std::vector<Piece> line;
        for (int col = 0; col < 2; ++col) {
            const float x = g.columnX[col];
            const bool twoColumns = row <= 4;
            line.push_back({x, text(col, row, false),
                            twoColumns ? CardGeometry::RightOffset - 0.1f : CardGeometry::TextRoom});
            if (twoColumns)
                line.push_back({x + CardGeometry::RightOffset, text(col, row, true),
                                CardGeometry::TextRoom - CardGeometry::RightOffset});
        }
        PrintLine(out, line);
    }
}

MailLabelGeometry MailLabelGeometry::For(const ProgramState& p) {
    MailLabelGeometry g;
    const float right = static_cast<float>(p.LabelRight) / 10, top = static_cast<float>(p.LabelTop) / 10;
    g.firstRowY = top + 1.0f;
    g.columnX = {right + 0.5f, right + 7.5f, right + 14.5f};
    return g;
}

CardGeometry CardGeometry::For(const ProgramState& p) {
    CardGeometry g;
    const float right = static_cast<float>(p.LabelRight) / 10, top = static_cast<float>(p.LabelTop) / 10;
    g.firstRowY = top + 1.0f;
    g.columnX = {right + 0.55f, right + 11.0f};
    return g;
}

void prnMailLabels(ReportRun& p) {
    const lists::ListKind k = lists::SplitKind(p.SortName);
    const std::string& s = k.stem;
    const std::string n = CStr(k.number);
    std::string first;
    if (s == "alphafilter")
        first = "You have selected to ELIMINATE those who have not attended since meeting " + CStr(p.PrintCutOff) + ".";
    else if (s == "interest") first = "You have selected the PRIORITY INTEREST LIST filter";
    else if (s == "baptism") first = "You have selected the BAPTISM LIST filter";
    else if (s == "marked") first = "You have selected the MARKED NAMES  filter";
    else if (s == "attend") first = "You have selected the ATTENDANCE filter";
    else if (s == "attendnight")
        first = "You have selected the ATTEND A NIGHT filter for those who attended meeting: " + n + " .";
    else if (s == "missednight")
        first = "You have selected the MISSED MEETINGS  filter for those who have missed the last" + n + " meetings.";
    else if (s == "TotalAttend") first = "You have selected the TOTAL ATTENDANCE Filter.";
    else if (s == "SelWCAttend") first = "You have selected the NAMES ASSIGNED TO TEAM " + n;
    else if (s == "decisions")
        first = "You have selected the DECISION: " +
                UCase(k.number >= 0 && k.number <= 9 ? p.DecisionNames[static_cast<std::size_t>(k.number)] : "");
    else if (s == "PreCrusade") first = "You have selected the PreCrusade List.";
    else {
        if (!lists::BuildList(p, "mail")) return;
        first = "You have selected ALL NAMES ON THE MAIL LIST.";
    }
    if (p.IndexCount <= 0) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }

    const int pages = SheetsFor(p.IndexCount, MailLabelGeometry::PerSheet);
    const std::string& nl = p.CrLf;
    std::string msg = first + nl;
    if (p.ReportsLoaded() && p.Reports().chkMailOpt.Value()) msg += "All names not on the mail list have been removed." + nl;
    msg += CStr(p.IndexCount) + " Mail Labels are being sent to the printer." + nl + "You will need " + CStr(pages) +
           " pages of labels." + nl + nl + "Make sure the lables are loaded in the printer and the printer is on." + nl +
           "Labels will not be printed for those who have not attended since meeting number: " +
           CStr(p.PrintCutOff) + nl + "Is this what you want to do?";
    if (p.host.MsgBox(msg, vbYesNo) != vbYes) return;

    const SelPrinterResult dialog = SelPrinter(p.host);
    if (!dialog.Ok) return;
    const int skip = (dialog.FromPage - 1) * MailLabelGeometry::PerSheet;
    if (skip >= p.IndexCount) {
        PageBeyondEnd(p);
        return;
    }

    reports::ReportGuard guard(p);
    PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    const MailLabelGeometry g = MailLabelGeometry::For(p);
    out.SetScaleMode(7);
    out.SetFont(Fonts::fntTimes12);
    float y = g.firstRowY;
    int onSheet = 0;
    int next = skip + 1;
    while (next <= p.IndexCount) {
        LabelRowTexts texts;   // strings start empty; "{}" here crashes clang 14
        for (int col = 0; col < 3 && next <= p.IndexCount; ++col, ++next, ++onSheet) {
            if (!GetRecord(p, RecordOf(p.SortIndex[static_cast<std::size_t>(next)]))) continue;
            const MasterRecord& r = p.MasterRec;
            texts[col] = LabelTexts(r);
            ShowProgress(p, texts[col][0]);
        }
        PrintLabelRow(out, g, y, texts);
        y += MailLabelGeometry::RowPitch;
        if (onSheet == MailLabelGeometry::PerSheet && next <= p.IndexCount) {
            onSheet = 0;
            out.NewPage();
            out.SetFont(Fonts::fntTimes12);
            y = g.firstRowY;
            out.PrintEmptyLine();
        }
    }
    out.EndDoc();
    guard.Done();
    if (p.ReportsLoaded()) p.Reports().PreviewReport();
}

std::vector<std::pair<std::string, std::string>> CardTexts(const MasterRecord& r) {
    std::string map = Trim(r.MapCode);
    if (map == "none" || map == "xxxx") map = "  ";
    const std::string level = r.IntLevel;
    return {
        {Trim(r.FName) + " " + r.LName.str() + "    ", r.WorkerCode.str() + "/ " + r.RNum.str()},
        {"Map Code:" + map, (Trim(level).empty() ? std::string() : level + "/ ") + "Visits: " + r.Visits.str()},
        {r.Address.str(), "Age: " + r.Age.str()},
        {Trim(r.City) + ", " + r.State.str() + "  " + r.Zip.str(), "Religion: " + Trim(r.RelPref)},
        {Trim(r.Phone), "Adv: " + r.Advertising.str()},
        {r.Attendance.str() + "    " + "Decisions: " + r.Decisions.str(), ""},
        {"Notes: " + Trim(r.Notes), ""},
    };
}

void InterestCard2x4(ReportRun& p) {
    // Choosing and limiting the list reads people already.
    reports::ReportGuard guard(p);
    const lists::ListKind k = lists::SplitKind(p.SortName);
    const std::string& s = k.stem;
    const std::string& nl = p.CrLf;
    bool intCard = p.SortName == "IntCard";
    if (!intCard) {
        std::string first;
        if (s == "interest") first = "You have selected the PRIORITY INTEREST LIST filter";
        else if (s == "baptism") first = "You have selected the BAPTISM LIST filter";
        else if (s == "marked") first = "You have selected the MARKED NAMES  filter";
        else if (s == "attend") first = "You have selected the ATTENDANCE filter";
        else if (s == "missednight")
            first = "You have selected the MISSED MEETINGS  filter for those who have missed the last" +
                    CStr(k.number) + " meetings.";
        else if (s == "TotalAttend") first = "You have selected the TOTAL ATTENDANCE Filter.";
        else if (s == "attendnight") first = "You have selected the ATTENDED A SELECTED NIGHT Filter.";
        const bool asked = !first.empty();
        if (!asked || p.host.MsgBox(first + nl + "Is this the list that you want to print interest card labels for?",
                                    vbYesNo) != vbYes) {
            if (!lists::BuildList(p, "IntCard")) return;
            intCard = true;
        }
    }

    // The limits: asked here, or answered to the card list's own questions.
    bool active = false, onTeam = false;
    if (!intCard) {
        if (s != "TotalAttend")
            active = p.host.MsgBox("You can print card labels for all names or you can" + nl +
                                       "limit the cards printed to those who have attended 4 or more times." + nl +
                                       "Do you want to limit the cards printed to those who have attended 4 or more "
                                       "times?",
                                   vbYesNo) == vbYes;
        onTeam = p.host.MsgBox("You can also limit the cards printed to include " + nl +
                                   "only those who have an assigned Team Code." + nl +
                                   "Do you want to limit the cards printed to those who have an assigned Team Code?",
                               vbYesNo) == vbYes;
    } else if (IsNumeric(p.ScratchValue)) {
        const int v = static_cast<int>(Val(p.ScratchValue));
        p.ScratchValue.clear();
        active = (v & 1) != 0;
        onTeam = v - (v & 1) == 4;
    }

    // The cards go out in team order.
    std::vector<std::string> kept{p.SortIndex[0]};
    for (int i = 1; i <= p.IndexCount; ++i) {
        const long n = RecordOf(p.SortIndex[static_cast<std::size_t>(i)]);
        if (!GetRecord(p, n)) continue;
        const MasterRecord& r = p.MasterRec;
        if (r.WorkerCode == "##") continue;
        if (active && Val(r.Attend) <= 3) continue;
        if (r.Last <= p.PrintCutOff) continue;
        if (onTeam && r.WorkerCode == "00") continue;
        kept.push_back(r.RNum.str() + Left(r.WorkerCode, 5) + Fixed(UCase(r.LName), 20) + Fixed(UCase(r.FName), 20) +
                       RecordPointer(n));
    }
    p.SortIndex = std::move(kept);
    p.IndexCount = static_cast<int>(p.SortIndex.size()) - 1;
    p.CurrentIndex = p.IndexCount > 0 ? 1 : 0;
    SortEntries(p);
    if (p.IndexCount == 0) {
        p.host.MsgBox("There are no new labels to print");
        return;
    }

    const SelPrinterResult dialog = SelPrinter(p.host);
    if (!dialog.Ok) return;
    const int sheets = std::max(1, SheetsFor(p.IndexCount, CardGeometry::PerSheet));
    std::string which = active && onTeam ? "Interest Card Labels for all Active names Assigned to Teams are being sent "
                                           "to the printer."
                        : active ? "Interest Card Labels for all Active names are being sent to the printer."
                        : onTeam ? "Interest Card Labels for all names Assigned to Teams are being sent to the printer."
                                 : "InterestCard Labels for all names are being sent to the printer.";
    if (p.host.MsgBox(which + nl + "Make sure the lables are present." + nl + "There will be " + CStr(p.IndexCount) +
                          " Cards printed." + nl + "You will need " + CStr(sheets) +
                          " sheets of Avery 5163 (2in. x 4in.) labels.",
                      vbYesNo) != vbYes)
        return;
    const int skip = (dialog.FromPage - 1) * CardGeometry::PerSheet;
    if (skip >= p.IndexCount) {
        PageBeyondEnd(p);
        return;
    }

    PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    const CardGeometry g = CardGeometry::For(p);
    out.PrintEmptyLine();
    out.SetFont(Fonts::fntTimes12);
    out.SetScaleMode(7);
    float y = g.firstRowY;
    int onSheet = 0;
    int next = skip + 1;
    std::vector<long> printed;
    while (next <= p.IndexCount) {
        CardRowTexts cards;
        for (int col = 0; col < 2 && next <= p.IndexCount; ++col, ++next, ++onSheet) {
            const long n = RecordOf(p.SortIndex[static_cast<std::size_t>(next)]);
            if (!GetRecord(p, n)) continue;
            cards[col] = CardTexts(p.MasterRec);
            printed.push_back(n);
            ShowProgress(p, cards[col][0].first);
        }
        PrintCardRow(out, g, y, cards);
        y += CardGeometry::RowPitch;
        if (onSheet == CardGeometry::PerSheet && next <= p.IndexCount) {
            onSheet = 0;
            out.NewPage();
            out.PrintEmptyLine();
            out.SetScaleMode(7);
            out.SetFont(Fonts::fntTimes12);
            y = g.firstRowY;
        }
    }
    out.EndDoc();
    guard.Done();

    if (p.SortName == "IntCard") {
        // Each card goes out once: the flag is set only for cards that were printed.
        for (long n : printed) {
            if (!GetRecord(p, n)) continue;
            p.MasterRec.IntFlag = -1;
            PutRecord(p, n);
        }
        RebuildAlpha(p);
    }
}
