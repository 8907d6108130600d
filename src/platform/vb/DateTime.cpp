#include "platform/vb/DateTime.h"

#include <cctype>
#include <string_view>

namespace vb {

namespace {

const char* const kMonths[12] = {"January", "February", "March",     "April",   "May",      "June",
                                 "July",    "August",   "September", "October", "November", "December"};
const char* const kDays[7] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

// Days since 1970-01-01 in the proleptic Gregorian calendar.
long DaysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long doy = (153L * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(long z, int& y, int& m, int& d) {
    z += 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = static_cast<int>(yoe + era * 400 + (m <= 2));
}

bool IsLeap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(int y, int m) {
    static const int days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && IsLeap(y) ? 29 : days[m - 1];
}

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i])) return false;
    return true;
}

bool StartsNoCase(std::string_view s, std::size_t at, std::string_view prefix) {
    return s.size() - at >= prefix.size() && EqualNoCase(s.substr(at, prefix.size()), prefix);
}

std::string Two(int v) {
    std::string s = std::to_string(v);
    return s.size() < 2 ? "0" + s : s;
}

std::string MonthName(int m) { return m >= 1 && m <= 12 ? kMonths[m - 1] : ""; }

bool IsZeroDate(const DateTime& d) { return d.year == 1899 && d.month == 12 && d.day == 30; }

std::string Expand(const DateTime& d, std::string_view code) {
    const bool twelve = code.find("AM/PM") != std::string_view::npos ||
                        code.find("am/pm") != std::string_view::npos ||
                        code.find("A/P") != std::string_view::npos || code.find("a/p") != std::string_view::npos;
    std::string out;
    bool afterHour = false;   // an "m" right after an hour is minutes
    std::size_t i = 0;
    while (i < code.size()) {
        const char c = code[i];
        const char lc = Lower(c);
        if (c == '"') {
            const auto close = code.find('"', i + 1);
            const auto end = close == std::string_view::npos ? code.size() : close;
            out.append(code.substr(i + 1, end - i - 1));
            i = end + 1;
            continue;
        }
        if (c == '\\' && i + 1 < code.size()) {
            out += code[i + 1];
            i += 2;
            continue;
        }
        if (StartsNoCase(code, i, "am/pm")) {
            const bool pm = d.hour >= 12;
            if (code[i] == 'A') out += pm ? "PM" : "AM";
            else out += pm ? "pm" : "am";
            i += 5;
            continue;
        }
        if (StartsNoCase(code, i, "a/p")) {
            const bool pm = d.hour >= 12;
            out += code[i] == 'A' ? (pm ? "P" : "A") : (pm ? "p" : "a");
            i += 3;
            continue;
        }
        std::size_t n = 1;
        if (lc == 'd' || lc == 'm' || lc == 'y' || lc == 'h' || lc == 'n' || lc == 's')
            while (i + n < code.size() && Lower(code[i + n]) == lc) ++n;
        bool minute = lc == 'n';
        if (lc == 'm' && n <= 2) {
            // Minutes also when the next field is seconds ("mm:ss").
            std::size_t k = i + n;
            while (k < code.size() && !std::isalpha(static_cast<unsigned char>(code[k]))) ++k;
            minute = afterHour || (k < code.size() && Lower(code[k]) == 's');
        }
        switch (lc) {
        case 'd':
            if (n == 1) out += std::to_string(d.day);
            else if (n == 2) out += Two(d.day);
            else if (n == 3) out += std::string(kDays[d.weekday() - 1]).substr(0, 3);
            else out += kDays[d.weekday() - 1];
            afterHour = false;
            break;
        case 'm':
        case 'n':
            if (minute) {
                out += n == 1 ? std::to_string(d.minute) : Two(d.minute);
            } else if (n == 1) {
                out += std::to_string(d.month);
            } else if (n == 2) {
                out += Two(d.month);
            } else if (n == 3) {
                out += MonthName(d.month).substr(0, 3);
            } else {
                out += MonthName(d.month);
            }
            afterHour = false;
            break;
        case 'y':
            if (n == 1) out += std::to_string(DaysFromCivil(d.year, d.month, d.day) - DaysFromCivil(d.year, 1, 1) + 1);
            else if (n == 2) out += Two(d.year % 100);
            else out += std::to_string(d.year);
            afterHour = false;
            break;
        case 'h': {
            int h = d.hour;
            if (twelve) {
                h %= 12;
                if (h == 0) h = 12;
            }
            out += n == 1 ? std::to_string(h) : Two(h);
            afterHour = true;
            break;
        }
        case 's':
            out += n == 1 ? std::to_string(d.second) : Two(d.second);
            afterHour = false;
            break;
        default:
            out += c;
            break;
        }
        i += n;
    }
    return out;
}

