// Finding people: the search box (number or last name, then the member file) and global search.
#include "edit/BoxRules.h"
#include "edit/EditForm.h"
#include "store/FieldRules.h"
#include "edit/Navigate.h"
#include "lists/Lists.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/ListEntry.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/Sounds.h"

using namespace forms;
using namespace vb;

namespace {
std::string NameLine(const MasterRecord& r) {
    return RTrim(r.RNum) + "   " + RTrim(r.FName) + " " + RTrim(r.LName);
}
}  // namespace

void EditForm::SearchBox_KeyDown(int& KeyCode, int) {
    switch (KeyCode) {
    case vbKeyF2:
        KeyCode = 0;
        if (SaveChanges()) CopyCurrentRecord();
        break;
    case vbKeyTab:
        p.host.MsgBox("You Found Tab");
        break;
    case vbKeyPageUp:
    case vbKeyPageDown: {
        int dir = KeyCode == vbKeyPageUp ? 1 : 2;
        KeyCode = 0;
        if (ReturnToPreviewMsg.Visible()) {
            PlaySound(p, "clunk");
            break;
        }
        if (SaveChanges()) {
            GoRecord(p, dir);
            OpenRNum = RNum.Text();
        }
        break;
    }
    default: break;
    }
}

void EditForm::SearchBox_KeyPress(int& KeyAscii) {
    if (KeyAscii == '-') {
        // The hyphen is Next on this box, for the number pad.
        KeyAscii = 0;
        if (SaveChanges()) {
            GoRecord(p, 2);
            OpenRNum = RNum.Text();
        }
    } else if (KeyAscii == vbKeyReturn) {
        KeyAscii = 0;
        if (!SearchBox.Text().empty()) SearchFor(SearchBox.Text());
    }
}

void EditForm::SearchFor(const std::string& typed) {
    const std::string text = typed;   // the caller may pass the box's own text, cleared next
    SearchBox.SetText("");
    FndNameBx.SetCaption("");
    if (p.IndexCount == 0 || text.empty()) return;
    if (!SaveChanges()) return;
    const std::string key = UCase(text);
    const std::string title = "Searching for Last Name";
    const std::string question = "Is this the Correct Name?";
    const std::string& nl = p.CrLf;
    const bool byNumber = IsNumeric(key) && key.size() <= 4;
    const MasterRecord shown = p.MasterRec;
    const long shownPos = p.RecordPos;
    std::string memberKey = text;
    int hit = 0;
    if (byNumber) {
        std::string num = Right("0000" + Trim(key), 4);
        memberKey = num;
        hit = FirstEntryWithNumber(p, num);
    } else {
        if (p.SortName == "unsorted") {
            // A new crusade's list is every person in the order typed, not a filter the
            // operator chose: it is put in name order, as All Names does, and searched.
            lists::BuildList(p, "alpha");
            int at = FindByRecord(p, shownPos);
            if (at > 0) p.CurrentIndex = at;
            SetupScreen("");
        }
        const std::string& kind = p.SortName;
        if (kind != "alphafilter" && kind != "alpha" && kind != "baptism" && kind != "marked") {
            p.host.MsgBox("You have selected the " + kind + " Filter." + nl +
                              "You cannot search by name using this Filter.",
                          host::vbExclamation);
            return;
        }
        const long width = static_cast<long>(key.size());
        for (int i = 1; i <= p.IndexCount && !hit; ++i) {
            if (UCase(Mid(p.SortIndex[i], 5, width)) != key) continue;
            long n = static_cast<long>(Val(Right(p.SortIndex[i], 4)));
            if (n < 1 || !GetRecord(p, n)) continue;
            if (UCase(vb::Left(p.MasterRec.LName, width)) != key) continue;
            const MasterRecord& r = p.MasterRec;
            int a = p.host.MsgBox(NameLine(r) + nl + RTrim(r.Address) + ", " + RTrim(r.City) + nl + nl + question,
                                  host::vbYesNoCancel, title);
            if (a == host::vbYes) hit = i;
            else if (a == host::vbCancel) {
                p.MasterRec = shown;
                p.RecordPos = shownPos;
                return;
            }
        }
        p.MasterRec = shown;
        p.RecordPos = shownPos;
    }
    if (hit) {
        p.CurrentIndex = hit;
        if (FetchCurrentRecord(p)) ShowRecord();
        SetupScreen("");
        OpenRNum = RNum.Text();
        PlaySound(p, "laser");
        if (AutoUpdateVisits.Value() == vbChecked) btnVisitUpdate_Click();
        return;
    }

    // Not in the list: perhaps a member of the church. The person on screen stays.
    const std::string sound = LookUpMember(p, EntInd, SDAIdent, text, memberKey, !byNumber);
    if (sound.empty()) return;
    SearchBox.SetText("");
    PlaySound(p, sound);
}

