#pragma once
// The scaffold every printed report stands on. A report is written as:
//
//   ReportGuard guard(p);            // before the first record is read
//   ... build or check the list, ask the printer dialog (SelPrinter) ...
//   guard.Drawing(out);              // the document is the report's from here
//   for each copy:
//       Pager pager(p.host, out, sel.FromPage);
//       ... draw; at a page's end: its footer, pager.EndPage(), the next header ...
//       if (!pager.Finish()) break;  // a first page past the end prints nothing
//   guard.Done();
//
// The list's kind comes from lists::SplitKind(p.SortName), the baptism and "unite"
// decisions from FindDecisionMarks, a list entry's person from ReadEntry.
#include <string>

#include "store/MasterRecord.h"

namespace host {
class Host;
class PrintSurface;
}  // namespace host
struct ProgramState;

namespace reports {

// The report's own page counter. `page` is the number a footer shows; `sheet`
// counts every page of the document, so that a counter that restarts (a new
// team) never throws away what was already printed.
class Pager {
public:
    Pager(host::Host& host, host::PrintSurface& out, int fromPage) : host_(host), out_(out), from_(fromPage) {}
    int page = 1;
    int Sheet() const { return sheet_; }
    // Ends the page: pages before the dialog's first page are discarded.
    void EndPage();
    // Ends the document; false when the first page chosen lay past the end
    // (nothing printed, the operator told). Ready for another copy.
    bool Finish();

private:
    host::Host& host_;
    host::PrintSurface& out_;
    int from_;
    int sheet_ = 1;
};

// The current person and the list are the edit screen's; a report reads other
// people through MasterRec and gives back MasterRec, RecordPos and CurrentIndex
// as it found them, however it leaves. Once drawing began, a report that leaves
// before Done() (an error, a Cancel) leaves no half document: it is discarded.
class ReportGuard {
public:
    explicit ReportGuard(ProgramState& p);
    ~ReportGuard();
    ReportGuard(const ReportGuard&) = delete;
    ReportGuard& operator=(const ReportGuard&) = delete;

    void Drawing(host::PrintSurface& out) { out_ = &out; }
    void Done() { out_ = nullptr; }

private:
    ProgramState& p_;
    MasterRecord rec_;
    long pos_;
    int current_;
    host::PrintSurface* out_ = nullptr;
};

// Reads the record of entry i (its last 4 characters) into MasterRec.
void ReadEntry(ProgramState& p, int i);

// Positions in Decisions of the baptism and the "unite" decisions (0 when none).
struct DecisionMarks {
    int BaptIdx = 0;
    int UniteIdx = 0;
};
DecisionMarks FindDecisionMarks(const ProgramState& p);
bool DecisionIs(const MasterRecord& r, int idx, char c);
// A baptism date is set: old files hold "12:00AM" for none.
bool HasBaptDate(const MasterRecord& r);
// "*" for a profession of faith, "(r)" for a re-baptism, as the printed reports mark them.
std::string BaptismMarks(const MasterRecord& r, const DecisionMarks& m);

// " (Sab. AM)" when the meeting is a Sabbath morning one.
std::string SabbathMark(const ProgramState& p, int meeting);
std::string MeetingTitle(const ProgramState& p, int meeting);
// The 28 meetings up to the current one.
std::string Att28(const ProgramState& p, const MasterRecord& r);

// Title of a list report, CrusadeName in front.
inline std::string Num(long n) { return std::to_string(n); }

}  // namespace reports
