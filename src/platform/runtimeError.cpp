#include "platform/runtimeError.h"

namespace platform {

std::string errorDescription(ErrorNumber number)
{
    switch (number) {
    case errInvalidCall:
        return "Invalid procedure call or argument";
    case errOverflow:
        return "Overflow";
    case errOutOfMemory:
        return "Out of memory";
    case errSubscript:
        return "Subscript out of range";
    case errTypeMismatch:
        return "Type mismatch";
    case errInternal:
        return "Internal error";
    case errBadFileNumber:
        return "Bad file name or number";
    case errFileNotFound:
        return "File not found";
    case errFileAlreadyOpen:
        return "File already open";
    case errDeviceIo:
        return "Device I/O error";
    case errDiskFull:
        return "Disk full";
    case errInputPastEnd:
        return "Input past end of file";
    case errPermissionDenied:
        return "Permission denied";
    case errPathFileAccess:
        return "Path/File access error";
    case errPathNotFound:
        return "Path not found";
    case errObjectNotSet:
        return "Object variable or With block variable not set";
    case errObjectRequired:
        return "Object required";
    case errPrinter:
        return "Printer error";
    case errDialogCancelled:
        return "Cancel was selected.";
    }
    return "Application-defined or object-defined error";
}

void raise(ErrorNumber number)
{
    throw RuntimeError(number, errorDescription(number));
}

std::string errorMessage(const RuntimeError& failure)
{
    return "Error " + std::to_string(failure.number) + " : " + failure.description();
}

} // namespace platform
