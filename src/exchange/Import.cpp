#include "exchange/Import.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

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
    std::ifstream in(path, std::ios::binary);
    if (!in) Raise(errPathFileAccess);
    std::ostringstream all;
    all << in.rdbuf();
    return std::move(all).str();
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
std::string PersonKey(const std::string& fname, const std::string& lname, const std::string& address) {
    return UCase(Trim(fname)) + '\t' + UCase(Trim(lname)) + '\t' + UCase(Trim(CleanAddress(Trim(address))));
}

std::string Line(long n) { return "Line " + CStr(n) + ": "; }

}  // namespace

ImportFile ReadImportFile(const std::string& path) {
    ImportFile out;
    out.path = path;
    CrusadeText t = ToCrusadeText(ReadBytes(path));
    out.kind = t.kind;
    out.nulsDropped = t.nulsDropped;
    const std::string text = t.text;
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
    // What the crusade holds: the numbers and the people of its live records.
    std::set<std::string> numbers, persons;
    if (p.File1.IsOpen()) {
        constexpr long chunk = 512;
        std::vector<char> buf(static_cast<std::size_t>(chunk) * MasterRecord::Length);
        for (long first = 1; first <= p.RecordCount; first += chunk) {
            long got = p.File1.GetRange(first, std::min(chunk, p.RecordCount - first + 1), buf.data());
            for (long i = 0; i < got; ++i) {
                RecordView v{buf.data() + i * MasterRecord::Length};
                if (!v.Live()) continue;
                numbers.insert(UCase(Trim(std::string(v.Text(RecordAt::RNum, 4)))));
                persons.insert(PersonKey(std::string(v.Text(RecordAt::FName, 20)), std::string(v.Text(RecordAt::LName, 20)),
                                         std::string(v.Text(RecordAt::Address, 30))));
            }
        }
    }
    std::set<std::string> seenNumbers;
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
        const MasterRecord r = ImportedRecord(person.fields);
        const std::string& num = r.RNum.str();
        const std::string key = UCase(Trim(num));
        if (person.shortRow)
            out.push_back({person.line, Line(person.line) + "fewer than 9 columns: the rest of this person is taken from the next line."});
        if (person.longRow)
            out.push_back({person.line, Line(person.line) + "more than 9 columns: the extra ones start the next person."});
        if (!key.empty() && numbers.count(key))
            out.push_back({person.line, Line(person.line) + "number " + Trim(num) + " is already in the crusade."});
        else if (!key.empty() && seenNumbers.count(key))
            out.push_back({person.line, Line(person.line) + "number " + Trim(num) + " is used twice in this file."});
        seenNumbers.insert(key);
        if (persons.count(PersonKey(r.FName, r.LName, r.Address)))
            out.push_back({person.line, Line(person.line) + Trim(r.FName) + " " + Trim(r.LName) +
                                            " is already in the crusade at " + Trim(r.Address) + "."});
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
    std::vector<char> buf(static_cast<std::size_t>(n) * MasterRecord::Length);
    std::vector<MasterRecord> records;
    records.reserve(static_cast<std::size_t>(n));
    for (long i = 0; i < n; ++i) {
        records.push_back(ImportedRecord(file.people[static_cast<std::size_t>(i)].fields));
        const RecordBytes b = EncodeRecord(records.back());
        std::copy(b.begin(), b.end(), buf.begin() + i * MasterRecord::Length);
    }
    const long first = p.RecordCount + 1;
    p.File1.PutRange(first, n, buf.data());   // all or nothing: a failed write puts the length back
    p.RecordCount += n;
    if (p.SortName == "alpha") {
        p.SortIndex.resize(static_cast<std::size_t>(p.IndexCount) + 1);
        for (long i = 0; i < n; ++i) {
            p.MasterRec = records[static_cast<std::size_t>(i)];
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
