#include "edit/CardCrusade.h"

using namespace forms;

class HelpKey : public CardCrusade {};

TEST_F(HelpKey, F1OpensTheHelpFromAnyBoxOfTheCardAndShiftF1DoesNot) {
    for (Control* box : {static_cast<Control*>(&e.LName), static_cast<Control*>(&e.SearchBox)}) {
        box->SetFocus();
        e.PressKey(vbKeyF1, vbShiftMask);
        e.PressKey(vbKeyF1);
    }
    EXPECT_EQ(std::vector<std::string>(2, p.AppPath + "/help/index.html|3|0"), c.host.helpShown);
}
