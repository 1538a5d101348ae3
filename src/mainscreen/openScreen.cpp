#include "mainscreen/openScreen.h"

#include "load/checkTarget.h"
#include "mainscreen/noticeListModel.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/qtHost.h"
#include "mainscreen/rvisAbout.h"
#include "model/session.h"
#include "widgets/application.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QVBoxLayout>

// What the screen is made of, how it starts and how it ends.
namespace mainscreen {

namespace {

constexpr const char* openEvent = " Rvis(1.6.1) Successful OPEN   by ";
constexpr const char* exitEvent = " Rvis. Successful EXIT   by ";
constexpr const char* unloadEvent = " Rvis. Successful UNLOAD by ";

// A log that can't be reached disturbs nobody.
void writeLogLine(const char* event)
{
    try {
        session::writeLogLine(event);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

} // namespace

OpenScreen::OpenScreen(QtHost& host) : m_host(host), m_menu(*menuBar())
{
    build();
    session::ntcChanged = false;
    writeLogLine(openEvent);
}

void OpenScreen::build()
{
    setObjectName(QStringLiteral("OpenScreen"));
    setWindowTitle(QStringLiteral("ZEPH_Rvis"));
    buildContent();
    connectMenu();
    hideList();
    resize(1200, 720);
}

void OpenScreen::buildContent()
{
    auto* const content = new QWidget(this);
    m_txtFileName = new QLineEdit(content);
    m_txtFileName->setObjectName(QStringLiteral("txtFileName"));
    m_txtFileName->setAccessibleName(QStringLiteral("File"));
    m_txtFileName->setReadOnly(true);
    m_txtFileName->hide();
    m_lblLoadDB = new QLabel(QStringLiteral("Loading database ... Please wait"), content);
    m_lblLoadDB->setObjectName(QStringLiteral("LblLoadDB"));
    m_lblLoadDB->hide();
    m_lblCount = new QLabel(content);
    m_lblCount->setObjectName(QStringLiteral("LblCount"));
    m_lblCount->hide();
    m_hint = new QLabel(QStringLiteral("Ctrl+T opens a notice file, Ctrl+M a working database."), content);
    m_list = new NoticeListModel(this);
    m_dbGridView = new NoticeListView(content);
    m_dbGridView->setObjectName(QStringLiteral("DBGridView"));
    m_dbGridView->setAccessibleName(QStringLiteral("Notices"));
    m_dbGridView->setModel(m_list);
    connect(m_dbGridView, &NoticeListView::opened, this, widgets::guarded([this] { openNotice(); }));

    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_txtFileName);
    for (auto* const label : {m_lblLoadDB, m_hint, m_lblCount})
        label->setTextFormat(Qt::PlainText);
    for (auto* const label : {m_lblLoadDB, m_hint}) {
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label, 1);
    }
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(m_dbGridView, 1);
    layout->addWidget(m_lblCount);
    setCentralWidget(content);
}

void OpenScreen::connectMenu()
{
    const auto run = [this](const char* item, auto command) {
        connect(m_menu.item(item), &QAction::triggered, this,
                widgets::guarded([command](bool) { command(); }));
    };
    run("mnuOpenMDB", [this] { openWorkingDatabase(); });
    run("mnuOpenTxt", [this] { loadElectronicFile(); });
    run("mnuClose", [this] { closeWorkingDatabase(); });
    run("mnuLink", [this] { linkReferences(); });
    run("mnuTrgIndexInfo", [this] { showIndexInfo(); });
    run("mnuTrgIndexCreate", [this] { m_references.createRefIndexes(); });
    run("mnuTrgIndexDelete", [this] { deleteIndexes(); });
    run("mnuOneSuppress", [this] { checkSiteNames([this] { return askForOneNotice(); }); });
    run("mnuAllSuppress", [this] { checkSiteNames([] { return checkTarget::checkAllNtc; }); });
    run("mnuSortIndex", [this] { sortBy("mnuSortIndex"); });
    run("mnuSortAdmFreq", [this] { sortBy("mnuSortAdmFreq"); });
    run("mnuFilter", [this] { filterNotices(); });
    run("mnuAbout", [this] { showAbout(); });
    run("mnuFileExit", [this] { exitProgram(); });
}

void OpenScreen::showAbout()
{
    RvisAbout(this).exec();
}

void OpenScreen::exitProgram()
{
    m_dataNtcPub.unbind();
    writeLogLine(exitEvent);
    try {
        unload();
        close();
    } catch (const platform::RuntimeError& failure) {
        // Changes that could not be saved keep the screen, and are offered again.
        platform::showFailure(failure);
    }
}

void OpenScreen::unload()
{
    offerSaving();
    writeLogLine(unloadEvent);
    m_unloaded = true;
}

void OpenScreen::closeEvent(QCloseEvent* event)
{
    widgets::guarded([this] {
        if (!m_unloaded)
            unload();
    })();
    event->accept();
    m_host.unloadErrorMsg();
    QCoreApplication::exit(0);
}

} // namespace mainscreen
