#include "platform/vb/Strings.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/vb/Error.h"

namespace vb {

namespace {

constexpr bool IsUpperByte(unsigned c) {
    return (c >= 'A' && c <= 'Z') || c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9F ||
           (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

constexpr unsigned LowerOf(unsigned c) {
    if (c == 0x9F) return 0xFF;
    if (c >= 0x8A && c <= 0x8E) return c + 0x10;
    return c + 0x20;
}

struct CaseTables {
    std::array<char, 256> upper{}, lower{};
    constexpr CaseTables() {
        for (unsigned c = 0; c < 256; ++c) {
            upper[c] = static_cast<char>(c);
            lower[c] = static_cast<char>(c);
        }
        for (unsigned c = 0; c < 256; ++c) {
            if (!IsUpperByte(c)) continue;
            const unsigned l = LowerOf(c);
            lower[c] = static_cast<char>(l);
            upper[l] = static_cast<char>(c);
        }
    }
};

constexpr CaseTables kCase;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The digits of |v| to 15 significant places and the power of ten of the first
// one. The runtime works from this decimal form, so 2.675 is 2.675, not 2.67499...
struct Decimal {
    std::string digits;   // no trailing zeros; "0" for zero
    int exponent = 0;     // value = d.ddd x 10^exponent
};

Decimal ToDecimal(double v) {
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(v), std::chars_format::scientific, 14);
    const std::string text(buf, r.ptr);
    const auto e = text.find('e');
    Decimal d;
    for (std::size_t i = 0; i < e; ++i)
        if (IsDigit(text[i])) d.digits += text[i];
    std::from_chars(text.data() + e + (text[e + 1] == '+' ? 2 : 1), text.data() + text.size(), d.exponent);
    while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits == "0") d.exponent = 0;
    return d;
}

std::string NumberText(double v, bool leadingZero) {
    if (std::isnan(v)) return "NaN";
    if (std::isinf(v)) return v < 0 ? "-Inf" : "Inf";
    const Decimal d = ToDecimal(v);
    std::string out;
    if (d.exponent >= 15 || d.exponent < -4) {
        out = d.digits.substr(0, 1);
        if (d.digits.size() > 1) out += "." + d.digits.substr(1);
        const int e = std::abs(d.exponent);
        out += d.exponent < 0 ? "E-" : "E+";
        if (e < 10) out += '0';
        out += std::to_string(e);
    } else if (d.exponent >= 0) {
        const std::size_t whole = static_cast<std::size_t>(d.exponent) + 1;
        std::string digits = d.digits;
        if (digits.size() < whole) digits.append(whole - digits.size(), '0');
        out = digits.substr(0, whole);
        if (digits.size() > whole) out += "." + digits.substr(whole);
    } else {
        out = leadingZero ? "0." : ".";
        out.append(static_cast<std::size_t>(-d.exponent - 1), '0');
        out += d.digits;
    }
    if (v < 0 && d.digits != "0") out.insert(0, "-");
    return out;
}

// |v| rounded half away from zero to `places` decimals, split at the point.
// The whole part has no leading zeros (empty for zero).
void RoundDecimal(double v, int places, std::string& whole, std::string& frac) {
    const Decimal d = ToDecimal(v);
    std::string all = d.digits;
    int point = d.exponent + 1;   // digits before the decimal point
    if (point < 0) {
        all.insert(0, static_cast<std::size_t>(-point), '0');
        point = 0;
    }
    if (static_cast<int>(all.size()) < point) all.append(static_cast<std::size_t>(point) - all.size(), '0');
    all.insert(0, "0");   // room for a carry
    ++point;
    const std::size_t keep = static_cast<std::size_t>(point + places);
    if (all.size() > keep) {
        const bool up = all[keep] >= '5';
        all.resize(keep);
        for (std::size_t i = keep; up && i-- > 0;) {
            if (all[i] == '9') {
                all[i] = '0';
            } else {
                ++all[i];
                break;
            }
        }
    } else {
        all.append(keep - all.size(), '0');
    }
    whole = all.substr(0, static_cast<std::size_t>(point));
    frac = all.substr(static_cast<std::size_t>(point));
    const auto nz = whole.find_first_not_of('0');
    whole = nz == std::string::npos ? std::string() : whole.substr(nz);
}

}  // namespace

std::string Left(const std::string& s, long n) {
    if (n < 0) Raise(errIllegalCall);
    return s.substr(0, std::min<std::size_t>(static_cast<std::size_t>(n), s.size()));
}

std::string Right(const std::string& s, long n) {
    if (n < 0) Raise(errIllegalCall);
    const std::size_t k = std::min<std::size_t>(static_cast<std::size_t>(n), s.size());
    return s.substr(s.size() - k);
}

std::string Mid(const std::string& s, long start, long length) {
    if (start < 1 || length < -1) Raise(errIllegalCall);
    const std::size_t from = static_cast<std::size_t>(start - 1);
    if (from >= s.size()) return std::string();
    if (length < 0) return s.substr(from);
    return s.substr(from, static_cast<std::size_t>(length));
}

void MidAssign(std::string& s, long start, const std::string& with, long length) {
    if (start < 1 || static_cast<std::size_t>(start) > s.size() || length < -1) Raise(errIllegalCall);
    const std::size_t from = static_cast<std::size_t>(start - 1);
    std::size_t n = std::min(with.size(), s.size() - from);
    if (length >= 0) n = std::min(n, static_cast<std::size_t>(length));
    s.replace(from, n, with, 0, n);
}

long InStr(const std::string& haystack, const std::string& needle) {
    return InStr(1, haystack, needle);
}

long InStr(long start, const std::string& haystack, const std::string& needle) {
    if (start < 1) Raise(errIllegalCall);
    if (static_cast<std::size_t>(start) > haystack.size()) return 0;
    if (needle.empty()) return start;
    const auto p = haystack.find(needle, static_cast<std::size_t>(start - 1));
    return p == std::string::npos ? 0 : static_cast<long>(p) + 1;
}

long InStrText(const std::string& haystack, const std::string& needle) {
    return InStr(1, LCase(haystack), LCase(needle));
}

std::string Trim(const std::string& s) { return LTrim(RTrim(s)); }

std::string LTrim(const std::string& s) {
    const auto p = s.find_first_not_of(' ');
    return p == std::string::npos ? std::string() : s.substr(p);
}

std::string RTrim(const std::string& s) {
    const auto p = s.find_last_not_of(' ');
    return p == std::string::npos ? std::string() : s.substr(0, p + 1);
}

char UCaseChar(char c) { return kCase.upper[Byte(c)]; }
char LCaseChar(char c) { return kCase.lower[Byte(c)]; }

std::string UCase(const std::string& s) {
    std::string out(s);
    for (char& c : out) c = UCaseChar(c);
    return out;
}

std::string LCase(const std::string& s) {
    std::string out(s);
    for (char& c : out) c = LCaseChar(c);
    return out;
}

std::string Space(long n) { return String(n, ' '); }

std::string String(long n, char c) {
    if (n < 0) Raise(errIllegalCall);
    return std::string(static_cast<std::size_t>(n), c);
}

double Val(const std::string& s) {
    // Blanks, tabs and line feeds are ignored wherever they stand.
    std::string t;
    t.reserve(s.size());
    for (char c : s)
        if (c != ' ' && c != '\t' && c != '\n') t += c;

    std::size_t i = 0;
    if (t.size() >= 2 && t[0] == '&') {
        int base = 0;
        i = 2;
        if (t[1] == 'H' || t[1] == 'h') base = 16;
        else if (t[1] == 'O' || t[1] == 'o') base = 8;
        else if (t[1] >= '0' && t[1] <= '7') { base = 8; i = 1; }
        if (base) {
            std::uint64_t v = 0;
            for (; i < t.size(); ++i) {
                const char c = t[i];
                int d;
                if (IsDigit(c)) d = c - '0';
                else if (base == 16 && c >= 'a' && c <= 'f') d = c - 'a' + 10;
                else if (base == 16 && c >= 'A' && c <= 'F') d = c - 'A' + 10;
                else break;
                if (d >= base) break;
                v = v * base + d;
                if (v > 0xFFFFFFFFull) Raise(errOverflow);
            }
            // Like the runtime's &H literals: 16-bit when it fits, else 32-bit, both signed.
            if (v <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
            return static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
        }
        return 0;
    }

    std::string num;
    bool negative = false;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) negative = t[i++] == '-';
    std::size_t intDigits = 0, digits = 0;
    while (i < t.size() && IsDigit(t[i])) {
        if (!(num.empty() && t[i] == '0')) ++intDigits;
        num += t[i++];
        ++digits;
    }
    if (i < t.size() && t[i] == '.') {
        num += t[i++];
        while (i < t.size() && IsDigit(t[i])) {
            num += t[i++];
            ++digits;
        }
    }
    if (digits == 0) return 0;
    long exponent = 0;
    if (i < t.size() && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
        std::size_t j = i + 1;
        bool expNegative = false;
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) expNegative = t[j++] == '-';
        if (j < t.size() && IsDigit(t[j])) {
            for (; j < t.size() && IsDigit(t[j]); ++j)
                if (exponent < 100000) exponent = exponent * 10 + (t[j] - '0');
            if (expNegative) exponent = -exponent;
            num += 'e' + std::to_string(exponent);
        }
    }
    double v = 0;
    const auto r = std::from_chars(num.data(), num.data() + num.size(), v);
    if (r.ec == std::errc::result_out_of_range) {
        if (static_cast<long>(intDigits) + exponent > 0) Raise(errOverflow);
        v = 0;
    }
    return negative ? -v : v;
}

