// The card driven as the operator drives it: focus moves, keys, boxes answered.
#include <gtest/gtest.h>

#include <tuple>

#include "edit/CardCrusade.h"
#include "store/Meetings.h"
#include "store/PreCrusade.h"

using namespace forms;
using vb::RTrim;

// Three people, a zip table of one entry, numbers drawn from 100 down.
class CardEntry : public CardCrusade {
protected:
    CardEntry()
        : CardCrusade({MakePerson("0001", "Pat", "Adams"), MakePerson("0002", "Lou", "Baker"),
                       MakePerson("0003", "Sam", "Cole")}) {
        p.LastRNum = 100;
        p.ZipCount = 1;
        p.ZipList[1] = "62701     IL07Springfield       4";
    }
    void Enter() { e.PressKey(vbKeyReturn, 0, vbKeyReturn); }
    void Key(int code) { e.PressKey(code); }
    void Type(const std::string& t) { e.TypeText(t); }
    void TypeIn(Control& box, const std::string& t) {
        box.SetFocus();
        box.SetText(t);
    }
};

TEST_F(CardEntry, WholeCardTypedWithEnterThroughTheFields) {
    StartAdding();
    Enter();   // an empty number draws the next one
    EXPECT_EQ(std::make_pair(vbWindowBackground, HighlightColor), std::make_pair(e.RNum.BackColor(), e.FName.BackColor()));
    // Typed, then Enter; a known zip fills city, state and team and skips to the phone.
    for (const char* t : {"mary", "o'neil", "12 oak street apt 2b", "62701", "(217) 555-0101", "mary at example.com"}) {
        Type(t);
        Enter();
    }
    Type("3");   // one key is the whole age
    EXPECT_EQ("UnSpecified", e.RelPref.Text());
    Type("bap");
    EXPECT_EQ(std::make_pair(3, 4), std::make_pair(e.RelPref.SelStart(), e.RelPref.SelLength()));
    c.host.ExpectInput("Enter the Letter(s):", "");   // the advertising letters are asked on arrival
    Enter();
    const std::pair<Control*, std::string> card[] = {
        {&e.RNum, "0099"}, {&e.FName, "Mary"}, {&e.LName, "O'neil"}, {&e.Address, "12 Oak St #2B"},
        {&e.City, "Springfield"}, {&e.State, "IL"}, {&e.WorkerCode, "07"}, {&e.Phone, "217-555-0101"},
        {&e.txtEmail, "mary@example.com"}, {&e.Age, p.AgeGroups[3]}, {&e.RelPref, "Baptist"}};
    for (const auto& [box, text] : card) EXPECT_EQ(text, box->Text()) << box->Name();
}

TEST_F(CardEntry, F2AndF3CopyThePreviousCardInAddMode) {
    StartAdding();   // saves the person shown, who becomes the previous card
    p.PreviousRec = MakePerson("0050", "Ann", "Lee");
    std::tie(p.PreviousRec.Address, p.PreviousRec.Zip, p.PreviousRec.City, p.PreviousRec.State) =
        std::make_tuple("9 Elm St", "62702", "Salem", "OR");
    TypeIn(e.LName, "x");
    Key(vbKeyF3);   // the household of the previous card, off the mail list
    EXPECT_EQ(std::make_tuple(std::string("Lee, 9 Elm St"), static_cast<int>(vbUnchecked), static_cast<Control*>(&e.Age)),
              std::make_tuple(e.LName.Text() + ", " + e.Address.Text(), e.MailList.Value(), e.ActiveControl()));
    EXPECT_TRUE(Played("S01.wav"));
    // F2 copies the box and moves on; leaving City puts the new zip in the table.
    TypeIn(e.Zip, "1");
    const std::tuple<Control*, std::string, Control*> copies[] = {
        {&e.Zip, "62702", &e.State}, {&e.State, "OR", &e.City}, {&e.City, "Salem", &e.MailList}};
    for (const auto& [box, text, next] : copies) {
        Key(vbKeyF2);
        EXPECT_EQ(text, box->Text());
        EXPECT_EQ(next, e.ActiveControl());
    }
    EXPECT_EQ("62702     OR00Salem             1", p.ZipList[2]);
    Key(vbKeyF2);
    EXPECT_EQ(vbChecked, e.MailList.Value());
    TypeIn(e.WorkerCode, "");
    e.Zip.SetText("");
    Key(vbKeyF2);   // the team's F2 writes the zip
    EXPECT_EQ("62702", e.Zip.Text());
    TypeIn(e.RNum, "0077");
    c.host.ExpectBox("Copy Info. to a New Record");
    Key(vbKeyF2);
}

