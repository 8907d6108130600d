#include "exchange/CsvText.h"

#include <algorithm>

#include "platform/vb/Cp1252.h"

namespace exchange {

namespace {

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

std::string Utf16ToUtf8(const std::string& bytes, bool bigEndian) {
    std::string out;
    out.reserve(bytes.size() / 2);
    auto unit = [&](std::size_t i) -> char32_t {
        auto a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
        return bigEndian ? (a << 8 | b) : (b << 8 | a);
    };
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        char32_t u = unit(i);
        if (u >= 0xD800 && u < 0xDC00 && i + 3 < bytes.size()) {
            char32_t lo = unit(i + 2);
            if (lo >= 0xDC00 && lo < 0xE000) {
                AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (lo - 0xDC00));
                i += 2;
                continue;
            }
        }
        AppendUtf8(out, u >= 0xD800 && u < 0xE000 ? U'?' : u);
    }
    return out;
}

bool StartsWith(const std::string& s, const char* prefix, std::size_t n) {
    return s.size() >= n && s.compare(0, n, prefix, n) == 0;
}

}  // namespace

bool IsUtf8(const std::string& bytes) {
    const std::size_t n = bytes.size();
    std::size_t i = 0;
    while (i < n) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c < 0x80) {
            ++i;
            continue;
        }
        int more = c >= 0xC2 && c <= 0xDF ? 1 : c >= 0xE0 && c <= 0xEF ? 2 : c >= 0xF0 && c <= 0xF4 ? 3 : -1;
        if (more < 0 || i + static_cast<std::size_t>(more) >= n) return false;
        const auto c1 = static_cast<unsigned char>(bytes[i + 1]);
        // Overlong forms, surrogates and code points past U+10FFFF are not UTF-8.
        if ((c == 0xE0 && c1 < 0xA0) || (c == 0xED && c1 > 0x9F) || (c == 0xF0 && c1 < 0x90) ||
            (c == 0xF4 && c1 > 0x8F))
            return false;
        for (int k = 1; k <= more; ++k)
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80) return false;
        i += static_cast<std::size_t>(more) + 1;
    }
    return true;
}

CrusadeText ToCrusadeText(std::string bytes) {
    CrusadeText out;
    if (StartsWith(bytes, "\xFF\xFE", 2) || StartsWith(bytes, "\xFE\xFF", 2)) {
        out.kind = TextKind::Utf16;
        bytes = vb::Utf8ToCp1252(Utf16ToUtf8(bytes, bytes[0] == '\xFE'));
    } else if (StartsWith(bytes, "\xEF\xBB\xBF", 3)) {
        out.kind = TextKind::Utf8;
        bytes = vb::Utf8ToCp1252(bytes.substr(3));
    } else if (std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }) &&
               IsUtf8(bytes)) {
        out.kind = TextKind::Utf8;
        bytes = vb::Utf8ToCp1252(bytes);
    }
    const auto nul = std::remove(bytes.begin(), bytes.end(), '\0');
    out.nulsDropped = static_cast<long>(bytes.end() - nul);
    bytes.erase(nul, bytes.end());
    out.text = std::move(bytes);
    return out;
}

const char* KindName(TextKind kind) {
    switch (kind) {
    case TextKind::Utf8: return "UTF-8, converted to the crusade's characters";
    case TextKind::Utf16: return "UTF-16, converted to the crusade's characters";
    case TextKind::Ansi: break;
    }
    return "Windows characters, read as they stand";
}

}  // namespace exchange
