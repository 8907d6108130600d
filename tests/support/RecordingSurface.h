#pragma once
// A print surface that keeps every call, so report tests can check positions,
// fonts and texts without a printer. Every character is CharWidthPerPoint * size
// cm wide whatever the face: tests that depend on widths use TextWidth.
#include <string>
#include <vector>

#include "platform/host/PrintSurface.h"

class RecordingSurface : public host::PrintSurface {
public:
    static constexpr float CharWidthPerPoint = 0.018f;
    static constexpr float LinePerPoint = 0.04f;

    enum class OpKind { Font, Move, Text, Line, ScaleMode, DrawWidth, NewPage, EndDoc, KillDoc };

    struct Op {
        OpKind kind = OpKind::Move;
        int doc = 0;              // index among the documents that were kept
        int page = 1;             // page of that document
        float x = 0, y = 0;       // Move: the new pen; Text: where the text starts; Line: first point
        float x2 = 0, y2 = 0;     // Line: second point
        std::string text;         // Text: the Windows-1252 bytes
        host::PrintFont font;     // Font, Text: the font in use
        int value = 0;            // ScaleMode, DrawWidth: the value; Line: the draw width
    };

    // Everything recorded, in order; a KillDoc leaves only itself of its document.
    std::vector<Op> ops;
    int endDocs = 0;   // documents ended while open
    int killDocs = 0;  // KillDoc calls, open document or not
    // A printer that stops taking pages: NewPage throws the runtime's printer error.
    bool refuseNewPage = false;

    int Documents() const { return static_cast<int>(docPages_.size()); }
    bool DocumentOpen() const { return open_; }
    // A NewPage with nothing after it before EndDoc makes no page, as on the printer.
    int PagesPrinted() const;

    std::vector<const Op*> TextOps() const { return OfKind(OpKind::Text); }
    std::vector<std::string> Texts() const;
    std::vector<std::string> TextsOnPage(int page, int doc = 0) const;
    // The first text equal to, or else containing, the given bytes; null if none.
    const Op* FindText(const std::string& text) const;
    std::vector<const Op*> Lines() const { return OfKind(OpKind::Line); }
    void Clear() { *this = RecordingSurface(); }

    float CurrentX() const override { return x_; }
    float CurrentY() const override { return y_; }
    void SetCurrentX(float x) override;
    void SetCurrentY(float y) override;
    void SetFont(const host::PrintFont& f) override;
    const host::PrintFont& Font() const override { return font_; }
    void SetScaleMode(int mode) override;
    void SetDrawWidth(int w) override;
    void Line(float x1, float y1, float x2, float y2) override;
    float TextWidth(const std::string& text) override;
    using host::PrintSurface::Print;
    void Print(const std::string& text, bool stayOnLine = false) override;
    void NewPage() override;
    void EndDoc() override;
    void KillDoc() override;
    int Page() const override { return page_; }
    float LineHeight() const override { return LinePerPoint * font_.Size; }

private:
    std::vector<const Op*> OfKind(OpKind kind) const;
    Op Make(OpKind kind) const;
    void Record(OpKind kind, int value);
    void MoveTo(float x, float y);
    void Ink();
    void Close();

    float x_ = 0, y_ = 0;
    host::PrintFont font_{"Arial", 10, false, false};
    int drawWidth_ = 1;
    int page_ = 1;
    bool open_ = false;
    std::vector<int> docPages_;   // pages of each kept document
    std::size_t docStart_ = 0;
};
