// The program of scripted sessions itself, worked on windows of this test.
#include "db/writeNtcToDB.h"
#include "platform/paths.h"
#include "play/commands.h"
#include "play/player.h"
#include "support/noticeBuilder.h"
#include "support/temporaryFolder.h"
#include "support/workingDatabase.h"
#include "widgets/application.h"
#include "widgets/leaveGate.h"

#include <gtest/gtest.h>
#include <QAbstractEventDispatcher>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

class RecordedTranscript : public play::Transcript
{
public:
    std::string text;

private:
    void put(const std::string& line) override { text += line + '\n'; }
};

// A main window with a menu, a checked field, and a button that opens a box.
class Window : public QMainWindow
{
public:
    Window()
    {
        setObjectName(QStringLiteral("Main"));
        setWindowTitle(QStringLiteral("A title"));
        buildMenu();
        buildContent();
    }

    int releases = 0;
    int pressed = 0;
    QLineEdit* day = nullptr;
    QLineEdit* month = nullptr;
    QPushButton* button = nullptr;
    QCheckBox* check = nullptr;
    QComboBox* combo = nullptr;
    QListWidget* list = nullptr;
    QAction* deep = nullptr;

    void ask(const QString& text)
    {
        QMessageBox box(QMessageBox::Question, QStringLiteral("Box"), text,
                        QMessageBox::Yes | QMessageBox::No, this);
        answer = box.exec() == QMessageBox::Yes ? "yes" : "no";
    }

    std::string answer;

private:
    void buildMenu()
    {
        auto* const menu = menuBar()->addMenu(QStringLiteral("&File"));
        menu->menuAction()->setObjectName(QStringLiteral("mnuFile"));
        auto* const inner = menu->addMenu(QStringLiteral("Inner"));
        inner->menuAction()->setObjectName(QStringLiteral("mnuInner"));
        deep = inner->addAction(QStringLiteral("&Deep"), QKeySequence(QStringLiteral("Ctrl+D")), this,
                                [this] { ask(QStringLiteral("deep")); });
        deep->setObjectName(QStringLiteral("mnuDeep"));
        auto* const top = menuBar()->addAction(QStringLiteral("Top"), this, [this] { ++pressed; });
        top->setObjectName(QStringLiteral("mnuTop"));
    }

    template <class Widget>
    Widget* add(const char* name)
    {
        auto* const widget = new Widget;
        widget->setObjectName(QString::fromUtf8(name));
        centralWidget()->layout()->addWidget(widget);
        return widget;
    }

    void buildContent()
    {
        setCentralWidget(new QWidget);
        new QVBoxLayout(centralWidget());
        day = add<QLineEdit>("TxtDay");
        month = add<QLineEdit>("TxtMonth");
        button = add<QPushButton>("ButtonAsk");
        button->setText(QStringLiteral("&Ask"));
        connect(button, &QPushButton::released, this, [this] { ++releases; });
        connect(button, &QPushButton::clicked, this, [this] { ask(QStringLiteral("clicked")); });
        check = add<QCheckBox>("ChkAdd");
        combo = add<QComboBox>("cboUnit");
        combo->addItems({QStringLiteral("H"), QStringLiteral("K"), QStringLiteral("M")});
        list = add<QListWidget>("ListErrors");
        list->addItems({QStringLiteral("one"), QStringLiteral("two")});
        widgets::checkOnLeaving(day, [this] {
            if (day->text() != QStringLiteral("32"))
                return true;
            ask(QStringLiteral("wrong"));
            return false;
        });
    }
};

class Session : public testing::Test
{
protected:
    Session()
    {
        stage.mainWindow = &window;
        window.show();
    }

    // Plays the script until the main window is closed by it.
    std::string play(const std::string& script)
    {
        transcript.text.clear();
        play::Player player(stage, play::parseScript(script), {3, 0});
        player.start();
        QApplication::exec();
        status = player.finish();
        return transcript.text;
    }

    RecordedTranscript transcript;
    play::Stage stage{transcript};
    Window window;
    int status = -1;
};

} // namespace

TEST_F(Session, ABoxIsAnsweredByTheCommandsBehindTheOneThatBroughtItUp)
{
    EXPECT_EQ(play("press Ask\npress Yes\nclose\n"), "> press Ask\n"
                                                     "box: question \"Box\" \"clicked\" [Yes,No]\n"
                                                     "> press Yes\n"
                                                     "> close\n"
                                                     "closed: Main\n"
                                                     "end\n");
    EXPECT_EQ(window.answer, "yes");
    EXPECT_EQ(window.releases, 1);
    EXPECT_EQ(status, 0);
}

