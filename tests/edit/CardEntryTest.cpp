// The card driven as the operator drives it: focus moves, keys, boxes answered.
#include <gtest/gtest.h>

#include "edit/EditForm.h"
#include "store/Meetings.h"
#include "store/PreCrusade.h"
#include "store/Records.h"
#include "support/TestCrusade.h"

using namespace forms;
using vb::RTrim;

namespace {
struct Card {
    TestCrusade c;
    Program& p = c.p;
    EditForm* e = nullptr;
    Card() {
        e = &c.ShowOnEditScreen({MakePerson("0001", "Pat", "Adams"), MakePerson("0002", "Lou", "Baker"),
                                 MakePerson("0003", "Sam", "Cole")});
        p.LastRNum = 100;
        p.ZipCount = 1;
        p.ZipList[1] = "62701     IL07Springfield       4";
    }
    ~Card() { c.host.Verify(); }
    void Enter() { e->PressKey(vbKeyReturn, 0, vbKeyReturn); }
    void Key(int code) { e->PressKey(code); }
    void Type(const std::string& t) { e->TypeText(t); }
    void TypeIn(Control& box, const std::string& t) {
        box.SetFocus();
        box.SetText(t);
    }
    void AddMode() {
        c.host.ExpectInput("Enter the Meeting Number", "1");
        e->mnuAddRecords_Click();
    }
    bool Played(const std::string& wave) {
        for (const std::string& s : c.host.sounds)
            if (s.find(wave) != std::string::npos) return true;
        return false;
    }
};
}  // namespace

TEST(CardEntry, WholeCardTypedWithEnterThroughTheFields) {
    Card f;
    EditForm& e = *f.e;
    f.AddMode();
    ASSERT_EQ(&e.RNum, e.ActiveControl());
    EXPECT_EQ(HighlightColor, e.RNum.BackColor());
    f.Enter();   // an empty number draws the next one
    EXPECT_EQ(vbWindowBackground, e.RNum.BackColor());
    EXPECT_EQ(HighlightColor, e.FName.BackColor());
    // Typed, then Enter; a known zip fills city, state and team and skips to the phone.
    const std::pair<std::string, Control*> keyed[] = {
        {"mary", &e.LName}, {"o'neil", &e.Address}, {"12 oak street apt 2b", &e.Zip}, {"62701", &e.Phone},
        {"(217) 555-0101", &e.txtEmail}, {"mary at example.com", &e.Age}};
    for (const auto& [typed, next] : keyed) {
        f.Type(typed);
        f.Enter();
        ASSERT_EQ(next, e.ActiveControl()) << typed;
    }
    f.Type("3");   // one key is the whole age
    ASSERT_EQ(&e.RelPref, e.ActiveControl());
    EXPECT_EQ("UnSpecified", e.RelPref.Text());
    f.Type("bap");
    EXPECT_EQ(std::make_pair(3, 4), std::make_pair(e.RelPref.SelStart(), e.RelPref.SelLength()));
    f.c.host.ExpectInput("Enter the Letter(s):", "");   // the advertising letters are asked on arrival
    f.Enter();
    EXPECT_EQ(&e.WorkerCode, e.ActiveControl());
    const std::pair<Control*, std::string> card[] = {
        {&e.RNum, "0099"}, {&e.FName, "Mary"}, {&e.LName, "O'neil"}, {&e.Address, "12 Oak St #2B"},
        {&e.City, "Springfield"}, {&e.State, "IL"}, {&e.WorkerCode, "07"}, {&e.Phone, "217-555-0101"},
        {&e.txtEmail, "mary@example.com"}, {&e.Age, f.p.AgeGroups[3]}, {&e.RelPref, "Baptist"}};
    for (const auto& [box, text] : card) EXPECT_EQ(text, box->Text()) << box->Name();

    // A number already in the list is refused and the box emptied.
    f.TypeIn(e.RNum, "2");
    f.c.host.ExpectBox("0002 is a duplicate record number\r\nThe Registration Number will be reset.", host::vbOK, "",
                       host::vbCritical);
    f.Enter();
    EXPECT_EQ("", e.RNum.Text());
    EXPECT_EQ(&e.RNum, e.ActiveControl());
}

