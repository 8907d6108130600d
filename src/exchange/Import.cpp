#include "exchange/Import.h"

#include <algorithm>
#include <iterator>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <unordered_set>

#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "store/FieldRules.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"

using namespace vb;

namespace exchange {

namespace {

std::string ReadBytes(const std::string& path) {
    if (!FileExists(path)) Raise(errFileNotFound);
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) Raise(errPathFileAccess);
    std::string data;
    char chunk[1 << 16];
    for (std::size_t n; (n = std::fread(chunk, 1, sizeof chunk, f)) > 0;) data.append(chunk, n);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed) Raise(errDeviceIO);
    return data;
}

bool IsLineEndChar(char c) { return c == '\r' || c == '\n'; }

// Line ends in text[from, to): CR LF counts once.
long LineEndsBetween(const std::string& text, std::size_t from, std::size_t to) {
    long n = 0;
    for (std::size_t i = from; i < to; ++i) {
        if (text[i] == '\n') ++n;
        else if (text[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n')) ++n;
    }
    return n;
}

// The same person in the file and the import: names and address as the card keeps them.
// The address is cleaned only for names that meet, which few do.
std::string NameKey(const std::string& fname, const std::string& lname) {
    return UCase(Trim(fname)) + '\t' + UCase(Trim(lname));
}

std::string_view Cut(std::string_view s, std::size_t width) {
    s = s.substr(0, width);
    while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// The names of NameKey as a number, made without a string: equal names give equal
// numbers, and the rare other pair that does is told apart by the address key.
std::uint64_t NameHash(std::string_view fname, std::string_view lname) {
    std::uint64_t h = 1469598103934665603ull;
    auto add = [&h](std::string_view s) {
        for (char c : s) h = (h ^ static_cast<unsigned char>(UCaseChar(c))) * 1099511628211ull;
        h = (h ^ '\t') * 1099511628211ull;
    };
    add(Cut(fname, 20));
    add(Cut(lname, 20));
    return h;
}

// A registration number, trimmed and in capitals, packed in one integer.
std::uint32_t NumberKey(std::string_view rnum) {
    std::uint32_t k = 0;
    for (char c : Cut(rnum, 4)) k = k << 8 | static_cast<unsigned char>(UCaseChar(c));
    return k;
}
std::string AddressKey(const std::string& address) { return UCase(Trim(CleanAddress(Trim(address)))); }

// The nine columns' places in the record.
constexpr const RecordLayout::Field* Columns[ImportColumns] = {
    &RecordLayout::Named("RNum"),  &RecordLayout::Named("FName"), &RecordLayout::Named("LName"),
    &RecordLayout::Named("Address"), &RecordLayout::Named("City"), &RecordLayout::Named("State"),
    &RecordLayout::Named("Zip"),   &RecordLayout::Named("Phone"), &RecordLayout::Named("Email")};

std::string Column(const ImportFields& f, int i) { return Fixed(f[static_cast<std::size_t>(i)], Columns[i]->width); }

std::string Line(long n) { return "Line " + CStr(n) + ": "; }

}  // namespace

ImportFile ReadImportFile(const std::string& path) {
    ImportFile out;
    out.path = path;
    CrusadeText t = ToCrusadeText(ReadBytes(path));
    out.kind = t.kind;
    out.nulsDropped = t.nulsDropped;
    const std::string text = t.text;
    out.people.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    TextReader in;
    in.OpenText(std::move(t.text));
    long line = 1;
    std::size_t counted = 0;
    while (!in.Eof()) {
        ImportPerson person;
        std::size_t start = in.Position();
        line += LineEndsBetween(text, counted, start);
        counted = start;
        person.line = line;
        int got = 0;
        try {
            for (; got < ImportColumns; ++got) {
                person.fields[got] = in.InputString();
                std::size_t at = in.Position();
                bool endedLine = at >= text.size() ? true : IsLineEndChar(text[at - 1]);
                if (got < ImportColumns - 1 && endedLine && at < text.size()) person.shortRow = true;
                if (got == ImportColumns - 1 && at > 0 && at <= text.size() && text[at - 1] == ',') person.longRow = true;
            }
        } catch (const RuntimeError& e) {
            if (e.Number != errInputPastEnd) throw;
            // The file ends in the middle of a person: the people before stay.
            out.partialLine = person.line;
            out.partialFields = got;
            break;
        }
        out.people.push_back(std::move(person));
    }
    return out;
}

MasterRecord ImportedRecord(const ImportFields& f) {
    MasterRecord r;
    r.RNum = f[0];
    r.FName = f[1];
    r.LName = f[2];
    r.Address = f[3];
    r.City = f[4];
    r.State = f[5];
    r.Zip = f[6];
    r.Phone = f[7];
    r.Email = f[8];
    r.Attendance = "1" + std::string(39, '-');
    r.MailList = 1;
    r.WorkerCode = "00";
    r.Visits = "";
    r.IntLevel = "";
    r.MapCode = "";
    r.Notes = "";
    r.BaptDate = "";
    r.Attend = " 1";
    r.Last = 1;
    r.Age = "NIF";
    r.Advertising = "....P..";
    r.RelPref = "UnSpecified";
    r.Decisions = std::string(9, '-');
    r.Class = 0;
    r.IntFlag = 0;
    r.BirthDate = " ";
    r.MarkToVisit = 0;
    return r;
}

long ImportRoom(const ProgramState& p) { return std::max(0L, MaxRecords - p.RecordCount); }

std::vector<ImportWarning> CheckImport(ProgramState& p, const ImportFile& file) {
    std::vector<ImportWarning> out;
    std::unordered_set<std::uint64_t> importNames;
    importNames.reserve(file.people.size());
    for (const ImportPerson& person : file.people) importNames.insert(NameHash(person.fields[1], person.fields[2]));
    // What the crusade holds: the numbers of its live records, and the addresses of
    // those who bear an imported name.
    std::vector<std::uint32_t> numbers;
    std::unordered_set<std::string> persons;
    if (p.File1.IsOpen()) {
        constexpr long chunk = 512;
        std::vector<char> buf(static_cast<std::size_t>(chunk) * MasterRecord::Length);
        for (long first = 1; first <= p.RecordCount; first += chunk) {
            long got = p.File1.GetRange(first, std::min(chunk, p.RecordCount - first + 1), buf.data());
            for (long i = 0; i < got; ++i) {
                RecordView v{buf.data() + i * MasterRecord::Length};
                if (!v.Live()) continue;
                numbers.push_back(NumberKey(v.Text(RecordAt::RNum, 4)));
                if (importNames.count(NameHash(v.Text(RecordAt::FName, 20), v.Text(RecordAt::LName, 20))))
                    persons.insert(NameKey(std::string(v.Text(RecordAt::FName, 20)), std::string(v.Text(RecordAt::LName, 20))) +
                                   '\t' + AddressKey(std::string(v.Text(RecordAt::Address, 30))));
            }
        }
    }
    std::sort(numbers.begin(), numbers.end());
    std::unordered_set<std::uint32_t> seenNumbers;
    seenNumbers.reserve(file.people.size());
    const long room = ImportRoom(p);
    for (std::size_t i = 0; i < file.people.size(); ++i) {
        const ImportPerson& person = file.people[i];
        if (static_cast<long>(i) == room) {
            out.push_back({person.line, Line(person.line) + "the crusade is full (" + CStr(MaxRecords) +
                                            " people): this person and the " +
                                            CStr(static_cast<long>(file.people.size() - i) - 1) +
                                            " after it will not be imported."});
            break;
        }
        const std::string_view num = Cut(person.fields[0], 4);
        const std::uint32_t key = NumberKey(num);
        if (person.shortRow)
            out.push_back({person.line, Line(person.line) + "fewer than 9 columns: the rest of this person is taken from the next line."});
        if (person.longRow)
            out.push_back({person.line, Line(person.line) + "more than 9 columns: the extra ones start the next person."});
        if (key != 0 && std::binary_search(numbers.begin(), numbers.end(), key))
            out.push_back({person.line, Line(person.line) + "number " + std::string(num) + " is already in the crusade."});
        else if (key != 0 && !seenNumbers.insert(key).second)
            out.push_back({person.line, Line(person.line) + "number " + std::string(num) + " is used twice in this file."});
        if (!persons.empty()) {
            const std::string fname = Column(person.fields, 1), lname = Column(person.fields, 2),
                              address = Column(person.fields, 3);
            if (persons.count(NameKey(fname, lname) + '\t' + AddressKey(address)))
                out.push_back({person.line, Line(person.line) + Trim(fname) + " " + Trim(lname) +
                                                " is already in the crusade at " + Trim(address) + "."});
        }
    }
    if (file.partialLine > 0)
        out.push_back({file.partialLine, Line(file.partialLine) + "the file ends in the middle of a person (" +
                                             CStr(static_cast<long>(file.partialFields)) +
                                             " of 9 columns): that person is not imported."});
    if (file.nulsDropped > 0)
        out.push_back({0, CStr(file.nulsDropped) + " NUL characters in the file are left out."});
    return out;
}

long AppendImport(ProgramState& p, const ImportFile& file) {
    const long n = std::min(ImportRoom(p), static_cast<long>(file.people.size()));
    if (n == 0) return 0;
    host::BusyPointer busy(p.host);
    // Every record starts as the fixed values and takes its nine columns, cut to their widths.
    static const RecordBytes blank = EncodeRecord(ImportedRecord({}));
    std::vector<char> buf(static_cast<std::size_t>(n) * MasterRecord::Length);
    for (long i = 0; i < n; ++i) {
        char* rec = buf.data() + i * MasterRecord::Length;
        std::copy(blank.begin(), blank.end(), rec);
        const ImportFields& f = file.people[static_cast<std::size_t>(i)].fields;
        for (int k = 0; k < ImportColumns; ++k) {
            const std::string& v = f[static_cast<std::size_t>(k)];
            std::copy_n(v.data(), std::min(v.size(), Columns[k]->width), rec + Columns[k]->offset);
        }
    }
    const long first = p.RecordCount + 1;
    p.File1.PutRange(first, n, buf.data());   // all or nothing: a failed write puts the length back
    p.RecordCount += n;
    if (p.SortName == "alpha") {
        p.SortIndex.resize(static_cast<std::size_t>(p.IndexCount) + 1);
        p.SortIndex.reserve(p.SortIndex.size() + static_cast<std::size_t>(n));
        for (long i = 0; i < n; ++i) {
            const ImportFields& f = file.people[static_cast<std::size_t>(i)].fields;
            p.MasterRec.RNum = f[0];
            p.MasterRec.FName = f[1];
            p.MasterRec.LName = f[2];
            p.SortIndex.push_back(AlphaEntry(p, first + i));
        }
        p.IndexCount += static_cast<int>(n);
        if (p.CurrentIndex == 0) p.CurrentIndex = 1;
        SortEntries(p);
    } else {
        // A filtered list would take entries of another kind; the whole list comes back instead.
        RebuildAlpha(p);
    }
    CountZips(p);
    return n;
}

}  // namespace exchange
