// The Filters menu on the edit screen: questions, caption, count, painted fields, message, way back.
#include <functional>

#include <gtest/gtest.h>

#include "lists/ListCrusade.h"
#include "lists/SelDecFm.h"
#include "lists/frmFilters.h"

namespace {

struct OnScreen {
    TestCrusade c;
    EditForm& e;
    OnScreen() : e(c.ShowOnEditScreen(ListRecords())) { c.p.PrintCutOff = 2; }
    // The list, label, count, person shown, and which of the search box and the way back shows.
    std::string Screen() const {
        return c.p.SortName + "|" + e.EditLabel.Caption() + "|" + e.RecordCounter.Caption() + "|" + e.LName.Text() +
               " " + e.FName.Text() + (e.SearchBox.Visible() ? "|search" : "") + (e.ShowAll.Visible() ? "|all" : "");
    }
    void Pick(const std::string& menu) {
        forms::Control* m = e.FindControl(menu);
        ASSERT_TRUE(m && m->Enabled()) << menu;
        m->UserClick();
    }
};

struct Row { const char* menu; std::function<void(ScriptedHost&)> answers; const char* message; std::string screen; const char* painted; };
template <class F> std::function<void(ScriptedHost&)> Modal(const char* name, void (*script)(F&)) {
    return [=](ScriptedHost& h) { h.OnModal(name, [=](forms::Form& f) { script(static_cast<F&>(f)); }); };
}

}  // namespace

TEST(FiltersMenu, EachEntryShowsItsListNamedCountedAndPainted) {
    const Row rows[] = {
        {"mnuNotes", nullptr, "NOTES on their cards.", "notes|Cards with Notes|1 of 2|Lee Ann|all", "Notes"},
        {"mnuFilterSelMtg", [](ScriptedHost& h) { h.ExpectInput("Must be between 1 and 10", "1"); },
         "ATTENDED MEETING 1", "attendnight01|Attendance for \r\nMtg: 01|1 of 3|Adams Cy|all", "Attendance"},
        {"mnuFilterMissedMtgs", [](ScriptedHost& h) { h.ExpectInput("since meeting (2)", "3"); },
         "who have missed 3 night(s).", "missednight03|Missed Last 3|1 of 3|Brown Ed|all", "Last"},
        {"mnuSelTeamCode", [](ScriptedHost& h) { h.ExpectInput("Team Code (01-20)", "3"); },
         "ASSIGNED TO Team #  3", "SelWCAttend03|TEAM: 03:Team #  3|1 of 2|Brown Ed|all", "WorkerCode"},
        {"mnuDecisionsFilter", Modal<SelDecFm>("SelDecFm", [](SelDecFm& d) { d.Dec[2].UserClick(), d.OKBut.UserClick(); }),
         "DECISION: \r\nAccept Sabbath", "decisions2|Accept Sabbath|1 of 1|Cole Di|all", "Dec"},
        {"mnuTotalAttend", Modal<frmFilters>("frmFilters", [](frmFilters& d) { d.txtTotalAttend.SetText("2"), d.btnSave.UserClick(); }),
         "attended at least 2 times.", "TotalAttend|Total Meetings\r\nAttended =2|1 of 4|Lee Ann|all", "Attend"},
        {"mnuAttendFilter", [](ScriptedHost& h) { h.ExpectInput("Set Meeting Cut Off", ""); },
         "Nightly Attendance.", "attend|Attendance\r\nlast mtg >2|1 of 6|Adams Cy|all", "Attendance"},
        {"mnuMarked", nullptr, "'Mark to Print' box.", "marked|marked|1 of 1|Lee Bob|all", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.menu);
        OnScreen s;
        if (row.answers) row.answers(s.c.host);
        s.c.host.ExpectBox(row.message);
        s.Pick(row.menu);
        EXPECT_EQ(row.screen, s.Screen());
        if (row.painted) {
            EXPECT_EQ(forms::HighlightColor, s.e.FindControl(row.painted, row.painted == std::string("Dec") ? 1 : -1)->BackColor());
        }
        s.c.host.Verify();
    }
}

TEST(FiltersMenu, CancelNonsenseEmptyListsAndTheWayBack) {
    OnScreen s;
    ScriptedHost& h = s.c.host;
    // Backing out of a question builds nothing.
    h.ExpectInput("Select a Meeting", "");
    s.Pick("mnuFilterSelMtg");
    h.OnModal("SelDecFm", [](forms::Form& f) { static_cast<SelDecFm&>(f).CancelBut.UserClick(); });
    s.Pick("mnuDecisionsFilter");
    h.ExpectInput("Missing Names", "10").ExpectBox("You must select a meeting between 0 and 9");
    s.Pick("mnuFilterMissedMtgs");
    EXPECT_EQ("alpha", s.c.p.SortName);
    // Show All keeps the person; a double click on the label goes back to the filter.
    h.ExpectBox("NOTES on their cards.");
    s.Pick("mnuNotes");
    s.e.ChgRec[2].UserClick();   // Bob Lee, second of the notes list
    s.e.ShowAll.UserClick();
    EXPECT_EQ("alpha|All Names Sorted Alphabeticaly|7 of 7|Lee Bob|search", s.Screen());
    h.ExpectBox("NOTES on their cards.");
    s.e.EditLabel.UserDblClick();
    EXPECT_EQ("notes|Cards with Notes|1 of 2|Lee Ann|all", s.Screen());
    // A cut-off at or above the last meeting, or not a number, is refused.
    for (const char* answer : {"10", "abc", "-1"}) {
        h.ExpectInput("Set Meeting Cut Off", answer).ExpectBox("You must select a meeting between 0 and 9");
        s.Pick("mPrCut");
        EXPECT_EQ(2, s.c.p.PrintCutOff);
    }
    h.ExpectInput("Set Meeting Cut Off", "4");
    s.Pick("mPrCut");
    EXPECT_EQ("Printer Cutoff Point (Meeting 4)", s.e.mPrCut.Caption());
    // Nobody missed nine nights since meeting 4: said, and all names come back.
    h.ExpectInput("Missing Names", "9").ExpectBox("There were no names who have missed 9 night(s).");
    s.Pick("mnuFilterMissedMtgs");
    EXPECT_EQ("alpha|All Names Sorted Alphabeticaly|1 of 7|Adams Cy|search", s.Screen());
}
