#include "store/FieldRules.h"

#include <algorithm>

#include "platform/vb/Strings.h"

using namespace vb;

namespace {
bool AllDigits(const std::string& s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Deletes one character at 1-based position pos.
void DeleteAt(std::string& s, long pos) { s.erase(static_cast<std::size_t>(pos - 1), 1); }

// Right that reads a negative count as nothing, so a shrinking text cannot fault.
std::string RightOrNone(const std::string& s, long n) { return n <= 0 ? std::string() : Right(s, n); }
}  // namespace

std::string Capitalize(const std::string& text) {
    if (text.empty()) return "Unknown";
    std::string out = text;
    out[0] = UCaseChar(out[0]);
    return out;
}

std::string CleanAddress(const std::string& box) {
    std::string t = LCase(box) + " ";
    long L = static_cast<long>(t.size());

    // Double blanks, then periods, each found below the closing blank.
    for (long p = InStr(t, "  "); p > 0 && p < L; p = InStr(t, "  ")) {
        DeleteAt(t, p);
        --L;
    }
    for (long p = InStr(t, "."); p > 0 && p < L; p = InStr(t, ".")) {
        DeleteAt(t, p);
        --L;
    }

    // A letter after a blank is a word's first; the very first character has no blank before it.
    for (long i = 2; i <= L; ++i)
        if (t[i - 2] == ' ' && t[i - 1] >= 'a' && t[i - 1] <= 'z') t[i - 1] = UCaseChar(t[i - 1]);
    for (const char* dir : {" Ne ", " Nw ", " Se ", " Sw "}) {
        long p = InStr(t, dir);
        if (p > 0) MidAssign(t, p, UCase(dir));
    }

    struct Word { const char* found; const char* replacement; long taken; };
    static const Word words[] = {
        {"P O Box", "PO Box", 7}, {"Po Box", "PO Box", 6}, {"Pobox", "PO Box", 6}, {"Highway", "Hwy", 7},
        {"High Way", "Hwy", 8},   {"Avenue", "Ave", 6},    {"Av", "Ave", 3},        {"Court", "Ct", 5},
        {"Circle", "Cir", 6},     {"Place", "Pl", 6},      {"Street", "St", 6},     {"Lane", "Ln", 4},
        {"Road", "Rd", 4},        {"Wy ", "Way", 3},       {"Bvd", "Blvd", 3},      {"Apt # ", "#", 6},
        {"Apt# ", "#", 5},        {"Apt#", "#", 4},        {"Apt ", "#", 4},        {"Appartment", "#", 10},
    };
    for (const Word& w : words) {
        long p = InStr(t, w.found);
        if (p == 0) continue;
        t = Left(t, p - 1) + w.replacement + Mid(t, p + w.taken);
        L = static_cast<long>(t.size());
    }

    // The number sign: the blank after it goes on the second round. A text
    // that stops changing ends the rounds, so a lone "#" cannot hold them.
    int still = 0;
    for (long p = InStr(t, "# "); p > 0; p = InStr(t, "# ")) {
        std::string next = Left(t, p - 1) + "#" + RightOrNone(t, L - p);
        if (next == t) {
            if (++still >= 2) break;
        } else {
            still = 0;
        }
        t = next;
        --L;
    }
    L = static_cast<long>(t.size());
    long p = InStr(t, "#");
    if (p > 0 && p < L) {
        t[p] = UCaseChar(t[p]);
        if (L >= 2) t[L - 2] = UCaseChar(t[L - 2]);
        long n = InStr(p + 1, t, "No");
        if (n > p) t = Left(t, n - 1) + RightOrNone(t, L - p - 2);
    }
    L = static_cast<long>(t.size());
    long hh = InStr(t, "##");
    if (hh > 0 && hh < L) DeleteAt(t, hh);

    if (t == " ") return "Address Unknown";
    return Trim(t);
}

std::string CleanPhone(const std::string& box) {
    std::string t = Trim(box);
    // "Unknown" is what this rule writes for an empty box: passing through leaves it be.
    if (t == "Unknown") return t;
    if (!t.empty() && t[0] == '(') t.erase(0, 1);
    std::replace(t.begin(), t.end(), ')', ' ');
    t.erase(std::remove_if(t.begin(), t.end(), [](char c) { return c == '-' || c == ' '; }), t.end());
    if (t.empty()) return "Unknown";
    if (t.size() == 7) return t.substr(0, 3) + "-" + t.substr(3);
    if (t.size() == 10) return t.substr(0, 3) + "-" + t.substr(3, 3) + "-" + t.substr(6);
    return t;
}

std::string CleanEmail(const std::string& box) {
    long p = InStr(box, " at ");
    if (p == 0) return box;
    return Left(box, p - 1) + "@" + Mid(box, p + 4);
}

std::string CleanReligion(const std::string& box) {
    std::string t = box;
    auto is = [&](std::initializer_list<const char*> names) {
        std::string u = UCase(Trim(t));
        for (const char* n : names)
            if (u == n) return true;
        return false;
    };
    auto has = [&](const char* part) { return InStr(UCase(t), part) > 0; };
    if (has("ADVENTIST")) t = "SDA";
    if (is({"CHURCH OF CHRIST"})) t = "ChChrist";
    if (is({"CHURCH OF GOD"})) t = "ChGod";
    if (is({"CHURCH OF GOD 7TH DAY", "SEVENTH DAY CHURCH OF GOD"})) t = "CG7th Day";
    if (is({"NONE SPECIFIED"})) t = "UnSpecified";
    if (is({"NONE"})) t = "NoChurch";
    if (is({"NON DENOMINATIONAL", "NO DENOMINATION"})) t = "NoDenomination";
    if (is({"ASSEMBLIES OF GOD", "ASSEMBLIES", "ASSEMBLY OF GOD", "ASSEMBLY"})) t = "Pentecostal";
    if (has("APOSTOLIC")) t = "Pentecostal";
    if (is({"FOUR SQUARE"})) t = "Pentacostal";
    if (is({"MORMON"})) t = "LDS";
    return t;
}

std::string CleanState(const std::string& box) {
    std::string t = UCase(box);
    t.erase(std::remove(t.begin(), t.end(), '.'), t.end());
    return Trim(t);
}

AgeResult CleanAge(const std::string& box, const std::array<std::string, 8>& groups, std::string& out) {
    // A group name already shown is two characters or more.
    if (box.size() >= 2) return AgeResult::LeftAlone;
    std::string t = box.empty() ? std::string("0") : box;
    if (!AllDigits(t)) return AgeResult::NotANumber;
    int index = std::clamp(static_cast<int>(Val(t)), 0, 7);
    out = groups[static_cast<std::size_t>(index)];
    return AgeResult::Group;
}

bool CleanTeamCode(const std::string& box, std::string& out) {
    std::string t = Trim(box);
    if (t.empty()) t = "00";
    if (!AllDigits(t)) return false;
    if (Val(t) < 10) t = Right("0" + t, 2);
    if (StrComp(t, "00") < 0 || StrComp(t, "40") > 0) return false;
    out = t;
    return true;
}

bool CleanRegNumber(const std::string& box, std::string& out) {
    std::string t = Trim(box);
    if (!AllDigits(t)) return false;
    out = Right("0000" + t, 4);
    return true;
}

std::string CanadianZip(const std::string& zip) {
    std::string t = UCase(zip);
    if (t.size() > 3 && t[3] != ' ') t = Left(t, 3) + " " + Mid(t, 4);
    if (Left(t, 3) == "NOZ") t = "NoZip";
    return t;
}

std::string PadDate(const std::string& text) {
    std::string t = text;
    if (Mid(t, 2, 1) == "/") t = "0" + t;
    if (Mid(t, 5, 1) == "/") t = Left(t, 3) + "0" + Mid(t, 4);
    return t;
}

bool StepDate(const std::string& text, int days, std::string& out) {
    std::string t = PadDate(Trim(text));
    if (t.size() < 6 || t[2] != '/' || t[5] != '/' || !AllDigits(t.substr(0, 2)) || !AllDigits(t.substr(3, 2)))
        return false;
    int month = static_cast<int>(Val(t.substr(0, 2)));
    int day = static_cast<int>(Val(t.substr(3, 2)));
    if (month < 1 || month > 12) return false;
    auto length = [](int m) { return m == 9 || m == 4 || m == 6 || m == 11 ? 30 : m == 2 ? 27 : 31; };
    if (days > 0) {
        if (++day > length(month)) {
            day = 1;
            if (++month == 13) month = 1;
        }
    } else {
        if (--day < 1) {
            if (--month == 0) month = 12;
            day = length(month);
        }
    }
    auto two = [](int n) { return Right("0" + CStr(n), 2); };
    out = two(month) + "/" + two(day) + t.substr(5);
    return true;
}
