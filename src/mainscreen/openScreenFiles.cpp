#include "db/MainModule.h"
#include "elect/writeNtcToElect.h"
#include "load/readNtcAndWriteToDB.h"
#include "mainscreen/errorMsg.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "mainscreen/rcvDate.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "platform/ansiText.h"
#include "platform/fileNumbers.h"
#include "platform/paths.h"
#include "widgets/inputHold.h"

#include <QLabel>
#include <QLineEdit>

// The commands that open, load, save and close.
namespace mainscreen {

namespace {

constexpr const char* electronicFilter = "Text Files (*.txt)|*.txt|Updated Files (*.upd)|*.upd";
constexpr const char* workingDatabaseLabel = "WORKING DATABASE : ";

// A copy of the master that fails is shown, and the load goes on with whatever file stands there.
void loadIntoFreshDatabase()
{
    const auto path =
        readNtcAndWriteToDB::workingDatabaseOf(std::string(platform::trimBlanks(session::electFileName)));
    MainModule::copyMasterDatabase(path);
    session::workingDbPath = path;
    readNtcAndWriteToDB::openElectFile(session::notice);
    readNtcAndWriteToDB::loadElectFile(session::notice, session::workingDbPath);
}

} // namespace

// Cancelling is a failure of its own number, as any other way of not getting a file.
std::string OpenScreen::chooseFile(const char* filter, const char* offeredName) const
{
    const auto chosen = m_host.openFile({filter, offeredName});
    if (!chosen)
        platform::raise(platform::errDialogCancelled);
    return *chosen;
}

// Of a command that began with the choice of a file: cancelling it is said to nobody.
void OpenScreen::endFailedChoice(const platform::RuntimeError& failure)
{
    platform::host().setPointer(platform::pointerDefault);
    if (failure.number != 0 && failure.number != platform::errDialogCancelled)
        platform::showFailure(failure);
}

void OpenScreen::bindTo(const std::string& path)
{
    m_txtFileName->setText(QString::fromStdString(workingDatabaseLabel + path));
    m_dbName = path;
    m_filter.whereClause.clear();
}

void OpenScreen::openWorkingDatabase()
{
    offerSaving();
    m_lblCount->hide();
    m_txtFileName->show();
    hideList();
    try {
        session::workingDbPath = chooseFile(databaseFilter);
        m_keysValid = false;
        bindTo(session::workingDbPath);
        refreshNoticeList(FileCheck::Quick);
        m_menu.setEnabled("mnuDB", true);
    } catch (const platform::RuntimeError& failure) {
        endFailedChoice(failure);
    }
}

void OpenScreen::loadElectronicFile()
{
    m_dataNtcPub.unbind();
    offerSaving();
    m_lblCount->hide();
    if (!pickElectronicFile() || !masterIsReadable())
        return;
    InitializeNtc::clearNtcRcvDate(session::notice);
    if (!askDateOfReceipt()) {
        m_txtFileName->hide();
        return;
    }
    loadAndList();
    showLoadMessages();
    m_menu.setEnabled("mnuDB", true);
}

void OpenScreen::loadAndList()
{
    const widgets::InputHold hold;
    m_host.setPointer(platform::pointerHourglass);
    loadIntoFreshDatabase();
    m_host.setPointer(platform::pointerDefault);
    bindTo(session::workingDbPath);
    refreshNoticeList();
}

bool OpenScreen::pickElectronicFile()
{
    try {
        const auto chosen = chooseFile(electronicFilter);
        m_keysValid = false;
        m_txtFileName->show();
        hideList();
        session::electFileName = chosen;
        m_txtFileName->setText(QString::fromStdString(chosen));
        return true;
    } catch (const platform::RuntimeError&) {
        // Whatever the dialog failed with: without a file there is nothing to say.
        m_host.setPointer(platform::pointerDefault);
        return false;
    }
}

bool OpenScreen::masterIsReadable()
{
    try {
        platform::testReadable(platform::programDirectory() + "/" + MainModule::masterFileName);
        return true;
    } catch (const platform::RuntimeError& failure) {
        m_host.setPointer(platform::pointerDefault);
        platform::showMessage("Error " + std::to_string(failure.number) + " : \n\r" +
                              MainModule::masterFileName + " file not found");
        return false;
    }
}

bool OpenScreen::askDateOfReceipt()
{
    RcvDate dialog(this);
    dialog.exec();
    session::notice.d_rcv = dialog.dateRcv();
    return !dialog.dateRcv().empty();
}

void OpenScreen::showLoadMessages()
{
    if (m_host.errorMsg().lineCount() > 0)
        m_host.errorMsg().exec();
    m_host.unloadErrorMsg();
}

void OpenScreen::offerSaving()
{
    if (!session::ntcChanged)
        return;
    saveChangesToElectFile();
    session::ntcChanged = false;
}

void OpenScreen::saveChangesToElectFile() const
{
    if (m_host.msgBox("Do you want to save changes to an electronic (*.upd) file? ", platform::Buttons::YesNo,
                      platform::Icon::None, "Save to electronic file") != platform::Answer::Yes)
        return;
    m_host.setPointer(platform::pointerHourglass);
    const auto fileName = readNtcAndWriteToDB::updateFileOf(m_dbName);
    MainModule::openDatabase(false, m_dbName, session::db);
    writeNtcToElect::writeElectFile(fileName, session::db);
    MainModule::closeDatabase(session::db);
    m_host.setPointer(platform::pointerDefault);
    m_host.msgBox("The file : " + fileName + " has been created", platform::Buttons::Ok,
                  platform::Icon::Information, "Update file");
}

void OpenScreen::closeWorkingDatabase()
{
    if (m_dataNtcPub.DatabaseName.empty())
        return;
    m_dataNtcPub.unbind();
    offerSaving();
    m_txtFileName->clear();
    hideList();
    for (const char* item : {"mnuNtc", "mnuDB", "mnuTrgIndex", "mnuTools"})
        m_menu.setEnabled(item, false);
}

} // namespace mainscreen
