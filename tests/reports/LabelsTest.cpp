#include <gtest/gtest.h>

#include "reports/Labels.h"
#include "reports/Reports.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;
using Op = RecordingSurface::Op;

namespace {

// `people` numbered 1000 up, all in the alphabetical list, with the label offsets set.
struct Sheets {
    TestCrusade c;
    explicit Sheets(int people, const std::string& kind) {
        std::vector<MasterRecord> recs;
        for (int i = 0; i < people; ++i) {
            MasterRecord r = MakePerson(std::to_string(1000 + i), "Pat", "Name" + std::to_string(1000 + i));
            r.WorkerCode = i % 2 ? "03" : "01";
            r.Last = 1;
            recs.push_back(r);
        }
        c.ShowOnEditScreen(recs);
        c.p.LabelTop = 3;
        c.p.LabelRight = 2;
        c.p.SortName = kind;
    }
    ~Sheets() { c.host.Verify(); }
    void Printer(int fromPage = 1) {
        c.host.ExpectPrinter([fromPage](PrinterDialog& d) {
            if (fromPage > 1) {
                d.Flags |= 2;
                d.FromPage = fromPage;
                d.ToPage = 1000;
            }
            return true;
        });
    }
    // Texts that start a line at a column of the sheet, page by page.
    std::vector<const Op*> Starts(float x) const {
        std::vector<const Op*> out;
        for (const Op* op : c.host.printer.TextOps())
            if (std::abs(op->x - x) < 1e-4f && !op->text.empty()) out.push_back(op);
        return out;
    }
};

}  // namespace

TEST(Labels, MailLabelsFillSheetsOfThirtyAtTheirPitchAndOffsets) {
    struct Case {
        int people, fromPage, pages;
        int labelsOnLastPage;
    } cases[] = {{1, 1, 1, 1}, {30, 1, 1, 30}, {31, 1, 2, 1}, {31, 2, 1, 1}};
    for (const Case& k : cases) {
        Sheets s(k.people, "attend");
        const std::string many = std::to_string(k.people) + " Mail Labels are being sent";
        s.c.host.ExpectBox(many, vbYes);
        s.Printer(k.fromPage);
        prnMailLabels(s.c.p);
        const RecordingSurface& out = s.c.host.printer;
        EXPECT_EQ(out.PagesPrinted(), k.pages) << k.people;
        EXPECT_FALSE(out.DocumentOpen());
        // Names start at the first column X, one label row every 2.52 cm from the top offset.
        std::vector<const Op*> names;
        for (const Op* op : s.Starts(0.2f + 0.5f))
            if (op->text.rfind("Pat ", 0) == 0) names.push_back(op);
        ASSERT_FALSE(names.empty());
        EXPECT_NEAR(names[0]->y, 0.3f + 1.0f, 1e-4f);
        EXPECT_EQ(names[0]->font, Fonts::fntTimes12);
        int onLast = 0;
        for (const Op* op : out.TextOps())
            if (op->page == k.pages && op->text.rfind("Pat ", 0) == 0) ++onLast;
        EXPECT_EQ(onLast, k.labelsOnLastPage) << k.people;
        if (names.size() > 1) {
            EXPECT_NEAR(names[1]->y - names[0]->y, 2.52f, 1e-4f);
        }
        if (k.people == 30) {
            EXPECT_TRUE(out.FindText("Pat Name1029"));
            EXPECT_EQ(s.Starts(0.2f + 14.5f).size(), 30u);   // ten labels of three lines in column 3
        }
    }
}

