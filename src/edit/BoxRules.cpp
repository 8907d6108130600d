#include "edit/BoxRules.h"

#include "platform/forms/Control.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "store/State.h"

using namespace vb;

void IntLevelChange(ProgramState& p, forms::TextBox& intLevel) {
    std::string up = UCase(intLevel.Text());
    if (up != intLevel.Text()) {
        intLevel.SetText(up);   // runs this rule again on the upper-cased text
        return;
    }
    if (up.empty() || up == " " || (up.size() == 1 && up[0] >= 'A' && up[0] <= 'G')) return;
    // A damaged letter in the file is shown as it is; only typing is refused.
    const std::string own = UCase(RTrim(p.MasterRec.IntLevel));
    if (up == own) return;
    p.host.MsgBox("You must enter a letter between A and G or the Space Bar", host::vbCritical, "Incorret Interest Level");
    intLevel.SetText(own);
    intLevel.SetFocus();
}

std::string LookUpMember(ProgramState& p, forms::TextBox& entInd, forms::TextBox& sdaIdent,
                         const std::string& text, const std::string& find, bool ask) {
    entInd.SetText("?");
    sdaIdent.SetText(text + " Not in file");
    const std::string key = UCase(find);
    for (int m = 1; m <= p.MemberCount && m < static_cast<int>(p.MemberList.size()); ++m) {
        const std::string& entry = p.MemberList[m];
        if (InStr(UCase(entry), key) == 0) continue;
        if (ask) {
            std::string rest = Mid(entry, 5);
            long blank = InStr(rest, " ");
            std::string last = blank > 0 ? Left(rest, blank - 1) : rest;
            std::string after = blank > 0 ? Trim(Mid(rest, blank + 1)) : std::string();
            int a = p.host.MsgBox(Left(entry, 4) + " " + last + ", " + after + "   (SDA)" + p.CrLf + p.CrLf +
                                      "Is this the Correct Name?",
                                  host::vbYesNoCancel | host::vbQuestion, "Searching SDA File for Last Name");
            if (a == host::vbNo) continue;
            if (a == host::vbCancel) return std::string();
        }
        entInd.SetText("SDA");
        sdaIdent.SetText(Left(entry, 4) + " " + Mid(entry, 20, 1) + ". " + Mid(entry, 5, 15));
        return "chimes";
    }
    return "clunk";
}
