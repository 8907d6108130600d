// The bytes of the export files. Fields are appended straight from the record
// file read once into memory, so a file of 9999 people is one pass and one write.
#include <algorithm>
#include <string_view>
#include <vector>

#include "exchange/Export.h"
#include "lists/ListEngine.h"
#include "lists/Lists.h"
#include "platform/vb/Strings.h"
#include "store/SortIndex.h"
#include "store/State.h"

namespace exchange {
namespace {

namespace at = ::RecordAt;
using Rec = ::RecordView;
using lists::Trimmed;

constexpr std::string_view CrLf = "\r\n";

std::string_view RightTrimmed(std::string_view v) {
    while (!v.empty() && v.back() == ' ') v.remove_suffix(1);
    return v;
}

std::string_view Field(Rec r, std::size_t offset, std::size_t width) { return r.Text(offset, width); }
#define FIELD(name, width) Field(r, at::name, width)

// Appends v with each line break (CR LF, CR or LF) as " - ".
void AppendOneLine(std::string& out, std::string_view v, char tabAs) {
    for (std::size_t i = 0; i < v.size(); ++i) {
        const char c = v[i];
        if (c == '\r' || c == '\n') {
            if (c == '\r' && i + 1 < v.size() && v[i + 1] == '\n') ++i;
            out += " - ";
        } else {
            out += c == '\t' ? tabAs : c;
        }
    }
}

// A field of a tab-separated line. A tab inside a field would open a column
// and a line break a row, shifting everything after it; neither can be typed
// on the edit screen, but an imported file can bring them, so they are made
// a blank and " - " here.
void TabField(std::string& out, std::string_view v) {
    if (v.find_first_of("\t\r\n") == std::string_view::npos) {
        out.append(v);
        return;
    }
    AppendOneLine(out, v, ' ');
}

// A field of a comma-separated line. A comma inside a field would split it
// (an imported address can hold one), so such a field is put in double quotes,
// as spreadsheets and mapping programs read them; a field without one is
// written as it stands.
void CommaField(std::string& out, std::string_view v) {
    if (v.find_first_of(",\"\r\n") == std::string_view::npos) {
        out.append(v);
        return;
    }
    out += '"';
    std::string one;
    AppendOneLine(one, v, '\t');
    for (char c : one) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

// The record an entry points at: its last 4 characters, right-aligned.
long EntryRecord(const std::string& e) {
    long n = 0;
    for (std::size_t i = e.size() >= 4 ? e.size() - 4 : 0; i < e.size(); ++i)
        if (e[i] >= '0' && e[i] <= '9') n = n * 10 + (e[i] - '0');
    return n;
}

// Calls f(record) for each entry of the current list, in the list's order.
template <class F>
void WalkList(ProgramState& p, F f) {
    lists::RecordFile file(p);
    file.ReadAll();
    const int n = std::min<int>(p.IndexCount, static_cast<int>(p.SortIndex.size()) - 1);
    for (int i = 1; i <= n; ++i) {
        const long rec = EntryRecord(p.SortIndex[static_cast<std::size_t>(i)]);
        // An entry that points nowhere (a member line, a mark) has no record to write.
        if (rec < 1 || rec > file.Count()) continue;
        f(file[rec]);
    }
}

// Registration lists: entries of number 4, last name 15, first name 15, as
// member lines are, laid end to end.
constexpr std::size_t EntryLength = 34;

struct NameEntries {
    std::string buf;
    int Count() const { return static_cast<int>(buf.size() / EntryLength); }
    std::string_view At(int i) const { return {buf.data() + static_cast<std::size_t>(i) * EntryLength, EntryLength}; }
    void Padded(std::string_view v, std::size_t width) {
        v = v.substr(0, std::min(v.size(), width));
        buf.append(v);
        buf.append(width - v.size(), ' ');
    }
};

void AddMembers(const ProgramState& p, NameEntries& e) {
    const int n = std::min<int>(p.MemberCount, static_cast<int>(p.MemberList.size()) - 1);
    for (int i = 1; i <= n; ++i) e.Padded(p.MemberList[static_cast<std::size_t>(i)], EntryLength);
}

void AddRecords(ProgramState& p, NameEntries& e) {
    lists::RecordFile file(p);
    e.buf.reserve(e.buf.size() + static_cast<std::size_t>(file.Count()) * EntryLength);
    file.ForEach([&e](Rec r, long) {
        if (!r.Live()) return;
        e.Padded(FIELD(RNum, 4), 4);
        e.Padded(Trimmed(FIELD(LName, 20)), 15);
        e.Padded(Trimmed(FIELD(FName, 20)), 15);
    });
}

// The order the list sort gives them: by the name, characters 5 to 34.
std::vector<int> ByName(const NameEntries& e) {
    return e.Count() ? CombSortOrder(e.buf.data() + 4, EntryLength, 30, e.Count(), false) : std::vector<int>();
}

std::string_view Number(std::string_view e) { return e.substr(0, 4); }
std::string_view LastName(std::string_view e) { return e.substr(4, 15); }
std::string_view FirstName(std::string_view e) { return e.substr(19, 15); }

}  // namespace

std::string ListWords(const ProgramState& p) {
    const lists::ListKind k = lists::SplitKind(p.SortName);
    const std::string& s = k.stem;
    if (s == "date") return " those who have set a baptism date";
    if (s == "BaptClass") return " those who have enrolled in the baptismal/ Bible School class";
    if (s == "baptism") return " those who have been baptized.";
    if (s == "interest") return " interest levels A, B and C and those who have been baptized";
    if (s == "attendnight") return "Filtered for night " + vb::CStr(k.number);
    if (s == "missednight") return "Filtered for those who have missed the last " + vb::CStr(k.number) + " night(s).)";
    if (s == "wcattend") return "Filtered by Team Code Attendance ";
    if (s == "wcalpha") return "Filtered Alphabetically by Team Code ";
    if (s == "SelWCAttend") {
        // The team's words are its name, the part of TeamNames before the phone.
        const std::string code = vb::Right(p.SortName, 2);
        const int team = static_cast<int>(vb::Val(code));
        std::string name = team >= 0 && team <= 40 ? p.TeamNames[static_cast<std::size_t>(team)] : std::string();
        const long colon = vb::InStr(name, ":");
        if (colon > 0) name = vb::Left(name, colon - 1);
        return vb::Trim(name) + " Team Code " + code;
    }
    return "all names";
}

std::string MailMergeText(ProgramState& p, bool mailListOnly) {
    std::string out =
        "FName\tLName\tReg Number\tPhone\tAddress\tCity\tState\tZip\tAge\tRelPref\tIntLevel\tVisits\tWorkerCode\t"
        "Notes\tAttendance\tMapCode\tAdvertising\tBaptism Date\r\n";
    out.reserve(out.size() + static_cast<std::size_t>(std::max(p.IndexCount, 0)) * 420);
    WalkList(p, [&](Rec r) {
        if (mailListOnly && r.Int(at::MailList) == 0) return;
        // The fields at their full width, as the record holds them; only the notes are trimmed.
        const std::string_view fields[] = {
            FIELD(FName, 20),   FIELD(LName, 20),      FIELD(RNum, 4),       FIELD(Phone, 12),
            FIELD(Address, 30), FIELD(City, 20),       FIELD(State, 2),      FIELD(Zip, 10),
            FIELD(Age, 10),     FIELD(RelPref, 20),    FIELD(IntLevel, 1),   FIELD(Visits, 12),
            FIELD(WorkerCode, 2), Trimmed(FIELD(Notes, 150)), FIELD(Attendance, 40), FIELD(MapCode, 8),
            FIELD(Advertising, 20), FIELD(BaptDate, 8)};
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            if (i) out += '\t';
            TabField(out, fields[i]);
        }
        out += CrLf;
    });
    return out;
}

std::string MapText(ProgramState& p, bool mailListOnly) {
    std::string out, who;
    out.reserve(static_cast<std::size_t>(std::max(p.IndexCount, 0)) * 100);
    WalkList(p, [&](Rec r) {
        if (mailListOnly && r.Int(at::MailList) == 0) return;
        who.assign(Trimmed(FIELD(RNum, 4)));
        who.append(" ").append(Trimmed(FIELD(FName, 20))).append(" ").append(Trimmed(FIELD(LName, 20)));
        CommaField(out, who);
        for (std::string_view v : {FIELD(Address, 30), FIELD(City, 20), FIELD(State, 2), FIELD(Zip, 10),
                                   FIELD(Phone, 12)}) {
            out += ',';
            CommaField(out, Trimmed(v));
        }
        out += CrLf;
    });
    return out;
}

std::string EMailText(ProgramState& p) {
    std::string out = "Name,FName,LName,EMail,Meeting\r\n", name;
    // The fields trimmed: an address book takes a name or an address with the
    // record's padding as a different one.
    WalkList(p, [&](Rec r) {
        const std::string_view email = Trimmed(FIELD(Email, 40));
        if (email.empty()) return;
        const std::string_view first = Trimmed(FIELD(FName, 20)), last = Trimmed(FIELD(LName, 20));
        name.assign(first).append(" ").append(last);
        CommaField(out, name);
        for (std::string_view v : {first, last, email, std::string_view(p.CrusadeName)}) {
            out += ',';
            CommaField(out, v);
        }
        out += CrLf;
    });
    return out;
}

std::string TextFileText(ProgramState& p) {
    std::string out, notes;
    out.reserve(static_cast<std::size_t>(std::max(p.IndexCount, 0)) * 200);
    WalkList(p, [&](Rec r) {
        for (std::string_view v : {FIELD(RNum, 4), FIELD(FName, 20), FIELD(LName, 20), FIELD(Phone, 12),
                                   FIELD(Address, 30), FIELD(City, 20), FIELD(State, 2), FIELD(Zip, 10),
                                   FIELD(Email, 40)}) {
            TabField(out, RightTrimmed(v));
            out += '\t';
        }
        TabField(out, Trimmed(FIELD(Advertising, 20)));
        out += '\t';
        // One person stays on one line: commas become "-", line breaks " - ".
        notes.clear();
        AppendOneLine(notes, FIELD(Notes, 150), ' ');
        std::replace(notes.begin(), notes.end(), ',', '-');
        out.append(RightTrimmed(notes));
        out += CrLf;
    });
    return out;
}

std::string NameAndNumberText(ProgramState& p) {
    // Built aside: the entries point at no record, so the list on screen stays
    // as it was rather than become a list the edit screen cannot walk.
    NameEntries v;
    AddRecords(p, v);
    AddMembers(p, v);
    std::string out = "Reg Number\tFName\tLName\r\n";
    out.reserve(out.size() + v.buf.size() + static_cast<std::size_t>(v.Count()) * 4);
    for (int k : ByName(v)) {
        const std::string_view e = v.At(k);
        TabField(out, Number(e)), out += '\t';
        TabField(out, FirstName(e)), out += '\t';
        TabField(out, LastName(e)), out += CrLf;
    }
    return out;
}

std::string DuplicateNamesText(ProgramState& p) {
    NameEntries v;
    AddMembers(p, v);
    AddRecords(p, v);
    const std::vector<int> order = ByName(v);
    // Neighbours are compared by the whole name, last and first: the first
    // name alone (the last 15 characters) would pair "Anna Smith" with the
    // "Anna Smyth" sorted next to her, who is somebody else.
    auto same = [&](std::size_t a, std::size_t b) { return v.At(order[a]).substr(4) == v.At(order[b]).substr(4); };
    std::string out = "FName\tLName\tReg Number\r\n";
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (!((i > 0 && same(i - 1, i)) || (i + 1 < order.size() && same(i, i + 1)))) continue;
        const std::string_view e = v.At(order[i]);
        TabField(out, FirstName(e)), out += '\t';
        TabField(out, LastName(e)), out += '\t';
        TabField(out, Number(e)), out += CrLf;
    }
    return out;
}

}  // namespace exchange
