// The mail-list selection over the households of the clean-up list.
#include <gtest/gtest.h>

#include "reports/PrintReports.h"
#include "store/Records.h"
#include "support/TestCrusade.h"
#include "tables/FamilyMem.h"

using forms::vbLeftButton;

namespace {

// Oak St: Ann and Bob with a label, Cy without (two labels: a household to sort out).
// Elm St: Dee alone without a label. Fir St: Eve alone with one, which needs nothing.
struct Households {
    TestCrusade c;
    PrintReports* pr = nullptr;
    Households() {
        auto at = [](const char* num, const char* first, const char* address, int label, const char* age) {
            MasterRecord r = MakePerson(num, first, "Zee", "1---------------------------------------");
            r.Address = address;
            r.MailList = static_cast<std::int16_t>(label);
            r.Age = age;
            return r;
        };
        c.ShowOnEditScreen({at("0101", "Ann", "1 Oak St", -1, "3"), at("0102", "Bob", "1 Oak St", -1, "4"),
                            at("0103", "Cy", "1 Oak St", 0, "5"), at("0104", "Dee", "2 Elm St", 0, "6"),
                            at("0105", "Eve", "3 Fir St", -1, "2")});
        c.p.Edit().mnuPreAlpha_Click();
        pr = &c.p.Reports();
    }
    ~Households() { c.host.Verify(); }
    std::string Labels() const {
        std::string s;
        for (long i = 1; i <= 5; ++i) s += c.ReadRecord(i).MailList ? "L" : "-";
        return s;
    }
    // What the form shows: the counter, then each person with tick and age.
    static std::string Shown(FamilyMem& f) {
        std::string s = f.RecordCounter.Caption() + ":";
        for (int i = 1; i <= f.ckFamily.UBound(); ++i)
            if (f.ckFamily[i].Visible())
                s += " " + f.ckFamily[i].Caption() + (f.ckFamily[i].Value() ? "+" : "") + f.MLAge[i].Caption();
        return s;
    }
};

}  // namespace

TEST(FamilyMem, WalksTheHouseholdsAndSavesEveryTickIncludingTheLastShown) {
    Households h;
    std::vector<std::string> seen;
    h.c.host.OnModal("FamilyMem", [&](forms::Form& form) {
        auto& f = static_cast<FamilyMem&>(form);
        seen.push_back(Households::Shown(f));
        h.c.host.ExpectBox("You have reached the begining of the list!");
        f.btnPrevFmy.UserClick();
        f.ckFamily[2].UserClick();   // Bob gets no label
        f.btmNextFmy.UserClick();
        seen.push_back(Households::Shown(f) + " " + h.Labels());
        h.c.host.ExpectBox("You have reached the end of the list!");
        f.btmNextFmy.UserClick();
        f.FirstFmy.UserClick();
        f.LastFamily.UserClick();
        seen.push_back(Households::Shown(f));
        f.ckFamily[1].UserClick();   // Dee gets one, and the form is closed at once
        f.SelMlLClose.UserClick();
    });
    h.pr->mnuCleanMList.UserClick();
    EXPECT_EQ(std::vector<std::string>({"1 of 2: Ann Zee+3 Bob Zee+4 Cy Zee5", "2 of 2: Dee Zee6 L---L",
                                        "2 of 2: Dee Zee6"}),
              seen);
    // Saved on close as well: the old program kept the last household's ticks only in its marks.
    EXPECT_EQ("L--LL", h.Labels());
}

// A click in the clean-up list with "M" opens the household of that line; the records it
// marks are written, and the clicked one is not written back over them.
TEST(FamilyMem, TheMClickOpensTheHouseholdOfTheLine) {
    Households h;
    h.c.host.OnModal("FamilyMem", [](forms::Form& f) { f.Unload(); });
    h.pr->mnuCleanMList.UserClick();
    std::string shown;
    h.c.host.OnModal("FamilyMem", [&](forms::Form& form) {
        auto& f = static_cast<FamilyMem&>(form);
        shown = Households::Shown(f);
        f.ckFamily[1].UserClick();   // Ann, the line clicked, loses her label
        f.SelMlLClose.UserClick();
    });
    h.pr->Info.UserMouseDown(vbLeftButton, 0, 2000, 10);   // line 1: Ann
    EXPECT_EQ("1 of 2: Ann Zee+3 Bob Zee+4 Cy Zee5", shown);
    EXPECT_EQ("-L--L", h.Labels());
}