TEST(Labels, RefusalsAndBadInputLeaveNoDocument) {
    {
        Sheets s(31, "attend");
        s.c.host.ExpectBox("You will need 2 pages of labels.", vbYes);
        s.Printer(3);
        s.c.host.ExpectBox("greater than the total number of pages", vbOK, "Print Error");
        prnMailLabels(s.c.p);
        EXPECT_EQ(s.c.host.printer.PagesPrinted(), 0);
        EXPECT_FALSE(s.c.host.printer.DocumentOpen());
    }
    {
        Sheets s(2, "attend");
        s.c.host.ExpectBox("Is this what you want to do?", vbNo);
        prnMailLabels(s.c.p);
        s.c.host.ExpectBox("Is this what you want to do?", vbYes);
        s.c.host.ExpectPrinter([](PrinterDialog&) { return false; });
        prnMailLabels(s.c.p);
        EXPECT_EQ(s.c.host.printer.PagesPrinted(), 0);
        EXPECT_FALSE(s.c.host.printer.DocumentOpen());
    }
    {
        // A name longer than its label stops short of the next one.
        Sheets s(2, "attend");
        MasterRecord r = s.c.ReadRecord(1);
        r.FName = "Maximiliana-Josephine";
        r.LName = "Vandenberghe-Oosterh";
        s.c.p.MasterRec = r;
        PutRecord(s.c.p, 1);
        s.c.host.ExpectBox("2 Mail Labels", vbYes);
        s.Printer();
        prnMailLabels(s.c.p);
        const Op* name = s.c.host.printer.FindText("Maximiliana");
        ASSERT_TRUE(name);
        EXPECT_LE(s.c.host.printer.TextWidth(name->text), MailLabelGeometry::TextRoom);
        EXPECT_LT(name->text.size(), std::string("Maximiliana-Josephine Vandenberghe-Oosterh").size());
    }
}

TEST(Labels, InterestCardsTenToASheetSetTheFlagOnceAndOnlyForCardsPrinted) {
    struct Case {
        int people, pages;
    } cases[] = {{10, 1}, {11, 2}};
    for (const Case& k : cases) {
        Sheets s(k.people, "IntCard");
        RebuildAlpha(s.c.p);
        s.c.p.SortName = "IntCard";
        s.Printer();
        s.c.host.ExpectBox("You will need " + std::to_string(k.pages) + " sheets of Avery 5163", vbYes);
        InterestCard2x4(s.c.p);
        const RecordingSurface& out = s.c.host.printer;
        EXPECT_EQ(out.PagesPrinted(), k.pages);
        // Team order: the cards of team 01 come first; each card's name line at its column.
        std::vector<const Op*> names = s.Starts(0.2f + 0.55f);
        ASSERT_FALSE(names.empty());
        EXPECT_EQ(names[0]->font, Fonts::fntArial13BU);
        EXPECT_NEAR(names[0]->y, 1.3f, 1e-4f);
        const Op* number = out.FindText("01/ 1000");
        ASSERT_TRUE(number);
        EXPECT_NEAR(number->x, 0.2f + 0.55f + 7.0f, 1e-4f);
        const Op* second = out.FindText("01/ 1002");
        ASSERT_TRUE(second);
        EXPECT_NEAR(second->x, 0.2f + 11.0f + 7.0f, 1e-4f) << "two cards across";
        const Op* religion = out.FindText("Religion: Baptist");
        ASSERT_TRUE(religion);
        EXPECT_NEAR(religion->x, 0.2f + 0.55f + 5.0f, 1e-4f);
        for (int n = 1; n <= k.people; ++n) EXPECT_EQ(s.c.ReadRecord(n).IntFlag, -1) << n;
        EXPECT_EQ(s.c.p.SortName, "alpha");

        // The card list built again from the file holds nobody now.
        std::vector<std::string> none{""};
        for (int n = 1; n <= k.people; ++n)
            if (s.c.ReadRecord(n).IntFlag == 0) none.push_back(AlphaEntry(s.c.p, n));
        s.c.p.SortIndex = none;
        s.c.p.IndexCount = static_cast<int>(none.size()) - 1;
        s.c.p.SortName = "IntCard";
        s.c.host.ExpectBox("There are no new labels to print");
        InterestCard2x4(s.c.p);
    }
    // A list chosen by the operator, limited to the active: nobody here came 4 times.
    Sheets s(3, "attend");
    RebuildAlpha(s.c.p);
    s.c.p.SortName = "attend";
    s.c.host.ExpectBox("Is this the list that you want to print interest card labels for?", vbYes)
        .ExpectBox("attended 4 or more times?", vbYes)
        .ExpectBox("assigned Team Code?", vbNo)
        .ExpectBox("There are no new labels to print");
    InterestCard2x4(s.c.p);
    EXPECT_EQ(s.c.ReadRecord(1).IntFlag, 0);
}
