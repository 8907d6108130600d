// The side tables opened from the edit screen: the zip table and its teams, the
// team counts, and the SDA member file.
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "program/Program.h"
#include "store/SortIndex.h"
#include "tables/EditZip.h"
#include "tables/MembersFm.h"
#include "tables/ZipCnt.h"

using namespace forms;

void EditForm::WireZipMembers() {
    mnuZipCodes.Click = [this] { OpenZipTable(true); };
    mnuTeamAssignments.Click = [this] { OpenZipTable(false); };
    mnuCntWorkers.Click = [this] {
        ZipCnt& w = p.Workers();
        // Shown again, it counts again: the teams may have changed since.
        if (w.Visible()) w.Form_Activate();
        w.Show();
    };
    mnuMembers.Click = [this] {
        if (!SaveChanges()) return;
        p.MemberEditor().Show(true);
    };
}

void EditForm::OpenZipTable(bool refuseEmpty) {
    if (refuseEmpty && p.ZipCount == 0) {
        p.host.MsgBox("There are no zipcodes in the file to edit.");
        return;
    }
    // The team pass rewrites records: the person on screen goes to the file first
    // and comes back from it afterwards.
    if (p.IndexCount > 0 && !SaveChanges()) return;
    EditZip& z = p.Zips();
    z.EditTeamNames = mnuEditTeamNames.Enabled() ? std::function<void()>([this] { mnuEditTeamNames.Fire(mnuEditTeamNames.Click); })
                                                 : std::function<void()>();
    z.Show(true);
    if (p.IndexCount > 0 && FetchCurrentRecord(p)) ShowRecord();
}