TEST_F(CardEntry, OutsideAddModeF2DoesNothingAndEscPutsTheShownRecordBack) {
    const MasterRecord& shown = p.UndoRec;
    TypeIn(e.Address, "elsewhere");
    Key(vbKeyF2);
    EXPECT_EQ("elsewhere", e.Address.Text());
    Key(vbKeyEscape);
    EXPECT_EQ(RTrim(shown.Address), e.Address.Text());
    // Esc of these boxes restores another box, as it stands.
    const std::tuple<Control*, Control*, std::string> others[] = {
        {&e.FName, &e.RNum, RTrim(shown.RNum)}, {&e.WorkerCode, &e.Zip, RTrim(shown.Zip)}};
    for (const auto& [box, restored, text] : others) {
        restored->SetText("00000");
        box->SetFocus();
        Key(vbKeyEscape);
        EXPECT_EQ(text, restored->Text()) << box->Name();
    }
    // Class's Esc writes the interview number into the interest box, which refuses it.
    e.Class.SetFocus();
    c.host.ExpectBox("You must enter a letter between A and G or the Space Bar");
    Key(vbKeyEscape);
    EXPECT_EQ(RTrim(shown.IntLevel), e.IntLevel.Text());
}

TEST_F(CardEntry, RegistrationNumberOnLeaving) {
    const std::string own = e.RNum.Text();
    struct Row { std::string typed, box, result; };
    const Row rows[] = {
        {"1", "", own},   // the person's own number is no duplicate
        {"2", "0002 is a duplicate record number", own},
        {"12a", "You entered << 12a >> for the Registration Number.", own},
        {"12", "", "0012"},
    };
    for (const Row& r : rows) {
        TypeIn(e.RNum, r.typed);
        // A word left by a press that left another box must not wave a wrong number through.
        if (!r.box.empty()) {
            c.host.ExpectBox(r.box);
            p.ScratchText = "StopImport";
        }
        e.FName.SetFocus();
        c.host.Verify();
        EXPECT_EQ(std::make_tuple(r.result, std::string()), std::make_tuple(e.RNum.Text(), p.ScratchText)) << r.typed;
        EXPECT_EQ(r.box.empty() ? static_cast<Control*>(&e.FName) : &e.RNum, e.ActiveControl()) << r.typed;
    }
    EXPECT_EQ("0012", p.SortIndex[p.CurrentIndex].substr(0, 4));
    e.RNum.SetFocus();   // unchanged: nothing asked, nothing drawn
    e.FName.SetFocus();
    EXPECT_EQ(100, p.LastRNum);
}

TEST_F(CardEntry, ZipTableQuestionsCountsAndTheFullTable) {
    // A known zip typed with another city: the table's city may be reassigned.
    TypeIn(e.Zip, "62701");
    e.State.SetText("OR");   // the person's own state stays
    TypeIn(e.City, "capital");
    c.host.ExpectBox("62701\r\n Has already been assigned to a different city-- Springfield\r\n\r\n"
                     "Do you want to reassign 62701 to Capital?", host::vbYes, std::nullopt, host::vbYesNo);
    e.Phone.SetFocus();
    EXPECT_EQ("62701     IL07Capital           4", p.ZipList[1]);
    EXPECT_EQ("OR", e.State.Text());
    // In add mode each pass through the city counts one more person.
    StartAdding();
    for (int card = 0; card < 2; ++card) {
        e.City.SetText("Capital");
        e.Zip.SetText("62701");
        e.City.SetFocus();
        e.Phone.SetFocus();
    }
    EXPECT_EQ("   6", p.ZipList[1].substr(29));
    // A new zip without a state asks for one.
    TypeIn(e.Zip, "99999");
    e.State.SetText("");
    TypeIn(e.City, "nowhere");
    e.State.SetText("");
    c.host.ExpectInput("Error- You must enter a State.", "").ExpectInput("Error- You must enter a State.", " wy ");
    e.Phone.SetFocus();
    EXPECT_EQ("99999     WY00Nowhere           1", p.ZipList[2]);
    // The Canadian question comes once.
    c.host.ExpectBox("It appears you are entering a Canadian zip code.", host::vbYes);
    TypeIn(e.Zip, "k1a0b1");
    e.Phone.SetFocus();
    EXPECT_EQ("K1A 0B1 1", e.Zip.Text() + " " + std::to_string(p.CanadaSorter));
    TypeIn(e.Zip, "m5v2t6");
    e.Phone.SetFocus();
    p.CanadaSorter = false;
    // A full table refuses the new zip and says so; the card keeps it.
    for (int i = 3; i <= 2000; ++i) p.ZipList[i] = std::to_string(10000 + i) + "     IL00Town             1";
    p.ZipCount = 2000;
    TypeIn(e.Zip, "88888");
    e.State.SetText("IL");
    TypeIn(e.City, "Far");
    c.host.ExpectBox("The zip code table is full");
    e.Phone.SetFocus();
    EXPECT_EQ("2000 88888", std::to_string(p.ZipCount) + " " + e.Zip.Text());
}

