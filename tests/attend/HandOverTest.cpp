// The shared words pass from one routine to the next: a word left lying by some
// earlier routine must not steer the one that reads that word.
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
    EditForm& e;
    Crusade() : e(Start()) {}
    EditForm& Start() {
        std::vector<MasterRecord> people = {MakePerson("0012", "Ann", "Adams", "123"),
                                            MakePerson("0100", "Bob", "Bell", "12-"),
                                            MakePerson("0101", "Cy", "Cole", "1-3"),
                                            MakePerson("0102", "Di", "Dunn", "--3")};
        people[0].Phone = "Unknown";
        people[1].Decisions = "-S-------";
        EditForm& f = c.ShowOnEditScreen(people);
        c.p.MeetingNumber = 3;
        return f;
    }
    void OpenDoor() {
        c.host.ExpectInput("Enter the Meeting Number for which you are updating the Attendance", "3");
        e.mnuAttendUpdate_Click();
    }
};

enum Slot { Text, Value, Caller };

struct Row {
    const char* routine;
    Slot slot;
    const char* stale;
    // Scripts what the routine does with no word there, runs it, and checks the result.
    std::function<void(Crusade&)> run;
    const char* after;   // the word afterwards: "" when the routine took it
};

std::string& Word(Program& p, Slot s) {
    return s == Text ? p.ScratchText : s == Value ? p.ScratchValue : p.CallerForm;
}

}  // namespace

TEST(HandOver, AStaleWordSteersNoRoutineAndTheReaderClearsIt) {
    const Row rows[] = {
        {"door opens on the meeting asked for", Value, "9",
         [](Crusade& k) {
             k.OpenDoor();
             EXPECT_EQ("3", k.c.p.Attend().MtgNum.Text());
             EXPECT_EQ(3, k.c.p.MeetingNumber);
         },
         ""},
        {"door shows the person, whatever the dialog said last", Caller, "attendupdate",
         [](Crusade& k) {
             k.OpenDoor();
             EXPECT_EQ("0012", k.c.p.Attend().RNum.Text());
         },
         "attend"},
        {"door warns of a missing phone", Text, "NotFound",
         [](Crusade& k) {
             k.OpenDoor();
             EXPECT_EQ(vbRed, k.c.p.Attend().Phone.BackColor());
         },
         ""},
        {"pending decision is chosen, not cleared", Text, "ClearButton",
         [](Crusade& k) {
             k.OpenDoor();
             AttendF& a = k.c.p.Attend();
             a.DecA[1].UserMouseDown(vbLeftButton, 0, 0, 0);
             a.DecA[1].UserClick();
             EXPECT_EQ("S", a.PendingDecision);
         },
         ""},
        {"attended meeting asks which", Value, "2",
         [](Crusade& k) {
             k.c.host.ExpectInput("Select a Meeting to View", "");
             k.e.mnuFilterSelMtg.UserClick();
         },
         ""},
        {"missed meetings asks how many", Value, "2",
         [](Crusade& k) {
             k.c.host.ExpectInput("Select Missing Names to view", "");
             k.e.mnuFilterMissedMtgs.UserClick();
         },
         ""},
        // Not a word this entry reads: it stays for whoever it was left for.
        {"decisions opens its dialog", Value, "12",
         [](Crusade& k) {
             bool asked = false;
             k.c.host.OnModal("SelDecFm", [&](Form& f) {
                 asked = true;
                 auto& d = static_cast<SelDecFm&>(f);
                 d.Dec[2].UserClick();
                 d.OKBut.UserClick();
             });
             k.c.host.ExpectBox("Accept Sabbath");
             k.e.mnuDecisionsFilter.UserClick();
             EXPECT_TRUE(asked);
             EXPECT_EQ("decisions2", k.c.p.SortName);
         },
         "12"},
        {"total attendance backed out of", Value, "equal",
         [](Crusade& k) {
             k.c.host.OnModal("frmFilters", [](Form& f) { static_cast<frmFilters&>(f).btnCancel.UserClick(); });
             k.e.mnuTotalAttend.UserClick();
             EXPECT_EQ("alpha", k.c.p.SortName);
         },
         ""},
        {"a report of the Print menu prints", Value, "cancel",
         [](Crusade& k) {
             bool asked = false;
             k.c.host.ExpectPrinter([&](host::PrinterDialog&) { return !(asked = true); });
             k.e.mnuPrRptSubAlpha.UserClick();
             EXPECT_TRUE(asked);
         },
         "cancel"},
        {"interest cards limited only as answered", Value, "5",
         [](Crusade& k) {
             k.c.host.ExpectBox("attended 4 or more times?", host::vbNo)
                 .ExpectBox("assigned Team Code?", host::vbNo)
                 .ExpectPrinter([](host::PrinterDialog&) { return true; })
                 .ExpectBox("InterestCard Labels for all names are being sent to the printer.", host::vbNo);
             k.e.mnuICard.UserClick();
         },
         ""},
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
