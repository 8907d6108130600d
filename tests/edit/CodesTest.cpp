// Visits, advertising, decisions, interest level, baptism and notes on the edit screen.
#include <gtest/gtest.h>

#include "edit/CardCrusade.h"
#include "platform/vb/Strings.h"

using namespace forms;
using vb::RTrim;
using Codes = CardCrusade;

TEST_F(Codes, VisitCodes) {
    p.MeetingNumber = 7;
    struct Row { std::string visits; char key; std::string answer; int deleteAnswer; std::string want; bool clunk; };
    const Row rows[] = {
        {"", 'H', "123", 0, "", true},                          // four characters: refused
        {"h01h02h03h04", 'M', "5", 0, "h02h03h04m05", false},   // a fifth pushes the first out
        {"h01", 'A', "24", 0, "h01A24", false},
        {"h01", 'A', "a24", 0, "h01", true},
        {"h01m02", 'L', "", host::vbYes, "h01", false},
        {"h01m02", 'L', "", host::vbNo, "h01m02", false},
        {"", 'P', "", 0, "", false},
    };
    for (const Row& r : rows) {
        c.host.sounds.clear();
        c.host.ExpectInput(r.key == 'A' ? "'A' for Appointment" : "Followed by the number of the last meeting",
                           r.answer);
        if (r.deleteAnswer) c.host.ExpectBox("Do you want to delete the last visit?", r.deleteAnswer, "Delete Visit");
        EXPECT_EQ(r.want, EnterVisitCode(p, r.visits, r.key)) << r.visits << " " << r.key << r.answer;
        EXPECT_EQ(r.clunk, Played("S02.wav")) << r.visits << " " << r.key << r.answer;
    }
    // Through the keyboard: a code letter asks, any other key is explained and swallowed.
    e.Visits.SetFocus();
    c.host.ExpectInput("Followed by the number of the last meeting", "7");
    e.PressKey('H', 0, 'h');
    EXPECT_EQ("h07", e.Visits.Text());
    c.host.ExpectBox("You must enter one of the following codes: ", host::vbOK, "Enter Visitation Code");
    e.PressKey('Q', 0, 'q');
    EXPECT_EQ("h07", e.Visits.Text());
}

TEST_F(Codes, Advertising) {
    struct Row { std::string box, attendance; std::vector<std::string> answers; std::string want; };
    const Row rows[] = {
        {".......", "-1", {"I-Lastname"}, "......I-Lastname"},
        {"N......", "-1", {"n"}, "......."},                     // a letter typed twice clears its place
        {"", "1-", {"mnx"}, "NM....."},
        {".......", "1-", {"I", "Jones"}, "....P.I-Jones"},      // invited to the first meeting: pre-meeting too
        {"....P.I-Jones", "1-", {"I", ""}, "......."},           // I again: name and P go
        {"NM.....", "1-", {""}, "NM....."},
        {".......", "-1", {"I-Averyveryverylongname", "I-Short"}, "......I-Short"},
    };
    for (const Row& r : rows) {
        e.SearchBox.SetFocus();
        e.Advertising.SetText(r.box);
        e.Attendance.SetText(r.attendance);
        c.host.ExpectInput("Enter the Letter(s):", r.answers[0]);
        if (r.answers.size() > 1 && r.answers[0] == "I")
            c.host.ExpectInput("Enter the Last Name of the Person who invited them:", r.answers[1]);
        if (r.answers.size() > 1 && r.answers[0] != "I") {
            c.host.ExpectBox("The Persons name is too long.");
            c.host.ExpectInput("Enter the Letter(s):", r.answers[1]);
        }
        e.Advertising.SetFocus();
        EXPECT_EQ(std::make_pair(r.want, true), std::make_pair(e.Advertising.Text(), e.WorkerCode.HasFocus())) << r.box;
    }
}

TEST_F(Codes, DecisionsInterestAndBaptism) {
    auto unite = [&] { e.Dec[8].UserClick(); };
    struct Row { std::string level, want; };
    for (const Row& r : std::vector<Row>{{"A", "A"}, {"", "B"}, {"C", "B"}, {"G", "G"}}) {
        e.IntLevel.SetText(r.level);
        e.Dec[8].SetValue(vbUnchecked);
        unite();
        EXPECT_EQ(r.want, e.IntLevel.Text()) << r.level;
    }
    e.Dec[1].UserClick();
    EXPECT_EQ("-S------U", e.Decisions.Text());
    c.host.ExpectBox("You have removed the Decision to Unite with the church.");
    unite();
    EXPECT_EQ("-S-------", e.Decisions.Text());

    // Interest level: upper case, or back to the record's letter.
    p.MasterRec.IntLevel = "C";
    e.IntLevel.SetText("b");
    EXPECT_EQ("B", e.IntLevel.Text());
    for (const char* typed : {"x", "h"}) {
        e.IntLevel.SetText("b");
        c.host.ExpectBox("You must enter a letter between A and G or the Space Bar", host::vbOK, "Incorret Interest Level");
        e.IntLevel.SetText(typed);
        EXPECT_EQ("C 1", e.IntLevel.Text() + " " + std::to_string(e.IntLevel.HasFocus())) << typed;
    }

    // Baptized: G and today's date; cleared asks for the right level.
    e.BaptDate.SetText("");
    e.Baptized.SetValue(vbUnchecked);
    e.Baptized.UserClick();
    EXPECT_EQ("G 11/22/26", e.IntLevel.Text() + " " + e.BaptDate.Text());
    c.host.ExpectBox("Please Enter the Correct Interest Level.");
    e.Baptized.UserClick();
    EXPECT_EQ(" 1", e.IntLevel.Text() + " " + std::to_string(e.IntLevel.HasFocus()));
    // The codes reach the file at the next move.
    e.Dec[0].UserClick();
    e.IntLevel.SetText("A");
    e.ChgRec_Click(2);
    MasterRecord saved = c.ReadRecord(3);
    EXPECT_EQ((std::vector<std::string>{"CS-------", "A", "11/22/26"}),
              (std::vector<std::string>{RTrim(saved.Decisions), saved.IntLevel.str(), saved.BaptDate.str()}));
    p.MasterRec.IntLevel = "z";   // a damaged record is shown without a box
    e.ShowRecord();
    EXPECT_EQ("Z", e.IntLevel.Text());
}

TEST_F(Codes, NotesKeepToOneShortLine) {
    e.Notes.SetFocus();
    e.Notes.SetText("abc");
    e.Notes.SetSelStart(3);
    struct Row { int code, ascii; std::string box; };
    for (const Row& r : std::vector<Row>{{vbKeyReturn, 13, "You cannot enter multiple lines in this box."},
                                         {188, ',', "You cannot enter a comma in this box."}}) {
        c.host.ExpectBox(r.box);
        e.PressKey(r.code, 0, r.ascii);
        EXPECT_EQ("abc", e.Notes.Text());
    }
    e.Notes.SetText(std::string(155, 'x'));
    c.host.ExpectBox("You have reached the limit for Notes.");
    e.PressKey(vbKeyEnd, 0, 0);
    EXPECT_EQ(150u, e.Notes.Text().size());
}