TEST_F(CardEntry, PageKeysAgeTeamMailListAndBaptismDate) {
    e.LName.SetFocus();
    Key(vbKeyPageDown);
    EXPECT_EQ("2 Baker", std::to_string(p.CurrentIndex) + " " + e.LName.Text());
    e.ReturnToPreviewMsg.SetVisible(true);   // editing for the preview: no moves but by the number box
    Key(vbKeyPageUp);
    EXPECT_EQ(2, p.CurrentIndex);
    EXPECT_TRUE(Played("S02.wav"));
    e.RNum.SetFocus();
    Key(vbKeyPageUp);
    EXPECT_EQ(1, p.CurrentIndex);
    e.ReturnToPreviewMsg.SetVisible(false);

    // The age box leaves at the first key; the team box when the operator leaves it.
    struct Bad { Control* box; std::string typed, message; };
    const Bad bad[] = {
        {&e.Age, "x", "You must enter a number between 1 and 7.  Try again"},
        {&e.WorkerCode, "41", "You have entered an invalid Team code.  \r\nIt must be a number between 00 and 40"},
    };
    for (const Bad& b : bad) {
        b.box->SetFocus();
        c.host.ExpectBox(b.message);
        Type(b.typed);
        if (b.box != &e.Age) e.Phone.SetFocus();
        c.host.Verify();
        EXPECT_EQ(b.box, e.ActiveControl()) << b.typed;
    }
    TypeIn(e.WorkerCode, "7");
    e.MailList.SetFocus();
    EXPECT_EQ("07 1", e.WorkerCode.Text() + " " + std::to_string(e.Label_MailListFocus.Visible()));
    Type("x");   // any key goes on to the phone
    EXPECT_EQ(std::make_pair(static_cast<Control*>(&e.Phone), false),
              std::make_pair(e.ActiveControl(), e.Label_MailListFocus.Visible()));

    // Plus and minus step the date when the key has changed the box; P writes its fixed date.
    TypeIn(e.BaptDate, "5/31/09");
    const std::tuple<int, int, std::string> keys[] = {
        {187, '=', "06/01/09"}, {189, '-', "05/31/09"}, {189, '-', "05/30/09"}, {'P', 'p', "05/23/09"}};
    for (const auto& [code, ascii, text] : keys) {
        e.PressKey(code, 0, ascii);
        EXPECT_EQ(text, e.BaptDate.Text()) << code;
    }
    c.host.ExpectBox("Has this interest already been baptized?", host::vbYes, "Enter Interest Level");
    e.BaptDate.UserDblClick();
    EXPECT_EQ("11/22/26 G", e.BaptDate.Text() + " " + e.IntLevel.Text());
    TypeIn(e.BaptDate, "1/2/10");
    e.Phone.SetFocus();
    EXPECT_EQ("01/02/10", e.BaptDate.Text());

    StartAdding();   // a card being added is left only by its buttons
    e.LName.SetFocus();
    Key(vbKeyPageDown);
    EXPECT_EQ(std::make_pair(true, static_cast<Control*>(&e.LName)), std::make_pair(p.AddMode, e.ActiveControl()));
}

