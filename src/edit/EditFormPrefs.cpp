// The preferences, opened from the File menu and, on the Teams tab, from the Edit menu.
#include "edit/EditForm.h"
#include "program/Program.h"
#include "tables/frmTab.h"

void EditForm::WirePrefs() {
    mnuPref.Click = [this] { OpenPreferences(false); };
    mnuEditTeamNames.Click = [this] { OpenPreferences(true); };
}

void EditForm::OpenPreferences(bool teamsFirst) {
    // The person on screen is saved first: lowering the last meeting rewrites every record.
    if (!SaveChanges()) return;
    if (teamsFirst) p.ScratchText = "team";
    p.Prefs().Show(true);
    // Names, decisions and churches may have changed: the screen shows them anew.
    const std::string church = RelPref.Text();
    RelPref.Clear();
    for (int i = 1; i <= 14; ++i) RelPref.AddItem(p.ReligionList[static_cast<std::size_t>(i)]);
    RelPref.SetText(church);
    Form_Activate();
}
