#include "platform/vb/Cp1252.h"

#include <cstdint>

namespace vb {

namespace {

// 0x80-0x9F. The five codes Windows leaves undefined map to the C1 control
// of the same value so that every byte survives a round trip.
constexpr char32_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

char FromCodePoint(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
    for (int i = 0; i < 32; ++i)
        if (kHigh[i] == cp) return static_cast<char>(0x80 + i);
    return '?';
}

}  // namespace

std::string Cp1252ToUtf8(const std::string& bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 4);
    for (unsigned char c : bytes) {
        if (c < 0x80) out += static_cast<char>(c);
        else if (c < 0xA0) AppendUtf8(out, kHigh[c - 0x80]);
        else AppendUtf8(out, c);
    }
    return out;
}

std::string Utf8ToCp1252(const std::string& utf8) {
    std::string out;
    out.reserve(utf8.size());
    const std::size_t n = utf8.size();
    std::size_t i = 0;
    while (i < n) {
        const unsigned char c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x80) {
            out += static_cast<char>(c);
            ++i;
            continue;
        }
        int len = 0;
        char32_t cp = 0, min = 0;
        if ((c & 0xE0) == 0xC0) { len = 2; cp = c & 0x1F; min = 0x80; }
        else if ((c & 0xF0) == 0xE0) { len = 3; cp = c & 0x0F; min = 0x800; }
        else if ((c & 0xF8) == 0xF0) { len = 4; cp = c & 0x07; min = 0x10000; }
        bool ok = len > 0 && i + len <= n;
        for (int k = 1; ok && k < len; ++k) {
            const unsigned char cc = static_cast<unsigned char>(utf8[i + k]);
            if ((cc & 0xC0) != 0x80) ok = false;
            else cp = (cp << 6) | (cc & 0x3F);
        }
        if (ok && (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))) ok = false;
        if (!ok) {
            // A broken sequence costs one '?' per lead byte; resynchronise on the next byte.
            out += '?';
            ++i;
            continue;
        }
        out += FromCodePoint(cp);
        i += len;
    }
    return out;
}

}  // namespace vb