void EditForm::mnuGlobal_Click() {
    std::string answer = p.host.InputBox(
        "You can search for all or part of the First Name- Last Name- Address- City- State- Zipcode- Phone Number- and Religion.",
        "Enter the Item to search for", "");
    if (answer.empty()) return;
    if (p.IndexCount != 0 && !SaveChanges()) return;
    const std::string& nl = p.CrLf;
    const std::string find = UCase(answer);
    const MasterRecord shown = p.MasterRec;
    const long shownPos = p.RecordPos;
    auto putBack = [&] {
        p.MasterRec = shown;
        p.RecordPos = shownPos;
    };
    for (long n = 1; n <= p.RecordCount; ++n) {
        if (!GetRecord(p, n)) break;
        const MasterRecord& r = p.MasterRec;
        std::string hay = RTrim(r.FName) + "--" + RTrim(r.LName) + "--" + RTrim(r.Address) + "--" + RTrim(r.City) +
                          "--" + RTrim(r.State) + "--" + RTrim(r.Zip) + "--" + RTrim(r.Phone) + "--" + RTrim(r.RelPref);
        if (InStr(UCase(hay), find) == 0) continue;
        if (r.WorkerCode == "##") {
            int a = p.host.MsgBox(
                NameLine(r) + nl + RTrim(r.Address) + nl + nl +
                    "This Record had been deleted from the file.  You must restore it to the file in order to read it.  The Team Code will be changed to '00'." +
                    nl + "Do you want to restore it to the file?",
                host::vbYesNo, "A Deleted Record Found");
            if (a != host::vbYes) continue;
            p.MasterRec.WorkerCode = "00";
            PutRecord(p, n);
            std::string first = RTrim(p.MasterRec.FName), last = RTrim(p.MasterRec.LName);
            RebuildAlpha(p);
            p.CurrentIndex = FindByRecord(p, n);
            if (FetchCurrentRecord(p)) ShowRecord();
            SetupScreen("");
            OpenRNum = RNum.Text();
            p.host.MsgBox("The Record for " + first + " " + last + " has been successfully restored to the INTEREST file.");
            return;
        }
        int a = p.host.MsgBox(NameLine(r) + nl + RTrim(r.Address) + ", " + RTrim(r.City) + ", " + RTrim(r.Phone) + nl +
                                  nl + "Is this the correct name?",
                              host::vbYesNoCancel, "Global Search for: " + answer);
        if (a == host::vbCancel) {
            putBack();
            return;
        }
        if (a != host::vbYes) continue;
        int at = FindByRecord(p, n);
        if (at == 0) {
            putBack();
            p.host.MsgBox("This name is not in the list on the screen." + nl +
                          "Click the 'All Names' button to show all names, then search again.");
            return;
        }
        p.CurrentIndex = at;
        if (FetchCurrentRecord(p)) ShowRecord();
        SetupScreen("");
        OpenRNum = RNum.Text();
        return;
    }
    putBack();
    p.host.MsgBox("Search item: " + answer + "- not found");
}
