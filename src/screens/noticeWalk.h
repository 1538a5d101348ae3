#pragma once

#include "screens/screenType.h"

#include <QEventLoop>
#include <QPointer>

#include <string>

class QWidget;

namespace screens {

class NoticeScreen;

// One stay on the notice screens, from the first that is shown until the last is closed: however many hand
// over to one another, one loop runs and one screen is there.
class NoticeWalk
{
public:
    // The main screen, over which the screens stand.
    explicit NoticeWalk(QWidget* mainScreen) : m_mainScreen(mainScreen) {}
    ~NoticeWalk();
    NoticeWalk(const NoticeWalk&) = delete;
    NoticeWalk& operator=(const NoticeWalk&) = delete;

    // Shows the notice in memory on the screen of its type and returns when the operator has closed it, or
    // the one that he walked on to. Throws what fails while the first screen loads.
    void show(ScreenType type, const std::string& dbName);

    // Called by a screen: another one takes its place. Throws what fails while that one loads.
    void handOver(ScreenType type, const std::string& dbName);
    // Called by a screen that loads: the one before it, if there is one of another type, goes.
    void unloadOther(ScreenType type);

private:
    void bringUp(ScreenType type, const std::string& dbName);
    void closed(const NoticeScreen* screen);

    QWidget* m_mainScreen;
    QPointer<NoticeScreen> m_screen; // the one that is shown
    QEventLoop m_loop;
};

} // namespace screens
