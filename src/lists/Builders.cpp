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
    bool teamFirst = false;     // "interest", "baptism", "TotalAttend" for the team reports
    bool includeF = false;      // "interest"
    bool alphabetical = false;  // "SelWCAttend"
    bool byLevel = false;       // "decisions"
    bool equal = false;         // "TotalAttend"
    int sabbath = 0;            // "needsabvis": the meeting of the Sabbath sermon
    bool Cut(Rec r) const { return r.Last() > p.PrintCutOff; }
};

using Emit = void (*)(const Ask&, Rec, long, EntryBuffer&);

struct Kind {
    const char* name;
    Emit emit;
    bool keepName = false;      // entry 0 holds the kind
    bool descending = false;
};

bool Blank(std::string_view v) { return Trimmed(v).empty(); }

// "0" and the first character of Attend, or Attend when it has two.
void TwoDigitTotal(EntryBuffer& e, Rec r) {
    if (r.Char(at::Attend + 1) != ' ') {
        e.Text(r.Text(at::Attend, 2));
    } else {
        e.Char('0');
        e.Char(r.Char(at::Attend));
    }
}

// The appointment's day and time code, ranked so that it sorts by the hour.
void AppointmentKey(EntryBuffer& e, Rec r) {
    std::string_view v = Trimmed(r.Text(at::Visits, 12));
    std::size_t a = v.find('A');
    std::string code = a == std::string_view::npos ? std::string("AN0") : std::string(v.substr(a, 3));
    code.resize(3, ' ');
    static const char ranks[] = "ABCD0123456789";
    const char* hit = std::find(ranks, ranks + 14, code[2]);
    int rank = hit == ranks + 14 ? 99 : static_cast<int>(hit - ranks);
    e.Text(std::string_view(code).substr(0, 2));
    e.Char(static_cast<char>('0' + rank / 10));
    e.Char(static_cast<char>('0' + rank % 10));
}

