#include "dao/engineError.h"

#include <sqlite3.h>

#include <array>

namespace dao {

namespace {

struct Description
{
    EngineErrorNumber number;
    std::string_view text; // "|" stands for the name
};

constexpr std::array descriptions = {
    Description{errInvalidUseOfNull, "Invalid use of Null"},
    Description{errUpdateWithoutEdit, "Update without AddNew or Edit."},
    Description{errNoCurrentRecord, "No current record."},
    Description{
        errDuplicateKey,
        "The changes were not successful because they would create duplicate values in the index, primary "
        "key, or relationship."},
    Description{errFileMissing, "Could not find file '|'."},
    Description{errNoSpace, "Not enough space on disk."},
    Description{errReadOnly, "Cannot update.  Database or object is read-only."},
    Description{errNoTransaction,
                "You tried to commit or rollback a transaction without first using BeginTrans."},
    Description{errResources, "System resource exceeded."},
    Description{errDisk, "Disk or network error."},
    Description{errFileInUse, "Could not use '|'; file already in use."},
    Description{errDamaged, "Cannot open database '|'.  The file may be corrupt."},
    Description{errCannotOpen,
                "The database engine cannot open the file '|'.  You may lack permission to use it."},
    Description{errTooFewParameters, "Too few parameters.  |"},
    Description{errUnknownField,
                "The database engine does not recognize '|' as a valid field name or expression."},
    Description{errSyntax, "Syntax error in query:  |."},
    Description{errCriterion, "Syntax error in expression:  |."},
    Description{
        errNoSuchTable,
        "The database engine cannot find the input table or query '|'.  Make sure it exists and that its "
        "name is spelled correctly."},
    Description{errAmbiguousField, "The specified field could refer to more than one table:  |."},
    Description{errRecordDeleted, "Record is deleted."},
    Description{errDatabaseExists, "Database already exists."},
    Description{errLocked, "Could not update; currently locked."},
    Description{errInvalidOperation, "Invalid operation."},
    Description{errOperationNotSupported, "Operation is not supported for this type of object."},
    Description{errNoFieldDefined, "No field defined--cannot append TableDef or Index."},
    Description{errNoSuchItem, "Item not found in this collection."},
    Description{errIndexExists, "Index already exists."},
    Description{errRuleViolated, "One or more values are prohibited by a rule set for the table:  |."},
    Description{errUnrecognizedFormat, "Unrecognized database format '|'."},
    Description{errInvalidField, "Invalid field name '|' in definition of index or relationship."},
    Description{errObjectClosed, "Object invalid or no longer set."},
    Description{errConversion, "Data type conversion error."},
};

platform::RuntimeError failure(EngineErrorNumber number, std::string_view name)
{
    for (const auto& [candidate, text] : descriptions) {
        if (candidate != number)
            continue;
        std::string filled(text);
        if (const auto place = filled.find('|'); place != std::string::npos)
            filled.replace(place, 1, name);
        return {number, filled};
    }
    return {number, "Reserved error (" + std::string(name) + "); there is no message for this error."};
}

// A table's name without the schema that the translation put before it.
std::string_view withoutSchema(std::string_view name)
{
    const bool qualified = name.starts_with("main.") || name.starts_with("zeph_link");
    return qualified ? name.substr(name.find('.') + 1) : name;
}

// What the SQL compiler says about a text that it can't compile.
platform::RuntimeError compileFailure(std::string_view message)
{
    struct Pattern
    {
        std::string_view start;
        EngineErrorNumber number;
    };
    constexpr std::array patterns = {
        Pattern{"no such table: ", errNoSuchTable},
        Pattern{"no such column: ",
                errTooFewParameters}, // an unknown name in a query is taken for a parameter
        Pattern{"ambiguous column name: ", errAmbiguousField},
    };
    for (const auto& [start, number] : patterns) {
        if (message.starts_with(start))
            return failure(number, withoutSchema(message.substr(start.size())));
    }
    return failure(errSyntax, message);
}

} // namespace

void raiseEngineError(EngineErrorNumber number, std::string_view name)
{
    throw failure(number, name);
}

platform::RuntimeError engineFailure(EngineErrorNumber number, std::string_view name)
{
    return failure(number, name);
}

platform::RuntimeError engineFailure(int resultCode, sqlite3* connection, std::string_view path)
{
    const std::string_view message = connection != nullptr ? sqlite3_errmsg(connection) : "";
    switch (resultCode & 0xff) {
    case SQLITE_ERROR:
        return compileFailure(message);
    case SQLITE_NOMEM:
        return {platform::errOutOfMemory, platform::errorDescription(platform::errOutOfMemory)};
    case SQLITE_BUSY:
        return failure(errFileInUse, path);
    case SQLITE_LOCKED:
        return failure(errLocked, path);
    case SQLITE_READONLY:
        return failure(errReadOnly, path);
    case SQLITE_IOERR:
        return failure(errDisk, path);
    case SQLITE_CORRUPT:
        return failure(errDamaged, path);
    case SQLITE_NOTADB:
        return failure(errUnrecognizedFormat, path);
    case SQLITE_FULL:
        return failure(errNoSpace, path);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return failure(errCannotOpen, path);
    case SQLITE_TOOBIG:
        return failure(errResources, path);
    case SQLITE_MISMATCH:
        return failure(errConversion, path);
    case SQLITE_CONSTRAINT:
        if (resultCode == SQLITE_CONSTRAINT_UNIQUE || resultCode == SQLITE_CONSTRAINT_PRIMARYKEY ||
            resultCode == SQLITE_CONSTRAINT_ROWID)
            return failure(errDuplicateKey, path);
        return failure(errRuleViolated, message);
    default:
        return failure(errUnknownFailure, message);
    }
}

} // namespace dao
