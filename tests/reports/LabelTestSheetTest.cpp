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
using Op = RecordingSurface::Op;

namespace {

using Spots = std::vector<std::pair<float, float>>;

// Where texts in a font began, from Y on, in order.
Spots Where(const RecordingSurface& out, const PrintFont& font, float fromY = 0) {
    Spots s;
    for (const Op* op : out.TextOps())
        if (op->font == font && op->y >= fromY - 0.001f) s.emplace_back(op->x, op->y);
    std::sort(s.begin(), s.end());
    return s;
}

}  // namespace

// The sheet is only worth holding against a real sheet if its texts stand where
// the labels and cards print theirs, and its outlines stay where the paper is.
TEST(LabelTestSheet, TextsWhereLabelsAndCardsPrintOutlinesWhereThePaperIs) {
    std::vector<std::pair<float, float>> firstOutline;
    for (auto [top, right] : std::vector<std::pair<long, long>>{{0, 0}, {4, 3}, {-2, 5}}) {
        SCOPED_TRACE(std::to_string(top) + " down, " + std::to_string(right) + " right");
        TestCrusade c;
        std::vector<MasterRecord> people;
        for (int i = 0; i < 12; ++i) people.push_back(MakePerson(std::to_string(2000 + i), "Al", "Name" + std::to_string(i)));
        c.ShowOnEditScreen(people);
        c.p.LabelTop = top;
        c.p.LabelRight = right;
        RecordingSurface& out = c.host.printer;
        const auto accept = [](PrinterDialog&) { return true; };

        out.Clear();
        c.host.ExpectPrinter(accept);
        PrintLabelTestSheet(c.p);
        EXPECT_EQ(out.PagesPrinted(), 1);
        const Spots labels = Where(out, Fonts::fntTimes12);
        const float cardRow3 = static_cast<float>(top) / 10 + 1.0f + 2 * 5.08f;
        const Spots cards = Where(out, Fonts::fntArial13BU);
        ASSERT_EQ(out.Lines().size(), (12u + 6u) * 4u);
        const Op& corner = *out.Lines().front();
        if (firstOutline.empty()) firstOutline.emplace_back(corner.x, corner.y);
        EXPECT_EQ(std::make_pair(corner.x, corner.y), firstOutline.front());   // offsets move texts, not paper
        EXPECT_NEAR(corner.x, 0.47625f - 0.635f, 1e-5);
        EXPECT_NEAR(corner.y, 1.27f - 0.635f, 1e-5);

        // Twelve labels: four rows of three.
        out.Clear();
        RebuildAlpha(c.p);
        c.p.SortName = "marked";
        c.host.ExpectBox("Is this what you want to do?", vbYes);
        c.host.ExpectPrinter(accept);
        prnMailLabels(c.p);
        EXPECT_EQ(labels, Where(out, Fonts::fntTimes12));

        // Ten cards: the sheet shows the last three rows.
        out.Clear();
        RebuildAlpha(c.p);
        c.p.SortName = "IntCard";
        c.host.ExpectPrinter(accept);
        c.host.ExpectBox("Cards printed", vbYes);
        InterestCard2x4(c.p);
        const Spots printed = Where(out, Fonts::fntArial13BU, cardRow3);
        EXPECT_EQ(printed.size(), 2u * 3u * 2u);   // name and number of two cards a row
        EXPECT_EQ(cards, printed);
    }
}

TEST(LabelTestSheet, CancelPrintsNothing) {
    TestCrusade c;
    c.host.ExpectPrinter([](PrinterDialog&) { return false; });
    PrintLabelTestSheet(c.p);
    EXPECT_EQ(c.host.printer.Documents(), 0);
    EXPECT_TRUE(c.host.printer.TextOps().empty());
}
