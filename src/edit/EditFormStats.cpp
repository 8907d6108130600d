// The statistics menus and the Stats button: the person on screen is saved, then
// the figures are counted from the file and shown.
#include "edit/EditForm.h"
#include "program/Program.h"
#include "reports/BlankFrm.h"

void EditForm::WireStats() {
    auto show = [this](bool visitation) {
        if (p.IndexCount != 0 && !SaveChanges()) return;
        BlankFrm& blank = p.Blank();
        blank.Load();
        // The form opens on the statistical report; the visitation menu switches before it shows.
        if (visitation) blank.SetReport(false);
        blank.Show(true);
    };
    mnuStats.Click = [show] { show(false); };
    btnStats.Click = [show] { show(false); };
    mnuWkrStats.Click = [show] { show(true); };
}
