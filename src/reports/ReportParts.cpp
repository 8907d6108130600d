#include "reports/ReportParts.h"

#include <algorithm>

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

ReportGuard::ReportGuard(ProgramState& p)
    : p_(p), rec_(p.MasterRec), pos_(p.RecordPos), current_(p.CurrentIndex) {}

ReportGuard::~ReportGuard() {
    if (out_) out_->KillDoc();
    p_.MasterRec = rec_;
    p_.RecordPos = pos_;
    // A report that filtered the list (the cards) may have left it shorter.
    p_.CurrentIndex = std::min(current_, p_.IndexCount);
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

}  // namespace reports
