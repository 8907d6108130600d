#pragma once
// A text file from another program, brought to the crusade's Windows-1252
// before Input # reads it: spreadsheets save UTF-8 (often with a byte order
// mark) and at times UTF-16, which would otherwise land in the record file as
// two or three characters per accent.
#include <string>

namespace exchange {

enum class TextKind { Ansi, Utf8, Utf16 };

struct CrusadeText {
    std::string text;        // Windows-1252
    TextKind kind = TextKind::Ansi;
    long nulsDropped = 0;    // NUL bytes taken out: a record holds blank-padded text only
};

// UTF-8 with or without a byte order mark, and UTF-16 with one, are converted;
// anything else that is not valid UTF-8 is taken as Windows-1252 as it stands.
CrusadeText ToCrusadeText(std::string bytes);
bool IsUtf8(const std::string& bytes);
// How the kind is named to the operator.
const char* KindName(TextKind kind);

}  // namespace exchange
