#include "db/currentNotice.h"

#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "model/InitializeNtc.h"
#include "model/session.h"

namespace currentNotice {

void read(const std::string& database)
{
    InitializeNtc::clearNtcAdm(session::notice);
    InitializeNtc::initNtc(session::notice);
    MainModule::openDatabase(true, database, session::db);
    readDBToNtc::readNtc(session::currentVeldaKey, session::notice, session::db);
    MainModule::closeDatabase(session::db);
}

} // namespace currentNotice
