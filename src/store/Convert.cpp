#include "store/Convert.h"

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/Settings.h"
#include "store/State.h"

#include <cstring>

using namespace vb;

namespace {

template <std::size_t N>
void Take(FixedText<N>& field, const char*& p) {
    field = std::string(p, N);
    p += N;
}

std::int16_t Int16(const char*& p) {
    std::int16_t v = RecordLayout::GetInt16(p);
    p += 2;
    return v;
}

// The fields from RNum to BaptDate, with the old 100-byte notes.
void TakeCommon(MasterRecord& r, const char*& s) {
    Take(r.RNum, s); Take(r.FName, s); Take(r.LName, s); Take(r.Address, s); Take(r.City, s);
    Take(r.State, s); Take(r.Zip, s); Take(r.Phone, s); Take(r.Age, s); Take(r.Advertising, s);
    Take(r.RelPref, s); Take(r.IntLevel, s); Take(r.Visits, s); Take(r.WorkerCode, s);
    r.Notes = std::string(s, 100);
    s += 100;
    Take(r.Attendance, s); Take(r.Attend, s);
    r.Last = Int16(s);
    r.MailList = Int16(s);
    Take(r.Decisions, s);
    r.Class = Int16(s);
    Take(r.MapCode, s); Take(r.BaptDate, s);
}

bool Convert(ProgramState& p, int oldLen, bool keepsIntFlag, const std::string& doneText) {
    std::string bak = p.CrusadeFile("bak");
    std::int64_t len = FileExists(p.DataFile) ? FileLen(p.DataFile) : 0;
    if (len % oldLen != 0 && len % ProgramState::RecLen == 0) {
        p.host.MsgBox("The file " + p.DataFile + " does not look like a file of the older version:" + p.CrLf +
                          "its length is not a whole number of old records." + p.CrLf +
                          "It was left as it is and was not converted.",
                      host::vbExclamation, "Vestrel 95: Old Database");
        return true;
    }
    int a = p.host.MsgBox("You are attempting to use: " + p.DataFile + p.CrLf +
                              "This file was created with an older version of Vestrel" + p.CrLf +
                              "If you want to use this file with the current version of Vestrel, " + p.CrLf +
                              "You will need to convert your datafile. " + p.CrLf +
                              "Vestrel will save the old file as: " + p.CrLf + bak + p.CrLf +
                              "Click OK to proceed with converting the file or Cancel if you want to Exit the program.",
                          host::vbOKCancel | host::vbCritical, "Vestrel 95: Old Database");
    if (a == host::vbCancel) {
        p.File1.Close();
        p.End();
    }
    std::string temp = JoinPath(p.DataFolder.empty() ? FolderOf(p.DataFile) : p.DataFolder, "TempConvert.dta");
    p.File1.Close();
    try {
        if (FileExists(temp)) Kill(temp);
        RandomFile out, in;
        out.Open(temp, ProgramState::RecLen);
        in.Open(p.DataFile, oldLen);
        p.RecordCount = in.RecordCount();
        std::vector<char> buf(oldLen);
        for (long i = 1; i <= p.RecordCount; ++i) {
            in.Get(i, buf.data());
            MasterRecord& r = p.MasterRec;   // BirthDate of the 369 layout keeps what the buffer held
            const char* s = buf.data();
            TakeCommon(r, s);
            r.IntFlag = keepsIntFlag ? Int16(s) : 0;
            if (!keepsIntFlag) r.BirthDate = "";
            r.MarkToVisit = 0;
            r.Email = "";
            RecordBytes bytes = EncodeRecord(r);
            out.Put(i, bytes.data());
        }
        out.Sync();
    } catch (const RuntimeError& e) {
        p.host.MsgBox("The file could not be converted:" + p.CrLf + p.DataFile + p.CrLf + "Error # " +
                          CStr(e.Number) + ": " + e.Description() + p.CrLf + "The old file was left as it is.",
                      host::vbExclamation, "Vestrel 95: Old Database");
        return true;
    }
    // Renames run with errors ignored: an existing .bak leaves the old file in place.
    IgnoreErrors([&] { Name(p.DataFile, bak); });
    IgnoreErrors([&] { Name(temp, p.DataFile); });
    // Without the new version line the next open would ask again; its own box has named the file.
    if (!SaveInfo(p)) return true;
    SaveSettings(p);
    p.host.MsgBox(doneText);
    return true;
}

}  // namespace

bool ConvertFrom371(ProgramState& p) { return Convert(p, 371, false, "Conversion Complete."); }
bool ConvertFrom369(ProgramState& p) { return Convert(p, 369, true, "Conversion Complete. "); }
