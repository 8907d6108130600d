#include "store/Members.h"

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

namespace {

std::vector<std::string> ReadEntries(const std::string& path, std::size_t limit) {
    std::vector<std::string> out;
    try {
        TextReader in(path);
        while (!in.Eof() && out.size() < limit) out.push_back(in.InputString());
    } catch (const RuntimeError&) {
        // A missing or short file leaves what was read.
    }
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
        if (e.Number == errPermissionDenied) throw;
        p.host.MsgBox("Vestrel could not write the file:" + p.CrLf + path + p.CrLf + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description() + p.CrLf + "The file on disk was left as it was.",
                      host::vbExclamation, "File Error");
        return false;
    }
}

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
}

}  // namespace

void LoadMembers(ProgramState& p) {
    std::vector<std::string> lines = ReadEntries(p.CrusadeFile("mem"), 100000);
    p.MemberList.assign(1, std::string());
    p.MemberList.insert(p.MemberList.end(), lines.begin(), lines.end());
    p.MemberCount = static_cast<int>(lines.size());
}

void SaveMembers(ProgramState& p) {
    if (p.MemberCount <= 0) return;
    WriteEntries(p, p.CrusadeFile("mem"), &p.MemberList[1], p.MemberCount);
}

void LoadZips(ProgramState& p) {
    // The table holds 2000 entries; a longer file stops there.
    std::vector<std::string> lines = ReadEntries(p.CrusadeFile("zps"), 2000);
    for (std::size_t i = 0; i < lines.size(); ++i) p.ZipList[i + 1] = lines[i];
    p.ZipCount = static_cast<int>(lines.size());
}

void SaveZips(ProgramState& p) {
    if (p.ZipCount < 0) return;
    WriteEntries(p, p.CrusadeFile("zps"), &p.ZipList[1], p.ZipCount);
}

void SaveMembersAfterLoad(ProgramState& p) {
    try {
        SaveMembers(p);
    } catch (const RuntimeError&) {
    }
    try {
        LoadMembersChecked(p);
    } catch (const RuntimeError&) {
    }
    try {
        SaveMembers(p);
    } catch (const RuntimeError&) {
    }
}