// mm/dd/yy, leading zeros added, as yyyymmdd.
void DateKey(EntryBuffer& e, Rec r) {
    std::string d(Trimmed(r.Text(at::BaptDate, 8)));
    if (Mid(d, 2, 1) == "/") d = "0" + d;
    if (Mid(d, 5, 1) == "/") d = Left(d, 3) + "0" + Mid(d, 4);
    std::string yy = Mid(d, 7, 2);
    std::string key = (yy > "50" ? "19" : "20") + yy + Left(d, 2) + Mid(d, 4, 2);
    key.resize(8, ' ');
    e.Text(key);
}

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
    {"alpha", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live()) return;
         e.Begin(r), e.AlphaPart(r), e.End(n);
     }, true},
    {"alphafilter", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.AlphaPart(r), e.End(n);
     }, true},
    {"undelete", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (r.Live() || r.Text(at::RNum, 4) == "skip") return;
         e.Begin(r), e.AlphaPart(r), e.End(n);
     }, true},
    {"notes", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || Blank(r.Text(at::Notes, 150))) return;
         e.Begin(r), e.LongPart(r), e.End(n);
     }},
    {"religion", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         // The church's own members by the name itself; other wishes by the list's names.
         if (a.wanted == "SDA") {
             if (Trimmed(r.Text(at::RelPref, 20)) != "SDA") return;
         } else if (!a.wanted.empty() && ReligionOf(a.p, r) != a.wanted) {
             return;
         }
         e.Begin(r), e.Text(r.Text(at::RelPref, 20)), e.LongPart(r), e.End(n);
     }},
    {"needsabvis", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || a.sabbath == 0 || r.Attended(a.sabbath) <= '-' || VisitedSince(r, a.sabbath)) return;
         e.Begin(r), e.LongPart(r), e.End(n);
     }},
    {"age", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.Text(r.Text(at::Age, 10)), e.LongPart(r), e.End(n);
     }},
    {"TotalAttend", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         long total = static_cast<long>(Val(std::string(r.Text(at::Attend, 2))));
         if (a.equal ? total != a.number : total < a.number) return;
         e.Begin(r);
         if (a.teamFirst) e.Team(r);
         TwoDigitTotal(e, r), e.LongPart(r), e.End(n);
     }, false, true},
    {"attend", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.AttendanceKey(r.Last()), e.LongPart(r), e.End(n);
     }},
    {"attendnight", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Attended(a.number) == '-') return;
         e.Begin(r), e.LongPart(r), e.End(n);
     }},
    {"missednight", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         // Its own cut: Last equal to the cut-off stays.
         if (!r.Live() || r.Last() < a.p.PrintCutOff || r.Last() > a.p.MeetingNumber - a.number) return;
         e.Begin(r), e.LongPart(r), e.End(n);
     }},
    {"interest", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         char l = r.Level();
         if (!r.Live() || !(l == 'A' || l == 'B' || l == 'C' || l == 'G' || (a.includeF && l == 'F'))) return;
         e.Begin(r);
         if (a.teamFirst) e.Team(r);
         e.Char(l), e.LongUpperPart(r), e.End(n);
     }},
    {"NoAssignedInterest", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         char l = r.Level();
         if (!r.Live() || !(l == ' ' || l == 'E') || r.Last() <= a.p.MeetingNumber - 4) return;
         e.Begin(r), e.Char(l), e.LongUpperPart(r), e.End(n);
     }},
    {"PreCrusade", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Char(at::Advertising + 4) != 'P') return;
         e.Begin(r), e.LongUpperPart(r), e.End(n);
     }},
    {"Advertising", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live()) return;
         // One entry for each mark, so a person can stand here more than once.
         for (int k = 0; k < 7; ++k) {
             char mark = r.Char(at::Advertising + k);
             if (mark == '.') continue;
             e.Begin(r), e.Char(mark), e.Text(r.Text(at::LName, 20)), e.Upper(r.Text(at::FName, 3)), e.End(n);
         }
     }},
    {"NeedInterview", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         char l = r.Level();
         if (!r.Live() || l < 'A' || l > 'C' || r.Int(at::Class) != 0) return;
         e.Begin(r), e.Char(l), e.LongUpperPart(r), e.End(n);
     }},
    {"WCNeedInterview", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         char l = r.Level();
         if (!r.Live() || l < 'A' || l > 'C' || r.Int(at::Class) != 0) return;
         e.Begin(r), e.Team(r), e.Char(l), e.LongUpperPart(r), e.End(n);
     }},
    {"NeedDate", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         char l = r.Level();
         if (!r.Live() || !Blank(r.Text(at::BaptDate, 8)) || !(l == 'A' || l == 'B')) return;
         e.Begin(r), e.Char(l), e.LongUpperPart(r), e.End(n);
     }},
    {"FutureBapDateSet", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || Blank(r.Text(at::BaptDate, 8)) || r.Level() == 'G') return;
         e.Begin(r), e.Text(r.Text(at::BaptDate, 8)), e.LongUpperPart(r), e.End(n);
     }},
    {"InterviewRemain", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || static_cast<unsigned char>(r.Level()) >= 'D' || r.Int(at::Class) == 0 ||
             !Blank(r.Text(at::BaptDate, 8)))
             return;
         e.Begin(r), AppointmentKey(e, r), e.LongUpperPart(r), e.End(n);
     }},
    {"BaptClass", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Int(at::Class) == 0) return;
         e.Begin(r), AppointmentKey(e, r), e.LongUpperPart(r), e.End(n);
     }},
    {"IntCard", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r) || r.Int(at::IntFlag) != 0) return;
         if ((a.number & 1) && Val(std::string(r.Text(at::Attend, 2))) <= 3) return;
         if ((a.number & 4) && r.Text(at::WorkerCode, 2) == "00") return;
         e.Begin(r), e.Team(r), e.FullPart(r), e.End(n);
     }},
    {"mail", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Int(at::MailList) == 0) return;
         e.Begin(r), e.Text(r.Text(at::Zip, 10)), e.FullPart(r), e.End(n);
     }},
    {"zip", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r);
         if (a.p.CanadaSorter) e.Text(r.Text(at::Zip, 3)), e.Text("       ");
         else e.Text(r.Text(at::Zip, 10));
         e.Upper(r.Text(at::Address, 30)), e.FullPart(r), e.End(n);
     }},
    {"date", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || Val(std::string(r.Text(at::BaptDate, 8))) <= 0) return;
         e.Begin(r), DateKey(e, r), e.FullPart(r), e.End(n);
     }},
    {"map", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.AttendanceKey(r.Last()), e.Team(r), e.Text(r.Text(at::MapCode, 8));
         e.AttendanceKey(r.Last()), e.LongPart(r), e.End(n);
     }},
    {"wcattend", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.Team(r), e.AttendanceKey(r.Last()), e.LongPart(r), e.End(n);
     }},
    {"SelWCAttend", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r) || r.Text(at::WorkerCode, 2) != a.team) return;
         e.Begin(r), e.Team(r);
         if (a.alphabetical) e.Text("000");
         else e.AttendanceKey(r.Last());
         e.LongPart(r), e.End(n);
     }},
    {"wcalpha", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r)) return;
         e.Begin(r), e.Team(r), e.FullPart(r), e.End(n);
     }},
    {"baptism", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Level() != 'G') return;
         e.Begin(r);
         if (a.teamFirst) e.Team(r);
         e.LongUpperPart(r), e.End(n);
     }},
    {"marked", [](const Ask&, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || r.Int(at::MarkToVisit) == 0) return;
         e.Begin(r), e.LongUpperPart(r), e.End(n);
     }},
    {"decisions", [](const Ask& a, Rec r, long n, EntryBuffer& e) {
         if (!r.Live() || !a.Cut(r) || r.Level() == 'D' || !MadeDecision(a.p, r, a.number)) return;
         e.Begin(r);
         if (a.byLevel) e.Char(r.Level());
         e.LongUpperPart(r), e.End(n);
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
    file.ForEach([&](Rec r, long n) { k.emit(a, r, n, e); });
    file.LeaveLastIn(p);
    p.SortName = sortName;
    // A list of the deleted that is empty is not sorted; nothing differs for the others.
    e.Store(p, k.keepName ? sortName : std::string(), true, k.descending);
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
    a.teamFirst = Has(option, "TC");
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
        // The option may carry the team itself ("00" has no number), and "Al" behind it.
        a.alphabetical = Right(option, 2) == "Al";
        std::string given = a.alphabetical ? Left(option, static_cast<long>(option.size()) - 2) : option;
        if (team.empty()) team = given;
        a.team = !team.empty() ? team : number > 0 ? TwoDigits(number) : AskTeamCode(p);
        if (a.team.size() == 1) a.team = "0" + a.team;
        if (a.team.empty()) return false;
        sortName += a.team;
    } else if (kind == "decisions") {
        if (number == 0 && (a.number = AskDecision(p)) == 0) return false;
        if (a.number < 1 || a.number > 9) return false;
        a.byLevel = option == "IL" || (option.empty() && a.number == 9 && AskArrangeByLevel(p));
        sortName += CStr(a.number);
    } else if (kind == "IntCard") {
        if (number == 0) a.number = AskCardLimits(p);
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

bool SelectFilter(ListRun& p, const std::string& name) {
    std::string kind = name, team;
    int number = 0;
    if (Left(name, 8) == "decision") {
        kind = "decisions";
        number = static_cast<int>(Val(Right(name, 1)));
    } else {
        for (const char* s : {"attendnight", "missednight", "SelWCAttend"})
            if (Left(name, static_cast<long>(std::string(s).size())) == s) {
                kind = s;
                number = static_cast<int>(Val(Right(name, 2)));
                if (kind == "SelWCAttend") team = Right(name, 2);
            }
    }
    if (kind == "alpha" || kind == "alphafilter") kind = "attend";
    if (!Find(kind) && kind != "DupAddress" && kind != "NDupAddress" && kind != "TDupAddress" &&
        kind != "CleanMailList")
        return false;
    return Build(p, kind, number, std::string(), team);
}

}  // namespace lists
