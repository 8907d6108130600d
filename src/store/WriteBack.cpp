#include "store/WriteBack.h"

#include "platform/vb/Error.h"
#include "store/ListEntry.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"

bool WriteBack(ProgramState& p, const std::string& stillShown) {
    try {
        PutRecord(p, p.RecordPos);
    } catch (const vb::RuntimeError& e) {
        p.host.MsgBox("The record could not be written to the disk (" + e.Description() + ")." + p.CrLf +
                          "Nothing was changed in the file and " + stillShown + " is still on the screen." + p.CrLf +
                          "Make room on the disk or check it, then try again.",
                      host::vbCritical, "Record Not Saved");
        return false;
    }
    const int at = p.CurrentIndex;
    if (at >= 1 && at <= p.IndexCount && at < static_cast<int>(p.SortIndex.size())) {
        const std::string before = p.SortIndex[at];
        p.SortIndex[at] = ListEntry(p, before, p.RecordPos);
        EntryChanged(p, at, before);
    }
    return true;
}