TEST_F(Session, AClickWhosePressBringsUpABoxHasNoRelease)
{
    const auto printed =
        play("type TxtDay 32\nclick ButtonAsk\nfocus\npress No\nfocus\ntype TxtDay 1\nclose\n");
    EXPECT_EQ(printed, "> type TxtDay 32\n"
                       "> click ButtonAsk\n"
                       "box: question \"Box\" \"wrong\" [Yes,No]\n"
                       "> focus\n"
                       "focus: -\n"
                       "> press No\n"
                       "> focus\n"
                       "focus: TxtDay\n"
                       "> type TxtDay 1\n"
                       "> close\n"
                       "closed: Main\n"
                       "end\n");
    EXPECT_EQ(window.releases, 0);
    EXPECT_FALSE(window.button->isDown());
}

TEST_F(Session, WhatALeaveCheckStopsIsNotDoneLater)
{
    play("type TxtDay 32\ntype TxtMonth 12\npress No\nkey TxtMonth 1 2\npress No\npick cboUnit 2\npress No\n"
         "close\n");
    EXPECT_EQ(window.day->text(), QStringLiteral("32"));
    EXPECT_EQ(window.month->text(), QString());
    EXPECT_EQ(window.combo->currentIndex(), 0);
    EXPECT_EQ(status, 0);
}

TEST_F(Session, TypingReplacesTheTextAndAnEmptyOneClearsIt)
{
    play("type TxtMonth \"ab cÉ\"\ntype TxtDay 7\ntype TxtDay \"\"\nkey TxtMonth End X Backspace x\nclose\n");
    EXPECT_EQ(window.month->text(), QStringLiteral("ab cÉx"));
    EXPECT_EQ(window.day->text(), QString());
}

TEST_F(Session, EntriesArePickedAndBoxesChecked)
{
    int activated = -1;
    QObject::connect(window.combo, &QComboBox::activated, [&](int index) { activated = index; });
    play("pick cboUnit 1\npick ListErrors 1\nclick ChkAdd\npick cboUnit 3\nclose\n");
    EXPECT_EQ(activated, 1);
    EXPECT_EQ(window.combo->currentIndex(), 1);
    EXPECT_EQ(window.list->currentRow(), 1);
    EXPECT_TRUE(window.check->isChecked());
    EXPECT_NE(transcript.text.find("! cboUnit has no entry 3\n"), std::string::npos);
    EXPECT_EQ(status, 1);
}

TEST_F(Session, MenuItemsAreReachedAtEveryDepthAndByShortcut)
{
    EXPECT_EQ(play("menu mnuDeep\npress Yes\nkey - Ctrl+D\npress No\nmenu mnuTop\nclose\n"),
              "> menu mnuDeep\nbox: question \"Box\" \"deep\" [Yes,No]\n> press Yes\n"
              "> key - Ctrl+D\nbox: question \"Box\" \"deep\" [Yes,No]\n> press No\n"
              "> menu mnuTop\n> close\nclosed: Main\nend\n");
    EXPECT_EQ(window.pressed, 1);
}

TEST_F(Session, WhatIsDisabledHiddenOrUnknownIsSaid)
{
    window.deep->setEnabled(false);
    window.month->hide();
    window.check->setEnabled(false);
    window.day->setReadOnly(true);
    EXPECT_EQ(
        play("menu mnuDeep\nmenu mnuNone\nclick TxtMonth\nclick ChkAdd\ntype TxtDay 1\nget None\nnone\n"
             "get\nrow x\nclose\nfocus\n"),
        "> menu mnuDeep\n! menu mnuDeep is disabled\n> menu mnuNone\n! no menu mnuNone\n"
        "> click TxtMonth\n! TxtMonth is hidden\n> click ChkAdd\n! ChkAdd is disabled\n"
        "> type TxtDay 1\n! TxtDay is locked\n> get None\n! no control None\n> none\n! no command none\n"
        "> get\n! get: wrong number of arguments\n> row x\n! no control DBGridView\n"
        "> close\nclosed: Main\n> focus\n! no window is open\nend\n");
    EXPECT_EQ(status, 1);
}

TEST_F(Session, AnItemUnderADisabledMenuIsDisabled)
{
    window.menuBar()->actions().front()->setEnabled(false);
    EXPECT_EQ(play("menus\nmenu mnuDeep\nclose\n"),
              "> menus\nmnuFile \"&File\" - disabled\nmnuInner \"Inner\" -\nmnuDeep \"&Deep\" Ctrl+D\n"
              "mnuTop \"Top\" -\n> menu mnuDeep\n! menu mnuDeep is disabled\n> close\nclosed: Main\nend\n");
}

TEST_F(Session, APictureOfTheActiveWindowIsSaved)
{
    const TemporaryFolder folder;
    const auto file = folder.file("main.png");
    play("shot \"" + file + "\"\nclose\n");
    const QImage picture(QString::fromStdString(file));
    EXPECT_EQ(picture.size(), window.size());
}

