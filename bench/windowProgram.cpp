// zeph_bench_window start: the program up to its painted main screen, then the end without any clearing up.
// zeph_bench_window walk DATABASE STEPS: the first notice up to its painted screen, then on by the button to
// the next; prints the milliseconds that pass for the one and for each step. zeph_bench_window list DATABASE
// ROWS: the list up to its painted rows; prints how far the memory of the process grew for it at its height,
// in kilobytes.
#include "childProgram.h"
#include "db/currentNotice.h"
#include "db/noticeList.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "model/session.h"
#include "paintedList.h"
#include "screens/noticeWalk.h"
#include "widgets/application.h"

#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

void start()
{
    mainscreen::QtHost host;
    mainscreen::OpenScreen screen(host);
    const PaintCounter paintings(&screen);
    screen.show();
    while (paintings.count == 0)
        QApplication::processEvents();
    std::quick_exit(EXIT_SUCCESS);
}

void list(const std::string& database, int rows)
{
    PaintedList painted(database);
    const long before = childProgram::memoryFigure("VmRSS");
    painted.refresh(rows);
    std::printf("%ld\n", childProgram::memoryFigure("VmHWM") - before);
}

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

void readFirstNotice(const std::string& database)
{
    const auto rows =
        dao::DBEngine::OpenDatabase(database, false, true)
            ->OpenRecordset(noticeList::buildNoticeQuery("", noticeList::Sort::Index), dao::dbOpenDynaset);
    noticeList::loadNoticeKeys(rows);
    session::currentIndex = 0;
    session::currentVeldaKey = session::keyArray.at(0);
    currentNotice::read(database);
}

// The steps of a walk, each in a round of the event loop of its own, as an operator makes them.
class Steps
{
public:
    explicit Steps(int count) : m_left(count), m_count(count) {}

    void next()
    {
        if (m_left-- == 0) {
            std::printf("%.3f\n", millisecondsSince(m_begin) / m_count);
            QApplication::activeModalWidget()->close();
            return;
        }
        QApplication::activeModalWidget()->findChild<QPushButton*>("ButtonNextNtc")->click();
        QApplication::activeModalWidget()->repaint();
        QTimer::singleShot(0, qApp, widgets::guarded([this] { next(); }));
    }

private:
    int m_left, m_count;
    Clock::time_point m_begin = Clock::now();
};

void walk(const std::string& database, int steps)
{
    const mainscreen::QtHost host;
    readFirstNotice(database);
    QWidget mainScreen;
    screens::NoticeWalk notices(&mainScreen);
    const auto begin = Clock::now();
    std::optional<Steps> walking;
    QTimer::singleShot(0, &mainScreen, widgets::guarded([begin, steps, &walking] {
                           QApplication::activeModalWidget()->repaint();
                           std::printf("%.3f ", millisecondsSince(begin));
                           walking.emplace(steps).next();
                       }));
    notices.show(*screens::screenOf(session::notice.notice_typ), database);
}

} // namespace

int main(int count, char** arguments)
try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const widgets::Application application(arguments);
    const std::string task = count > 1 ? arguments[1] : "";
    if (task == "start")
        start();
    if ((task != "list" && task != "walk") || count != 4)
        throw std::runtime_error("usage: zeph_bench_window start | list DATABASE ROWS | walk DATABASE STEPS");
    (task == "list" ? list : walk)(arguments[2], std::stoi(arguments[3]));
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
