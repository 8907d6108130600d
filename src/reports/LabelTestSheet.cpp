// The label test sheet: outlines at the paper's own positions, texts through the
// same row printing and geometry as the labels and cards, so that what the sheet
// shows is what a box of labels will get.
#include "reports/LabelTestSheet.h"

#include <string>

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/Labels.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/SelPrinter.h"
#include "store/MasterRecord.h"

using namespace host;
using namespace vb;

namespace {

// Long texts in every field, so the sheet shows how far a text can reach.
MasterRecord SamplePerson() {
    MasterRecord r;
    ClearRecord(r);
    r.RNum = "1234";
    r.FName = "Mary Elizabeth";
    r.LName = "Featherstonehaugh";
    r.Address = "12345 Sample Boulevard Apt 204";
    r.City = "San Bernardino";
    r.State = "CA";
    r.Zip = "92401-1234";
    r.Phone = "909-555-0123";
    r.Age = "4";
    r.Advertising = "HB";
    r.RelPref = "Baptist";
    r.IntLevel = "A";
    r.Visits = "VPL";
    r.WorkerCode = "07";
    r.MapCode = "B-12";
    r.Attendance = "1-1111-11-1--1111111-------------------";
    r.Decisions = "1-2";
    r.Notes = "Notes print on this line, as far as the card lets them";
    return r;
}

void Outline(PrintSurface& out, const SheetStock& s, int row, int column) {
    const float m = LabelTestSheetLayout::PrintableMargin;
    const float x1 = s.left + static_cast<float>(column) * s.columnPitch - m;
    const float y1 = s.top + static_cast<float>(row) * s.rowPitch - m;
    const float x2 = x1 + s.width, y2 = y1 + s.height;
    out.Line(x1, y1, x2, y1);
    out.Line(x2, y1, x2, y2);
    out.Line(x2, y2, x1, y2);
    out.Line(x1, y2, x1, y1);
}

}  // namespace

void PrintLabelTestSheet(ReportRun& p) {
    const SelPrinterResult dialog = SelPrinter(p.host);
    if (!dialog.Ok) return;
    reports::ReportGuard guard(p);
    PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    reports::Pager pager(p.host, out, dialog.FromPage);
    using L = LabelTestSheetLayout;

    out.SetScaleMode(7);
    out.SetFont(Fonts::fntTimes8);
    out.SetCurrentY(L::NoteY);
    out.SetCurrentX(0);
    out.Print("Label test sheet. Offsets of the preferences: " + CStr(p.LabelTop) + " mm down, " +
              CStr(p.LabelRight) + " mm right. Hold it against a sheet of labels (top) or of cards (bottom): "
              "each text should stand inside its outline.");

    out.SetDrawWidth(1);
    for (int row = 0; row < L::LabelRows; ++row)
        for (int column = 0; column < L::Labels.columns; ++column) Outline(out, L::Labels, row, column);
    for (int row = L::FirstCardRow; row < L::Cards.rows; ++row)
        for (int column = 0; column < L::Cards.columns; ++column) Outline(out, L::Cards, row, column);

    const MasterRecord sample = SamplePerson();
    const MailLabelGeometry labels = MailLabelGeometry::For(p);
    const LabelLines label = LabelTexts(sample);
    // Y grows row by row as on the sheets themselves, to the same hundredth.
    out.SetFont(Fonts::fntTimes12);
    float y = labels.firstRowY;
    for (int row = 0; row < L::LabelRows; ++row, y += MailLabelGeometry::RowPitch)
        PrintLabelRow(out, labels, y, {label, label, label});
    const CardGeometry cards = CardGeometry::For(p);
    const auto card = CardTexts(sample);
    y = cards.firstRowY;
    for (int row = 0; row < L::Cards.rows; ++row, y += CardGeometry::RowPitch)
        if (row >= L::FirstCardRow) PrintCardRow(out, cards, y, {card, card});

    out.SetFont(Fonts::fntTimes8);
    out.SetCurrentY(L::FootY);
    out.SetCurrentX(0);
    out.Print("Outlines: address labels of 2 5/8 x 1 in., 30 a sheet, rows 1 to 4; cards of 4 x 2 in., 10 a sheet, "
              "rows 3 to 5; for a printer that prints from a quarter inch in from the edges.");
    pager.Finish();
    guard.Done();
}
