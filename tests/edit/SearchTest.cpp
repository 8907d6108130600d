// The search box (number, last name, the member file) and global search.
#include <gtest/gtest.h>

#include "edit/CardCrusade.h"
#include "edit/Navigate.h"
#include "store/SortIndex.h"
#include "platform/vb/Strings.h"

using namespace forms;
using vb::RTrim;

class Search : public CardCrusade {
protected:
    void Find(const std::string& text) {
        e.SearchBox.SetFocus();
        e.TypeText(text);
        e.PressKey(vbKeyReturn, 0, vbKeyReturn);
    }
};

TEST_F(Search, ByNumber) {
    struct Row { std::string typed, last; };
    for (const Row& r : std::vector<Row>{{"12", "Baker"}, {"0105", "Cruz"}, {"101", "Adams"}}) {
        c.host.sounds.clear();
        Find(r.typed);
        EXPECT_EQ(std::make_tuple(r.last, true, std::string()), std::make_tuple(e.LName.Text(), Played("S01.wav"), e.SearchBox.Text()))
            << r.typed;
    }
    c.p.SortName = "zip";
    Find("100");
    EXPECT_EQ("Bell", e.LName.Text());
}

TEST_F(Search, ByNameAsksUntilYesOrCancel) {
    // The B group: Baker, Bell, Brown, Burke.
    c.host.ExpectBox("0012   Ann Baker\r\n12 Oak St, Springfield\r\n\r\nIs this", host::vbNo, {}, host::vbYesNoCancel);
    c.host.ExpectBox("0100   Bob Bell", host::vbYes);
    Find("b");
    EXPECT_EQ("Bell", e.LName.Text());
    EXPECT_EQ(4, p.CurrentIndex);
    c.host.ExpectBox("0012   Ann Baker", host::vbCancel);   // Cancel ends the walk at once
    Find("b");
    EXPECT_EQ((std::vector<std::string>{"Bell", "", "2", "Bell"}),
              (std::vector<std::string>{e.LName.Text(), e.EntInd.Text(), std::to_string(p.RecordPos),
                                        RTrim(p.MasterRec.LName)}));
    p.SortName = "zip";
    c.host.ExpectBox("You have selected the zip Filter.\r\nYou cannot search by name using this Filter.");
    Find("cole");
    EXPECT_EQ("Bell", e.LName.Text());
}

TEST_F(Search, FallsThroughToTheMembers) {
    p.MemberList = {"", "0777Dunn           Rita           ", "0778Dunbar         Sam            "};
    p.MemberCount = 2;
    c.host.ExpectBox("0777 Dunn, Rita   (SDA)\r\n\r\nIs this the Correct Name?", host::vbNo);
    c.host.ExpectBox("0778 Dunbar, Sam   (SDA)", host::vbYes);
    Find("dun");
    EXPECT_EQ("SDA|0778 S. Dunbar         |Adams", e.EntInd.Text() + "|" + e.SDAIdent.Text() + "|" + e.LName.Text());
    EXPECT_TRUE(Played("chimes.wav"));
    Find("778");
    EXPECT_EQ("SDA", e.EntInd.Text());
    c.host.sounds.clear();
    Find("4444");
    EXPECT_EQ("?|4444 Not in file", e.EntInd.Text() + "|" + e.SDAIdent.Text());
    EXPECT_TRUE(Played("S02.wav"));
}

TEST_F(Search, GlobalSearchFindsTheDeletedAndRestoresThem) {
    // Flo Burke (record 6) was deleted; she is not in the list.
    MasterRecord gone = c.ReadRecord(6);
    gone.WorkerCode = "##";
    gone.Phone = "555-9876";
    p.MasterRec = gone;
    PutRecord(p, 6);
    RebuildAlpha(p);
    p.CurrentIndex = 1;
    FetchCurrentRecord(p);
    e.ShowRecord();

    c.host.ExpectInput("You can search for all or part of the First Name", "9876");
    c.host.ExpectBox("0104   Flo Burke\r\n12 Oak St\r\n\r\nThis Record had been deleted", host::vbYes);
    c.host.ExpectBox("The Record for Flo Burke has been successfully restored to the INTEREST file.");
    e.mnuGlobal_Click();
    EXPECT_EQ((std::vector<std::string>{"00", "8", "Burke", "6"}),
              (std::vector<std::string>{c.ReadRecord(6).WorkerCode.str(), std::to_string(p.IndexCount),
                                        e.LName.Text(), std::to_string(p.RecordPos)}));

    // Live people in file order; No walks on, Yes shows.
    c.host.ExpectInput("You can search for all or part of the First Name", "oak");
    c.host.ExpectBox("0012   Ann Baker\r\n12 Oak St, Springfield, 555-0100", host::vbNo, "Global Search for: oak");
    c.host.ExpectBox("0100   Bob Bell", host::vbYes);
    e.mnuGlobal_Click();
    EXPECT_EQ("Bell", e.LName.Text());
    c.host.ExpectInput("You can search for all or part of the First Name", "Nowhere");
    c.host.ExpectBox("Search item: Nowhere- not found");
    e.mnuGlobal_Click();
    EXPECT_EQ("Bell Bell", e.LName.Text() + " " + RTrim(p.MasterRec.LName));
}
