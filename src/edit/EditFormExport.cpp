// The export menus. The mail merge, the map file and the text file save the
// person on screen first, so that what was just typed goes out with the rest.
#include "edit/EditForm.h"
#include "exchange/Export.h"
#include "program/Program.h"

using namespace forms;

void EditForm::mnuMailMerge_Click() {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    exchange::MailMerge(p);
}

void EditForm::mnuExpMap_Click() {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    exchange::MapExport(p);
}

void EditForm::mnuExportText_Click() {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    exchange::TextExport(p);
}

void EditForm::WireExports() {
    mnuMailMerge.Click = [this] { mnuMailMerge_Click(); };
    mnuExpMap.Click = [this] { mnuExpMap_Click(); };
    mnuExportText.Click = [this] { mnuExportText_Click(); };
    mnuEmail.Click = [this] { exchange::EMailExport(p); };
    mnuNamAndNum.Click = [this] { exchange::NameAndNumberExport(p); };
    mnuMMDupIntMemNam.Click = [this] { exchange::DuplicateNamesExport(p); };
    for (Menu* m : {&mnuMMergeTitle, &mnuEmail, &mnuExpMap, &mnuExportText}) {
        notBuilt_.erase(m);
        Enable(*m, true);
    }
}
