#include "edit/Navigate.h"

#include "edit/EditForm.h"
#include "program/Program.h"
#include "store/Members.h"
#include "store/SortIndex.h"

namespace {
// The screen's answer to a fetch: an empty list starts add mode.
bool AfterFetch(Program& p, Fetched fetched) {
    if (fetched == Fetched::EmptyList) p.Edit().mnuAddRecords_Click();
    return fetched == Fetched::Record;
}
}  // namespace

bool FetchCurrentRecord(Program& p) { return AfterFetch(p, FetchCurrentRecord(static_cast<ProgramState&>(p))); }

void GoRecord(Program& p, int kind) {
    AfterFetch(p, GoRecord(static_cast<ProgramState&>(p), kind));
    EditForm& f = p.Edit();
    f.ShowRecord();
    f.SetupScreen("");
}

bool FullLoad(Program& p) {
    const LoadOutcome r = FullLoad(static_cast<ProgramState&>(p));
    if (!r.ran) return false;
    if (!r.show) return true;
    EditForm& f = p.Edit();
    if (AfterFetch(p, r.fetched)) f.ShowRecord();
    f.SetupScreen("");
    if (f.Visible()) forms::ActivateForm(p.host, &f);
    SaveMembersAfterLoad(p);
    return true;
}
