#include <gtest/gtest.h>

#include <set>

#include "edit/CardCrusade.h"

using namespace forms;

// Ten people in three letter groups: A (3), B (4), C (3).
class EditScreen : public CardCrusade {
protected:
    static std::vector<MasterRecord> Ten() {
        std::vector<MasterRecord> recs;
        const char* names[] = {"Adams", "Allen", "Avery", "Baker", "Bell", "Brown", "Burke", "Cole", "Cruz", "Cyr"};
        for (int i = 0; i < 10; ++i) recs.push_back(MakePerson(std::to_string(9990 + i), "Pat", names[i], "1"));
        return recs;
    }
    EditScreen() : CardCrusade(Ten()) {}
    std::set<Control*> Highlighted() {
        std::set<Control*> out;
        for (Control* ctl : e.Controls())
            if (ctl->BackColor() == HighlightColor) out.insert(ctl);
        return out;
    }
};

TEST_F(EditScreen, SetupScreenCaptionsAndHighlightsFollowTheListKind) {
    p.PrintCutOff = 0;
    p.FilterTotalAttend = 4;
    p.DecisionNames[3] = "Keep Sabbath";
    p.TeamNames[7] = "Jones:555-0101";
    struct Row { std::string sortName, label; std::set<Control*> lit; };
    std::vector<Row> rows = {
        {"age", "given", {&e.Age}}, {"Advertising", "given", {&e.Advertising}},
        {"alpha", "All Names Sorted Alphabetially", {}}, {"alphafilter", "Alphabetical List\r\nAll Names", {}},
        {"wcalpha", "Team Codes\r\nAll Names", {&e.WorkerCode, &e.Last}},
        {"interest", "Priority List", {&e.IntLevel}}, {"baptism", "Baptisms List", {&e.IntLevel}},
        {"date", "Baptism Dates", {&e.BaptDate}}, {"FutureBapDateSet", "Future Baptism Dates Set", {&e.BaptDate}},
        {"attend", "Attendance \r\nLast Mtg >0", {&e.Attendance, &e.Last}}, {"zip", "Zip Code Filter", {&e.Zip}},
        {"religion", "Religion\r\nLast Mtg >0", {}}, {"attendnight12", "Attendance for \r\nMtg: 12", {&e.Last}},
        {"mail", "Mail List", {}}, {"DupAddress", "Duplicate\r\nAddresses", {&e.Address}},
        {"NDupAddress", "Dup Address\r\nDifferent Name", {&e.LName, &e.Address}},
        {"TDupAddress", "Duplicate Address\r\nDifferent Team", {&e.Address, &e.WorkerCode}},
        {"CleanMailList", "Clean up Mail List", {&e.Address, &e.WorkerCode}},
        {"PreCrusade", "Pre-Crusade\r\nGuests", {}}, {"marked", "Marked Names", {&e.chkMarkToVisit}},
        {"SelWCAttend07", "Team Code: 07\r\nJones", {&e.WorkerCode, &e.Attendance}},
        {"TotalAttend", "Total Meetings\r\nAttended =4", {&e.Attendance}},
        {"wcattend", "given", {&e.WorkerCode, &e.Attendance}},
        {"decisions3", "Decision:\r\nKeep Sabbath", {&e.Dec[2]}}, {"missednight 3", "Missed \r\n3 night(s).", {}},
        {"", "", {}}, {"notes", "given", {&e.Notes}},
        {"somethingelse", "given", {}},
    };
    for (const Row& r : rows) {
        p.SortName = r.sortName;
        e.SetupScreen("given");
        EXPECT_EQ(std::make_pair(r.label, r.lit), std::make_pair(e.EditLabel.Caption(), Highlighted())) << r.sortName;
    }
    p.PrintCutOff = 5;
    p.SortName = "alphafilter";
    e.SetupScreen("");
    EXPECT_EQ("Alphabetical List\r\nLast Mtg >5", e.EditLabel.Caption());
}

TEST_F(EditScreen, RightClickJumpsWholeGroupsButNeverIntoTheFirstOrLast) {
    // Only the right button jumps, and a list kind without groups does not move.
    struct Row { int from, arrow, button; const char* sortName; int to; bool clunk; };
    const Row rows[] = {{1, 2, vbRightButton, "alpha", 4, false}, {4, 2, vbRightButton, "alpha", 8, false},
                        {8, 2, vbRightButton, "alpha", 8, true},  {7, 1, vbRightButton, "alpha", 3, false},
                        {3, 1, vbRightButton, "alpha", 3, true},  {3, 2, vbLeftButton, "alpha", 3, false},
                        {3, 2, vbRightButton, "notes", 3, true}};
    for (const Row& r : rows) {
        p.CurrentIndex = r.from;
        p.SortName = r.sortName;
        c.host.sounds.clear();
        e.ChgRec_MouseUp(r.arrow, r.button, 0, 0, 0);
        EXPECT_EQ(std::make_pair(r.to, std::size_t{r.clunk}), std::make_pair(p.CurrentIndex, c.host.sounds.size()))
            << r.from << " " << r.arrow;
    }
    EXPECT_EQ("Avery", e.LName.Text());   // the last move that was made
}