namespace {

class Modeless : public QDialog
{
public:
    explicit Modeless(QWidget* parent) : QDialog(parent) { setObjectName(QStringLiteral("Other")); }
};

} // namespace

TEST_F(Session, AWindowThatClosedIsNoLongerTheNamedOne)
{
    Modeless other(&window);
    other.show();
    QObject::connect(window.list, &QListWidget::itemClicked, &other, &QWidget::show);
    EXPECT_EQ(play("window Other\nclose\npick ListErrors 0\nget TxtDay\nwindow Other\nfocus\nwindow Main\n"
                   "get TxtDay\nclose\n"),
              "> window Other\n> close\nclosed: Other\n> pick ListErrors 0\nopen: Other \"\"\n"
              "> get TxtDay\nTxtDay text \"\"\n> window Other\n> focus\nfocus: -\n> window Main\n"
              "> get TxtDay\nTxtDay text \"\"\n> close\nclosed: Main\nclosed: Other\nend\n");
}

TEST_F(Session, NoCommandComesWhileWindowsArePaintedInTheMiddleOfSomeWork)
{
    QStringList seen;
    QObject::connect(window.list, &QListWidget::itemClicked, &window, [&] {
        stage.isInTheMiddle = true;
        // The player is woken, as it is when the work began in the loop of a dialog that has just closed.
        emit QAbstractEventDispatcher::instance()->aboutToBlock();
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        stage.isInTheMiddle = false;
        seen << window.day->text();
    });
    play("pick ListErrors 0\ntype TxtDay 7\npick ListErrors 1\nclose\n");
    EXPECT_EQ(seen, (QStringList{QString(), QStringLiteral("7")}));
}

TEST_F(Session, AModelessWindowIsWorkedOnceItIsNamed)
{
    auto* const other = new QDialog(&window);
    other->setObjectName(QStringLiteral("Other"));
    other->show();
    auto* const field = new QLineEdit(other);
    field->setObjectName(QStringLiteral("TxtOther"));
    field->show();
    EXPECT_EQ(
        play("get TxtOther\nwindow None\nwindow Other\ntype TxtOther x\nget TxtOther\nclose\nget TxtDay\n"
             "close\n"),
        "> get TxtOther\n! no control TxtOther\n> window None\n! no window None\n> window Other\n"
        "> type TxtOther x\n> get TxtOther\nTxtOther text \"x\"\n> close\nclosed: Other\n"
        "> get TxtDay\nTxtDay text \"\"\n> close\nclosed: Main\nend\n");
}

namespace {

// The program itself, on a script that shows a notice of its own database.
class PlayProgram : public testing::Test
{
protected:
    PlayProgram()
    {
        Ntc notice;
        notice.notice_typ = "T11";
        notice.adm = "D";
        notice.intent = "ADD";
        notice.geo.present = true; // the list shows no notice without a site
        notice.geo.pt[0] = aPoint(0);
        const auto database = work.open();
        writeNtcToDB::insertNtc(notice, dao::DBEngine::Workspaces(0), database);
        database->Close();
    }

    // The size of the notice screen, in the way that the program is started.
    QSize sizeOfNoticeScreen(const QStringList& options, const QString& platformOfEnvironment)
    {
        const auto picture = QString::fromStdString(work.folder().file("screen.png"));
        const auto script =
            QStringLiteral("menu mnuOpenMDB\nchoose \"%1\"\nrow 0\nshot \"%2\"\nclose\nclose\n")
                .arg(QString::fromStdString(work.path()), picture);
        QProcess play;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platformOfEnvironment);
        environment.remove("DISPLAY");
        environment.remove("WAYLAND_DISPLAY");
        play.setProcessEnvironment(environment);
        play.start(QString::fromStdString(platform::programDirectory() + "/play"),
                   options + QStringList{"-"});
        play.write(script.toUtf8());
        play.closeWriteChannel();
        play.waitForFinished(-1);
        EXPECT_EQ(play.exitCode(), 0)
            << play.readAllStandardOutput().toStdString() << play.readAllStandardError().toStdString();
        return QImage(picture).size();
    }

    WorkingDatabase work;
};

} // namespace

TEST_F(PlayProgram, HasTheScreenOfAnOperatorHoweverItIsToldToGoWithoutDisplay)
{
    constexpr int offeredByToolkit = 800;
    const auto size = sizeOfNoticeScreen({}, "");
    EXPECT_GT(size.width(), offeredByToolkit);
    EXPECT_EQ(sizeOfNoticeScreen({}, "offscreen"), size);
    for (const auto* const environment : {"", "offscreen", "minimal"})
        EXPECT_EQ(sizeOfNoticeScreen({"--platform", "offscreen"}, environment), size) << environment;
}
