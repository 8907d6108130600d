// Asking for a prayer request, from the edit and the door screens.
#include "edit/Prayer.h"

#include "program/Program.h"
#include "store/Prayer.h"

void EnterPrayer(Program& p, const std::string& rnum, const std::string& first, const std::string& last) {
    std::string request = p.host.InputBox(
        "The Prayer Requests will not be visible from this screen.  You must select the View Prayer Requests option from the tools menu to see them." +
            p.CrLf + p.CrLf + "Type in the Request below.",
        "Enter the Prayer Request", "");
    if (request.empty()) return;
    AppendPrayer(p, rnum, first, last, request);
}
