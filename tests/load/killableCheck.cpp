// A check that is meant to be killed: killable_check DATABASE REFERENCE [torn] checks all notices and prints
// a line for each that is about to be stored, so that all before it are committed. It waits at its end, so
// that the kill never comes too late. With "torn" nothing is in a transaction: the control that shows what a
// kill does then.
#include "dao/databaseState.h"
#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "db/updateNtcInDB.h"
#include "load/checkTarget.h"
#include "model/InitializeNtc.h"
#include "platform/hostFormat.h"
#include "platform/userName.h"
#include "printingHost.h"

#include <string>
#include <unistd.h>

namespace {

class WaitingHost : public PrintingHost
{
public:
    void endCheck() override
    {
        while (true)
            pause();
    }
};

// What the check does for a notice with one target, in a workspace that its databases know nothing of.
void tornCheck()
{
    MainModule::openDatabase(false, session::workingDbPath, session::db);
    MainModule::openDatabase(true, session::referenceDbPath, session::refDb);
    const dao::Ref<dao::Workspace> stranger(
        std::make_shared<dao::Workspace>(std::make_shared<dao::Workspace::State>()));
    const auto count = checkTarget::loadCheckKeys("SELECT veldakey FROM kvr_velda", session::db);
    for (std::size_t index = 0; index < static_cast<std::size_t>(count); ++index) {
        const auto key = checkTarget::checkKeys().at(index);
        InitializeNtc::initNtc(session::notice);
        session::currentVeldaKey = key;
        readDBToNtc::readNtc(key, session::notice, session::db);
        session::notice.geo.site_name =
            checkTarget::lookUpTargetSite(session::notice, session::refDb, session::notice.geo.ctry);
        platform::host().addErrorLine("Notice No: " + std::to_string(key));
        updateNtcInDB::updateNtc(key, session::notice, stranger, session::db);
    }
    platform::host().addErrorLine("DONE");
    platform::host().endCheck();
}

} // namespace

int main(int count, char** arguments)
try {
    if (count < 3)
        return 2;
    WaitingHost host;
    platform::setHost(&host);
    platform::setClock(platform::LocalTime{2026, 3, 9, 14, 5, 7});
    platform::setHostLocale("de_DE.UTF-8");
    platform::setHostUserName("operator");
    session::workingDbPath = arguments[1];
    session::referenceDbPath = arguments[2];
    if (count > 3)
        tornCheck();
    else
        checkTarget::checkAllNtc();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