TEST(CardEntry, F2AndF3CopyThePreviousCardEscTheShownRecord) {
    Card f;
    EditForm& e = *f.e;
    MasterRecord prev = MakePerson("0050", "Ann", "Lee");
    prev.Address = "9 Elm St";
    prev.Zip = "62702";
    prev.City = "Salem";
    prev.State = "OR";
    f.AddMode();   // saves the person shown, who becomes the previous card
    f.p.PreviousRec = prev;
    f.TypeIn(e.LName, "x");
    f.Key(vbKeyF3);   // the household of the previous card, off the mail list
    EXPECT_EQ("Lee, 9 Elm St", e.LName.Text() + ", " + e.Address.Text());
    EXPECT_EQ(vbUnchecked, e.MailList.Value());
    EXPECT_EQ(&e.Age, e.ActiveControl());
    EXPECT_TRUE(f.Played("S01.wav"));
    // F2 copies the box and moves on; leaving City puts the new zip in the table.
    f.TypeIn(e.Zip, "1");
    const std::tuple<Control*, std::string, Control*> copies[] = {
        {&e.Zip, "62702", &e.State}, {&e.State, "OR", &e.City}, {&e.City, "Salem", &e.MailList}};
    for (const auto& [box, text, next] : copies) {
        f.Key(vbKeyF2);
        EXPECT_EQ(text, box->Text());
        EXPECT_EQ(next, e.ActiveControl());
    }
    EXPECT_EQ("62702     OR00Salem             1", f.p.ZipList[2]);
    f.Key(vbKeyF2);
    EXPECT_EQ(vbChecked, e.MailList.Value());
    f.TypeIn(e.WorkerCode, "");
    e.Zip.SetText("");
    f.Key(vbKeyF2);   // the team's F2 writes the zip
    EXPECT_EQ("62702", e.Zip.Text());
    f.TypeIn(e.RNum, "0077");
    f.c.host.ExpectBox("Copy Info. to a New Record");
    f.Key(vbKeyF2);

    // Outside add mode F2 does nothing and Esc puts the shown record back.
    Card g;
    EditForm& v = *g.e;
    const MasterRecord& shown = g.p.UndoRec;
    g.TypeIn(v.Address, "elsewhere");
    g.Key(vbKeyF2);
    EXPECT_EQ("elsewhere", v.Address.Text());
    g.Key(vbKeyEscape);
    EXPECT_EQ(RTrim(shown.Address), v.Address.Text());
    // Esc of these boxes restores another box, as it stands.
    const std::tuple<Control*, Control*, std::string> others[] = {
        {&v.FName, &v.RNum, RTrim(shown.RNum)}, {&v.WorkerCode, &v.Zip, RTrim(shown.Zip)}};
    for (const auto& [box, restored, text] : others) {
        restored->SetText("00000");
        box->SetFocus();
        g.Key(vbKeyEscape);
        EXPECT_EQ(text, restored->Text()) << box->Name();
    }
    // Class's Esc writes the interview number into the interest box, which refuses it.
    v.Class.SetFocus();
    g.c.host.ExpectBox("You must enter a letter between A and G or the Space Bar", host::vbOK,
                       "Incorret Interest Level", host::vbCritical);
    g.Key(vbKeyEscape);
    EXPECT_EQ(RTrim(shown.IntLevel), v.IntLevel.Text());
}

TEST(CardEntry, RegistrationNumberOnLeaving) {
    Card f;
    EditForm& e = *f.e;
    Program& p = f.p;
    const std::string own = e.RNum.Text();
    struct Row { std::string typed, box, result; };
    const Row rows[] = {
        {"1", "", own},   // the person's own number is no duplicate
        {"2", "0002 is a duplicate record number", own},
        {"12a", "You entered << 12a >> for the Registration Number.\r\nThe Registration Number cannot have any "
                "letters in it, it must be all numbers.", own},
        {"12", "", "0012"},
    };
    for (const Row& r : rows) {
        f.TypeIn(e.RNum, r.typed);
        if (!r.box.empty()) f.c.host.ExpectBox(r.box);
        e.FName.SetFocus();
        f.c.host.Verify();
        EXPECT_EQ(r.result, e.RNum.Text()) << r.typed;
        EXPECT_EQ(r.box.empty() ? static_cast<Control*>(&e.FName) : &e.RNum, e.ActiveControl()) << r.typed;
    }
    EXPECT_EQ("0012", p.SortIndex[p.CurrentIndex].substr(0, 4));
    e.RNum.SetFocus();   // unchanged: nothing asked, nothing drawn
    e.FName.SetFocus();
    EXPECT_EQ(100, p.LastRNum);
}

