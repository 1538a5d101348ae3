#pragma once

#include "db/readDBToNtc.h"
#include "db/writeNtcToDB.h"
#include "model/session.h"
#include "screens/noticeScreen.h"
#include "screens/noticeWalk.h"
#include "support/failures.h"
#include "support/fakeHost.h"
#include "support/windows.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

#include <stdexcept>
#include <string>
#include <vector>

// A notice as small as a screen shows it without a message: its number stands in its address code and, with
// that of the section, in the radiated power of its sections.
inline Ntc smallNotice(const std::string& type, int number, int sections = 1)
{
    Ntc notice;
    notice.notice_typ = type;
    notice.adm = "D";
    notice.fragment = "NTFD_RR";
    notice.intent = "ADD";
    notice.stn_type = type == "T13" ? "RX" : "TX";
    notice.freq_assgn = "151.3375";
    notice.geo.present = true;
    notice.addr_code = std::to_string(number);
    for (int section = 1; section <= sections; ++section) {
        auto& antenna = notice.antenna[static_cast<std::size_t>(section - 1)];
        antenna.present = true;
        antenna.pwr_dbw = std::to_string(section);
    }
    return notice;
}

// Notices of a working database behind a list, and the screens that show them over a main screen.
class ShownNotices : public testing::Test
{
protected:
    ShownNotices()
    {
        GTEST_FLAG_SET(death_test_style, "fast");
        session::keyArray.clear();
        session::keyCount = session::currentIndex = session::currentVeldaKey = 0;
        session::currentGeoKey = session::currentTargetKey = 0;
        session::currentScreenType.clear();
        session::dbStatus.clear();
        session::language = "E";
        session::ntcChanged = false;
        mainScreen.show();
    }

    std::int32_t add(const Ntc& notice)
    {
        auto workspace = dao::DBEngine::Workspaces(0);
        const auto database = work.open();
        writeNtcToDB::insertNtc(notice, workspace, database);
        database->Close();
        session::keyArray.push_back(session::currentVeldaKey);
        ++session::keyCount;
        return session::currentVeldaKey;
    }
    void addAll(const std::vector<std::string>& types)
    {
        for (const auto& type : types)
            add(smallNotice(type, static_cast<int>(session::keyCount)));
    }

    Ntc stored(std::int32_t key)
    {
        Ntc notice;
        const auto database = work.open(true);
        readDBToNtc::readNtc(key, notice, database);
        database->Close();
        return notice;
    }

    // As the main screen does with a row of the list, up to where the screen is shown.
    screens::ScreenType read(int place)
    {
        session::currentIndex = place;
        session::currentVeldaKey = session::keyArray.at(static_cast<std::size_t>(place));
        session::notice = stored(session::currentVeldaKey);
        return screens::screenOf(session::notice.notice_typ).value();
    }
    // Shows it without a loop of its own: the test goes on.
    void show(int place)
    {
        walk.handOver(read(place), work.path());
        activate();
    }
    void activate()
    {
        screen().activateWindow();
        if (!QTest::qWaitForWindowActive(&screen()))
            throw std::runtime_error("the screen doesn't become active");
    }

    std::vector<screens::NoticeScreen*> screensInSight() const
    {
        std::vector<screens::NoticeScreen*> all;
        for (auto* const window : mainScreen.findChildren<screens::NoticeScreen*>()) {
            if (window->isVisible())
                all.push_back(window);
        }
        return all;
    }
    screens::NoticeScreen& screen() const
    {
        const auto all = screensInSight();
        if (all.size() != 1)
            throw std::runtime_error(std::to_string(all.size()) + " notice screens are in sight");
        return *all.front();
    }
    bool isShown() const { return !screensInSight().empty(); }
    std::string typeInSight() const { return std::string(screens::typeName(screen().type())); }
    // The notice whose values stand in the controls.
    std::string numberInSight() const { return screen().text("addr_cde"); }
    bool isEnabled(const char* button) const { return screen().control(button)->isEnabled(); }

    void click(const char* button) const
    {
        QTest::mouseClick(screen().control(button), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // The keys where the focus is.
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(screen().windowHandle(), code, modifiers);
    }
    void type(const char* field, const QString& text) const
    {
        auto* const control = screen().control(field);
        control->setFocus();
        QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(control, Qt::Key_Delete);
        QTest::keyClicks(control, text);
    }
    std::string focus() const
    {
        const auto* const widget = screen().focusWidget();
        return widget != nullptr ? widget->objectName().section('(', 0, 0).toStdString() : "none";
    }

    WorkingDatabase work;
    FakeHost host;
    QWidget mainScreen;
    screens::NoticeWalk walk{&mainScreen};
};
