// The registration lists, the tickets and the label test sheet of the Print
// Reports menu.
#include "edit/EditForm.h"
#include "lists/Lists.h"
#include "program/Program.h"
#include "reports/LabelTestSheet.h"
#include "reports/Registration.h"
#include "store/ListEntry.h"
#include "store/SortIndex.h"

using namespace forms;

void EditForm::WireRegistration() {
    mnuIntMem.Click = [this] { mnuIntMem_Click(); };
    mnunamesbynumber.Click = [this] { mnunamesbynumber_Click(); };
    mnuMemIntTickets.Click = [this] { mnuMemIntTickets_Click(); };
    mnuLabelTestSheet.Click = [this] { mnuLabelTestSheet_Click(); };
    for (Menu* m : {&mnuIntMem, &mnunamesbynumber, &mnuMemIntTickets, &mnuLabelTestSheet}) {
        notBuilt_.erase(m);
        Enable(*m, true);
    }
}

void EditForm::mnuIntMem_Click() { PrintRegistration(RegistrationKind::ByName); }
void EditForm::mnunamesbynumber_Click() { PrintRegistration(RegistrationKind::ByNumber); }
void EditForm::mnuMemIntTickets_Click() { PrintRegistration(RegistrationKind::Tickets); }

void EditForm::PrintRegistration(RegistrationKind kind) {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    const std::string sortName = p.SortName, prior = p.PriorSortName;
    const long shown = p.IndexCount != 0 ? p.RecordPos : 0;
    PrintRegistrationList(p, kind);
    // Printed or cancelled, the master list is built again and the person on
    // screen stays; the list before the report is the one the label's double
    // click brings back.
    p.SortName = sortName;
    lists::BuildList(p, "alpha");
    if (sortName == "alpha") p.PriorSortName = prior;
    const int at = shown > 0 ? FindByRecord(p, shown) : 0;
    if (at > 0) p.CurrentIndex = at;
    ShowAll_Click();
    RNum.SetFocus();
}

void EditForm::mnuLabelTestSheet_Click() { PrintLabelTestSheet(p); }
