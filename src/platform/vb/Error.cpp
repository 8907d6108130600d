#include "platform/vb/Error.h"

namespace vb {

std::string ErrorDescription(int number) {
    switch (number) {
    case 3: return "Return without GoSub";
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 7: return "Out of memory";
    case 9: return "Subscript out of range";
    case 11: return "Division by zero";
    case 13: return "Type mismatch";
    case 52: return "Bad file name or number";
    case 53: return "File not found";
    case 54: return "Bad file mode";
    case 55: return "File already open";
    case 57: return "Device I/O error";
    case 58: return "File already exists";
    case 59: return "Bad record length";
    case 61: return "Disk full";
    case 62: return "Input past end of file";
    case 63: return "Bad record number";
    case 67: return "Too many files";
    case 68: return "Device unavailable";
    case 70: return "Permission denied";
    case 71: return "Disk not ready";
    case 74: return "Can't rename with different drive";
    case 75: return "Path/File access error";
    case 76: return "Path not found";
    default: return "Application-defined or object-defined error";
    }
}

void Raise(int number) {
    throw RuntimeError(number, ErrorDescription(number));
}

std::string FaultText(const RuntimeError& e) {
    const std::string what = e.Description() + " (error " + std::to_string(e.Number) + ").";
    if (e.Path.empty()) return "Vestrel could not finish this step:\n\n" + what;
    return "Vestrel could not use the file:\n" + e.Path + "\n\n" + what +
           "\n\nCheck that the disk has room and that the file and its folder may be written, then try again.";
}

}  // namespace vb
