#include "dao/jetFailure.h"

#include "dao/engineError.h"

namespace dao {

namespace {

EngineErrorNumber numberOf(jet::Fault fault)
{
    switch (fault) {
    case jet::Fault::Missing:
        return errFileMissing;
    case jet::Fault::NoPermission:
        return errCannotOpen;
    case jet::Fault::Disk:
        return errDisk;
    case jet::Fault::Unrecognized:
        return errUnrecognizedFormat;
    case jet::Fault::Damaged:
        return errDamaged;
    case jet::Fault::NoSuchTable:
        return errNoSuchTable;
    }
    return errUnknownFailure;
}

} // namespace

platform::RuntimeError engineFailure(const jet::Error& error, std::string_view name)
{
    auto failure = engineFailure(numberOf(error.fault()), name);
    if (error.fault() != jet::Fault::Damaged)
        return failure;
    // Where the damage is: somebody may want to look at the place.
    return {failure.number, failure.description() + "  (" + error.what() + ")"};
}

} // namespace dao
