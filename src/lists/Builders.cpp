// The catalogue of list kinds: the rule each selects by, its key and its order.
#include <algorithm>

#include "lists/ListEngine.h"
#include "lists/ListRun.h"
#include "lists/Lists.h"
#include "lists/Questions.h"
#include "platform/vb/Strings.h"
#include "store/SortIndex.h"

using namespace vb;

namespace lists {
namespace {

// What a build was asked for, with the answers to its questions.
struct Ask {
    explicit Ask(const ProgramState& ps) : p(ps) {}
    const ProgramState& p;
    int number = 0;             // meeting, night count, decision, card limits, total
    std::string team;           // "SelWCAttend"
    std::string wanted;         // "religion"
    bool includeF = false;      // "interest"
    bool equal = false;         // "TotalAttend"
    KeyChoices key;             // what the key hangs on besides the record
    int sabbath = 0;            // "needsabvis": the meeting of the Sabbath sermon
    std::string answers;        // what the questions were answered, kept in entry 0
    bool Cut(Rec r) const { return r.Last() > p.PrintCutOff; }
};

using Rule = bool (*)(const Ask&, Rec);

struct Kind {
    const char* name;
    Rule rule;
    bool keepName = false;      // entry 0 holds the kind
    bool descending = false;
    bool eachMark = false;      // one entry for each advertising mark
};

bool Blank(std::string_view v) { return Trimmed(v).empty(); }

// The religion a person counts under: the list's own name, or "Other".
std::string_view ReligionOf(const ProgramState& p, Rec r) {
    std::string_view rel = Trimmed(r.Text(at::RelPref, 20));
    for (int i = 1; i <= 14; ++i)
        if (rel == p.ReligionList[i]) return rel;
    return "Other";
}

// A visit in one of the first three groups after meeting s keeps a person off
// the Sabbath visit list; a fourth group does not count.
bool VisitedSince(Rec r, int s) {
    std::string_view v = r.Text(at::Visits, 12);
    for (int g = 0; g < 3; ++g) {
        char kind = LCaseChar(v[g * 3]);
        if (kind != 'l' && kind != 'h' && kind != 'm' && kind != 'p') continue;
        char d1 = v[g * 3 + 1], d2 = v[g * 3 + 2];
        if (d1 < '0' || d1 > '9') continue;
        int meeting = d1 - '0';
        if (d2 >= '0' && d2 <= '9') meeting = meeting * 10 + (d2 - '0');
        if (meeting >= s) return true;
    }
    return false;
}

bool MadeDecision(const ProgramState& p, Rec r, int n) {
    if (n < 1 || n > 9) return false;
    if (r.Char(at::Decisions + n - 1) != '-') return true;
    const std::string& code = p.DecisionCodes[n];
    return !code.empty() && r.Text(at::Attendance, 40).find(code) != std::string_view::npos;
}

const Kind Catalogue[] = {
    {"alpha", [](const Ask&, Rec r) { return r.Live(); }, true},
    {"alphafilter", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }, true},
    {"undelete", [](const Ask&, Rec r) { return !r.Live() && r.Text(at::RNum, 4) != "skip"; }, true},
    {"notes", [](const Ask&, Rec r) { return r.Live() && !Blank(r.Text(at::Notes, 150)); }},
    {"religion", [](const Ask& a, Rec r) {
         if (!r.Live() || !a.Cut(r)) return false;
         // The church's own members by the name itself; other wishes by the list's names.
         if (a.wanted == "SDA") return Trimmed(r.Text(at::RelPref, 20)) == "SDA";
         return a.wanted.empty() || ReligionOf(a.p, r) == a.wanted;
     }},
    {"needsabvis", [](const Ask& a, Rec r) {
         return r.Live() && a.sabbath != 0 && r.Attended(a.sabbath) > '-' && !VisitedSince(r, a.sabbath);
     }},
    {"age", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"TotalAttend", [](const Ask& a, Rec r) {
         if (!r.Live() || !a.Cut(r)) return false;
         long total = static_cast<long>(Val(std::string(r.Text(at::Attend, 2))));
         return a.equal ? total == a.number : total >= a.number;
     }, false, true},
    {"attend", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"attendnight", [](const Ask& a, Rec r) { return r.Live() && r.Attended(a.number) != '-'; }},
    {"missednight", [](const Ask& a, Rec r) {
         // Its own cut: Last equal to the cut-off stays.
         return r.Live() && r.Last() >= a.p.PrintCutOff && r.Last() <= a.p.MeetingNumber - a.number;
     }},
    {"interest", [](const Ask& a, Rec r) {
         char l = r.Level();
         return r.Live() && (l == 'A' || l == 'B' || l == 'C' || l == 'G' || (a.includeF && l == 'F'));
     }},
    {"NoAssignedInterest", [](const Ask& a, Rec r) {
         char l = r.Level();
         return r.Live() && (l == ' ' || l == 'E') && r.Last() > a.p.MeetingNumber - 4;
     }},
    {"PreCrusade", [](const Ask&, Rec r) { return r.Live() && r.Char(at::Advertising + 4) == 'P'; }},
    // One entry for each mark, so a person can stand here more than once.
    {"Advertising", [](const Ask&, Rec r) { return r.Live(); }, false, false, true},
    {"NeedInterview", [](const Ask&, Rec r) {
         char l = r.Level();
         return r.Live() && l >= 'A' && l <= 'C' && r.Int(at::Class) == 0;
     }},
    {"WCNeedInterview", [](const Ask&, Rec r) {
         char l = r.Level();
         return r.Live() && l >= 'A' && l <= 'C' && r.Int(at::Class) == 0;
     }},
    {"NeedDate", [](const Ask&, Rec r) {
         char l = r.Level();
         return r.Live() && Blank(r.Text(at::BaptDate, 8)) && (l == 'A' || l == 'B');
     }},
    {"FutureBapDateSet", [](const Ask&, Rec r) {
         return r.Live() && !Blank(r.Text(at::BaptDate, 8)) && r.Level() != 'G';
     }},
    {"InterviewRemain", [](const Ask&, Rec r) {
         return r.Live() && static_cast<unsigned char>(r.Level()) < 'D' && r.Int(at::Class) != 0 &&
                Blank(r.Text(at::BaptDate, 8));
     }},
    {"BaptClass", [](const Ask&, Rec r) { return r.Live() && r.Int(at::Class) != 0; }},
    {"IntCard", [](const Ask& a, Rec r) {
         if (!r.Live() || !a.Cut(r) || r.Int(at::IntFlag) != 0) return false;
         if ((a.number & 1) && Val(std::string(r.Text(at::Attend, 2))) <= 3) return false;
         return !((a.number & 4) && r.Text(at::WorkerCode, 2) == "00");
     }},
    {"mail", [](const Ask&, Rec r) { return r.Live() && r.Int(at::MailList) != 0; }},
    {"zip", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"date", [](const Ask&, Rec r) { return r.Live() && Val(std::string(r.Text(at::BaptDate, 8))) > 0; }},
    {"map", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"wcattend", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"SelWCAttend", [](const Ask& a, Rec r) {
         return r.Live() && a.Cut(r) && r.Text(at::WorkerCode, 2) == a.team;
     }},
    {"wcalpha", [](const Ask& a, Rec r) { return r.Live() && a.Cut(r); }},
    {"baptism", [](const Ask&, Rec r) { return r.Live() && r.Level() == 'G'; }},
    {"marked", [](const Ask&, Rec r) { return r.Live() && r.Int(at::MarkToVisit) != 0; }},
    {"decisions", [](const Ask& a, Rec r) {
         return r.Live() && a.Cut(r) && r.Level() != 'D' && MadeDecision(a.p, r, a.number);
     }},
};

const Kind* Find(const std::string& kind) {
    for (const Kind& k : Catalogue)
        if (kind == k.name) return &k;
    return nullptr;
}

bool Has(const std::string& option, const char* word) { return InStr(option, word) > 0; }

std::string TwoDigits(int n) { return Right("0" + CStr(n), 2); }

// Reads the file once and makes the list of one kind.
void Run(ProgramState& p, const Kind& k, const Ask& a, const std::string& sortName) {
    RememberPrior(p, k.name);
    RecordFile file(p);
    EntryBuffer e;
    const KeyOfKind key = KeyFor(k.name);
    KeyChoices c = a.key;
    file.ForEach([&](Rec r, long n) {
        if (!k.rule(a, r)) return;
        if (!k.eachMark) {
            e.Begin(r), key(c, r, e), e.End(n);
            return;
        }
        for (int m = 0; m < 7; ++m) {
            c.mark = r.Char(at::Advertising + m);
            if (c.mark != '.') e.Begin(r), key(c, r, e), e.End(n);
        }
    });
    file.LeaveLastIn(p);
    p.SortName = sortName;
    // A list of the deleted that is empty is not sorted; nothing differs for the others.
    e.Store(p, k.keepName ? sortName : a.answers, true, k.descending);
}

void Alpha(ProgramState& p) {
    Ask a(p);
    Run(p, *Find("alpha"), a, "alpha");
}

int SabbathMeeting(const ProgramState& p) {
    for (int i = 1; i <= 30; ++i)
        if (InStr(p.SermonTitles[i], "Sabbath") > 0) return i;
    return 0;
}

// `team` stands for the number of "SelWCAttend" when the caller knows it, "00" included.
bool Build(ListRun& p, const std::string& kindName, int number, const std::string& option, std::string team) {
    std::string kind = kindName == "decision" ? std::string("decisions") : kindName;
    if (kind == "DupAddress" || kind == "NDupAddress" || kind == "TDupAddress") {
        BuildDuplicates(p, kind == "TDupAddress" ? "team error" : kind == "NDupAddress" ? "last name" : option);
        return true;
    }
    if (kind == "CleanMailList") return BuildCleanMailList(p);
    const Kind* k = Find(kind);
    if (!k) return false;

    Ask a(p);
    a.number = number;
    a.wanted = option;
    a.key.teamFirst = Has(option, "TC");
    a.key.canada = p.CanadaSorter;
    std::string sortName = kind;
    // Level F counts when the preview's "Include 'F'" box is checked.
    if (kind == "interest") a.includeF = Has(option, "F") || p.IncludeFLevel;
    if (kind == "attendnight") {
        if (number == 0 && (a.number = AskMeetingToView(p)) == 0) return false;
        sortName += TwoDigits(a.number);
    } else if (kind == "missednight") {
        if (number == 0 && (a.number = AskNightsMissed(p)) == 0) return false;
        sortName += TwoDigits(a.number);
    } else if (kind == "SelWCAttend") {
        // The option may carry the team itself ("00" has no number), and the order behind it.
        a.key.alphabetical = Right(option, 2) == "Al";
        const bool order = a.key.alphabetical || Right(option, 2) == "At";
        std::string given = order ? Left(option, static_cast<long>(option.size()) - 2) : option;
        if (team.empty()) team = given;
        a.team = !team.empty() ? team : number > 0 ? TwoDigits(number) : AskTeamCode(p);
        if (a.team.size() == 1) a.team = "0" + a.team;
        if (a.team.empty()) return false;
        sortName += a.team;
    } else if (kind == "decisions") {
        if (number == 0 && (a.number = AskDecision(p)) == 0) return false;
        if (a.number < 1 || a.number > 9) return false;
        a.key.byLevel = option == "IL" || (option.empty() && a.number == 9 && AskArrangeByLevel(p));
        a.answers = a.key.byLevel ? "IL" : "Al";
        sortName += CStr(a.number);
    } else if (kind == "IntCard") {
        if (number == 0) a.number = AskCardLimits(p);
        a.answers = CStr(a.number);
        p.ScratchValue = CStr(a.number);
    } else if (kind == "TotalAttend") {
        if (Has(option, "equal") || Has(option, "atleast")) {
            a.equal = Has(option, "equal");
        } else {
            std::string how = AskTotalAttend(p);
            if (how == "cancel") return false;
            a.equal = how == "equal";
        }
        if (number > 0) p.FilterTotalAttend = number;
        a.number = p.FilterTotalAttend;
        a.answers = std::string(a.equal ? "equal" : "atleast") + (a.key.teamFirst ? "TC" : "");
    } else if (kind == "needsabvis") {
        a.sabbath = SabbathMeeting(p);
    }

    Run(p, *k, a, sortName);

    if (p.IndexCount == 0) {
        if (kind == "attendnight") {
            p.host.MsgBox("There are no records for this filter.");
            Alpha(p);
        } else if (kind == "missednight") {
            Alpha(p);
        } else if (kind == "TotalAttend") {
            p.host.MsgBox("There are no names to view.");
            Alpha(p);
        }
    }
    return true;
}

}  // namespace

