#include "x11/realInput.h"

#include <gtest/gtest.h>
#include <QHash>
#include <QKeyEvent>
#include <QProcess>
#include <QWindow>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace x11 {

namespace {

constexpr std::chrono::seconds patience{30};
constexpr std::chrono::milliseconds pause{5};
constexpr int markerKey = Qt::Key_F12; // means nothing to any window

// Counts the keys where they enter the program: at the window of the toolkit, before any control.
class KeyCounter : public QObject
{
public:
    [[nodiscard]] int count(int key) const { return m_counts.value(key); }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && receiver->isWindowType())
            ++m_counts[static_cast<const QKeyEvent*>(event)->key()];
        return false;
    }

private:
    QHash<int, int> m_counts;
};

KeyCounter* counter = nullptr;

void closeWhatIsLeft()
{
    constexpr int most = 10; // one that refuses to close must not keep the test
    for (int windows = 0; windows < most; ++windows) {
        auto* const left = QApplication::activePopupWidget() != nullptr ? QApplication::activePopupWidget()
                                                                        : QApplication::activeModalWidget();
        if (left == nullptr)
            return;
        left->close();
    }
}

void tell(const std::function<void()>& story)
try {
    story();
} catch (const std::exception& failure) {
    ADD_FAILURE() << failure.what();
    QProcess::execute("xdotool", {"mouseup", "1"}); // the next test finds the button up
}

// A window as the server knows it, and a place in it.
struct Target
{
    QString window, x, y;
};

Target targetOf(const QWidget& widget, std::optional<QPoint> place)
{
    return ask([&widget, place] {
        const auto* const window = widget.window();
        const auto at = widget.mapTo(window, place.value_or(widget.rect().center()));
        return Target{QString::number(window->winId()), QString::number(at.x()), QString::number(at.y())};
    });
}

std::string described(const QWidget& window)
{
    return std::string(window.metaObject()->className()) + " '" + window.windowTitle().toStdString() + "' " +
           std::to_string(window.winId()) + (window.isVisible() ? ", shown" : ", hidden");
}

// As the server tells it, and as the program sees it.
std::string keyboardOwner()
{
    QProcess server;
    server.start("xdotool", {"getwindowfocus"});
    server.waitForFinished();
    const auto* const active = QApplication::activeWindow();
    return server.readAll().trimmed().toStdString() +
           "; active: " + (active != nullptr ? described(*active) : "none");
}

void clickWith(const QStringList& how, const QWidget& widget, std::optional<QPoint> place)
{
    const auto [window, x, y] = targetOf(widget, place);
    xdotool(QStringList{"mousemove", "--window", window, x, y, "click"} + how);
}

bool holdsWithin(std::chrono::seconds limit, const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!ask(condition)) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace

void play(const std::function<void()>& story)
{
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "to be run by tests/x11/withDisplay.sh";
    KeyCounter keys;
    counter = &keys;
    qApp->installEventFilter(&keys);
    QApplication::setQuitOnLastWindowClosed(false);
    bool over = false;
    std::thread hands([&] {
        tell(story);
        ask([&over] {
            over = true;
            closeWhatIsLeft();
            QCoreApplication::exit();
        });
    });
    while (!over) // a window that ends the program ends the loop only
        QApplication::exec();
    hands.join();
    qApp->removeEventFilter(&keys);
    counter = nullptr;
}

void await(const std::string& what, const std::function<bool()>& condition)
{
    if (!holdsWithin(patience, condition))
        throw std::runtime_error("waited in vain: " + what);
}

void xdotool(const QStringList& arguments)
{
    if (QProcess::execute("xdotool", arguments) != 0)
        throw std::runtime_error("xdotool failed: " + arguments.join(' ').toStdString());
}

void press(const QStringList& keys)
{
    xdotool(QStringList{"key", "--delay", "0"} + keys);
}

void type(const QString& text)
{
    xdotool({"type", "--delay", "0", text});
}

void pointAt(const QWidget& widget, std::optional<QPoint> place)
{
    const auto [window, x, y] = targetOf(widget, place);
    xdotool({"mousemove", "--window", window, x, y});
}

void click(const QWidget& widget, std::optional<QPoint> place)
{
    clickWith({"1"}, widget, place);
}

void rightClick(const QWidget& widget)
{
    clickWith({"3"}, widget, {});
}

void doubleClick(const QWidget& widget, QPoint place)
{
    clickWith({"--repeat", "2", "--delay", "10", "1"}, widget, place);
}

void mouseDown()
{
    xdotool({"mousedown", "1"});
}

void mouseUp()
{
    xdotool({"mouseup", "1"});
}

void clickClose(const QWidget& window)
{
    // It is the square at the right end of the title bar.
    const int height = ask([&window] { return window.windowHandle()->frameMargins().top(); });
    if (height <= 0)
        throw std::runtime_error("the window has no title bar");
    const int width = ask([&window] { return window.width(); });
    click(window, QPoint(width - height / 2, -height / 2));
}

void activate(const QWidget& window)
{
    xdotool({"windowactivate", targetOf(window, QPoint()).window});
}

void awaitActive(const QWidget& window)
{
    const auto isActive = [&window] {
        const auto* const handle = window.windowHandle();
        return window.isVisible() && handle != nullptr && handle->isExposed() && window.isActiveWindow() &&
               QGuiApplication::focusWindow() == handle;
    };
    if (holdsWithin(patience, isActive))
        return;
    throw std::runtime_error("never became active: " + ask([&window] { return described(window); }) +
                             "; the keyboard is with " + ask([] { return keyboardOwner(); }));
}

void settle()
{
    const int before = ask([] { return arrivals(markerKey); });
    const auto arrived = [before] { return arrivals(markerKey) > before; };
    // One that is pressed while the keyboard changes hands may go nowhere.
    constexpr int presses = 30;
    for (int number = 0; number < presses; ++number) {
        press({"F12"});
        if (holdsWithin(std::chrono::seconds(1), arrived))
            return;
    }
    throw std::runtime_error("waited in vain: the marker arrives");
}

int arrivals(int key)
{
    return counter->count(key);
}

} // namespace x11