// A small cursor over the text being parsed.
struct Scanner {
    std::string_view s;
    std::size_t i = 0;
    void SkipBlanks() {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    }
    bool AtEnd() const { return i >= s.size(); }
    bool Digit() const { return i < s.size() && std::isdigit(static_cast<unsigned char>(s[i])); }
    bool Number(int& v, int& digits) {
        v = 0;
        digits = 0;
        while (Digit() && digits < 5) {
            v = v * 10 + (s[i++] - '0');
            ++digits;
        }
        return digits > 0;
    }
    bool Take(char c) {
        if (i < s.size() && s[i] == c) {
            ++i;
            return true;
        }
        return false;
    }
    std::string_view Word() {
        const std::size_t b = i;
        while (i < s.size() && std::isalpha(static_cast<unsigned char>(s[i]))) ++i;
        return s.substr(b, i - b);
    }
};

int MonthFromName(std::string_view w) {
    if (w.size() < 3) return 0;
    for (int m = 0; m < 12; ++m) {
        const std::string_view full = kMonths[m];
        if (EqualNoCase(w, full) || EqualNoCase(w, full.substr(0, 3)) ||
            (w.size() <= full.size() && EqualNoCase(w, full.substr(0, w.size())) && w.size() >= 3))
            return m + 1;
    }
    return 0;
}

bool IsDayName(std::string_view w) {
    if (w.size() < 3) return false;
    for (const char* day : kDays) {
        const std::string_view full = day;
        if (w.size() <= full.size() && EqualNoCase(w, full.substr(0, w.size()))) return true;
    }
    return false;
}

int WindowYear(int y, int digits) {
    if (digits <= 2) return y < 30 ? 2000 + y : 1900 + y;
    return y;
}

// h[:mm[:ss]] with an optional AM/PM; a bare hour needs the AM/PM.
bool ParseTime(Scanner& sc, DateTime& out) {
    int h, m = 0, s = 0, digits;
    if (!sc.Number(h, digits) || digits > 2) return false;
    bool colon = false;
    if (sc.Take(':')) {
        colon = true;
        if (!sc.Number(m, digits) || digits > 2) return false;
        if (sc.Take(':') && (!sc.Number(s, digits) || digits > 2)) return false;
    }
    sc.SkipBlanks();
    const std::size_t mark = sc.i;
    const std::string_view w = sc.Word();
    if (EqualNoCase(w, "AM") || EqualNoCase(w, "A") || EqualNoCase(w, "PM") || EqualNoCase(w, "P")) {
        if (h < 1 || h > 12) return false;
        const bool pm = Lower(w[0]) == 'p';
        h = h % 12 + (pm ? 12 : 0);
    } else {
        sc.i = mark;
        if (!colon) return false;
    }
    if (h > 23 || m > 59 || s > 59) return false;
    out.hour = h;
    out.minute = m;
    out.second = s;
    return true;
}

bool Valid(int y, int m, int d) {
    return y >= 100 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= DaysInMonth(y, m);
}

// The year that ends a written-out date ("..., 2026" or "... 26"), and the whole date checked.
bool ParseYearOf(Scanner& sc, int m, int d, DateTime& out) {
    int y, dy;
    sc.Take(',');
    sc.SkipBlanks();
    if (!sc.Number(y, dy) || dy == 3 || dy > 4) return false;
    y = WindowYear(y, dy);
    if (!Valid(y, m, d)) return false;
    out.year = y, out.month = m, out.day = d;
    return true;
}