TEST_F(CardEntry, PreCrusadeGuestFillsTheCard) {
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
    c.WriteFile(PreCrusadePath(p), bytes);
    StartAdding();
    Enter();
    Type("ROSE");
    Enter();
    Type("hill");
    Enter();
    EXPECT_EQ((std::vector<std::string>{"4 Elm #7", "N...P..", "NIF"}),
              (std::vector<std::string>{e.Address.Text(), e.Advertising.Text(), e.Age.Text()}));
    EXPECT_EQ(std::make_pair(static_cast<Control*>(&e.Age), true), std::make_pair(e.ActiveControl(), Played("S01.wav")));
    // A file that is not whole records is not read, and said once.
    c.WriteFile(PreCrusadePath(p), bytes + "x");
    c.host.ExpectBox("is damaged or is not a file of this program");
    for (int i = 0; i < 2; ++i) {
        TypeIn(e.LName, "Hill");
        e.Address.SetFocus();
    }
}

TEST_F(CardEntry, MeetingNumberTestsAndTheMeetingBox) {
    p.MeetingNumber = 5;
    const std::string invalid = "The Meeting number you entered is invalid.\r\nYou must select a Meeting Number between 1 and 40";
    struct Row { std::string entry; MeetingEntryFor kind; std::string box; int answer; int result; };
    const MeetingEntryFor night = MeetingEntryFor::NightlyAttendance, add = MeetingEntryFor::AddNames;
    const Row rows[] = {
        {"abc", night, "", 0, 0},             {"", add, "", 0, 0},    {"0", add, invalid, host::vbOK, 0},
        {"41", night, invalid, host::vbOK, 0}, {"3", night, "", 0, 3}, {"6", add, "", 0, 6},
        {"8", night, "The last meeting was: 5\r\nThe next meeting should be Meeting Number: 6\r\n"
                     "You have entered Meeting Number: 8.\r\n\r\nIs this what you want to do?", host::vbNo, 0},
        {"8", add, "You have entered Meeting Number: 8.\r\nIs this", host::vbYes, 8},
    };
    for (const Row& r : rows) {
        if (!r.box.empty()) c.host.ExpectBox(r.box, r.answer);
        EXPECT_EQ(r.result, CheckMeetingEntry(p, r.entry, r.kind)) << r.entry;
        c.host.Verify();
    }
    EXPECT_EQ(5, p.MeetingNumber);   // the tests alone never move the counter

    StartAdding();
    TypeIn(e.MtgNum, "12");
    e.RNum.SetFocus();
    EXPECT_EQ((std::vector<std::string>{"12", "-----------2----------------------------", "12"}),
              (std::vector<std::string>{std::to_string(p.MeetingNumber), e.Attendance.Text(), e.Last.Text()}));
    TypeIn(e.MtgNum, "7");   // a lower number never lowers the counter
    e.RNum.SetFocus();
    EXPECT_EQ(12, p.MeetingNumber);
    TypeIn(e.MtgNum, "4x");
    c.host.ExpectBox(invalid);
    e.RNum.SetFocus();
    EXPECT_EQ(std::make_pair(static_cast<Control*>(&e.MtgNum), std::string("7")),
              std::make_pair(e.ActiveControl(), e.MtgNum.Text()));
}

TEST_F(CardEntry, ExitButtonsPressedFromTheNumberBoxSkipItsCheckOnlyForThatPress) {
    // From a blank card's number box no number is drawn; answered No, the card stays and no word is left;
    // a number drawn for a card let go is not given back.
    struct Row { bool fromName; int answer; std::tuple<long, bool, std::string, std::string, long> after; };
    for (const Row& r : {Row{false, host::vbYes, {100, false, "", "", 3}}, Row{true, host::vbNo, {99, true, "", "", 3}},
                         Row{true, host::vbYes, {98, false, "", "", 3}}}) {
        StartAdding();
        if (r.fromName) e.FName.SetFocus();
        ASSERT_EQ(!r.fromName, e.RNum.HasFocus());
        c.host.ExpectBox("You are exiting this record without saving it.", r.answer, "Exit Add Mode");
        e.btnCancelNew.UserClick();
        c.host.Verify();
        EXPECT_EQ(r.after, std::make_tuple(p.LastRNum, p.AddMode, p.ScratchText, p.ScratchValue, c.RecordsOnDisk())) << r.fromName;
    }
}