bool IsNumeric(const std::string& s) {
    std::size_t b = 0, e = s.size();
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (b < e && blank(s[b])) ++b;
    while (e > b && blank(s[e - 1])) --e;
    if (b == e) return false;
    std::size_t i = b;
    if (s[i] == '&' && i + 1 < e) {
        const char k = s[i + 1];
        const int base = (k == 'H' || k == 'h') ? 16 : (k == 'O' || k == 'o') ? 8 : 0;
        if (!base || i + 2 == e) return false;
        for (i += 2; i < e; ++i) {
            const char c = s[i];
            const bool ok = base == 16 ? std::isxdigit(Byte(c)) != 0 : (c >= '0' && c <= '7');
            if (!ok) return false;
        }
        return true;
    }
    if (s[i] == '+' || s[i] == '-') ++i;
    std::size_t digits = 0;
    // Thousands separators are accepted after a digit, as the runtime does.
    while (i < e && (IsDigit(s[i]) || (s[i] == ',' && digits > 0))) {
        if (s[i] != ',') ++digits;
        ++i;
    }
    if (i < e && s[i] == '.') {
        ++i;
        while (i < e && IsDigit(s[i])) {
            ++digits;
            ++i;
        }
    }
    if (digits == 0) return false;
    if (i < e && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        ++i;
        if (i < e && (s[i] == '+' || s[i] == '-')) ++i;
        if (i == e || !IsDigit(s[i])) return false;
        while (i < e && IsDigit(s[i])) ++i;
    }
    return i == e;
}

