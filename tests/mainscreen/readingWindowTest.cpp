#include "mainscreen/readingWindow.h"

#include "dao/jetCache.h"
#include "dao/jetSamples.h"
#include "mainscreen/qtHost.h"
#include "platform/paths.h"
#include "support/waiting.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QProgressBar>

#include <atomic>

namespace {

// Sees a window come up while somebody else waits.
class ShownWindow : public QObject
{
public:
    ShownWindow() { qApp->installEventFilter(this); }

    [[nodiscard]] bool isUp() const { return m_up; }
    QString files;
    QWidget* modal = nullptr;

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const window = dynamic_cast<mainscreen::ReadingWindow*>(object);
        if (window != nullptr && event->type() == QEvent::Paint) {
            files = windows::control<QLabel>(*window, "LblFiles").text();
            modal = QApplication::activeModalWidget();
            m_up = true;
        }
        return QObject::eventFilter(object, event);
    }

private:
    std::atomic<bool> m_up = false;
};

TEST(ReadingWindow, namesTheFilesAndMoves)
{
    mainscreen::ReadingWindow reading({"VELDAKVR1.mdb", "VELDAKVR3.mdb"});
    reading.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&reading));
    EXPECT_EQ(windows::badNames(reading), "");
    EXPECT_EQ(windows::control<QLabel>(reading, "LblFiles").text(), "VELDAKVR1.mdb\nVELDAKVR3.mdb");
    EXPECT_EQ(windows::control<QProgressBar>(reading, "PrgReading").maximum(), 0);
}

TEST(ReadingWindow, standsWhileOldFilesAreReadAndGoesAfterThem)
{
    const TemporaryFolder folder;
    platform::setUserCacheDirectory(folder.path() / "cache");
    const auto file = jetSamples::copyTo(folder, "jet4/work200.mdb");
    mainscreen::QtHost host;
    QWidget mainWindow;
    windows::open(mainWindow);
    ShownWindow shown;
    dao::setConversionWatcher([&] { waitUntil([&] { return shown.isUp(); }); });
    static_cast<void>(dao::cacheOf(file));
    dao::setConversionWatcher({});
    platform::setUserCacheDirectory({});
    EXPECT_TRUE(shown.isUp());
    EXPECT_EQ(shown.files, "work200.mdb");
    EXPECT_EQ(shown.modal, nullptr);
    for (const auto* window : QApplication::topLevelWidgets())
        EXPECT_EQ(dynamic_cast<const mainscreen::ReadingWindow*>(window), nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&mainWindow));
}

} // namespace
