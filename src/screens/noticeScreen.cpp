#include "screens/noticeScreen.h"

#include "db/currentNotice.h"
#include "db/deleteNtcFromDB.h"
#include "db/GridNavig.h"
#include "db/MainModule.h"
#include "db/updateNtcInDB.h"
#include "model/session.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "screens/fieldRules.h"
#include "screens/hints.h"
#include "screens/labels.h"
#include "screens/MakeVisible.h"
#include "screens/noticeWalk.h"
#include "screens/printing.h"
#include "screens/recordMapping.h"
#include "widgets/application.h"

#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include <exception>
#include <utility>

namespace screens {

namespace {

constexpr int mostSections = static_cast<int>(decltype(Ntc::antenna)::size());

bool askYesNo(const char* question, const char* rest, const char* title,
              platform::Buttons buttons = platform::Buttons::YesNo)
{
    return platform::host().msgBox(question + platform::integerText(session::currentVeldaKey) + rest, buttons,
                                   platform::Icon::None, title) == platform::Answer::Yes;
}

// Runs the steps on the database opened for writing, in the default workspace.
template <class Steps>
void writing(const std::string& dbName, Steps steps)
{
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, dbName, session::db);
    steps();
    MainModule::closeDatabase(session::db);
    MainModule::closeWorkspace(session::ws);
}

} // namespace

NoticeScreen::NoticeScreen(ScreenType type, std::string dbName, NoticeWalk& walk, QWidget* parent)
    : NoticeForm(type, parent), m_dbName(std::move(dbName)), m_walk(walk)
{
    attachFieldRules(*this);
    connectButtons();
    connectOptions();
}

void NoticeScreen::connectButtons()
{
    const auto run = [this](const char* button, auto handler) {
        connect(control<QPushButton>(button), &QPushButton::clicked, this,
                widgets::guarded([handler](bool) { handler(); }));
    };
    run("ButtonNextNtc", [this] { move(GridNavig::nextNoticeIndex); });
    run("ButtonPrevNtc", [this] { move(GridNavig::prevNoticeIndex); });
    run("ButtonNextAnt", [this] { nextAntenna(); });
    run("ButtonPrevAnt", [this] { previousAntenna(); });
    run("ButtonUpdate", [this] { updateNotice(); });
    run("ButtonDelete", [this] { deleteNotice(); });
    run("ButtonPrint", [this] { print(); });
    run("ButtonCancel", [this] { close(); });
    addShortcut(Qt::CTRL | Qt::Key_PageDown, "ButtonNextNtc");
    addShortcut(Qt::CTRL | Qt::Key_PageUp, "ButtonPrevNtc");
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown, "ButtonNextAnt");
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp, "ButtonPrevAnt");
    addShortcut(Qt::CTRL | Qt::Key_S, "ButtonUpdate");
}

// Not the button's own shortcut: that would be lost with each new caption.
void NoticeScreen::addShortcut(const QKeySequence& keys, const char* button)
{
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, control<QPushButton>(button), &QPushButton::click);
}

void NoticeScreen::connectOptions()
{
    const auto run = [this](const char* option, auto rule) {
        auto* const button = control<QRadioButton>(option);
        if (button == nullptr)
            return;
        connect(button, &QRadioButton::toggled, this, widgets::guarded([this, rule](bool selected) {
                    if (selected)
                        rule(*this, std::string(typeName(type())));
                }));
    };
    for (const char* option : {"Int_Add", "Int_Mod", "Int_Sup", "Int_Wdraw"})
        run(option, MakeVisible::showTargetFields);
    for (const char* option : {"multipt", "Rpoint", "Rcircle", "Tcircle", "zone"})
        run(option, MakeVisible::showAreaFields);
}

void NoticeScreen::load()
{
    setScreenLabels(std::string(typeName(type())), *this);
    setText("TxtVeldakey", platform::integerText(session::currentVeldaKey));
    m_walk.unloadOther(type());
    session::currentScreenType = typeName(type());
    fillScreen(*this, session::notice);
    setNavButtons();
}