TEST(CardEntry, ZipTableQuestionsCountsAndTheFullTable) {
    Card f;
    EditForm& e = *f.e;
    Program& p = f.p;
    // A known zip typed with another city: the table's city may be reassigned.
    f.TypeIn(e.Zip, "62701");
    e.State.SetText("OR");   // the person's own state stays
    f.TypeIn(e.City, "capital");
    f.c.host.ExpectBox("Zipcode: 62701\r\n Has already been assigned to a different city-- Springfield\r\n\r\n"
                       "Do you want to reassign 62701 to Capital?",
                       host::vbYes, "Check Assigned City", host::vbYesNo);
    e.Phone.SetFocus();
    EXPECT_EQ("62701     IL07Capital           4", p.ZipList[1]);
    EXPECT_EQ("OR", e.State.Text());
    // In add mode each pass through the city counts one more person.
    f.AddMode();
    for (int card = 0; card < 2; ++card) {
        e.City.SetText("Capital");
        e.Zip.SetText("62701");
        e.City.SetFocus();
        e.Phone.SetFocus();
    }
    EXPECT_EQ("   6", p.ZipList[1].substr(29));
    // A new zip without a state asks for one.
    f.TypeIn(e.Zip, "99999");
    e.State.SetText("");
    f.TypeIn(e.City, "nowhere");
    e.State.SetText("");
    f.c.host.ExpectInput("Error- You must enter a State.", "").ExpectInput("Error- You must enter a State.", " wy ");
    e.Phone.SetFocus();
    EXPECT_EQ("99999     WY00Nowhere           1", p.ZipList[2]);
    // The Canadian question comes once.
    f.c.host.ExpectBox("It appears you are entering a Canadian zip code.", host::vbYes,
                       "Select Canadian Zip Code Sorter");
    f.TypeIn(e.Zip, "k1a0b1");
    e.Phone.SetFocus();
    EXPECT_EQ("K1A 0B1", e.Zip.Text());
    EXPECT_TRUE(p.CanadaSorter);
    f.TypeIn(e.Zip, "m5v2t6");
    e.Phone.SetFocus();
    p.CanadaSorter = false;
    // A full table refuses the new zip and says so; the card keeps it.
    for (int i = 3; i <= 2000; ++i) p.ZipList[i] = std::to_string(10000 + i) + "     IL00Town             1";
    p.ZipCount = 2000;
    f.TypeIn(e.Zip, "88888");
    e.State.SetText("IL");
    f.TypeIn(e.City, "Far");
    f.c.host.ExpectBox("The zip code table is full");
    e.Phone.SetFocus();
    EXPECT_EQ(2000, p.ZipCount);
    EXPECT_EQ("88888", e.Zip.Text());
}

TEST(CardEntry, PageKeysAgeTeamMailListAndBaptismDate) {
    Card f;
    EditForm& e = *f.e;
    Program& p = f.p;
    e.LName.SetFocus();
    f.Key(vbKeyPageDown);
    EXPECT_EQ(2, p.CurrentIndex);
    EXPECT_EQ("Baker", e.LName.Text());
    e.ReturnToPreviewMsg.SetVisible(true);   // editing for the preview: no moves but by the number box
    f.Key(vbKeyPageUp);
    EXPECT_EQ(2, p.CurrentIndex);
    EXPECT_TRUE(f.Played("S02.wav"));
    e.RNum.SetFocus();
    f.Key(vbKeyPageUp);
    EXPECT_EQ(1, p.CurrentIndex);
    e.ReturnToPreviewMsg.SetVisible(false);

    // The age box leaves at the first key; the team box when the operator leaves it.
    struct Bad { Control* box; std::string typed, message; };
    const Bad bad[] = {
        {&e.Age, "x", "You must enter a number between 1 and 7.  Try again"},
        {&e.WorkerCode, "41", "You have entered an invalid Team code.  \r\nIt must be a number between 00 and 40"},
        {&e.WorkerCode, "ab", "You have entered an invalid Team code."},
    };
    for (const Bad& b : bad) {
        b.box->SetFocus();
        f.c.host.ExpectBox(b.message);
        f.Type(b.typed);
        if (b.box != &e.Age) e.Phone.SetFocus();
        f.c.host.Verify();
        EXPECT_EQ(b.box, e.ActiveControl()) << b.typed;
    }
    f.TypeIn(e.WorkerCode, "7");
    e.MailList.SetFocus();
    EXPECT_EQ("07", e.WorkerCode.Text());
    EXPECT_TRUE(e.Label_MailListFocus.Visible());
    f.Type("x");   // any key goes on to the phone
    EXPECT_EQ(&e.Phone, e.ActiveControl());
    EXPECT_FALSE(e.Label_MailListFocus.Visible());

    // Plus and minus step the date when the key has changed the box; P writes its fixed date.
    f.TypeIn(e.BaptDate, "5/31/09");
    const std::tuple<int, int, std::string> keys[] = {
        {187, '=', "06/01/09"}, {189, '-', "05/31/09"}, {189, '-', "05/30/09"}, {'P', 'p', "05/23/09"}};
    for (const auto& [code, ascii, text] : keys) {
        e.PressKey(code, 0, ascii);
        EXPECT_EQ(text, e.BaptDate.Text()) << code;
    }
    EXPECT_EQ("A", e.IntLevel.Text());
    f.c.host.ExpectBox("Has this interest already been baptized?", host::vbYes, "Enter Interest Level");
    e.BaptDate.UserDblClick();
    EXPECT_EQ("11/22/26", e.BaptDate.Text());
    EXPECT_EQ("G", e.IntLevel.Text());
    f.TypeIn(e.BaptDate, "1/2/10");
    e.Phone.SetFocus();
    EXPECT_EQ("01/02/10", e.BaptDate.Text());

    f.AddMode();   // a card being added is left only by its buttons
    e.LName.SetFocus();
    f.Key(vbKeyPageDown);
    EXPECT_TRUE(p.AddMode);
    EXPECT_EQ(&e.LName, e.ActiveControl());
}

