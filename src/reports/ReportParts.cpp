#include "reports/ReportParts.h"

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/Records.h"
#include "store/State.h"

namespace reports {

void Pager::EndPage() {
    if (sheet_ < from_)
        out_.KillDoc();
    else
        out_.NewPage();
    ++page;
    ++sheet_;
}

bool Pager::Finish() {
    bool printed = sheet_ >= from_;
    page = 1;
    sheet_ = 1;
    if (!printed) {
        out_.KillDoc();
        host_.MsgBox("The page you selected to begin with was greater than the total number of pages "
                     "available to print.",
                     host::vbOKOnly | host::vbCritical, "Print Error");
        return false;
    }
    out_.EndDoc();
    return true;
}

KeepCurrent::KeepCurrent(ProgramState& p) : p_(p), rec_(p.MasterRec), pos_(p.RecordPos) {}

KeepCurrent::~KeepCurrent() {
    p_.MasterRec = rec_;
    p_.RecordPos = pos_;
}

DiscardOnError::~DiscardOnError() {
    if (std::uncaught_exceptions() > exceptions_) out_.KillDoc();
}

void ReadEntry(ProgramState& p, int i) {
    long n = static_cast<long>(vb::Val(vb::Right(p.SortIndex[static_cast<std::size_t>(i)], 4)));
    // An entry is not checked: a number past the end prints a cleared record.
    if (n < 1 || !GetRecord(p, n)) p.MasterRec = MasterRecord();
}

DecisionMarks FindDecisionMarks(const ProgramState& p) {
    DecisionMarks m;
    for (int i = 1; i <= 9; ++i) {
        std::string name = vb::UCase(p.DecisionNames[static_cast<std::size_t>(i)]);
        if (vb::InStr(name, "BAPT") > 0) m.BaptIdx = i;
        if (vb::InStr(name, "UNITE") > 0) m.UniteIdx = i;
    }
    return m;
}

bool DecisionIs(const MasterRecord& r, int idx, char c) {
    return idx > 0 && r.Decisions.At(idx) == c;
}

bool HasBaptDate(const MasterRecord& r) {
    const std::string d = vb::Trim(r.BaptDate);
    return d != "" && d != "12:00AM";
}

std::string BaptismMarks(const MasterRecord& r, const DecisionMarks& m) {
    std::string s;
    if (DecisionIs(r, m.BaptIdx, '-')) s += "*";
    if (DecisionIs(r, m.UniteIdx, '-')) s += "(r)";
    return s;
}

std::string SabbathMark(const ProgramState& p, int meeting) {
    for (int i = 1; i <= 4; ++i)
        if (p.SabAM[static_cast<std::size_t>(i)] == meeting && meeting > 0) return " (Sab. AM)";
    return "";
}

std::string MeetingTitle(const ProgramState& p, int meeting) {
    if (meeting < 0 || meeting >= static_cast<int>(p.SermonTitles.size())) return "";
    return p.SermonTitles[static_cast<std::size_t>(meeting)];
}

std::string Att28(const ProgramState& p, const MasterRecord& r) {
    const std::string& a = r.Attendance;
    return p.MeetingNumber < 29 ? vb::Left(a, 28) : vb::Mid(a, p.MeetingNumber - 27, 28);
}

Kind SplitKind(const std::string& sortName) {
    Kind k{sortName, 0};
    for (const char* s : {"attendnight", "missednight", "SelWCAttend"}) {
        std::string stem(s);
        if (vb::Left(sortName, static_cast<long>(stem.size())) == stem) {
            k.stem = stem;
            k.number = static_cast<int>(vb::Val(vb::Right(sortName, 2)));
        }
    }
    if (vb::Left(sortName, 8) == "decision") {
        k.stem = "decisions";
        k.number = static_cast<int>(vb::Val(vb::Right(sortName, 1)));
    }
    return k;
}

}  // namespace reports