bool BuildList(ListRun& p, const std::string& kind, int number, const std::string& option) {
    return Build(p, kind, number, option, std::string());
}


void ApplyCutOff(ProgramState& p) {
    RecordFile file(p);
    file.ReadAll();
    EntryBuffer e;
    for (int i = 1; i <= p.IndexCount && i < static_cast<int>(p.SortIndex.size()); ++i) {
        long n = static_cast<long>(Val(Right(p.SortIndex[i], 4)));
        if (n < 1 || n > file.Count()) continue;
        Rec r = file[n];
        if (!r.Live() || r.Last() <= p.PrintCutOff) continue;
        e.Begin(r), e.FullPart(r), e.End(n);
    }
    e.Store(p, p.SortIndex.empty() ? std::string() : p.SortIndex[0], true);
}

ListKind SplitKind(const std::string& sortName) {
    for (const char* s : {"attendnight", "missednight", "SelWCAttend"}) {
        std::string stem = s;
        if (Left(sortName, static_cast<long>(stem.size())) == stem)
            return {stem, static_cast<int>(Val(Right(sortName, 2)))};
    }
    if (Left(sortName, 8) == "decision") return {"decisions", static_cast<int>(Val(Right(sortName, 1)))};
    return {sortName, 0};
}

bool SelectFilter(ListRun& p, const std::string& name, const std::string& option) {
    auto [kind, number] = SplitKind(name);
    std::string team, opt = option;
    if (kind == "SelWCAttend") team = Right(name, 2);
    if (kind == "alpha" || kind == "alphafilter") kind = "attend";
    // The answers given when the current list was built are given again.
    const std::string kept = p.SortName == name && !p.SortIndex.empty() ? p.SortIndex[0] : std::string();
    if (kind == "IntCard" && IsNumeric(kept)) number = static_cast<int>(Val(kept));
    if ((kind == "decisions" && (kept == "IL" || kept == "Al")) ||
        (kind == "TotalAttend" && (Has(kept, "equal") || Has(kept, "atleast"))))
        opt = kept + opt;
    if (!Find(kind) && kind != "DupAddress" && kind != "NDupAddress" && kind != "TDupAddress" &&
        kind != "CleanMailList")
        return false;
    return Build(p, kind, number, opt, team);
}

}  // namespace lists
