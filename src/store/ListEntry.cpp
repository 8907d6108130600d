#include "store/ListEntry.h"

#include <algorithm>
#include <array>

#include "platform/vb/Strings.h"
#include "store/MasterRecord.h"
#include "store/State.h"

using namespace vb;

void EntryText::Upper(std::string_view t) {
    // One table lookup a character: the names are most of every entry.
    static const std::array<char, 256> upper = [] {
        std::array<char, 256> a{};
        for (int c = 0; c < 256; ++c) a[static_cast<std::size_t>(c)] = UCaseChar(static_cast<char>(c));
        return a;
    }();
    std::size_t at = e_.size();
    e_.resize(at + t.size());
    for (std::size_t i = 0; i < t.size(); ++i) e_[at + i] = upper[static_cast<unsigned char>(t[i])];
}

void EntryText::Pointer(long n) {
    char ptr[4] = {' ', ' ', ' ', ' '};
    for (int k = 3; k >= 0 && n > 0; --k, n /= 10) ptr[k] = static_cast<char>('0' + n % 10);
    e_.append(ptr, 4);
}

void EntryText::AlphaPart(RecordView r) {
    Upper(r.Text(RecordAt::LName, 5));
    Upper(r.Text(RecordAt::FName, 2));
}

void EntryText::LongPart(RecordView r) {
    Upper(r.Text(RecordAt::LName, 20));
    Text(r.Text(RecordAt::FName, 3));
}

void EntryText::LongUpperPart(RecordView r) {
    Upper(r.Text(RecordAt::LName, 20));
    Upper(r.Text(RecordAt::FName, 3));
}

void EntryText::FullPart(RecordView r) {
    Upper(r.Text(RecordAt::LName, 20));
    Upper(r.Text(RecordAt::FName, 20));
}

void EntryText::AttendanceKey(int last) {
    long v = 9999L - last;
    if (v >= 0) {
        v %= 1000;
        Char(static_cast<char>('0' + v / 100));
        Char(static_cast<char>('0' + v / 10 % 10));
        Char(static_cast<char>('0' + v % 10));
    } else {
        Text(Right("000" + Trim(CStr(v)), 3));
    }
}

