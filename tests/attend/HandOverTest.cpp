// A shared word left lying by an earlier routine must not steer the one that reads it.
#include <gtest/gtest.h>

#include <functional>

#include "attend/AttendF.h"
#include "lists/SelDecFm.h"
#include "lists/frmFilters.h"
#include "support/TestCrusade.h"

using namespace forms;

namespace {
// Four people, the first without a phone, at meeting 3, on the edit screen.
struct Crusade {
    TestCrusade c;
    EditForm& e = Start();
    EditForm& Start() {
        std::vector<MasterRecord> people = {MakePerson("0012", "Ann", "Adams", "123"), MakePerson("0100", "Bob", "Bell", "12-"),
                                            MakePerson("0101", "Cy", "Cole", "1-3"), MakePerson("0102", "Di", "Dunn", "--3")};
        people[0].Phone = "Unknown";
        people[1].Decisions = "-S-------";
        EditForm& f = c.ShowOnEditScreen(people);
        c.p.MeetingNumber = 3;
        return f;
    }
    AttendF& OpenDoor() {
        c.host.ExpectInput("Enter the Meeting Number for which you are updating the Attendance", "3");
        e.mnuAttendUpdate_Click();
        return c.p.Attend();
    }
};
enum Slot { Text, Value, Caller };
struct Row {
    const char* routine;
    Slot slot;
    const char* stale;
    std::function<void(Crusade&)> run;   // scripts the routine with no word there, runs it, checks it
    const char* after;                   // the word afterwards: "" when the routine took it
};
std::string& Word(Program& p, Slot s) { return s == Text ? p.ScratchText : s == Value ? p.ScratchValue : p.CallerForm; }
}  // namespace

TEST(HandOver, AStaleWordSteersNoRoutineAndTheReaderClearsIt) {
    const Row rows[] = {
        {"door opens on the meeting asked for", Value, "9",
         [](Crusade& k) { EXPECT_EQ("3 3", k.OpenDoor().MtgNum.Text() + " " + std::to_string(k.c.p.MeetingNumber)); }, ""},
        {"door shows the person, whatever the dialog said last", Caller, "attendupdate",
         [](Crusade& k) { EXPECT_EQ("0012", k.OpenDoor().RNum.Text()); }, "attend"},
        {"door warns of a missing phone", Text, "NotFound",
         [](Crusade& k) { EXPECT_EQ(vbRed, k.OpenDoor().Phone.BackColor()); }, ""},
        {"pending decision is chosen, not cleared", Text, "ClearButton",
         [](Crusade& k) {
             AttendF& a = k.OpenDoor();
             a.DecA[1].UserMouseDown(vbLeftButton, 0, 0, 0);
             a.DecA[1].UserClick();
             EXPECT_EQ("S", a.PendingDecision);
         }, ""},
        {"attended meeting asks which", Value, "2",
         [](Crusade& k) { k.c.host.ExpectInput("Select a Meeting to View", ""), k.e.mnuFilterSelMtg.UserClick(); }, ""},
        {"missed meetings asks how many", Value, "2",
         [](Crusade& k) { k.c.host.ExpectInput("Select Missing Names to view", ""), k.e.mnuFilterMissedMtgs.UserClick(); }, ""},
        // Not a word this entry reads: it stays for whoever it was left for.
        {"decisions opens its dialog", Value, "12",
         [](Crusade& k) {
             k.c.host.OnModal("SelDecFm", [&](Form& f) {
                 static_cast<SelDecFm&>(f).Dec[2].UserClick();
                 static_cast<SelDecFm&>(f).OKBut.UserClick();
             });
             k.c.host.ExpectBox("Accept Sabbath");
             k.e.mnuDecisionsFilter.UserClick();
             EXPECT_EQ("decisions2", k.c.p.SortName);
         }, "12"},
        {"total attendance backed out of", Value, "equal",
         [](Crusade& k) {
             k.c.host.OnModal("frmFilters", [](Form& f) { static_cast<frmFilters&>(f).btnCancel.UserClick(); });
             k.e.mnuTotalAttend.UserClick();
             EXPECT_EQ("alpha", k.c.p.SortName);
         }, ""},
        {"a report of the Print menu prints", Value, "cancel",
         [](Crusade& k) {
             k.c.host.ExpectPrinter([](host::PrinterDialog&) { return false; });
             k.e.mnuPrRptSubAlpha.UserClick();
         }, "cancel"},
        {"interest cards limited only as answered", Value, "5",
         [](Crusade& k) {
             k.c.host.ExpectBox("attended 4 or more times?", host::vbNo).ExpectBox("assigned Team Code?", host::vbNo)
                 .ExpectPrinter([](host::PrinterDialog&) { return true; })
                 .ExpectBox("InterestCard Labels for all names are being sent to the printer.", host::vbNo);
             k.e.mnuICard.UserClick();
         }, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.routine);
        Crusade k;
        Word(k.c.p, row.slot) = row.stale;
        row.run(k);
        EXPECT_EQ(row.after, Word(k.c.p, row.slot));
        k.c.host.Verify();
    }
}
