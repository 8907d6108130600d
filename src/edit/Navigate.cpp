#include "edit/Navigate.h"

#include "edit/EditForm.h"
#include "platform/vb/Error.h"
#include "platform/vb/Files.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace vb;

bool FetchCurrentRecord(Program& p) {
    if (p.CurrentIndex == 0) {
        p.Loaded = false;
        p.Edit().mnuAddRecords_Click();
        return false;
    }
    std::string entry;
    try {
        if (p.CurrentIndex < 0 || p.CurrentIndex >= static_cast<int>(p.SortIndex.size())) Raise(errSubscript);
        entry = p.SortIndex[p.CurrentIndex];
        p.RecordPos = static_cast<long>(Val(Right(entry, 4)));
        if (p.RecordPos < 1) Raise(errBadRecordNumber);
        GetRecord(p, p.RecordPos);
        return true;
    } catch (const RuntimeError& e) {
        const std::string& nl = p.CrLf;
        p.host.MsgBox("Error # " + CStr(e.Number) + nl + "Error: " + e.Description() + nl + "LastRecord = " +
                      CStr(static_cast<long>(p.File1.IsOpen() ? p.File1.LOF() / Program::RecLen : 0)) + nl +
                      "LastIndex = " + CStr(p.IndexCount) + nl + "i = " + CStr(p.CurrentIndex) + nl +
                      "index = " + entry + nl + "Len of index = " + CStr(static_cast<long>(entry.size())) + nl +
                      "Record Number = " + CStr(p.RecordPos));
        return false;
    }
}

void StepCurrentIndex(ProgramState& p, int kind) {
    switch (kind) {
    case 0: p.CurrentIndex = 1; break;
    case 1:
        if (p.CurrentIndex <= 1) PlaySound(p, "clunk");
        else --p.CurrentIndex;
        break;
    case 2:
        if (p.CurrentIndex >= p.IndexCount) PlaySound(p, "clunk");
        else ++p.CurrentIndex;
        break;
    case 3: p.CurrentIndex = p.IndexCount; break;
    default: break;
    }
}

void GoRecord(Program& p, int kind) {
    StepCurrentIndex(p, kind);
    FetchCurrentRecord(p);
    EditForm& f = p.Edit();
    f.ShowRecord();
    f.SetupScreen("");
}

bool FullLoad(Program& p) {
    bool wasLoaded = p.Loaded;
    if (!FullLoadPass(p)) {
        // Nothing may be written to a file the pass refused.
        p.File1.Close();
        p.Loaded = false;
        return false;
    }
    if (!wasLoaded) return true;
    EditForm& f = p.Edit();
    if (FetchCurrentRecord(p)) f.ShowRecord();
    f.SetupScreen("");
    if (f.Visible()) forms::ActivateForm(p.host, &f);
    SaveMembersAfterLoad(p);
    return true;
}
