#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "platform/vb/Cp1252.h"
#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"

using namespace vb;

TEST(Strings, ValTakesTheNumericPrefix) {
    EXPECT_EQ(Val("  12abc"), 12);
    EXPECT_EQ(Val("1 2"), 12);
    EXPECT_EQ(Val(" 1615 198th Street"), 1615198);
    EXPECT_EQ(Val("-3.5e2x"), -350);
    EXPECT_EQ(Val("1D2"), 100);
    EXPECT_EQ(Val("1e"), 1);
    EXPECT_EQ(Val("\t7"), 7);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("1,000"), 1);
    EXPECT_EQ(Val("- 4"), -4);
    EXPECT_EQ(Val("--4"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("version 2.5.0"), 0);
    EXPECT_EQ(Val("2.5.0"), 2.5);
    EXPECT_EQ(Val("&HFF"), 255);
    EXPECT_EQ(Val("&hff"), 255);
    EXPECT_EQ(Val("&HFFFF"), -1);
    EXPECT_EQ(Val("&H10000"), 65536);
    EXPECT_EQ(Val("&O17"), 15);
    EXPECT_EQ(Val("&HZZ"), 0);
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }), errOverflow);
    EXPECT_EQ(Val("1e-999"), 0);
}

TEST(Strings, StrAndCStr) {
    EXPECT_EQ(Str(5), " 5");
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(-5), "-5");
    EXPECT_EQ(Str(2.5), " 2.5");
    EXPECT_EQ(Str(-2.5), "-2.5");
    EXPECT_EQ(Str(40.0), " 40");
    EXPECT_EQ(Str(0.5), " .5");
    EXPECT_EQ(Str(-0.0), " 0");
    EXPECT_EQ(Str(0.1 + 0.2), " .3");
    EXPECT_EQ(Str(123456789012345.0), " 123456789012345");
    EXPECT_EQ(Str(1e15), " 1E+15");
    EXPECT_EQ(Str(1.5e20), " 1.5E+20");
    EXPECT_EQ(Str(0.0001), " .0001");
    EXPECT_EQ(Str(0.00001), " 1E-05");
    EXPECT_EQ(CStr(0.5), "0.5");
    EXPECT_EQ(CStr(-0.25), "-0.25");
    EXPECT_EQ(CStr(12L), "12");
    EXPECT_EQ(CStr(-12L), "-12");
}

TEST(Strings, IsNumeric) {
    for (const char* yes : {"12", " 12 ", "-3.5", "+4", ".5", "1e5", "2.5E-3", "&HFF", "1,000"})
        EXPECT_TRUE(IsNumeric(yes)) << yes;
    for (const char* no : {"", "  ", ".", "-", "1 2", "12a", "1e", "a1", "&H", "&HG", ",1", "1.2.3"})
        EXPECT_FALSE(IsNumeric(no)) << no;
}

TEST(Strings, FormatCodes) {
    EXPECT_EQ(Format(0, "#"), "");
    EXPECT_EQ(Format(0, "##"), "");
    EXPECT_EQ(Format(0, "###"), "");
    EXPECT_EQ(Format(0, "####"), "");
    EXPECT_EQ(Format(12345, "##"), "12345");
    EXPECT_EQ(Format(42.5, "##"), "43");
    EXPECT_EQ(Format(-42.5, "##"), "-43");
    EXPECT_EQ(Format(0.4, "###"), "");
    EXPECT_EQ(Format(0.12, "0%"), "12%");
    EXPECT_EQ(Format(0, "0%"), "0%");
    EXPECT_EQ(Format(0, "#%"), "%");
    EXPECT_EQ(Format(0.125, "#%"), "13%");
    EXPECT_EQ(Format(0.285, "0%"), "29%");   // 28.499999... in binary
    EXPECT_EQ(Format(1.0 / 3, "0%"), "33%");
    EXPECT_EQ(Format(2.675, "0.00"), "2.68");
    EXPECT_EQ(Format(0.05, "0.0"), "0.1");
    EXPECT_EQ(Format(7, "0.0"), "7.0");
    EXPECT_EQ(Format(7, "00"), "07");
    EXPECT_EQ(Format(7, "0000"), "0007");
    EXPECT_EQ(Format(9.5, "0"), "10");
    EXPECT_EQ(Format(999.96, "0.0"), "1000.0");
    EXPECT_EQ(Format(1234567, "#,##0"), "1,234,567");
    EXPECT_EQ(Format(123, "#,##0"), "123");
    EXPECT_EQ(Format(0, "#,##0"), "0");
}

