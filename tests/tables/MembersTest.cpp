// The SDA member editor.
#include <gtest/gtest.h>

#include "edit/CardCrusade.h"
#include "store/Members.h"
#include "tables/MembersFm.h"

using namespace forms;

namespace {

struct MemberCrusade : CardCrusade {
    MemberCrusade() {
        p.MemberList = {"", MemberLine("0300", "Zane", "Zed"), MemberLine("0200", "Young", "Yvonne")};
        p.MemberCount = 2;
        SaveMembers(p);
    }
    std::string File() const { return c.ReadFile(p.CrusadeFile("mem")); }
    std::string Shown(Members& m) const {
        return m.MemTitleBox.Caption() + "|" + m.RNUM.Text() + " " + m.LNAME.Text() + " " + m.FNAME.Text() + "|" +
               m.RCounter.Caption();
    }
    // Types a card: number, last name, first name, each left with Enter.
    void Card(Members& m, const std::string& num, const std::string& last, const std::string& first) {
        m.RNUM.SetText(num);
        m.RNUM.SetFocus();
        m.PressKey(vbKeyReturn);
        m.LNAME.SetText(last);
        m.PressKey(vbKeyReturn);
        m.FNAME.SetText(first);
        m.PressKey(vbKeyReturn);
    }
};
using MemberEditor = MemberCrusade;
const char* const Ask = "Enter the Name or Number to Search for";

}  // namespace

TEST_F(MemberEditor, AddedFoundDeletedAndSavedByteForByte) {
    const std::string before = File();
    Members& m = p.MemberEditor();
    c.host.OnModal("Members", [&](Form& f) {
        auto& mm = static_cast<Members&>(f);
        EXPECT_EQ("Edit SDA Members|0300 Zane Zed|1 of 2", Shown(mm));
        mm.PreviousRecord.UserClick();
        EXPECT_TRUE(Played("S02.wav"));
        mm.Command4.UserClick();
    });
    e.btnSDA.UserMouseUp(vbRightButton, 0, 0, 0);
    EXPECT_TRUE(Played("S01.wav"));
    EXPECT_EQ(before, File());

    // Add two cards; a number that is not a number is refused first.
    m.Show();
    m.AddMem.UserClick();
    EXPECT_EQ("Add SDA Members|  |Adding Record Number 3 to 3", Shown(m));
    c.host.ExpectBox("\"12a\" is not a registration number.");
    Card(m, "12a", "Ames", "Ann");
    EXPECT_EQ(2, p.MemberCount);
    // Put right and walked again: leaving the last name with the first name typed ends the card.
    m.RNUM.SetText("12");
    c.host.ExpectBox("Add Another Record?", host::vbYes);
    m.PressKey(vbKeyReturn);
    m.PressKey(vbKeyReturn);
    c.host.ExpectBox("Add Another Record?", host::vbNo);
    Card(m, "0150", "Bo, Jr", "Bea");
    // Sorted by number; the last one added is shown.
    EXPECT_EQ("Edit SDA Members|0150 Bo  Jr Bea|2 of 4", Shown(m));

    // Found by name and by number.
    c.host.ExpectInput(Ask, "zane").ExpectBox("Correct Record?", host::vbYes);
    m.Search.UserClick();
    EXPECT_EQ("Edit SDA Members|0300 Zane Zed|4 of 4", Shown(m));
    c.host.ExpectInput(Ask, "12").ExpectBox("Correct Record?", host::vbYes);
    m.Search.UserClick();
    EXPECT_EQ("0012", m.RNUM.Text());
    c.host.ExpectInput(Ask, "Nobody").ExpectBox("Record Not Found.");
    m.Search.UserClick();
    EXPECT_EQ("0012", m.RNUM.Text());

    // Deleted: No keeps it, Yes takes it out of the file at once.
    const std::string box = "This Will Remove the information for:\r\n         0012  Ann Ames\r\nfrom the SDA Member File.";
    c.host.ExpectBox(box, host::vbNo, "Remove SDA Names");
    m.btnDeleteSDA.UserClick();
    EXPECT_EQ(4, p.MemberCount);
    c.host.ExpectBox(box, host::vbYes, "Remove SDA Names");
    m.btnDeleteSDA.UserClick();
    EXPECT_EQ("0150", m.RNUM.Text());
    m.Command4.UserClick();
    EXPECT_EQ(MemberLine("0150", "Bo, Jr", "Bea") + "\r\n" + MemberLine("0200", "Young", "Yvonne") + "\r\n" +
                  MemberLine("0300", "Zane", "Zed") + "\r\n",
              File());

    // An edit with a bad number stays on screen; a good one is written on close.
    m.Show();
    m.RNUM.SetText("x");
    c.host.ExpectBox("\"x\" is not a registration number.");
    m.NextRecord_Button.UserClick();
    EXPECT_EQ("1 of 3", m.RCounter.Caption());
    m.RNUM.SetText("151");
    m.LNAME.SetText("Boe");
    m.Command4.UserClick();
    EXPECT_EQ(MemberLine("0151", "Boe", "Bea"), File().substr(0, 34));
}

TEST_F(MemberEditor, PrintsPagesAndTheLastDeleteEmptiesTheFile) {
    Members& m = p.MemberEditor();
    for (int i = 0; i < 60; ++i) p.MemberList.push_back(MemberLine(std::to_string(1000 + i), "Last" + std::to_string(i), "First"));
    p.MemberCount = 62;
    m.Show();
    c.host.ExpectPrinter([](host::PrinterDialog&) { return true; });
    m.btnPrintMem.UserClick();
    const auto& out = c.host.printer;
    EXPECT_NE(nullptr, out.FindText("SDA Members"));
    EXPECT_NE(nullptr, out.FindText("1000   Last0, First"));
    EXPECT_NE(nullptr, out.FindText("SDA's Page 1"));
    EXPECT_NE(nullptr, out.FindText("SDA's Page 2"));
    EXPECT_EQ(nullptr, out.FindText("SDA's Page 3"));
    m.Command4.UserClick();

    // Down to none: the file is emptied, so no member comes back at the next load; then add mode.
    p.MemberList = {"", MemberLine("0300", "Zane", "Zed")};
    p.MemberCount = 1;
    m.Show();
    c.host.ExpectBox("0300  Zed Zane", host::vbYes, "Remove SDA Names");
    m.btnDeleteSDA.UserClick();
    EXPECT_EQ("", File());
    EXPECT_EQ("Add SDA Members|  |Adding Record Number 1 to 1", Shown(m));
    m.Command4.UserClick();
    LoadMembers(p);
    EXPECT_EQ(0, p.MemberCount);
    m.Show();
    EXPECT_EQ("Add SDA Members", m.MemTitleBox.Caption());
    m.Command4.UserClick();
}
