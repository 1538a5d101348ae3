#pragma once

#include <QApplication>
#include <QPoint>
#include <QStringList>
#include <QThread>
#include <QWidget>

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

// An operator at a real display: keys and clicks come from the X server, and windows get the focus from a
// window manager.
namespace x11 {

// Plays the operator in a thread of its own while the program's event loop runs, the loops of its boxes
// included. A story that throws is a failed test. Whatever box or pop-up it leaves is closed.
void play(const std::function<void()>& story);

// Runs a query where the windows live, whichever loop is running there; at once for whoever is there already.
template <class Query>
auto ask(Query query)
{
    if (QThread::currentThread() == qApp->thread())
        return query();
    using Result = std::invoke_result_t<Query>;
    std::conditional_t<std::is_void_v<Result>, bool, std::optional<Result>> result{};
    std::exception_ptr failure;
    const auto run = [&] {
        try {
            if constexpr (std::is_void_v<Result>)
                query();
            else
                result.emplace(query());
        } catch (...) {
            failure = std::current_exception();
        }
    };
    QMetaObject::invokeMethod(qApp, run, Qt::BlockingQueuedConnection);
    if (failure)
        std::rethrow_exception(failure);
    if constexpr (!std::is_void_v<Result>)
        return *result;
}

// Returns once the condition, asked where the windows live, holds. Throws what was waited for when nobody
// would wait any longer.
void await(const std::string& what, const std::function<bool()>& condition);

// Any thread.
void xdotool(const QStringList& arguments);

// Keys as xdotool names them: "Tab", "shift+Tab", several in a row.
void press(const QStringList& keys);
void type(const QString& text);
// In the middle, or at a place of the widget; the window must be on the screen.
void pointAt(const QWidget& widget, std::optional<QPoint> place = {});
void click(const QWidget& widget, std::optional<QPoint> place = {});
void rightClick(const QWidget& widget);
void doubleClick(const QWidget& widget, QPoint place);
void mouseDown();
void mouseUp();
// The button of the window manager that closes the window.
void clickClose(const QWidget& window);
void activate(const QWidget& window);

// The window is on the screen and has the keyboard.
void awaitActive(const QWidget& window);
// Everything that was pressed or clicked before has been worked off. A window of the program must have the
// keyboard.
void settle();

// How often a key has arrived in the program, wherever. Only where the windows live.
[[nodiscard]] int arrivals(int key);

} // namespace x11
