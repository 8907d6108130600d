#pragma once
// String functions with the semantics of the classic BASIC runtime the program
// is written against. All text is Windows-1252 bytes; positions are 1-based.
#include <string>

namespace vb {

std::string Left(const std::string& s, long n);
std::string Right(const std::string& s, long n);
// Mid(s, start) to the end; start is 1-based; start past the end gives "".
std::string Mid(const std::string& s, long start, long length = -1);
// Mid statement: overwrite characters of s from start (never grows s).
void MidAssign(std::string& s, long start, const std::string& with, long length = -1);
// 1-based position of needle, 0 when absent. An empty needle gives start.
long InStr(const std::string& haystack, const std::string& needle);
long InStr(long start, const std::string& haystack, const std::string& needle);
// Case-insensitive variant (vbTextCompare).
long InStrText(const std::string& haystack, const std::string& needle);
// Blanks only (char 32), as the runtime does.
std::string Trim(const std::string& s);
std::string LTrim(const std::string& s);
std::string RTrim(const std::string& s);
// Windows-1252 case tables; never the C locale.
std::string UCase(const std::string& s);
std::string LCase(const std::string& s);
char UCaseChar(char c);
char LCaseChar(char c);
std::string Space(long n);
std::string String(long n, char c);
// Numeric prefix: leading blanks skipped, blanks inside the number ignored,
// "&H" hex and "&O" octal prefixes, stops at the first character that cannot continue.
double Val(const std::string& s);
// True when the whole text (blanks around allowed) converts to a number.
bool IsNumeric(const std::string& s);
// Leading blank for zero and positive numbers, "-" for negatives. Whole numbers
// print without a decimal point; others in the shortest form up to 15 digits.
std::string Str(double v);
std::string Str(long v);
inline std::string Str(int v) { return Str(static_cast<long>(v)); }
// Like Str without the leading blank (CStr / implicit conversion).
std::string CStr(double v);
std::string CStr(long v);
inline std::string CStr(int v) { return CStr(static_cast<long>(v)); }
// Fixed-width assignment: cut to width, or pad on the right with blanks.
std::string Fixed(const std::string& s, std::size_t width);
// Text comparison as the runtime's default (binary, by character code): <0, 0, >0.
int StrComp(const std::string& a, const std::string& b);
// Case-insensitive comparison (vbTextCompare) using the Windows-1252 tables.
int StrCompText(const std::string& a, const std::string& b);
// Format of a number by the codes the program uses: "#%", "0%", "####", "###",
// "##", "0", "00", "0000", "#,##0", "0.0", "0.00". Rounds half away from zero.
std::string Format(double value, const std::string& code);
// Chr / Asc on bytes.
inline std::string Chr(int code) { return std::string(1, static_cast<char>(code)); }
inline int Asc(const std::string& s) { return s.empty() ? 0 : static_cast<unsigned char>(s[0]); }

}  // namespace vb