void NoticeScreen::setEnabled(const char* button, bool enabled) const
{
    control(button)->setEnabled(enabled);
}

void NoticeScreen::setNavButtons() const
{
    auto index = session::currentIndex;
    setEnabled("ButtonNextNtc", GridNavig::nextNoticeIndex(index));
    index = session::currentIndex;
    setEnabled("ButtonPrevNtc", GridNavig::prevNoticeIndex(index));
}

void NoticeScreen::move(Neighbour neighbour)
{
    if (!neighbour(session::currentIndex))
        return;
    session::currentVeldaKey = session::keyAt(session::currentIndex);
    setText("TxtVeldakey", platform::integerText(session::currentVeldaKey));
    platform::host().setPointer(platform::pointerHourglass);
    currentNotice::read(m_dbName);
    platform::host().setPointer(platform::pointerDefault);
    if (session::notice.adm.empty())
        platform::showMessage("No notice - This should not happen");
    else
        showMoved();
}

void NoticeScreen::showMoved()
{
    const auto screen = screenOf(session::notice.notice_typ);
    if (!screen) {
        platform::host().beep();
        platform::showMessage("Sorry, screens aren't ready yet!!");
    } else if (*screen == type()) {
        fillScreen(*this, session::notice);
        setNavButtons();
    } else {
        m_walk.handOver(*screen, m_dbName);
    }
}

void NoticeScreen::nextAntenna()
{
    fillAntennaFromScreen(*this, session::notice);
    const int number = antennaNumber(*this) + 1;
    setAntennaNumber(*this, number);
    setEnabled("ButtonPrevAnt", true);
    if (number > mostSections) {
        setEnabled("ButtonNextAnt", false);
    } else if (!fillScreenFromAntenna(*this, session::notice)) {
        setAntennaNumber(*this, number - 1);
        setEnabled("ButtonNextAnt", false);
    }
}

void NoticeScreen::previousAntenna()
{
    fillAntennaFromScreen(*this, session::notice);
    const int number = antennaNumber(*this) - 1;
    setAntennaNumber(*this, number);
    setEnabled("ButtonNextAnt", true);
    if (number < 1) {
        setEnabled("ButtonPrevAnt", false);
    } else if (!fillScreenFromAntenna(*this, session::notice)) {
        setAntennaNumber(*this, number + 1);
        setEnabled("ButtonPrevAnt", false);
    }
}

void NoticeScreen::updateNotice()
{
    if (!askYesNo("Update No : ", " in the database? ", "Update notice in the database"))
        return;
    session::ntcChanged = true;
    writing(m_dbName, [this] {
        fillNtcFromScreen(*this, session::notice);
        if (antennaNumber(*this) > 0)
            fillAntennaFromScreen(*this, session::notice);
        updateNtcInDB::updateNtc(session::currentVeldaKey, session::notice, session::ws, session::db);
    });
    setHidden(hiddenOf(type(), session::notice));
}

void NoticeScreen::deleteNotice()
{
    if (!askYesNo("Delete No : ", " from the database? ", "Delete notice from database",
                  platform::Buttons::YesNoDefaultNo))
        return;
    session::ntcChanged = true;
    writing(m_dbName, [] { deleteNtcFromDB::deleteNtc(session::currentVeldaKey, session::ws, session::db); });
    session::keyAt(session::currentIndex) = session::deletedKey;
    goOnAfterDelete();
}

// To the next notice, otherwise to the one before; without either the screen closes.
void NoticeScreen::goOnAfterDelete()
{
    auto index = session::currentIndex;
    if (GridNavig::nextNoticeIndex(index)) {
        session::currentIndex = index - 1;
        move(GridNavig::nextNoticeIndex);
    } else if (GridNavig::prevNoticeIndex(index)) {
        session::currentIndex = index + 1;
        move(GridNavig::prevNoticeIndex);
    } else {
        close();
    }
}

void NoticeScreen::print()
{
    try {
        printScreen(*this);
    } catch (const std::exception&) { // a picture that the memory can't hold too
        platform::showMessage("The form can't be printed.");
    }
}

} // namespace screens
