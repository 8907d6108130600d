#pragma once
// One page to hold against a real sheet before a box of labels or cards is
// printed: the outlines of the sheets' labels where they are on the paper, and
// the texts where the labels and cards print them with the operator's offsets.
// The label sheet's first four rows take the top of the page and the card
// sheet's last three rows the rest: they meet at the same 4.5 in. line.

struct ReportRun;

// The two sheets as they are on the paper, in centimetres from its corner.
struct SheetStock {
    float left, top;     // the first label's corner
    float width, height;
    float columnPitch, rowPitch;
    int columns, rows;
};
struct LabelTestSheetLayout {
    // Avery 5160 address labels, 2 5/8 by 1 in., and Avery 5163 cards, 4 by 2 in.
    static constexpr SheetStock Labels{0.47625f, 1.27f, 6.6675f, 2.54f, 6.985f, 2.54f, 3, 10};
    static constexpr SheetStock Cards{0.396875f, 1.27f, 10.16f, 5.08f, 10.63625f, 5.08f, 2, 5};
    static constexpr int LabelRows = 4;       // label rows 1 to 4 at the top
    static constexpr int FirstCardRow = 2;    // card rows 3 to 5 below them (0-based)
    // Positions are taken from the printable corner, which a laser printer (and
    // the PDF) puts a quarter inch in from the paper's edges.
    static constexpr float PrintableMargin = 0.635f;
    static constexpr float NoteY = 0.1f;
    static constexpr float FootY = 26.1f;
};

// Asks the printer dialog and prints the sheet; Cancel prints nothing.
void PrintLabelTestSheet(ReportRun& p);
