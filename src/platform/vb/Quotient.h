#pragma once
// The runtime's "/" of two counts, formatted. The runtime stops with "Division by
// zero" (or "Overflow" for 0 / 0) when the divisor is 0; the reports show a
// stand-in text instead, so that an empty crusade still gets its page.
#include <string>

namespace vb {

// Format(part / whole, code), or whenZero when whole is 0.
std::string FormatQuotient(double part, double whole, const std::string& code, const std::string& whenZero);

}  // namespace vb