TEST_F(EditScreen, WalkingMarkingAndGoingBack) {
    e.ChgRec_Click(0);
    e.ChgRec_Click(1);   // before the first: refused, same person
    EXPECT_EQ("Adams", e.LName.Text());
    e.ChgRec_Click(3);
    e.ChgRec_Click(2);   // past the last: refused too
    EXPECT_EQ("Cyr", e.LName.Text());
    EXPECT_EQ(2u, c.host.sounds.size());
    e.ChgRec_Click(1);
    e.btnMark_Click();
    EXPECT_EQ("Cruz", e.FndNameBx.Caption());
    e.mnuPreviousRec_Click();
    e.ChgRec_Click(0);
    e.btnGoTo_Click();
    EXPECT_EQ("9 Cruz", std::to_string(p.CurrentIndex) + " " + e.LName.Text());
    p.ScratchValue = "dontexit";
    e.ChgRec_Click(0);
    EXPECT_EQ("Cruz|", e.LName.Text() + "|" + p.ScratchValue);
}

TEST_F(EditScreen, ShowRecordColoursAndTheUndoCopy) {
    // An address or a phone no visitor can use is red and bold: {address red, bold, phone red, bold}.
    struct Row { const char* address; const char* phone; std::vector<bool> marked; };
    for (const Row& r : {Row{"PO Box 12", "Unknown", {true, true, true, true}},
                         Row{"Address Unknown", "555-0100", {true, true, false, false}},
                         Row{"1 Main St", "555-0100", {false, false, false, false}}}) {
        p.MasterRec.Address = r.address;
        p.MasterRec.Phone = r.phone;
        e.ShowRecord();
        EXPECT_EQ(r.marked, (std::vector<bool>{e.Address.ForeColor() == vbRed, e.Address.FontBold(),
                                               e.Phone.ForeColor() == vbRed, e.Phone.FontBold()}))
            << r.address;
    }
    EXPECT_EQ(vbWindowText, e.Address.ForeColor());
    p.MasterRec.IntLevel = "G";
    p.MasterRec.Decisions = "C-K------";
    p.MasterRec.BaptDate = "12:00AM";
    e.ShowRecord();
    EXPECT_EQ((std::vector<int>{vbChecked, vbChecked, vbUnchecked, vbChecked}),
              (std::vector<int>{e.Baptized.Value(), e.Dec[0].Value(), e.Dec[1].Value(), e.Dec[2].Value()}));
    EXPECT_EQ("", e.BaptDate.Text());
}

TEST_F(EditScreen, InformationBoxAndTheEmptyListBox) {
    MasterRecord g = c.ReadRecord(2);
    g.IntLevel = "G";
    p.MasterRec = g;
    PutRecord(p, 2);
    c.host.ExpectBox("Fall\r\n" + p.DataFile + "\r\nMail List-------- 10\r\n\r\nInterest Level A: 0\r\n"
                     "Interest Level B: 0\r\nInterest Level C: 0\r\nTotal Baptized--- 1");
    e.mnuInfo_Click();
    p.IndexCount = 0;
    c.host.ExpectBox("There are insufficient records in this file or filter.");
    e.btnViewFile_Click();
    // An empty filter: the information box alone, no blank card.
    p.CurrentIndex = 0;
    c.host.ExpectBox("Mail List-------- 10");
    e.mnuInfo_Click();
    EXPECT_FALSE(p.AddMode);
}

TEST_F(EditScreen, EditModeShowsTheThreeArrowsButNotTheFirst) {
    auto& b = e.ChgRec;
    for (int i = 0; i <= 3; ++i) b[i].SetVisible(false);
    e.mnuEditMode_Click();
    EXPECT_EQ((std::vector<bool>{false, true, true, true}),
              (std::vector<bool>{b[0].Visible(), b[1].Visible(), b[2].Visible(), b[3].Visible()}));
}

TEST_F(EditScreen, F1OpensTheHelpFromAnyBoxOfTheCardAndShiftF1DoesNot) {
    for (Control* box : {static_cast<Control*>(&e.LName), static_cast<Control*>(&e.SearchBox)}) {
        box->SetFocus();
        e.PressKey(vbKeyF1, vbShiftMask);
        e.PressKey(vbKeyF1);
    }
    EXPECT_EQ(std::vector<std::string>(2, p.AppPath + "/help/index.html|3|0"), c.host.helpShown);
}