std::string Str(double v) {
    std::string t = NumberText(v, false);
    return t[0] == '-' ? t : " " + t;
}

std::string Str(long v) { return v < 0 ? std::to_string(v) : " " + std::to_string(v); }

std::string CStr(double v) { return NumberText(v, true); }

std::string CStr(long v) { return std::to_string(v); }

std::string Fixed(const std::string& s, std::size_t width) {
    if (s.size() >= width) return s.substr(0, width);
    return s + std::string(width - s.size(), ' ');
}

int StrComp(const std::string& a, const std::string& b) {
    const int c = a.compare(b);   // char_traits<char> compares as unsigned char
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

int StrCompText(const std::string& a, const std::string& b) {
    return StrComp(LCase(a), LCase(b));
}

std::string Format(double value, const std::string& code) {
    if (code.empty()) return CStr(value);
    auto placeholder = [](char c) { return c == '0' || c == '#'; };
    const auto first = code.find_first_of("0#.");
    if (first == std::string::npos) return code;   // literal text only
    std::size_t last = code.find_last_of("0#");
    if (last == std::string::npos || last < first) last = first;

    const std::string prefix = code.substr(0, first);
    const std::string suffix = code.substr(last + 1);
    const std::string body = code.substr(first, last - first + 1);
    const bool percent = code.find('%') != std::string::npos;

    const auto dot = body.find('.');
    const std::string intPart = body.substr(0, dot);
    const std::string fracPart = dot == std::string::npos ? std::string() : body.substr(dot + 1);
    const bool thousands = intPart.find(',') != std::string::npos;

    int minWhole = 0;
    const auto firstZero = intPart.find('0');
    if (firstZero != std::string::npos)
        for (std::size_t k = firstZero; k < intPart.size(); ++k)
            if (placeholder(intPart[k])) ++minWhole;
    int places = 0, minPlaces = 0;
    for (std::size_t k = 0; k < fracPart.size(); ++k) {
        if (!placeholder(fracPart[k])) continue;
        ++places;
        if (fracPart[k] == '0') minPlaces = places;
    }

    std::string whole, frac;
    RoundDecimal(percent ? value * 100 : value, places, whole, frac);
    while (static_cast<int>(frac.size()) > minPlaces && frac.back() == '0') frac.pop_back();
    if (static_cast<int>(whole.size()) < minWhole) whole.insert(0, static_cast<std::size_t>(minWhole) - whole.size(), '0');
    if (thousands)
        for (int k = static_cast<int>(whole.size()) - 3; k > 0; k -= 3) whole.insert(static_cast<std::size_t>(k), ",");

    std::string out = prefix + whole;
    if (dot != std::string::npos) out += "." + frac;
    out += suffix;
    // The runtime keeps the sign of a negative number even when it rounds to zero.
    if (value < 0) out.insert(0, "-");
    return out;
}

}  // namespace vb