TEST(CardEntry, PreCrusadeGuestFillsTheCard) {
    Card f;
    EditForm& e = *f.e;
    MasterRecord guest = MakePerson("0000", "Rose", "Hill");
    guest.Address = "4 elm apt # 7";
    guest.Age = "";
    guest.Advertising = "N......";
    MasterRecord earlier = MakePerson("0000", "rose", "HILL");   // the last match wins
    MasterRecord other = MakePerson("0000", "Unknown", "Hill");
    std::string bytes;
    for (const MasterRecord& r : {earlier, other, guest}) {
        RecordBytes b = EncodeRecord(r);
        bytes.append(b.data(), b.size());
    }
    f.c.WriteFile(PreCrusadePath(f.p), bytes);
    f.AddMode();
    f.Enter();
    f.Type("ROSE");
    f.Enter();
    f.Type("hill");
    f.Enter();
    EXPECT_EQ((std::vector<std::string>{"4 Elm #7", "N...P..", "NIF"}),
              (std::vector<std::string>{e.Address.Text(), e.Advertising.Text(), e.Age.Text()}));
    EXPECT_EQ(&e.Age, e.ActiveControl());
    EXPECT_TRUE(f.Played("S01.wav"));
    // A file that is not whole records is not read, and said once.
    f.c.WriteFile(PreCrusadePath(f.p), bytes + "x");
    f.c.host.ExpectBox("is damaged or is not a file of this program");
    for (int i = 0; i < 2; ++i) {
        f.TypeIn(e.LName, "Hill");
        e.Address.SetFocus();
    }
}

TEST(CardEntry, MeetingNumberTestsAndTheMeetingBox) {
    Card f;
    Program& p = f.p;
    p.MeetingNumber = 5;
    const std::string invalid = "The Meeting number you entered is invalid.\r\nYou must select a Meeting Number between 1 and 40";
    struct Row { std::string entry; MeetingEntryFor kind; std::string box; int answer; int result; };
    const MeetingEntryFor night = MeetingEntryFor::NightlyAttendance, add = MeetingEntryFor::AddNames;
    const Row rows[] = {
        {"", night, "", 0, 0},       {"0", night, "", 0, 0},         {"abc", night, "", 0, 0},
        {"", add, "", 0, 0},         {"0", add, invalid, host::vbOK, 0}, {"41", night, invalid, host::vbOK, 0},
        {"3", night, "", 0, 3},      {"6", add, "", 0, 6},
        {"8", night, "The last meeting was: 5\r\nThe next meeting should be Meeting Number: 6\r\n"
                     "You have entered Meeting Number: 8.\r\n\r\nIs this what you want to do?", host::vbNo, 0},
        {"8", add, "You have entered Meeting Number: 8.\r\nIs this", host::vbYes, 8},
    };
    for (const Row& r : rows) {
        if (!r.box.empty()) f.c.host.ExpectBox(r.box, r.answer);
        EXPECT_EQ(r.result, CheckMeetingEntry(p, r.entry, r.kind)) << r.entry;
        f.c.host.Verify();
    }
    EXPECT_EQ(5, p.MeetingNumber);   // the tests alone never move the counter

    EditForm& e = *f.e;
    f.AddMode();
    f.TypeIn(e.MtgNum, "12");
    e.RNum.SetFocus();
    EXPECT_EQ((std::vector<std::string>{"12", "-----------2----------------------------", "12"}),
              (std::vector<std::string>{std::to_string(p.MeetingNumber), e.Attendance.Text(), e.Last.Text()}));
    f.TypeIn(e.MtgNum, "7");   // a lower number never lowers the counter
    e.RNum.SetFocus();
    EXPECT_EQ(12, p.MeetingNumber);
    f.TypeIn(e.MtgNum, "4x");
    f.c.host.ExpectBox(invalid);
    e.RNum.SetFocus();
    EXPECT_EQ(&e.MtgNum, e.ActiveControl());
    EXPECT_EQ("7", e.MtgNum.Text());
}
