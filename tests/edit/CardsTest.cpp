// Typing cards in add mode, the save of every move, copy and undo; records are read back from disk.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "edit/CardCrusade.h"
#include "platform/vb/Strings.h"

using namespace forms;
using vb::RTrim;

using Cards = CardCrusade;

TEST_F(Cards, CardTypedInAddModeIsAppendedAndTheNextCardIsBlank) {
    StartAdding("2");
    const std::pair<Control*, const char*> typed[] = {
        {&e.FName, "Mary"}, {&e.LName, "O'neil"}, {&e.Address, "12 Oak St #2B"}, {&e.Zip, "62701"},
        {&e.State, "IL"},   {&e.City, "Springfield"}, {&e.Phone, "555-1212"}, {&e.txtEmail, "m@x.org"},
        {&e.Age, "30-39"},  {&e.RelPref, "Baptist"}, {&e.Notes, "met at the door, twice\r\nbrought a friend"}};
    for (auto [box, text] : typed) {
        box->SetFocus();
        box->SetText(text);
    }
    c.host.ExpectInput("Enter the Letter(s):", "ni-Smith");
    e.Advertising.SetFocus();
    e.btnSaveNew_Click();

    ASSERT_EQ(9, c.RecordsOnDisk());
    MasterRecord r = c.ReadRecord(9);
    EXPECT_EQ((std::vector<std::string>{"9998", "O'neil", "12 Oak St #2B", "N.....I-Smith",
                                        "met at the door twice  brought a friend", "-2" + std::string(38, '-'), "2",
                                        "1"}),   // a ticked mail-list box is 1 on disk
              (std::vector<std::string>{r.RNum.str(), RTrim(r.LName), RTrim(r.Address), RTrim(r.Advertising),
                                        RTrim(r.Notes), r.Attendance.str(), std::to_string(r.Last),
                                        std::to_string(r.MailList)}));
    EXPECT_EQ(p.MasterRec, p.PreviousRec);   // F2 and F3 copy from the card just saved
    EXPECT_EQ("", e.LName.Text());
    // A card left without a last name, confirmed, is saved as "Unknown"; then add mode ends.
    e.FName.SetText("Lou");
    c.host.ExpectBox("This record appears to be incomplete.", host::vbYes, "Exit Add Mode");
    e.btnSaveExit_Click();
    ASSERT_EQ(std::make_pair(false, 10L), std::make_pair(p.AddMode, c.RecordsOnDisk()));
    EXPECT_EQ("9997Unknown", c.ReadRecord(10).RNum.str() + RTrim(c.ReadRecord(10).LName));
    EXPECT_TRUE(e.SearchBox.HasFocus());
}

TEST_F(Cards, AMoveSavesOnlyWhenSomethingDiffers) {
    // Record 3, Adams, is shown. Another hand changes the file under the screen: a save without a difference must not undo it.
    MasterRecord outside = c.ReadRecord(3);
    outside.City = "Elsewhere";
    p.MasterRec = outside;
    PutRecord(p, 3);
    p.MasterRec = p.UndoRec;
    e.ChgRec_Click(2);
    EXPECT_EQ("Elsewhere", RTrim(c.ReadRecord(3).City));
    // Now an edit: it reaches the file and the list entry follows the new name.
    e.LName.SetText("Zane");
    e.ChgRec_Click(1);
    EXPECT_EQ("Zane", RTrim(c.ReadRecord(8).LName));
    EXPECT_EQ("0106ZANE HA   8", p.SortIndex[2]);
    // Undo: the edit on screen goes, the file keeps what was saved.
    e.FName.SetText("Changed");
    c.host.ExpectBox("Undo will Erase all of the changes", host::vbYes, "Undo Record Changes");
    e.mnuUndo_Click();
    EXPECT_EQ(std::make_pair(std::string("Cy"), true), std::make_pair(e.FName.Text(), Played("S03.wav")));
}

TEST_F(Cards, CopyDropsTheUnsavedEditAndDrawsANumber) {
    e.City.SetText("Typed but not saved");
    c.host.ExpectBox("This will copy the Current Record to a new record in the file.", host::vbYes);
    e.CopyCurrentRecord();
    ASSERT_EQ(9, c.RecordsOnDisk());
    MasterRecord copy = c.ReadRecord(9);
    // The copy keeps the household but no first name and is off the mail list; the original is not touched.
    EXPECT_EQ((std::vector<std::string>{"9998", "Adams", "", "0", "9", "Springfield"}),
              (std::vector<std::string>{copy.RNum.str(), RTrim(copy.LName), RTrim(copy.FName),
                                        std::to_string(copy.MailList), std::to_string(p.IndexCount),
                                        RTrim(c.ReadRecord(3).City)}));
}

TEST_F(Cards, ADiskThatRefusesTheCardLosesNothing) {
    StartAdding("1");
    e.RNum.SetText("0500");
    e.LName.SetText("Full");
    // The file may not grow: the append of the card fails as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit lim = old;
    lim.rlim_cur = static_cast<rlim_t>(8 * MasterRecord::Length);
    setrlimit(RLIMIT_FSIZE, &lim);
    c.host.ExpectBox("The record could not be written to the disk", host::vbOK, "Record Not Saved");
    e.btnSaveNew_Click();
    setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_EQ((std::vector<long>{8, 8, 8}), (std::vector<long>{c.RecordsOnDisk(), p.RecordCount, p.IndexCount}));
    EXPECT_EQ("0500 Full", e.RNum.Text() + " " + e.LName.Text());   // the card is still there to save again
    e.btnSaveNew_Click();
    ASSERT_EQ(9, c.RecordsOnDisk());
    EXPECT_EQ("Full", RTrim(c.ReadRecord(9).LName));
}
