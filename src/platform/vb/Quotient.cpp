#include "platform/vb/Quotient.h"

#include "platform/vb/Strings.h"

namespace vb {

std::string FormatQuotient(double part, double whole, const std::string& code, const std::string& whenZero) {
    if (whole == 0) return whenZero;
    return Format(part / whole, code);
}

}  // namespace vb
