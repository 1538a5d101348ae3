#pragma once

#include <stdexcept>
#include <string>

// Failures that the run-time or the file-database engine reports: a number and a description, as an operator
// reads them behind "Error ".
namespace platform {

// Numbers whose description is fixed. Any other number may be thrown with a description of its own.
enum ErrorNumber : int
{
    errInvalidCall = 5,
    errOverflow = 6,
    errOutOfMemory = 7,
    errSubscript = 9,
    errTypeMismatch = 13,
    errInternal = 51,
    errBadFileNumber = 52,
    errFileNotFound = 53,
    errFileAlreadyOpen = 55,
    errDeviceIo = 57,
    errDiskFull = 61,
    errInputPastEnd = 62,
    errPermissionDenied = 70,
    errPathFileAccess = 75,
    errPathNotFound = 76,
    errObjectNotSet = 91,
    errObjectRequired = 424,
    errPrinter = 482,
    errDialogCancelled = 32755,
};

class RuntimeError : public std::runtime_error
{
public:
    RuntimeError(int errorNumber, const std::string& text) : std::runtime_error(text), number(errorNumber) {}

    [[nodiscard]] std::string description() const { return what(); }

    int number;
};

// The fixed description of an ErrorNumber.
[[nodiscard]] std::string errorDescription(ErrorNumber number);

// Throws RuntimeError with the fixed description.
[[noreturn]] void raise(ErrorNumber number);

// "Error ", the number, " : " and the description: the one text in which a failure is shown.
[[nodiscard]] std::string errorMessage(const RuntimeError& failure);

} // namespace platform