bool ParseDatePart(Scanner& sc, DateTime& out) {
    const std::size_t start = sc.i;
    int a, b, c, da, db, dc;
    if (sc.Number(a, da)) {
        const char sep = sc.i < sc.s.size() ? sc.s[sc.i] : '\0';
        if (sep != '/' && sep != '-' && sep != '.') {
            sc.i = start;
            return false;
        }
        ++sc.i;
        if (!sc.Number(b, db) || db > 2 || !sc.Take(sep) || !sc.Number(c, dc)) return false;
        int y, m, d;
        if (da == 4) {
            y = a, m = b, d = c;
            if (dc > 2) return false;
        } else {
            if (da > 2 || dc == 3 || dc > 4) return false;
            m = a, d = b, y = WindowYear(c, dc);
        }
        if (!Valid(y, m, d)) return false;
        out.year = y, out.month = m, out.day = d;
        return true;
    }
    // Written-out forms: "[Sunday,] November 22, 2026" and "22 November 2026".
    std::string_view w = sc.Word();
    if (IsDayName(w) && !MonthFromName(w)) {
        sc.Take(',');
        sc.SkipBlanks();
        w = sc.Word();
    }
    int m = MonthFromName(w), d, dd;
    if (!m) return false;
    sc.Take('.');
    sc.SkipBlanks();
    if (!sc.Number(d, dd) || dd > 2) return false;
    return ParseYearOf(sc, m, d, out);
}

bool ParseDayFirst(Scanner& sc, DateTime& out) {
    int d, dd;
    if (!sc.Number(d, dd) || dd > 2) return false;
    sc.SkipBlanks();
    const int m = MonthFromName(sc.Word());
    if (!m) return false;
    return ParseYearOf(sc, m, d, out);
}

}  // namespace

int DateTime::weekday() const {
    const long days = DaysFromCivil(year, month, day);
    return static_cast<int>(((days + 4) % 7 + 7) % 7) + 1;
}

std::string FormatDate(const DateTime& d, const std::string& code) {
    if (code.empty() || EqualNoCase(code, "General Date")) {
        if (IsZeroDate(d)) return Expand(d, "h:mm:ss AM/PM");
        return d.hasTime() ? Expand(d, "m/d/yyyy h:mm:ss AM/PM") : Expand(d, "m/d/yyyy");
    }
    if (EqualNoCase(code, "Short Date")) return Expand(d, "m/d/yyyy");
    if (EqualNoCase(code, "Long Date")) return Expand(d, "dddd, mmmm d, yyyy");
    if (EqualNoCase(code, "Medium Date")) return Expand(d, "dd-mmm-yy");
    if (EqualNoCase(code, "Short Time")) return Expand(d, "hh:nn");
    if (EqualNoCase(code, "Medium Time")) return Expand(d, "hh:nn AM/PM");
    if (EqualNoCase(code, "Long Time")) return Expand(d, "h:nn:ss AM/PM");
    return Expand(d, code);
}

bool ParseDate(const std::string& text, DateTime& out) {
    Scanner sc{text};
    sc.SkipBlanks();
    DateTime r;
    bool haveDate = ParseDatePart(sc, r);
    if (!haveDate) {
        sc.i = 0;
        sc.SkipBlanks();
        haveDate = ParseDayFirst(sc, r);
    }
    if (!haveDate) {
        // A time alone is a time on the zero date.
        r = DateTime{};
        sc.i = 0;
        sc.SkipBlanks();
        if (!ParseTime(sc, r)) return false;
    } else {
        const std::size_t afterDate = sc.i;
        sc.SkipBlanks();
        if (!sc.AtEnd() && (sc.s[sc.i] == 'T' || sc.s[sc.i] == 't') && sc.i == afterDate) ++sc.i;
        if (!sc.AtEnd() && !ParseTime(sc, r)) return false;
    }
    sc.SkipBlanks();
    if (!sc.AtEnd()) return false;
    out = r;
    return true;
}

bool IsDate(const std::string& text) {
    DateTime d;
    return ParseDate(text, d);
}

long DateDiffDays(const DateTime& a, const DateTime& b) {
    return DaysFromCivil(b.year, b.month, b.day) - DaysFromCivil(a.year, a.month, a.day);
}

DateTime DateAddDays(const DateTime& d, long days) {
    DateTime r = d;
    CivilFromDays(DaysFromCivil(d.year, d.month, d.day) + days, r.year, r.month, r.day);
    return r;
}

}  // namespace vb
