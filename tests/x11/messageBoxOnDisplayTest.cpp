#include "support/windows.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QProcess>
#include <QScreen>
#include <QWindow>

// Boxes in the frames of a window manager.
namespace {

using namespace x11;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

class MessageBoxOnDisplay : public testing::Test
{
protected:
    // Brings it up for the operator to answer.
    const QMessageBox& show(Buttons buttons, const std::string& title)
    {
        ask([=, this] {
            QMetaObject::invokeMethod(
                qApp, [=, this] { answers.push_back(host.msgBox("a text", buttons, Icon::None, title)); },
                Qt::QueuedConnection);
        });
        return awaitBox();
    }
    // As the server tells it, for frames and lists of windows.
    static std::string nameOf(const QWidget& window)
    {
        const auto number = ask([&window] { return QString::number(window.winId()); });
        QProcess server;
        server.start("xdotool", {"getwindowname", number});
        server.waitForFinished();
        return server.readAll().toStdString();
    }

    // How many columns of the frame's title bar have letters. It holds an icon, the title and three buttons,
    // each within a square. Only where the windows live.
    static int columnsOfTitle(const QWidget& window)
    {
        const auto frame = window.windowHandle()->frameGeometry();
        const int height = window.windowHandle()->frameMargins().top();
        const auto bar =
            window.screen()
                ->grabWindow(0, frame.x() + height, frame.y(), frame.width() - 4 * height, height)
                .toImage();
        int columns = 0;
        for (int x = 0; x < bar.width(); ++x)
            columns += hasLetters(bar, x) ? 1 : 0;
        return columns;
    }
    // Above and below there is the frame; a row without letters has one colour.
    static bool hasLetters(const QImage& bar, int x)
    {
        constexpr int border = 3;
        for (int y = border; y < bar.height() - border; ++y) {
            if (bar.pixel(x, y) != bar.pixel(0, y))
                return true;
        }
        return false;
    }

    WatchedHost host;
    std::vector<Answer> answers;
};

TEST_F(MessageBoxOnDisplay, withoutATitleHasNoneInItsFrameEither)
{
    play([&] {
        const auto& box = show(Buttons::Ok, "");
        EXPECT_EQ(QString::fromStdString(nameOf(box)).trimmed(), "");
        EXPECT_EQ(ask([&box] { return box.windowTitle(); }), "");
        EXPECT_EQ(ask([&box] { return columnsOfTitle(box); }), 0);
        answer(box, Answering::Enter);
    });
}

TEST_F(MessageBoxOnDisplay, hasTheWholeTitleInItsFrame)
{
    QWidget wide; // has room for any
    wide.resize(1000, 600);
    play([&] {
        ask([&] { wide.show(); });
        awaitActive(wide);
        for (const char* title :
             {"Update file", "Delete notice from database", "Update notice in the database",
              "A title that is far longer than what the box has to say"}) {
            ask([&] { wide.setWindowTitle(title); });
            const auto& box = show(Buttons::Ok, title);
            EXPECT_EQ(nameOf(box), std::string(title) + "\n");
            int drawn = 0;
            await(std::string("an active frame has stronger letters: ") + title,
                  [&] { return (drawn = columnsOfTitle(box)) > columnsOfTitle(wide); });
            answer(box, Answering::Enter);
            await(std::string("they are as many: ") + title, [&] { return columnsOfTitle(wide) == drawn; });
        }
    });
}

TEST_F(MessageBoxOnDisplay, hasYesOrNoInHandAsTheQuestionAsks)
{
    play([&] {
        show(Buttons::YesNo, "");
        press({"Return"});
        awaitNoBox();
        show(Buttons::YesNoDefaultNo, "");
        press({"Return"});
        awaitNoBox();
        show(Buttons::YesNoDefaultNo, "");
        press({"Escape", "alt+y"});
        awaitNoBox();
        EXPECT_EQ(ask([this] { return answers; }), (std::vector{Answer::Yes, Answer::No, Answer::Yes}));
    });
}

} // namespace
