#include "load/checkTarget.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "mainscreen/selectIndexDlg.h"
#include "model/session.h"
#include "widgets/inputHold.h"

// The commands of the reference databases: the link, their indexes, the check of site names.
namespace mainscreen {

namespace {

constexpr const char* referenceName = "VELDABASEBETA.mdb";

// The check would look for the targets among the notices themselves.
bool isReferenceTheWorkingDatabase()
{
    if (session::referenceDbPath != session::workingDbPath)
        return false;
    platform::showMessage("Cannot look for the target as both tables are the same : " +
                          session::workingDbPath + " = " + session::referenceDbPath);
    return true;
}

} // namespace

void OpenScreen::linkReferences()
{
    try {
        session::referenceDbPath = chooseFile(databaseFilter, referenceName);
        m_references.checkRefIndexes();
        for (const char* item : {"mnuNtc", "mnuSuppress", "mnuTrgIndex"})
            m_menu.setEnabled(item, true);
    } catch (const platform::RuntimeError& failure) {
        endFailedChoice(failure);
    }
}

void OpenScreen::showIndexInfo()
{
    m_host.msgBox(indexInfo(), platform::Buttons::Ok, platform::Icon::Information, "Index creation");
}

void OpenScreen::deleteIndexes()
{
    m_host.setPointer(platform::pointerHourglass);
    m_references.deleteRefIndexesIfAny();
    m_host.setPointer(platform::pointerDefault);
}

// What has to be asked is asked before the check begins: from then on nothing that the operator types counts.
void OpenScreen::checkSiteNames(const std::function<CheckOfSites()>& prepare)
{
    try {
        if (isReferenceTheWorkingDatabase())
            return;
        m_dataNtcPub.closeRecordset();
        m_dataNtcPub.closeDatabase();
        const auto check = prepare();
        const widgets::InputHold hold;
        check();
        // The check changes values of notices, never their number: the keys stay.
        m_keysValid = true;
        refreshNoticeList();
    } catch (const platform::RuntimeError& failure) {
        platform::showFailure(failure);
    }
}

// A dialog that is cancelled leaves 0, which is no notice's number, and the check says so: it stores nothing.
OpenScreen::CheckOfSites OpenScreen::askForOneNotice()
{
    SelectIndexDlg dialog(this);
    dialog.exec();
    return [number = dialog.number()] { checkTarget::checkOneNtc(number); };
}

} // namespace mainscreen
