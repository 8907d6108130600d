#include "store/Info.h"

#include <cmath>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/Convert.h"
#include "store/State.h"
#include "store/Records.h"

using namespace vb;

namespace {

std::string RunningVersionLine() {
    return "version " + CStr(VersionMajor) + "." + CStr(VersionMinor) + "." + CStr(VersionRevision);
}

// The numeric prefix of a text as a 16-bit integer, rounded as the runtime
// assigns; false when it does not fit one.
template <class T>
bool IntegerValue(const std::string& text, T& out) {
    double v = std::nearbyint(Val(text));
    if (!std::isfinite(v) || v < -32768.0 || v > 32767.0) return false;
    out = static_cast<T>(v);
    return true;
}

// Input # with errors ignored: once the file runs out every further read is skipped.
struct LenientReader {
    TextReader in;
    bool failed = false;
    bool Str(std::string& out) {
        if (failed) return false;
        try {
            out = in.InputStringOnLine();
            return true;
        } catch (const RuntimeError&) {
            failed = true;
            return false;
        }
    }
    // A string read that keeps the default when the line is empty.
    void ListEntry(std::string& slot) {
        std::string s;
        if (Str(s) && !s.empty()) slot = s;
    }
    // An integer of the file; a value that does not fit one is damaged and keeps the default.
    template <class T>
    bool Int(T& out) {
        std::string s;
        return Str(s) && IntegerValue(s, out);
    }
    void Skip(int n) {
        std::string s;
        for (int i = 0; i < n; ++i) Str(s);
    }
};

void ReadLists(ProgramState& p, LenientReader& r, int teams) {
    for (int i = 1; i <= teams; ++i) {
        std::string s;
        if (r.Str(s) && !s.empty() && s != ":") p.TeamNames[i] = s;
    }
    for (int i = 1; i <= 4; ++i) r.Int(p.SabAM[i]);
    for (int i = 1; i <= 8; ++i) r.ListEntry(p.DecisionNames[i]);
    for (int i = 1; i <= 15; ++i) r.ListEntry(p.ReligionList[i]);
    r.Skip(7);
    std::string codes;
    if (r.Str(codes)) {
        if (codes.size() == 1) {
            // Older files keep the first eight codes one to a line.
            p.DecisionCodes[1] = codes;
            for (int i = 2; i <= 8; ++i) r.ListEntry(p.DecisionCodes[i]);
        } else {
            for (int i = 1; i <= 9; ++i) {
                std::string c = Mid(codes, i, 1);
                if (!c.empty()) p.DecisionCodes[i] = c;
            }
            r.Skip(7);
        }
    }
    for (int i = 1; i <= 40; ++i) r.ListEntry(p.SermonTitles[i]);
    std::string sound;
    if (r.Str(sound)) p.SoundOn = Trim(sound) == "True" || (IsNumeric(sound) && Val(sound) != 0);
    std::string stamp;
    if (r.Str(stamp)) p.LastUpdated = stamp;
}

void Overwrites(ProgramState& p) {
    p.AgeGroups[0] = "NIF";
    p.AgeGroups[6] = "60-69";
    p.DecisionNames[1] = "Accept Christ";
    p.DecisionNames[2] = "Accept Sabbath";
    p.DecisionNames[9] = "Unite with Church";
    p.DecisionCodes[1] = "C";
    p.DecisionCodes[2] = "S";
    p.DecisionCodes[9] = "U";
    p.TeamNames[0] = "Unassigned:";
}

// A registration number as Print # writes it: digits between blanks, 0 to 9999.
bool SoundNumber(const std::string& text, long& out) {
    const std::string t = Trim(text);
    if (t.empty() || t.size() > 4 || t.find_first_not_of("0123456789") != std::string::npos) return false;
    out = std::stol(t);
    return true;
}

// Print # would end the line inside a value and shift every line after it.
std::string OneLine(std::string s) {
    for (char& ch : s)
        if (ch == '\r' || ch == '\n') ch = ' ';
    return s;
}

std::string BaseName(const std::string& dataFile) {
    std::string name = FileNameOf(dataFile);
    return Left(name, static_cast<long>(name.size()) - 4);
}

}  // namespace

double InfoVersionNumber(const std::string& line9) {
    if (line9.size() < 9) return 0;
    return Val(Mid(line9, 9, 3));
}

