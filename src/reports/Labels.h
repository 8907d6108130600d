#pragma once
// Sheets of address labels and of interest cards: where each one prints.
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace host { class PrintSurface; }
struct ProgramState;
struct MasterRecord;

// Three across, ten down; centimetres from the printable page's corner.
struct MailLabelGeometry {
    static constexpr int PerSheet = 30;
    static constexpr float RowPitch = 2.52f;
    static constexpr float TextRoom = 6.9f;   // a text stops short of the next label
    float firstRowY = 1.0f;
    std::array<float, 3> columnX{};
    static MailLabelGeometry For(const ProgramState& p);
};

// Avery 5163: two across, five down.
struct CardGeometry {
    static constexpr int PerSheet = 10;
    static constexpr float RowPitch = 5.08f;
    static constexpr float RightOffset = 5.0f;    // the right half of a card
    static constexpr float NumberOffset = 7.0f;   // the registration number on the name line
    static constexpr float TextRoom = 9.4f;       // what a card holds from its text column
    float firstRowY = 1.0f;
    std::array<float, 2> columnX{};
    static CardGeometry For(const ProgramState& p);
};

// The text cut at its end until it fits the room, in the surface's current font.
std::string FitText(host::PrintSurface& out, const std::string& text, float room);

// The texts of one interest card, row by row: left column and right column.
std::vector<std::pair<std::string, std::string>> CardTexts(const MasterRecord& r);

// The three lines of a mail label, and a row of three labels (an empty text prints nothing).
using LabelLines = std::array<std::string, 3>;
using LabelRowTexts = std::array<LabelLines, 3>;
LabelLines LabelTexts(const MasterRecord& r);
// A row of labels from its Y, in the surface's font, as the labels print it.
void PrintLabelRow(host::PrintSurface& out, const MailLabelGeometry& g, float y, const LabelRowTexts& texts);
// A row of two cards from its Y, fonts included; a card with no texts stays empty.
using CardRowTexts = std::array<std::vector<std::pair<std::string, std::string>>, 2>;
void PrintCardRow(host::PrintSurface& out, const CardGeometry& g, float y, const CardRowTexts& cards);
