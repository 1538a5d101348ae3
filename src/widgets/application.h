#pragma once

#include "platform/runtimeError.h"
#include "widgets/leaveGate.h"

#include <QApplication>

#include <exception>
#include <functional>
#include <utility>

// The application object: the place where a failure ends up that no handler caught, and where the check of a
// field runs before anything takes the focus away from it.
namespace widgets {

// Shows the run-time report of a failure and ends the process at once with exit status 3: no event handler,
// no destructor runs any more.
[[noreturn]] void endWithReport(const platform::RuntimeError& failure);
// The same for the exception in flight, whatever it is.
[[noreturn]] void endWithCurrentException();

// Another way of showing the report, for tests that have no operator to press its button.
void setReporter(std::function<void(const platform::RuntimeError&)> reporter);

// The edge of a handler: nothing that it doesn't catch gets into the toolkit's loops.
template <class Handler>
auto guarded(Handler handler)
{
    return [handler = std::move(handler)](auto&&... arguments) mutable noexcept {
        try {
            std::invoke(handler, std::forward<decltype(arguments)>(arguments)...);
        } catch (...) {
            endWithCurrentException();
        }
    };
}

class Application : public QApplication
{
    Q_OBJECT
public:
    // The first argument, the program's name, is all that the toolkit gets to see of the command line, and no
    // settings are read or kept. No display name: it would get into the titles of message boxes.
    explicit Application(char** arguments);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    LeaveGate m_gate;
};

} // namespace widgets
