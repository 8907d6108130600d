#include "store/Members.h"

#include <algorithm>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

namespace {

// A quoted field (a damaged file's unclosed quote runs to the end of the file)
// may hold commas and line ends that Print # would write back raw, so the next
// read would give a longer table. Such a field is cut where a plain field would
// be, so that what is read once is what every later read gives.
void AddPlainFields(std::vector<std::string>& out, const std::string& field) {
    if (field.find_first_of(",\r\n") == std::string::npos) {
        out.push_back(field);
        return;
    }
    std::size_t start = 0;
    while (start <= field.size()) {
        std::size_t end = field.find_first_of(",\r\n", start);
        if (end == std::string::npos) end = field.size();
        std::string piece = field.substr(start, end - start);
        piece.erase(0, piece.find_first_not_of(" \t"));   // as a plain field, read again, would
        bool crlf = end + 1 < field.size() && field[end] == '\r' && field[end + 1] == '\n';
        // A line end closing the field's text adds no empty entry.
        if (end < field.size() || !piece.empty()) out.push_back(piece);
        start = end + (crlf ? 2 : 1);
    }
    while (!out.empty() && out.back().empty()) out.pop_back();
}

std::vector<std::string> ReadEntries(const std::string& path, std::size_t limit) {
    std::vector<std::string> out;
    // A missing or short file leaves what was read.
    IgnoreErrors([&] {
        TextReader in(path);
        while (!in.Eof() && out.size() < limit) AddPlainFields(out, in.InputString());
    });
    // An empty last entry would not survive being written and read again.
    while (!out.empty() && out.back().empty()) out.pop_back();
    if (out.size() > limit) out.resize(limit);
    return out;
}

bool WriteEntries(ProgramState& p, const std::string& path, const std::string* first, int count) {
    TextWriter w;
    try {
        w.Open(path, TextWriter::Mode::Output, true);
        for (int i = 0; i < count; ++i) w.PrintLine(first[i]);
        w.Close();
        return true;
    } catch (const RuntimeError& e) {
        w.Abandon();
        p.host.MsgBox("Vestrel could not write the file:" + p.CrLf + path + p.CrLf + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description() + p.CrLf + "The file on disk was left as it was." +
                          p.CrLf + p.CrLf +
                          "Make sure the disk is not full and that the file and its folder may be changed, "
                          "then close and open the crusade again.",
                      host::vbExclamation, "File Error");
        return false;
    }
}

// A table made in memory (never read) may go to any file; a table read from a file only back to it.
bool WritesOwnFile(const std::string& from, const std::string& target) { return from.empty() || from == target; }

void LoadMembersChecked(ProgramState& p) {
    std::vector<std::string> lines = ReadEntries(p.CrusadeFile("mem"), 100000);
    p.MemberList.assign(1, std::string());
    for (const std::string& line : lines) {
        bool drop = false;
        for (std::size_t k = 1; k < p.MemberList.size() && !drop; ++k) {
            const std::string& earlier = p.MemberList[k];
            if (Left(earlier, 4) != Left(line, 4)) continue;
            int answer = p.host.MsgBox("The following number is in the SDA Member file two times:" + p.CrLf + p.CrLf +
                                           earlier + p.CrLf + line + p.CrLf + p.CrLf + "Do you want to remove " +
                                           line + "?",
                                       host::vbYesNo | host::vbQuestion, "Duplicate Chruch member Name");
            drop = answer == host::vbYes;
        }
        if (!drop) p.MemberList.push_back(line);
    }
    p.MemberCount = static_cast<int>(p.MemberList.size()) - 1;
    p.MembersFrom = p.CrusadeFile("mem");
}

// The member file is read field by field: a comma would split the line.
std::string NoCommas(std::string s) {
    std::replace(s.begin(), s.end(), ',', ' ');
    return s;
}
}  // namespace

void LoadMembers(ProgramState& p) {
    std::vector<std::string> lines = ReadEntries(p.CrusadeFile("mem"), 100000);
    p.MemberList.assign(1, std::string());
    p.MemberList.insert(p.MemberList.end(), lines.begin(), lines.end());
    p.MemberCount = static_cast<int>(lines.size());
    p.MembersFrom = p.CrusadeFile("mem");
}

void SaveMembers(ProgramState& p) {
    if (p.MemberCount <= 0 || !WritesOwnFile(p.MembersFrom, p.CrusadeFile("mem"))) return;
    WriteEntries(p, p.CrusadeFile("mem"), &p.MemberList[1], p.MemberCount);
}

void LoadZips(ProgramState& p) {
    // The table holds 2000 entries; a longer file stops there.
    std::vector<std::string> lines = ReadEntries(p.CrusadeFile("zps"), 2000);
    for (std::size_t i = 0; i < lines.size(); ++i) p.ZipList[i + 1] = lines[i];
    p.ZipCount = static_cast<int>(lines.size());
    p.ZipsFrom = p.CrusadeFile("zps");
}

void SaveZips(ProgramState& p) {
    if (p.ZipCount < 0 || !WritesOwnFile(p.ZipsFrom, p.CrusadeFile("zps"))) return;
    WriteEntries(p, p.CrusadeFile("zps"), &p.ZipList[1], p.ZipCount);
}

void NewSideTables(ProgramState& p) {
    p.MemberList.assign(1, std::string());
    p.MemberCount = 0;
    p.MembersFrom = p.CrusadeFile("mem");
    p.ZipCount = 0;
    p.ZipsFrom = p.CrusadeFile("zps");
}

void SaveMembersAfterLoad(ProgramState& p) {
    // A table still of another crusade is not written here; the check then reads this crusade's own file.
    IgnoreErrors([&] { SaveMembers(p); });
    IgnoreErrors([&] { LoadMembersChecked(p); });
    IgnoreErrors([&] { SaveMembers(p); });
}

std::string MemberLine(const std::string& rnum, const std::string& last, const std::string& first) {
    return Fixed(Right("0000" + Trim(rnum), 4), 4) + Fixed(NoCommas(Trim(last)), 15) + Fixed(NoCommas(Trim(first)), 15);
}

void AddMember(ProgramState& p, const std::string& line) {
    p.MemberList.resize(static_cast<std::size_t>(p.MemberCount) + 1);
    p.MemberList.push_back(line);
    ++p.MemberCount;
    SaveMembers(p);
}
