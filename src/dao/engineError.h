#pragma once

#include "platform/runtimeError.h"

#include <string>
#include <string_view>

struct sqlite3;

namespace dao {

// Numbers of the engine's failures.
enum EngineErrorNumber : int
{
    errInvalidUseOfNull = 94,
    errUnknownFailure = 3000,
    errUpdateWithoutEdit = 3020,
    errNoCurrentRecord = 3021,
    errDuplicateKey = 3022,
    errFileMissing = 3024,
    errNoSpace = 3026,
    errReadOnly = 3027,
    errNoTransaction = 3034,
    errResources = 3035,
    errDisk = 3043,
    errFileInUse = 3045,
    errDamaged = 3049,
    errCannotOpen = 3051,
    errTooFewParameters = 3061,
    errUnknownField = 3070,
    errSyntax = 3075,
    errCriterion = 3077,
    errNoSuchTable = 3078,
    errAmbiguousField = 3079,
    errRecordDeleted = 3167,
    errDataChanged = 3197,
    errDatabaseExists = 3204,
    errLocked = 3218,
    errInvalidOperation = 3219,
    errOperationNotSupported = 3251,
    errNoFieldDefined = 3264,
    errNoSuchItem = 3265,
    errIndexExists = 3284,
    errRuleViolated = 3317,
    errUnrecognizedFormat = 3343,
    errInvalidField = 3409,
    errObjectClosed = 3420,
    errConversion = 3421,
};

// Throws RuntimeError with the engine's text. `name` is the file, table or other thing that the text speaks
// of.
[[noreturn]] void raiseEngineError(EngineErrorNumber number, std::string_view name = {});

// The same, to be thrown later.
[[nodiscard]] platform::RuntimeError engineFailure(EngineErrorNumber number, std::string_view name);

// The failure that an SQLite result code stands for, with the message of the connection where there is one.
[[nodiscard]] platform::RuntimeError engineFailure(int resultCode, sqlite3* connection,
                                                   std::string_view path);

} // namespace dao
