#include "screens/noticeWalk.h"

#include "model/session.h"
#include "screens/noticeScreen.h"

#include <memory>

namespace screens {

NoticeWalk::~NoticeWalk()
{
    delete m_screen.data();
}

void NoticeWalk::show(ScreenType type, const std::string& dbName)
{
    bringUp(type, dbName);
    m_loop.exec();
}

void NoticeWalk::handOver(ScreenType type, const std::string& dbName)
{
    bringUp(type, dbName);
}

void NoticeWalk::bringUp(ScreenType type, const std::string& dbName)
{
    auto screen = std::make_unique<NoticeScreen>(type, dbName, *this, m_mainScreen);
    screen->setWindowModality(Qt::ApplicationModal);
    screen->load();
    m_screen = screen.release();
    QObject::connect(m_screen, &QDialog::finished, m_screen,
                     [this, shown = m_screen.data()] { closed(shown); });
    m_screen->show();
}

// It may be in the midst of its own handler, so it goes with the loop's next round.
void NoticeWalk::unloadOther(ScreenType type)
{
    if (!m_screen || session::currentScreenType == typeName(type))
        return;
    auto* const other = m_screen.data();
    m_screen.clear();
    other->hide();
    other->deleteLater();
}

void NoticeWalk::closed(const NoticeScreen* screen)
{
    if (m_screen.data() != screen)
        return;
    m_screen->deleteLater();
    m_screen.clear();
    m_loop.quit();
}

} // namespace screens
