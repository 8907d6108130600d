#pragma once
// Run-time errors carry the runtime's error numbers, so handlers can tell them
// apart the way the program's routines do (53 file not found, 70 permission
// denied, 58 file already exists, ...).
#include <stdexcept>
#include <string>

namespace vb {

class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, const std::string& description)
        : std::runtime_error(description), Number(number) {}
    int Number;
    std::string Path;   // the file it happened to, when there was one
    std::string Description() const { return what(); }
};

// The "errors ignored" statements of the program: a run-time error inside f is
// dropped and the caller goes on at its next statement. Returns false when one was.
template <class F>
bool IgnoreErrors(F&& f) {
    try {
        f();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

// What the operator reads when a fault reaches no handler of its own: plain
// words, the file when there is one, and what to do about it.
std::string FaultText(const RuntimeError& e);

// Standard descriptions for the numbers the program meets.
std::string ErrorDescription(int number);
[[noreturn]] void Raise(int number);

enum ErrNo {
    errIllegalCall = 5, errOverflow = 6, errSubscript = 9, errTypeMismatch = 13,
    errBadFileName = 52, errFileNotFound = 53, errBadFileMode = 54, errFileAlreadyOpen = 55,
    errDeviceIO = 57, errFileExists = 58, errBadRecordLength = 59, errDiskFull = 61,
    errInputPastEnd = 62, errBadRecordNumber = 63, errTooManyFiles = 67, errPermissionDenied = 70,
    errRenameAcrossDrives = 74, errPathFileAccess = 75, errPathNotFound = 76,
};

}  // namespace vb
