#include "widgets/application.h"

#include "platform/host.h"
#include "widgets/inputHold.h"
#include "widgets/textEntry.h"

#include <QSettings>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace widgets {

namespace {

constexpr int exitAfterFailure = 3;

void reportThroughHost(const platform::RuntimeError& failure)
{
    platform::host().setPointer(platform::pointerDefault);
    platform::host().msgBox("Run-time error '" + std::to_string(failure.number) + "':\n\n" +
                                failure.description(),
                            platform::Buttons::Ok, platform::Icon::Critical, "ZEPH_Rvis");
}

std::function<void(const platform::RuntimeError&)>& reporter()
{
    static std::function<void(const platform::RuntimeError&)> current = reportThroughHost;
    return current;
}

[[noreturn]] void endProcess()
{
    std::fflush(nullptr);
    std::_Exit(exitAfterFailure);
}

// A command line that the toolkit finds no options of its own in; it goes on referring to it.
struct CommandLine
{
    int count = 1;
    std::array<char*, 2> words{}; // with the null behind them
};

CommandLine& nameAlone(char** arguments)
{
    static CommandLine line;
    line.words.front() = arguments[0];
    return line;
}

// The toolkit's own dialogs would look for a file of settings in the folders of the user and of the system,
// and leave one there. Among the program's resources there is none, and none can be made.
void keepNoSettings()
{
    for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        for (const auto scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, QStringLiteral(":/settings"));
    }
}

platform::RuntimeError fixedFailure(platform::ErrorNumber number)
{
    return {number, platform::errorDescription(number)};
}

} // namespace

void setReporter(std::function<void(const platform::RuntimeError&)> newReporter)
{
    reporter() = std::move(newReporter);
}

void endWithReport(const platform::RuntimeError& failure)
{
    // Whatever fails while the report stands on the screen has nobody left to be told to.
    static bool reporting = false;
    if (reporting)
        endProcess();
    reporting = true;
    std::fprintf(stderr, "run-time error %d: %s\n", failure.number, failure.what());
    try {
        reporter()(failure);
    } catch (...) {
        endProcess();
    }
    endProcess();
}

void endWithCurrentException()
{
    try {
        throw;
    } catch (const platform::RuntimeError& failure) {
        endWithReport(failure);
    } catch (const std::bad_alloc&) {
        endWithReport(fixedFailure(platform::errOutOfMemory));
    } catch (const std::exception& failure) {
        endWithReport({platform::errInternal,
                       platform::errorDescription(platform::errInternal) + " (" + failure.what() + ")"});
    } catch (...) {
        endWithReport(fixedFailure(platform::errInternal));
    }
}

Application::Application(char** arguments)
    : QApplication(nameAlone(arguments).count, nameAlone(arguments).words.data())
{
    keepNoSettings();
    // The toolkit takes over the host's locale for the C library too; numbers in files have a decimal point.
    std::setlocale(LC_NUMERIC, "C");
    setApplicationName(QStringLiteral("zeph_rvis"));
    setApplicationVersion(QStringLiteral("1.6.1"));
}

bool Application::notify(QObject* receiver, QEvent* event)
try {
    if (isThrownAway(receiver, *event) || isMuffledKey(receiver, *event)) {
        event->ignore();
        return false;
    }
    const auto passage = m_gate.ask(receiver, event);
    if (passage == LeaveGate::Passage::Stopped)
        return true;
    if (passage == LeaveGate::Passage::Free && event->type() != QEvent::FocusOut)
        return QApplication::notify(receiver, event);
    const QPointer<QObject> alive = receiver;
    const bool accepted = QApplication::notify(receiver, event);
    m_gate.delivered(passage, alive, *event);
    return accepted;
} catch (...) {
    endWithCurrentException();
}

} // namespace widgets
