#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "reports/LabelTestSheet.h"
#include "reports/Reports.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;

// The sheet is only worth holding against a real sheet if its texts stand where
// the labels and cards print theirs, and its outlines stay where the paper is.
TEST(LabelTestSheet, TextsWhereLabelsAndCardsPrintOutlinesWhereThePaperIs) {
    for (auto [top, right] : std::vector<std::pair<long, long>>{{0, 0}, {4, 3}, {-2, 5}}) {
        SCOPED_TRACE(std::to_string(top) + " down, " + std::to_string(right) + " right");
        TestCrusade c;
        std::vector<MasterRecord> people;
        for (int i = 0; i < 12; ++i) people.push_back(MakePerson(std::to_string(2000 + i), "Al", "N" + std::to_string(i)));
        c.ShowOnEditScreen(people);
        c.p.LabelTop = top, c.p.LabelRight = right;
        RecordingSurface& out = c.host.printer;
        // Where the texts of a font began, from Y on.
        auto spots = [&](const PrintFont& font, float fromY = 0) {
            std::vector<std::pair<float, float>> s;
            for (const auto* op : out.TextOps())
                if (op->font == font && op->y >= fromY - 0.001f) s.emplace_back(op->x, op->y);
            std::sort(s.begin(), s.end());
            return s;
        };
        auto run = [&](auto print, const std::string& kind, const std::string& box) {
            out.Clear();
            RebuildAlpha(c.p);
            c.p.SortName = kind;
            if (kind == "marked") c.host.ExpectBox(box, vbYes);
            c.host.ExpectPrinter([](PrinterDialog&) { return true; });
            if (kind == "IntCard") c.host.ExpectBox(box, vbYes);
            print(c.p);
        };

        run(PrintLabelTestSheet, "alpha", "");
        const auto labels = spots(Fonts::fntTimes12);
        const float cardRow3 = static_cast<float>(top) / 10 + 1.0f + 2 * 5.08f;
        const auto cards = spots(Fonts::fntArial13BU);
        ASSERT_EQ(out.Lines().size(), (12u + 6u) * 4u);
        EXPECT_NEAR(out.Lines().front()->x, 0.47625f - 0.635f, 1e-5);   // offsets move texts, not paper
        EXPECT_NEAR(out.Lines().front()->y, 1.27f - 0.635f, 1e-5);

        run(prnMailLabels, "marked", "Is this what you want to do?");   // four rows of three labels
        EXPECT_EQ(labels, spots(Fonts::fntTimes12));
        run(InterestCard2x4, "IntCard", "Cards printed");   // ten cards: the sheet shows the last three rows
        EXPECT_EQ(spots(Fonts::fntArial13BU, cardRow3).size(), 12u);
        EXPECT_EQ(cards, spots(Fonts::fntArial13BU, cardRow3));
    }
}