TEST(Strings, CaseUsesWindows1252Tables) {
    EXPECT_EQ(UCase("abc\xE9\x9A\xFF\x9C\x9E z"), "ABC\xC9\x8A\x9F\x8C\x8E Z");
    EXPECT_EQ(LCase("ABC\xC9\x8A\x9F\x8C\x8E Z"), "abc\xE9\x9A\xFF\x9C\x9E z");
    // Sharp s, multiply and divide signs and micro sign have no partner.
    EXPECT_EQ(UCase("\xDF\xF7\xB5"), "\xDF\xF7\xB5");
    EXPECT_EQ(LCase("\xD7\xDF"), "\xD7\xDF");
    EXPECT_EQ(UCaseChar('\xE0'), '\xC0');
    EXPECT_EQ(StrCompText("M\xFCller", "M\xDCLLER"), 0);
    EXPECT_LT(StrComp("Z", "a"), 0);
    EXPECT_GT(StrComp("\xE9", "z"), 0);   // by byte value, not signed char
    EXPECT_EQ(InStrText("Hello W\xD6RLD", "w\xF6r"), 7);
}

TEST(Strings, TrimFixedAndPieces) {
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(LTrim("\t a"), "\t a");
    EXPECT_EQ(RTrim("   "), "");
    EXPECT_EQ(Fixed("abc", 5), "abc  ");
    EXPECT_EQ(Fixed("abcdef", 4), "abcd");
    EXPECT_EQ(Fixed("", 0), "");

    EXPECT_EQ(Left("abc", 5), "abc");
    EXPECT_EQ(Right("abc", 2), "bc");
    EXPECT_EQ(Right("abc", 9), "abc");
    EXPECT_EQ(Mid("abcdef", 3), "cdef");
    EXPECT_EQ(Mid("abcdef", 3, 2), "cd");
    EXPECT_EQ(Mid("abcdef", 6, 5), "f");
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 2, 0), "");
    EXPECT_EQ(ErrorOf([] { Mid("abc", 0); }), errIllegalCall);
    EXPECT_EQ(ErrorOf([] { Left("abc", -1); }), errIllegalCall);

    EXPECT_EQ(InStr("abcabc", "c"), 3);
    EXPECT_EQ(InStr(4, "abcabc", "c"), 6);
    EXPECT_EQ(InStr(7, "abcabc", "c"), 0);
    EXPECT_EQ(InStr("abc", "x"), 0);
    EXPECT_EQ(InStr("abc", ""), 1);
    EXPECT_EQ(InStr(3, "abc", ""), 3);
    EXPECT_EQ(InStr("", ""), 0);
    EXPECT_EQ(InStr("ABC", "b"), 0);
    EXPECT_EQ(ErrorOf([] { InStr(0, "abc", "a"); }), errIllegalCall);

    std::string s = "abcdef";
    MidAssign(s, 2, "XY");
    EXPECT_EQ(s, "aXYdef");
    MidAssign(s, 5, "123456");   // never grows
    EXPECT_EQ(s, "aXYd12");
    MidAssign(s, 1, "QRS", 1);
    EXPECT_EQ(s, "QXYd12");
    EXPECT_EQ(ErrorOf([] {
                  std::string t = "ab";
                  MidAssign(t, 3, "x");
              }),
              errIllegalCall);
    EXPECT_EQ(String(3, '*'), "***");
    EXPECT_EQ(Space(0), "");
}

TEST(Cp1252, EveryByteSurvivesTheRoundTrip) {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);

    EXPECT_EQ(Cp1252ToUtf8("\x80"), "\u20AC");
    EXPECT_EQ(Cp1252ToUtf8("\x85\x8A\x93\x94\x99\x9F"), "\u2026\u0160\u201C\u201D\u2122\u0178");
    EXPECT_EQ(Cp1252ToUtf8("\x81\x9D"), "\u0081\u009D");
    EXPECT_EQ(Cp1252ToUtf8("caf\xE9"), "caf\u00E9");
    EXPECT_EQ(Utf8ToCp1252("\u2014 \u00FF \u0153"), "\x97 \xFF \x9C");
}

TEST(Cp1252, UnmappableAndBrokenUtf8BecomeQuestionMarks) {
    EXPECT_EQ(Utf8ToCp1252("a\u65E5b"), "a?b");
    EXPECT_EQ(Utf8ToCp1252("\U0001F600"), "?");
    EXPECT_EQ(Utf8ToCp1252("\u0080"), "?");   // a C1 control whose byte means the euro sign
    EXPECT_EQ(Utf8ToCp1252("x\xC3"), "x?");
    EXPECT_EQ(Utf8ToCp1252("\xC3(\xA9"), "?(?");
    EXPECT_EQ(Utf8ToCp1252("\xC0\xAF"), "??");   // overlong "/"
    EXPECT_EQ(Utf8ToCp1252("\xED\xA0\x80"), "???");   // a surrogate
}

TEST(Errors, NumbersCarryTheirStandardText) {
    try {
        Raise(errFileNotFound);
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.Number, 53);
        EXPECT_EQ(e.Description(), "File not found");
    }
    EXPECT_EQ(ErrorDescription(62), "Input past end of file");
    EXPECT_EQ(ErrorDescription(75), "Path/File access error");
    EXPECT_EQ(ErrorDescription(70), "Permission denied");
}
