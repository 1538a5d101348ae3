// play SCRIPT: works the main screen as an operator does, with key presses and mouse clicks, and prints what
// happens.
#include "mainscreen/openScreen.h"
#include "platform/paths.h"
#include "platform/userName.h"
#include "play/options.h"
#include "play/player.h"
#include "play/playHost.h"
#include "widgets/application.h"

#include <QTemporaryFile>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

constexpr int exitUsage = 2;

std::string everythingIn(std::istream& stream)
{
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string scriptText(const std::string& file)
{
    if (file == "-")
        return everythingIn(std::cin);
    std::ifstream stream(file, std::ios::binary);
    auto text = everythingIn(stream);
    if (!stream)
        throw play::UsageError("can't read " + file);
    return text;
}

bool isDisplayThere()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// Without a display the toolkit says with each window what it can't do there.
void passOnMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::cerr << text.toStdString() << '\n';
}

// A screen of the size that an operator has at least; what the toolkit offers of itself is smaller.
QByteArray offscreenPlatform(QTemporaryFile& settings)
{
    if (!settings.open())
        return "offscreen";
    settings.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [{
        "name": "play", "x": 0, "y": 0, "width": 1280, "height": 800,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    settings.close();
    return "offscreen:configfile=" + settings.fileName().toUtf8();
}

// Before the application is made.
void choosePlatform(const play::Options& options, QTemporaryFile& offscreenSettings)
{
    qputenv("QT_NO_GLIB", "1"); // one event dispatcher everywhere, which tells when it is about to wait
    if (options.platform)
        qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString(*options.platform));
    else if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !isDisplayThere())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        qputenv("QT_QPA_PLATFORM", offscreenPlatform(offscreenSettings));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void setHostUp(const play::Options& options)
{
    if (options.programDirectory)
        platform::setProgramDirectory(std::filesystem::absolute(*options.programDirectory).string());
    platform::setHostUserName(options.user);
    platform::setClock(options.now);
    platform::setHostLocale(options.locale.value_or(""));
}

play::Player::Patience patience()
{
    if (QApplication::platformName() == QLatin1String("offscreen"))
        return {3, 0};
    return {4, 20};
}

// A cache of its own instead of the user's; it comes into being when it is used.
class CacheOfPlay
{
public:
    CacheOfPlay()
        : m_folder(std::filesystem::temp_directory_path() /
                   ("zeph-play-" + std::to_string(QCoreApplication::applicationPid())))
    {
        platform::setUserCacheDirectory(m_folder);
    }
    ~CacheOfPlay()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    CacheOfPlay(const CacheOfPlay&) = delete;
    CacheOfPlay& operator=(const CacheOfPlay&) = delete;

private:
    std::filesystem::path m_folder;
};

int run(const play::Options& options, char** arguments)
{
    auto commands = play::parseScript(scriptText(options.script));
    qInstallMessageHandler(passOnMessage);
    QTemporaryFile offscreenSettings;
    choosePlatform(options, offscreenSettings);
    setHostUp(options);
    const CacheOfPlay cache;
    const widgets::Application application(arguments);
    if (!offscreenSettings.fileName().isEmpty())
        offscreenSettings.remove(); // it has been read, and the process may end without another word
    static play::PrintedTranscript transcript; // the report of a failure prints on it when all else is gone
    widgets::setReporter([&](const platform::RuntimeError& failure) {
        transcript.line("run-time error " + std::to_string(failure.number) + ": " + failure.description());
    });
    play::Stage stage(transcript);
    play::PlayHost host(stage);
    mainscreen::OpenScreen screen(host);
    stage.mainWindow = stage.screen = &screen;
    play::Player player(stage, std::move(commands), patience());
    player.start();
    screen.show();
    QApplication::exec();
    return player.finish();
}

} // namespace

int main(int count, char** arguments)
try {
    return run(play::parseOptions({arguments + 1, arguments + count}), arguments);
} catch (const play::UsageError& error) {
    std::cerr << "play: " << error.what()
              << "\nusage: play [--program-dir DIR] [--user NAME] [--now \"YYYY-MM-DD HH:MM:SS\"]"
                 " [--locale NAME]\n            [--platform offscreen|xcb] SCRIPT\n";
    return exitUsage;
} catch (...) {
    widgets::endWithCurrentException();
}
