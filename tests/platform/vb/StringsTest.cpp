#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "platform/vb/Cp1252.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"

using namespace vb;

namespace {
struct Text { std::string got, want; };
void ExpectAll(std::initializer_list<Text> rows) {
    for (const Text& r : rows) EXPECT_EQ(r.want, r.got);
}
}  // namespace

TEST(Strings, ValTakesTheNumericPrefix) {
    const std::pair<const char*, double> rows[] = {
        {"  12abc", 12},  {"1 2", 12},     {" 1615 198th Street", 1615198}, {"-3.5e2x", -350}, {"1D2", 100},
        {"1e", 1},        {"\t7", 7},      {".5", 0.5},  {"1,000", 1},      {"- 4", -4},   {"--4", 0},
        {"", 0},          {"abc", 0},      {"version 2.5.0", 0}, {"2.5.0", 2.5}, {"&HFF", 255}, {"&hff", 255},
        {"&HFFFF", -1},   {"&H10000", 65536}, {"&O17", 15}, {"&HZZ", 0},     {"1e-999", 0}};
    for (const auto& [text, value] : rows) EXPECT_EQ(value, Val(text)) << text;
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }), errOverflow);
}

TEST(Strings, StrAndCStr) {
    ExpectAll({{Str(5), " 5"}, {Str(0), " 0"}, {Str(-5), "-5"}, {Str(2.5), " 2.5"}, {Str(-2.5), "-2.5"},
               {Str(40.0), " 40"}, {Str(0.5), " .5"}, {Str(-0.0), " 0"}, {Str(0.1 + 0.2), " .3"},
               {Str(123456789012345.0), " 123456789012345"}, {Str(1e15), " 1E+15"}, {Str(1.5e20), " 1.5E+20"},
               {Str(0.0001), " .0001"}, {Str(0.00001), " 1E-05"}, {CStr(0.5), "0.5"}, {CStr(-0.25), "-0.25"},
               {CStr(12L), "12"}, {CStr(-12L), "-12"}});
}

TEST(Strings, IsNumeric) {
    for (const char* yes : {"12", " 12 ", "-3.5", "+4", ".5", "1e5", "2.5E-3", "&HFF", "1,000"})
        EXPECT_TRUE(IsNumeric(yes)) << yes;
    for (const char* no : {"", "  ", ".", "-", "1 2", "12a", "1e", "a1", "&H", "&HG", ",1", "1.2.3"})
        EXPECT_FALSE(IsNumeric(no)) << no;
}

TEST(Strings, FormatCodes) {
    const std::tuple<double, const char*, const char*> rows[] = {
        {0, "#", ""},          {0, "####", ""},        {12345, "##", "12345"}, {42.5, "##", "43"},
        {-42.5, "##", "-43"},  {0.4, "###", ""},       {0.12, "0%", "12%"},    {0, "0%", "0%"},
        {0, "#%", "%"},        {0.125, "#%", "13%"},   {0.285, "0%", "29%"},   // 28.499999... in binary
        {1.0 / 3, "0%", "33%"}, {2.675, "0.00", "2.68"}, {0.05, "0.0", "0.1"}, {7, "0.0", "7.0"},
        {7, "00", "07"},       {7, "0000", "0007"},    {9.5, "0", "10"},       {999.96, "0.0", "1000.0"},
        {1234567, "#,##0", "1,234,567"}, {123, "#,##0", "123"}, {0, "#,##0", "0"}};
    for (const auto& [value, code, want] : rows) EXPECT_EQ(want, Format(value, code)) << value << " " << code;
}

TEST(Strings, CaseUsesWindows1252Tables) {
    // Sharp s, multiply and divide signs and micro sign have no partner.
    ExpectAll({{UCase("abc\xE9\x9A\xFF\x9C\x9E z"), "ABC\xC9\x8A\x9F\x8C\x8E Z"},
               {LCase("ABC\xC9\x8A\x9F\x8C\x8E Z"), "abc\xE9\x9A\xFF\x9C\x9E z"},
               {UCase("\xDF\xF7\xB5"), "\xDF\xF7\xB5"}, {LCase("\xD7\xDF"), "\xD7\xDF"}});
    EXPECT_EQ(StrCompText("M\xFCller", "M\xDCLLER"), 0);
    EXPECT_LT(StrComp("Z", "a"), 0);
    EXPECT_GT(StrComp("\xE9", "z"), 0);   // by byte value, not signed char
    EXPECT_EQ(InStrText("Hello W\xD6RLD", "w\xF6r"), 7);
}

TEST(Strings, TrimFixedAndPieces) {
    ExpectAll({{Trim("  a b \t "), "a b \t"}, {LTrim("\t a"), "\t a"}, {RTrim("   "), ""}, {Fixed("abc", 5), "abc  "},
               {Fixed("abcdef", 4), "abcd"}, {Left("abc", 5), "abc"}, {Right("abc", 2), "bc"}, {Right("abc", 9), "abc"},
               {Mid("abcdef", 3), "cdef"}, {Mid("abcdef", 3, 2), "cd"}, {Mid("abcdef", 6, 5), "f"}, {Mid("abc", 4), ""},
               {Mid("abc", 2, 0), ""}, {String(3, '*'), "***"}});
    const std::tuple<int, const char*, const char*, int> finds[] = {
        {1, "abcabc", "c", 3}, {4, "abcabc", "c", 6}, {7, "abcabc", "c", 0}, {1, "abc", "x", 0},
        {1, "abc", "", 1},     {3, "abc", "", 3},     {1, "", "", 0},        {1, "ABC", "b", 0}};
    for (const auto& [start, text, what, at] : finds) EXPECT_EQ(at, InStr(start, text, what)) << text << " " << what;
    EXPECT_EQ(InStr("abcabc", "c"), 3);
    for (auto bad : {+[] { Mid("abc", 0); }, +[] { Left("abc", -1); }, +[] { InStr(0, "abc", "a"); }, +[] {
             std::string t = "ab";
             MidAssign(t, 3, "x");
         }})
        EXPECT_EQ(ErrorOf(bad), errIllegalCall);

    std::string s = "abcdef";
    MidAssign(s, 2, "XY");
    MidAssign(s, 5, "123456");   // never grows
    MidAssign(s, 1, "QRS", 1);
    EXPECT_EQ(s, "QXYd12");
}

TEST(Cp1252, EveryByteSurvivesTheRoundTripAndTheUnmappableBecomeQuestionMarks) {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
    ExpectAll({{Cp1252ToUtf8("\x80\x85\x8A\x93\x94\x99\x9F"), "\u20AC\u2026\u0160\u201C\u201D\u2122\u0178"},
               {Cp1252ToUtf8("\x81\x9D"), "\u0081\u009D"}, {Utf8ToCp1252("\u2014 \u00FF \u0153"), "\x97 \xFF \x9C"},
               {Utf8ToCp1252("a\u65E5b"), "a?b"}, {Utf8ToCp1252("\U0001F600"), "?"},
               {Utf8ToCp1252("\u0080"), "?"},   // a C1 control whose byte means the euro sign
               {Utf8ToCp1252("x\xC3"), "x?"}, {Utf8ToCp1252("\xC3(\xA9"), "?(?"},
               {Utf8ToCp1252("\xC0\xAF"), "??"},   // overlong "/"
               {Utf8ToCp1252("\xED\xA0\x80"), "???"}});   // a surrogate
}