namespace {

using R = RecordView;
using C = KeyChoices;
using E = EntryText;
namespace at = RecordAt;

std::string_view Trimmed(std::string_view v) {
    std::size_t b = 0, e = v.size();
    while (b < e && v[b] == ' ') ++b;
    while (e > b && v[e - 1] == ' ') --e;
    return v.substr(b, e - b);
}

// "0" and the first character of Attend, or Attend when it has two.
void TwoDigitTotal(E& e, R r) {
    if (r.Char(at::Attend + 1) != ' ') {
        e.Text(r.Text(at::Attend, 2));
    } else {
        e.Char('0');
        e.Char(r.Char(at::Attend));
    }
}

// The appointment's day and time code, ranked so that it sorts by the hour.
void AppointmentKey(E& e, R r) {
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

// mm/dd/yy, leading zeros added, as yyyymmdd; always 8 wide, so that an entry
// whose date was cleared keeps the list's length.
void DateKey(E& e, R r) {
    std::string d(Trimmed(r.Text(at::BaptDate, 8)));
    if (Mid(d, 2, 1) == "/") d = "0" + d;
    if (Mid(d, 5, 1) == "/") d = Left(d, 3) + "0" + Mid(d, 4);
    std::string yy = Mid(d, 7, 2);
    std::string key = (yy > "50" ? "19" : "20") + yy + Left(d, 2) + Mid(d, 4, 2);
    key.resize(8, ' ');
    e.Text(key);
}

void Level(E& e, R r) { e.Char(r.Level()); }

// Address, last and first name in upper case, team.
void Household(const C&, R r, E& e) { e.Upper(r.Text(at::Address, 30)), e.FullPart(r), e.Team(r); }

struct KeyOf {
    std::string_view kind;
    KeyOfKind key;
};

const KeyOf Keys[] = {
    {"alpha", [](const C&, R r, E& e) { e.AlphaPart(r); }},
    {"alphafilter", [](const C&, R r, E& e) { e.AlphaPart(r); }},
    {"undelete", [](const C&, R r, E& e) { e.AlphaPart(r); }},
    {"notes", [](const C&, R r, E& e) { e.LongPart(r); }},
    {"religion", [](const C&, R r, E& e) { e.Text(r.Text(at::RelPref, 20)), e.LongPart(r); }},
    {"needsabvis", [](const C&, R r, E& e) { e.LongPart(r); }},
    {"age", [](const C&, R r, E& e) { e.Text(r.Text(at::Age, 10)), e.LongPart(r); }},
    {"TotalAttend", [](const C& c, R r, E& e) {
         if (c.teamFirst) e.Team(r);
         TwoDigitTotal(e, r), e.LongPart(r);
     }},
    {"attend", [](const C&, R r, E& e) { e.AttendanceKey(r.Last()), e.LongPart(r); }},
    {"attendnight", [](const C&, R r, E& e) { e.LongPart(r); }},
    {"missednight", [](const C&, R r, E& e) { e.LongPart(r); }},
    {"interest", [](const C& c, R r, E& e) {
         if (c.teamFirst) e.Team(r);
         Level(e, r), e.LongUpperPart(r);
     }},
    {"NoAssignedInterest", [](const C&, R r, E& e) { Level(e, r), e.LongUpperPart(r); }},
    {"PreCrusade", [](const C&, R r, E& e) { e.LongUpperPart(r); }},
    {"Advertising", [](const C& c, R r, E& e) {
         e.Char(c.mark), e.Text(r.Text(at::LName, 20)), e.Upper(r.Text(at::FName, 3));
     }},
    {"NeedInterview", [](const C&, R r, E& e) { Level(e, r), e.LongUpperPart(r); }},
    {"WCNeedInterview", [](const C&, R r, E& e) { e.Team(r), Level(e, r), e.LongUpperPart(r); }},
    {"NeedDate", [](const C&, R r, E& e) { Level(e, r), e.LongUpperPart(r); }},
    {"FutureBapDateSet", [](const C&, R r, E& e) { e.Text(r.Text(at::BaptDate, 8)), e.LongUpperPart(r); }},
    {"InterviewRemain", [](const C&, R r, E& e) { AppointmentKey(e, r), e.LongUpperPart(r); }},
    {"BaptClass", [](const C&, R r, E& e) { AppointmentKey(e, r), e.LongUpperPart(r); }},
    {"IntCard", [](const C&, R r, E& e) { e.Team(r), e.FullPart(r); }},
    {"mail", [](const C&, R r, E& e) { e.Text(r.Text(at::Zip, 10)), e.FullPart(r); }},
    {"zip", [](const C& c, R r, E& e) {
         if (c.canada) e.Text(r.Text(at::Zip, 3)), e.Text("       ");
         else e.Text(r.Text(at::Zip, 10));
         e.Upper(r.Text(at::Address, 30)), e.FullPart(r);
     }},
    {"date", [](const C&, R r, E& e) { DateKey(e, r), e.FullPart(r); }},
    {"map", [](const C&, R r, E& e) {
         e.AttendanceKey(r.Last()), e.Team(r), e.Text(r.Text(at::MapCode, 8));
         e.AttendanceKey(r.Last()), e.LongPart(r);
     }},
    {"wcattend", [](const C&, R r, E& e) { e.Team(r), e.AttendanceKey(r.Last()), e.LongPart(r); }},
    {"SelWCAttend", [](const C& c, R r, E& e) {
         e.Team(r);
         if (c.alphabetical) e.Text("000");
         else e.AttendanceKey(r.Last());
         e.LongPart(r);
     }},
    {"wcalpha", [](const C&, R r, E& e) { e.Team(r), e.FullPart(r); }},
    {"baptism", [](const C& c, R r, E& e) {
         if (c.teamFirst) e.Team(r);
         e.LongUpperPart(r);
     }},
    {"marked", [](const C&, R r, E& e) { e.LongUpperPart(r); }},
    {"decisions", [](const C& c, R r, E& e) {
         if (c.byLevel) Level(e, r);
         e.LongUpperPart(r);
     }},
    {"DupAddress", Household},
    {"NDupAddress", Household},
    {"TDupAddress", Household},
};

// An entry made by a builder, not the add-mode or unsaved mark.
bool Composed(const std::string& e) { return e.size() >= 8 && e != "NotSavedYet" && Left(e, 7) != "-------"; }

std::string Compose(KeyOfKind key, const KeyChoices& c, RecordView r, long n) {
    EntryText e;
    e.Begin(r), key(c, r, e), e.Pointer(n);
    return e.str();
}

}  // namespace

KeyOfKind KeyFor(std::string_view kind) {
    for (const KeyOf& k : Keys)
        if (k.kind == kind) return k.key;
    return nullptr;
}

std::string PlainKind(const std::string& sortName) {
    if (sortName.empty()) return "alpha";
    for (const char* s : {"attendnight", "missednight", "SelWCAttend", "decisions"})
        if (Left(sortName, static_cast<long>(std::string_view(s).size())) == s) return s;
    return sortName;
}

std::string ListEntry(const ProgramState& p, const std::string& oldEntry, long n) {
    const RecordBytes bytes = EncodeRecord(p.MasterRec);
    const RecordView r{bytes.data()};
    const std::string kind = PlainKind(p.SortName);
    // The old entry shows the list's layout; failing that, any other entry does.
    const std::string* model = Composed(oldEntry) ? &oldEntry : nullptr;
    for (int i = 1; !model && i <= p.IndexCount && i < static_cast<int>(p.SortIndex.size()); ++i)
        if (Composed(p.SortIndex[i])) model = &p.SortIndex[i];

    KeyOfKind key = KeyFor(kind);
    if (!key) {
        // A middle given by the pass that built the list (the clean-up's groups) is kept.
        if (!Composed(oldEntry)) return Compose(KeyFor("alpha"), {}, r, n);
        EntryText e;
        e.Begin(r), e.Text(std::string_view(oldEntry).substr(4, oldEntry.size() - 8)), e.Pointer(n);
        return e.str();
    }

    KeyChoices c;
    c.canada = p.CanadaSorter;
    if (kind == "Advertising") {
        if (Composed(oldEntry)) {
            c.mark = oldEntry[4];
        } else {
            std::string_view marks = r.Text(RecordAt::Advertising, 7);
            std::size_t k = marks.find_first_not_of('.');
            if (k != std::string_view::npos) c.mark = marks[k];
        }
    }
    if (kind == "SelWCAttend" && model) c.alphabetical = model->substr(6, 3) == "000";
    std::string entry = Compose(key, c, r, n);
    if (model && model->size() != entry.size()) {
        // The team in front, or the level, was asked for when the list was built.
        KeyChoices asked = c;
        asked.teamFirst = asked.byLevel = true;
        std::string other = Compose(key, asked, r, n);
        if (other.size() == model->size()) entry = other;
    }
    return entry;
}

int FindByRecord(const ProgramState& p, long n) {
    for (int i = 1; i <= p.IndexCount && i < static_cast<int>(p.SortIndex.size()); ++i)
        if (static_cast<long>(Val(Right(p.SortIndex[i], 4))) == n) return i;
    return 0;
}
