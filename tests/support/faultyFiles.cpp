#include "support/faultyFiles.h"

#include <sqlite3.h>

#include <cstring>

namespace {

struct Plan
{
    int writesLeft = -1; // negative: none fails
    int resultCode = SQLITE_OK;
    bool forGood = false;
    bool failed = false;
    int writes = 0;
    bool refuse = false;
};

Plan plan;
sqlite3_vfs* underlying = nullptr;
sqlite3_vfs faulty;

struct FaultyFile
{
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* realFile(sqlite3_file* file)
{
    return reinterpret_cast<FaultyFile*>(file)->real;
}

bool mustFail()
{
    ++plan.writes;
    if (plan.writesLeft < 0)
        return false;
    if (plan.writesLeft > 0 && --plan.writesLeft > 0)
        return false;
    plan.failed = true;
    if (!plan.forGood)
        plan.writesLeft = -1;
    return true;
}

int closeFile(sqlite3_file* file)
{
    return realFile(file)->pMethods->xClose(realFile(file));
}
int readFile(sqlite3_file* file, void* data, int size, sqlite3_int64 place)
{
    return realFile(file)->pMethods->xRead(realFile(file), data, size, place);
}
int writeFile(sqlite3_file* file, const void* data, int size, sqlite3_int64 place)
{
    return mustFail() ? plan.resultCode : realFile(file)->pMethods->xWrite(realFile(file), data, size, place);
}
int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    return realFile(file)->pMethods->xTruncate(realFile(file), size);
}
int syncFile(sqlite3_file* file, int flags)
{
    return realFile(file)->pMethods->xSync(realFile(file), flags);
}
int fileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return realFile(file)->pMethods->xFileSize(realFile(file), size);
}
int lockFile(sqlite3_file* file, int level)
{
    return realFile(file)->pMethods->xLock(realFile(file), level);
}
int unlockFile(sqlite3_file* file, int level)
{
    return realFile(file)->pMethods->xUnlock(realFile(file), level);
}
int checkLock(sqlite3_file* file, int* reserved)
{
    return realFile(file)->pMethods->xCheckReservedLock(realFile(file), reserved);
}
int controlFile(sqlite3_file* file, int operation, void* argument)
{
    return realFile(file)->pMethods->xFileControl(realFile(file), operation, argument);
}
int sectorSize(sqlite3_file* file)
{
    return realFile(file)->pMethods->xSectorSize(realFile(file));
}
int characteristics(sqlite3_file* file)
{
    return realFile(file)->pMethods->xDeviceCharacteristics(realFile(file));
}

const sqlite3_io_methods methods = {1,           closeFile,  readFile,        writeFile,  truncateFile,
                                    syncFile,    fileSize,   lockFile,        unlockFile, checkLock,
                                    controlFile, sectorSize, characteristics, nullptr,    nullptr,
                                    nullptr,     nullptr,    nullptr,         nullptr};

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* const wrapped = reinterpret_cast<FaultyFile*>(file);
    std::memset(wrapped, 0, sizeof *wrapped);
    if (plan.refuse && (flags & SQLITE_OPEN_MAIN_DB) == 0)
        return SQLITE_CANTOPEN;
    if (plan.refuse && (flags & SQLITE_OPEN_READWRITE) != 0)
        flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
    wrapped->real = reinterpret_cast<sqlite3_file*>(wrapped + 1);
    const int result = underlying->xOpen(underlying, name, wrapped->real, flags, outFlags);
    if (wrapped->real->pMethods != nullptr)
        wrapped->base.pMethods = &methods;
    return result;
}

} // namespace

FaultyFiles::FaultyFiles()
{
    underlying = sqlite3_vfs_find(nullptr);
    faulty = *underlying;
    faulty.zName = "faulty";
    faulty.szOsFile = static_cast<int>(sizeof(FaultyFile)) + underlying->szOsFile;
    faulty.xOpen = openFile;
    sqlite3_vfs_register(&faulty, 1);
    plan = {};
}

FaultyFiles::~FaultyFiles()
{
    sqlite3_vfs_unregister(&faulty);
    sqlite3_vfs_register(underlying, 1);
}

void FaultyFiles::failWrite(int number, int resultCode, bool forGood)
{
    plan.writesLeft = number;
    plan.resultCode = resultCode;
    plan.forGood = forGood;
    plan.failed = false;
    plan.writes = 0;
}

int FaultyFiles::writes()
{
    return plan.writes;
}

void FaultyFiles::heal()
{
    plan = {};
}

bool FaultyFiles::hasFailed()
{
    return plan.failed;
}

void FaultyFiles::refuseWriting(bool refuse)
{
    plan.refuse = refuse;
}