void LoadInfo(ProgramState& p) {
    std::string path = p.DataFile.empty() ? std::string("unknown") : p.CrusadeFile("inf");
    DefaultLists(p);
    p.CrusadeName = p.DataFile.empty() ? std::string() : BaseName(p.DataFile);
    p.CrusadeDate = FormatDate(p.host.Now(), "Short Date");
    p.MeetingNumber = 1;
    p.LastRNum = 9999;
    p.NumberDirection = "DOWN";
    p.BackupPath.clear();
    p.FilterTotalAttend = 1;
    p.PrintCutOff = 0;
    p.CanadaSorter = false;

    // Until the file says otherwise the numbering is taken from the records
    // when they are opened: a restart at 9999 would hand out numbers in use.
    p.LastRNumUnread = true;
    p.DirectionUnread = true;

    LenientReader r;
    try {
        r.in.Open(path);
    } catch (const RuntimeError&) {
        Overwrites(p);   // no information file: the defaults stand
        return;
    }
    std::string line1, version, rnum, direction;
    if (r.Str(line1)) p.CrusadeName = line1;
    r.Str(p.CrusadeDate);
    r.Int(p.MeetingNumber);
    if (r.Str(rnum) && SoundNumber(rnum, p.LastRNum)) p.LastRNumUnread = false;
    if (r.Str(direction)) {
        direction = UCase(Trim(direction));
        if (direction == "UP" || direction == "DOWN") {
            p.NumberDirection = direction;
            p.DirectionUnread = false;
        }
    }
    r.Str(p.BackupPath);
    r.Int(p.FilterTotalAttend);
    r.Int(p.PrintCutOff);
    r.Str(version);
    if (Right(p.CrusadeName, 7) == "*Canada") {
        p.CrusadeName = Left(p.CrusadeName, static_cast<long>(p.CrusadeName.size()) - 7);
        p.CanadaSorter = true;
    }
    double number = InfoVersionNumber(version);
    ReadLists(p, r, number > 2.4 ? 40 : 20);
    r.in.Close();
    Overwrites(p);

    // The two tests stay in this order: the first makes the version current.
    if (number < 2.4) {
        if (!ConvertFrom371(p)) return;
        version = RunningVersionLine();
    }
    if (version < "version 2.2.0") ConvertFrom369(p);
}

bool ReadPriorLists(ProgramState& p, const std::string& infPath) {
    if (!FileExists(infPath)) return false;
    LenientReader r;
    try {
        r.in.Open(infPath);
    } catch (const RuntimeError&) {
        return false;
    }
    std::string version;
    for (int i = 0; i < 9; ++i) r.Str(version);
    std::string keepStamp = p.LastUpdated;
    ReadLists(p, r, InfoVersionNumber(version) > 2.4 ? 40 : 20);
    p.LastUpdated = keepStamp;
    return true;
}

bool SaveInfo(ProgramState& p) {
    std::string path = p.DataFile.empty() ? std::string("unknown") : p.CrusadeFile("inf");
    TextWriter w;
    try {
        w.Open(path, TextWriter::Mode::Output, true);
        w.PrintLine(OneLine(p.CrusadeName + (p.CanadaSorter ? "*Canada" : "")));
        w.PrintLine(OneLine(p.CrusadeDate));
        w.PrintLine(Str(p.MeetingNumber));
        w.PrintLine(p.LastRNum);
        w.PrintLine(OneLine(p.NumberDirection));
        w.PrintLine(OneLine(p.BackupPath));
        w.PrintLine(static_cast<long>(p.FilterTotalAttend));
        w.PrintLine(static_cast<long>(p.PrintCutOff));
        w.PrintLine(RunningVersionLine());
        for (int i = 1; i <= 40; ++i) w.PrintLine(OneLine(p.TeamNames[i]));
        for (int i = 1; i <= 4; ++i) w.PrintLine(static_cast<long>(p.SabAM[i]));
        for (int i = 1; i <= 8; ++i) w.PrintLine(OneLine(p.DecisionNames[i]));
        for (int i = 1; i <= 15; ++i) w.PrintLine(OneLine(p.ReligionList[i]));
        for (int i = 0; i < 7; ++i) w.PrintLine("Blank");
        std::string codes;
        for (int i = 1; i <= 9; ++i) codes += p.DecisionCodes[i];
        w.PrintLine(OneLine(codes));
        for (int i = 0; i < 7; ++i) w.PrintLine("Blank");
        for (int i = 1; i <= 40; ++i) w.PrintLine(OneLine(p.SermonTitles[i]));
        w.PrintLine(p.SoundOn);
        w.PrintLine(FormatDate(p.host.Now(), ""));
        w.Close();
        return true;
    } catch (const RuntimeError& e) {
        w.Abandon();
        p.host.MsgBox("The crusade information could not be written to:" + p.CrLf + path + p.CrLf + p.CrLf +
                          "Error # " + CStr(e.Number) + ": " + e.Description() + p.CrLf +
                          "The file on disk was left as it was.",
                      host::vbExclamation, "File Error");
        return false;
    }
}
