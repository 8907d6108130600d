#pragma once
// What the list reports share beyond the page header: the page counter that
// honours the printer dialog's first page, the reading of a list entry, the
// decision marks and the attendance windows.
#include <exception>
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
// people through MasterRec and gives it back as it found it.
class KeepCurrent {
public:
    explicit KeepCurrent(ProgramState& p);
    ~KeepCurrent();
    KeepCurrent(const KeepCurrent&) = delete;
    KeepCurrent& operator=(const KeepCurrent&) = delete;

private:
    ProgramState& p_;
    MasterRecord rec_;
    long pos_;
};

// A report stopped by an error (a record that can't be read) leaves no half
// document behind: what it drew is discarded.
class DiscardOnError {
public:
    explicit DiscardOnError(host::PrintSurface& out) : out_(out), exceptions_(std::uncaught_exceptions()) {}
    ~DiscardOnError();
    DiscardOnError(const DiscardOnError&) = delete;
    DiscardOnError& operator=(const DiscardOnError&) = delete;

private:
    host::PrintSurface& out_;
    int exceptions_;
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

// The plain kind of SortName and the number behind it ("attendnight05" -> 5).
struct Kind {
    std::string stem;
    int number = 0;
};
Kind SplitKind(const std::string& sortName);

}  // namespace reports
