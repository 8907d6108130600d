#pragma once
// The drawing interface of every report: absolute positions in centimetres from
// the top left of the printable page, a current pen position and a current font.
#include <string>

namespace host {

struct PrintFont {
    std::string Name;
    float Size = 10;
    bool Bold = false;
    bool Underline = false;
    bool operator==(const PrintFont&) const = default;
};

// The eleven fixed fonts, made once and shared by all reports.
struct Fonts {
    static const PrintFont fntArial28B;
    static const PrintFont fntArial14;
    static const PrintFont fntArial13U;
    static const PrintFont fntArial13BU;
    static const PrintFont fntArial10U;
    static const PrintFont fntTimes12;
    static const PrintFont fntTimes10;
    static const PrintFont fntTimes8;
    static const PrintFont fntTimes8B;
    static const PrintFont fntCourier7B;
    static const PrintFont fntCourrier8;   // asks for "courrier new" as it stands
};

class PrintSurface {
public:
    virtual ~PrintSurface() = default;
    virtual float CurrentX() const = 0;
    virtual float CurrentY() const = 0;
    virtual void SetCurrentX(float x) = 0;
    virtual void SetCurrentY(float y) = 0;
    virtual void SetFont(const PrintFont& f) = 0;
    virtual const PrintFont& Font() const = 0;
    virtual void SetScaleMode(int mode) = 0;      // 7 = centimetres, the only mode used
    virtual void SetDrawWidth(int w) = 0;
    virtual void Line(float x1, float y1, float x2, float y2) = 0;
    virtual float TextWidth(const std::string& text) = 0;
    // Print with a trailing semicolon (stayOnLine) leaves the pen behind the text;
    // without it the pen goes to the start of the next line. Text is Windows-1252.
    virtual void Print(const std::string& text, bool stayOnLine = false) = 0;
    // Integers print with the leading blank of a positive number.
    void Print(long value, bool stayOnLine = false);
    void Print(int value, bool stayOnLine = false) { Print(static_cast<long>(value), stayOnLine); }
    void PrintEmptyLine() { Print(std::string(), false); }
    virtual void NewPage() = 0;
    virtual void EndDoc() = 0;
    virtual void KillDoc() = 0;
    virtual int Page() const = 0;
    // Height of a line in the current font, in centimetres.
    virtual float LineHeight() const = 0;
};

// Printer dialog settings and results (ShowPrinter).
struct PrinterDialog {
    bool CancelError = true;
    int Flags = 0;       // bit value 2: the operator chose a page range
    int Min = 1, Max = 1000;
    int FromPage = 0, ToPage = 0;
    int Copies = 1;
};

}  // namespace host
