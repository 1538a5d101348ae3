// The commands of the reference databases: the link, their indexes, the check of site names.
#include "db/writeNtcToDB.h"
#include "mainscreen/errorMsg.h"
#include "mainscreen/frmWaiting.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "mainscreen/selectIndexDlg.h"
#include "model/session.h"
#include "support/noticeBuilder.h"
#include "support/referenceSet.h"
#include "support/windows.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QThread>
#include <QTimer>

#include <functional>

namespace {

using Lines = std::vector<std::string>;

// What the operator is shown, and his answers to file dialogs and boxes, given at once.
class AnsweringHost : public mainscreen::QtHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon icon,
                            const std::string& title) override
    {
        boxes.push_back(text);
        titles.push_back(title);
        icons.push_back(icon);
        pointerInBox = pointer();
        return answer;
    }
    std::optional<std::string> openFile(const platform::FileChoice& choice) override
    {
        offered = choice;
        return chosen;
    }
    void setPointer(int pointer) override
    {
        pointers.push_back(pointer);
        QtHost::setPointer(pointer);
    }
    void selectErrorLine(int line) override
    {
        QtHost::selectErrorLine(line);
        duringCheck();
    }
    void paintWaiting() override
    {
        QtHost::paintWaiting();
        duringWaiting();
    }
    QObject* waitingAnimation() override { return animation; }

    Lines boxes, titles;
    std::vector<platform::Icon> icons;
    std::vector<int> pointers;
    int pointerInBox = -1;
    std::optional<std::string> chosen;
    platform::FileChoice offered;
    platform::Answer answer = platform::Answer::Ok;
    std::function<void()> duringCheck = [] {}, duringWaiting = [] {};
    QObject* animation = nullptr;
};

class References : public testing::Test
{
protected:
    References()
    {
        session::dbStatus.clear();
        session::referenceDbPath.clear();
        session::workingDbPath.clear();
        session::keyArray.clear();
        session::keyCount = 0;
        session::notice = {};
        forgetThatTheProgramWasLeft();
        windows::open(screen);
    }

    // An earlier main screen that closed has told every loop to come to end dialogs of this one at once.
    static void forgetThatTheProgramWasLeft()
    {
        QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
        QApplication::exec();
    }

    // A notice that ends the assignment of a frequency; its emission fills five characters. Of a type that
    // has no screen: opening it ends in a box.
    static Ntc noticeOf(const std::string& frequency, const std::string& intent)
    {
        Ntc ntc = aNotice("T15", intent).build();
        ntc.freq_assgn = frequency;
        ntc.emi_cls = "14M0F";
        ntc.geo.zone_id.clear();
        ntc.geo.geo_type = "POINT";
        ntc.geo.site_name = "before";
        ntc.geo.ctry = "OLD";
        return ntc;
    }
    static Ntc assignmentOf(Ntc ntc, const std::string& site)
    {
        ntc.geo.site_name = site;
        ntc.geo.ctry = "QVA";
        return ntc;
    }
    void store(const Ntc& ntc)
    {
        const auto database = work.open();
        auto workspace = dao::DBEngine::Workspaces(0);
        writeNtcToDB::insertNtc(ntc, workspace, database);
        database->Close();
    }
    // Four notices: one target, none, an addition, two targets.
    void storeFour()
    {
        store(noticeOf("151.3375", "SUPPRESS"));
        store(noticeOf("152.5", "WITHDRAW"));
        store(noticeOf("153.5", "ADD"));
        store(noticeOf("154.5", "SUPPRESS"));
        set.add(assignmentOf(noticeOf("151.3375", "ADD"), "VÉLQORNE HILL"));
        set.add(assignmentOf(noticeOf("153.5", "ADD"), "PENDING HILL"), "TRUE");
        set.add(assignmentOf(noticeOf("154.5", "ADD"), "ONE HILL"));
        set.add(assignmentOf(noticeOf("154.5", "ADD"), "ANOTHER HILL"));
    }

    QAction& item(const char* name) { return *screen.findChild<QAction*>(name); }
    // Through the bar with a click, down the menus, and Enter on the item.
    void choose(const std::vector<const char*>& way)
    {
        auto& bar = *screen.menuBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(&item(way.front())).center());
        QMenu* menu = item(way.front()).menu();
        for (std::size_t step = 1; step < way.size(); ++step) {
            ASSERT_TRUE(menu != nullptr && menu->isVisible()) << way[step] << " can't be reached";
            menu->setActiveAction(&item(way[step]));
            if (step + 1 < way.size())
                menu = item(way[step]).menu();
        }
        QTest::keyClick(menu, Qt::Key_Return);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(screen.windowHandle(), code, modifiers);
    }
    void openWorking()
    {
        host.chosen = work.path();
        key(Qt::Key_M, Qt::ControlModifier);
    }
    void link(const std::string& path)
    {
        host.chosen = path;
        key(Qt::Key_L, Qt::ControlModifier);
    }
    // A working database with its list, and a set with its indexes linked to it.
    void linkAll()
    {
        set.addGeoIndex();
        set.addVeldaIndex();
        openWorking();
        link(set.path());
        ASSERT_EQ(host.boxes, Lines{});
    }
    void checkAll() { choose({"mnuNtc", "mnuFind", "mnuSuppress", "mnuAllSuppress"}); }
    void checkOne(const std::function<void(QWidget&)>& answer)
    {
        QTimer::singleShot(0, [&answer] { answer(*QApplication::activeModalWidget()); });
        choose({"mnuNtc", "mnuFind", "mnuSuppress", "mnuOneSuppress"});
    }
    void checkOne(const QString& number)
    {
        checkOne([&number](QWidget& dialog) {
            QTest::keyClicks(dialog.focusWidget(), number);
            windows::click(dialog, "OKButton");
        });
    }
    static void cancel(QWidget& dialog) { windows::click(dialog, "CancelButton"); }

    bool areMenusOn()
    {
        return item("mnuNtc").isEnabled() && item("mnuSuppress").isEnabled() &&
               item("mnuTrgIndex").isEnabled();
    }
    bool areMenusAsBefore() { return !item("mnuNtc").isEnabled() && !item("mnuTrgIndex").isEnabled(); }
    mainscreen::NoticeListView& list()
    {
        return windows::control<mainscreen::NoticeListView>(screen, "DBGridView");
    }
    std::string listed(int row, const char* column)
    {
        const auto& rows = *list().model();
        for (int place = 0; place < rows.columnCount(); ++place) {
            if (rows.headerData(place, Qt::Horizontal).toString() == column)
                return rows.index(row, place).data().toString().toStdString();
        }
        return "no such column";
    }
    Lines messages()
    {
        Lines lines;
        for (int line = 0; line < host.errorMsg().lineCount(); ++line)
            lines.push_back(host.errorMsg().line(line));
        return lines;
    }
    template <class Window>
    static int windowsOf()
    {
        const auto all = QApplication::topLevelWidgets();
        return static_cast<int>(std::count_if(all.begin(), all.end(), [](const QWidget* window) {
            return qobject_cast<const Window*>(window) != nullptr;
        }));
    }

    WorkingDatabase work;
    ReferenceSet set;
    AnsweringHost host;
    mainscreen::OpenScreen screen{host};
};

constexpr int longLookUp = 50; // milliseconds: each line is shown
constexpr const char* updated = "Indexes on VeldaKvr1 and VeldaKvr3 were updated on ";
constexpr const char* sameTables = "Cannot look for the target as both tables are the same : ";

} // namespace

TEST_F(References, AreLinkedByTheChoiceOfTheirFirstFile)
{
    linkAll();
    EXPECT_EQ(host.offered.filter, "Microsoft Access Database (*.mdb)|*.mdb|");
    EXPECT_EQ(host.offered.fileName, "VELDABASEBETA.mdb");
    EXPECT_EQ(session::referenceDbPath, set.path());
    EXPECT_TRUE(areMenusOn());
    EXPECT_EQ(screen.indexInfo().substr(0, std::string(updated).size()), updated);
}

TEST_F(References, StayAsTheyWereWhenTheChoiceIsCancelled)
{
    openWorking();
    session::referenceDbPath = "chosen earlier";
    host.setPointer(platform::pointerHourglass);
    host.chosen.reset();
    key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(host.boxes, Lines{});
    EXPECT_EQ(host.pointer(), 0);
    EXPECT_TRUE(areMenusAsBefore());
    EXPECT_EQ(session::referenceDbPath, "chosen earlier");
}

TEST_F(References, AreStoredButNotLinkedWhenTheSetIsNotWhole)
{
    openWorking();
    std::filesystem::remove(set.file(ReferenceSet::kvr1));
    host.setPointer(platform::pointerHourglass);
    link(set.path());
    ASSERT_GE(host.boxes.size(), 2U) << "that of the opening, that of the command";
    EXPECT_EQ(host.boxes.back(), "Error 91 : Object variable or With block variable not set");
    EXPECT_EQ(host.titles.back(), "");
    EXPECT_EQ(host.icons.back(), platform::Icon::None);
    EXPECT_EQ(host.pointerInBox, 0);
    EXPECT_TRUE(areMenusAsBefore());
    EXPECT_EQ(session::referenceDbPath, set.path());
}

TEST_F(References, AreLinkedWithoutIndexesWhenTheOperatorWantsNone)
{
    openWorking();
    host.answer = platform::Answer::No;
    link(set.path());
    EXPECT_EQ(host.boxes, Lines{"Index not available, do you want to create now ?"});
    EXPECT_EQ(host.titles, Lines{"Create index"});
    EXPECT_EQ(screen.indexInfo(), "No index available");
    EXPECT_TRUE(areMenusOn());
}

TEST_F(References, AreNotLinkedWhenTheWaitingWindowCannotBeLoaded)
{
    openWorking();
    host.answer = platform::Answer::Yes;
    link(set.path());
    ASSERT_EQ(host.boxes.size(), 2U);
    EXPECT_EQ(host.boxes[1], "Error 424 : Object required");
    EXPECT_TRUE(areMenusAsBefore());
    EXPECT_EQ(windowsOf<mainscreen::FrmWaiting>(), 0);
    EXPECT_EQ(set.indexes(ReferenceSet::kvr1), Lines{});
}

TEST_F(References, GetTheirIndexesWhileAWindowThatLoadsStandsThere)
{
    openWorking();
    QObject animation;
    host.animation = &animation;
    host.answer = platform::Answer::Yes;
    int seen = 0;
    host.duringWaiting = [&] {
        for (const auto* const window : QApplication::topLevelWidgets())
            if (qobject_cast<const mainscreen::FrmWaiting*>(window) != nullptr && !window->isModal() &&
                window->windowHandle()->isExposed())
                ++seen;
    };
    link(set.path());
    EXPECT_GT(seen, 2);
    EXPECT_EQ(windowsOf<mainscreen::FrmWaiting>(), 0);
    EXPECT_EQ(set.indexes(ReferenceSet::kvr1), Lines{"GeoIndex"});
    EXPECT_EQ(set.indexes(ReferenceSet::kvr3), Lines{"VeldaIndex"});
    EXPECT_TRUE(areMenusOn());
    EXPECT_TRUE(animation.property("Visible").toBool());
}

TEST_F(References, TellOfTheirIndexesInABox)
{
    linkAll();
    choose({"mnuDB", "mnuTrgIndex", "mnuTrgIndexInfo"});
    EXPECT_EQ(host.boxes, Lines{screen.indexInfo()});
    EXPECT_EQ(host.titles, Lines{"Index creation"});
    EXPECT_EQ(host.icons, std::vector{platform::Icon::Information});
}

TEST_F(References, LoseBothIndexesUnderTheHourglass)
{
    linkAll();
    host.pointers.clear();
    choose({"mnuDB", "mnuTrgIndex", "mnuTrgIndexDelete"});
    EXPECT_EQ(host.pointers, (std::vector<int>{11, 0}));
    EXPECT_EQ(set.indexes(ReferenceSet::kvr1), Lines{});
    EXPECT_EQ(set.indexes(ReferenceSet::kvr3), Lines{});
    choose({"mnuDB", "mnuTrgIndex", "mnuTrgIndexInfo"});
    EXPECT_EQ(host.boxes, Lines{"No indexes on VeldaKvr1 and VeldaKvr3"});
}

TEST_F(References, EndTheProgramWhenOnlyOneIndexIsThereToDelete)
{
    linkAll();
    set.execute(ReferenceSet::kvr1, "DROP INDEX GeoIndex");
    for (const char* command : {"mnuTrgIndexDelete", "mnuTrgIndexCreate"})
        EXPECT_EXIT(choose({"mnuDB", "mnuTrgIndex", command}), testing::ExitedWithCode(3),
                    "run-time error 3265: ");
}

TEST_F(References, EndTheProgramAfterTheOldIndexesWhenNewOnesAreMade)
{
    linkAll();
    EXPECT_EXIT(choose({"mnuDB", "mnuTrgIndex", "mnuTrgIndexCreate"}), testing::ExitedWithCode(3),
                "run-time error 424: Object required");
    EXPECT_EQ(set.indexes(ReferenceSet::kvr1), Lines{});
    EXPECT_EQ(set.indexes(ReferenceSet::kvr3), Lines{});
}

TEST_F(References, GiveEachNoticeTheSiteOfItsTarget)
{
    storeFour();
    linkAll();
    checkAll();
    EXPECT_EQ(messages(), (Lines{"Notice No: 1 target found", "Notice No: 2 has no target",
                                 "Notice No: 4 has more than one target", "DONE"}));
    EXPECT_EQ(host.boxes, Lines{});
    EXPECT_EQ(listed(0, "site_name"), "VÉLQORNE HILL");
    EXPECT_EQ(listed(0, "ctry"), "QVA");
    EXPECT_EQ(listed(1, "site_name"), "before");
    EXPECT_EQ(listed(3, "site_name"), "before");
    EXPECT_TRUE(list().isVisible());
}

TEST_F(References, ShowWhatTheCheckFindsBesideTheMainScreen)
{
    storeFour();
    linkAll();
    checkAll();
    auto& window = host.errorMsg();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isModal());
    EXPECT_EQ(window.parentWidget(), &screen);
    EXPECT_EQ(window.windowTitle().toStdString(), "Sitename for SUPPRESS and WITHDRAW in " + set.path());
    const auto& count = windows::control<QLineEdit>(window, "TxtNbNtcs");
    EXPECT_EQ(count.text(), "3 notice(s) to be checked. Please wait....");
    EXPECT_LT(count.fontMetrics().horizontalAdvance(count.text()), count.contentsRect().width() - 8);
    EXPECT_TRUE(windows::control<QWidget>(window, "ButtonClose").isVisible());
    EXPECT_TRUE(windows::control<QWidget>(window, "ButtonSave").isVisible());
    EXPECT_EQ(windows::control<QListWidget>(window, "ListErrors").currentRow(), 2);
}

TEST_F(References, AreCheckedWithTheLinesInSightAndNoButtonToCloseBy)
{
    constexpr int notices = 30; // more than there is room for
    for (int notice = 0; notice < notices; ++notice)
        store(noticeOf("151.3375", "SUPPRESS"));
    linkAll();
    int selected = 0;
    host.duringCheck = [&] {
        const auto& window = host.errorMsg();
        const auto& lines = windows::control<QListWidget>(window, "ListErrors");
        const auto place = lines.visualItemRect(lines.currentItem());
        EXPECT_TRUE(lines.viewport()->rect().contains(place.center())) << lines.currentRow();
        EXPECT_EQ(lines.currentRow(), selected++);
        EXPECT_EQ(lines.selectedItems().size(), 1);
        EXPECT_FALSE(windows::control<QWidget>(window, "ButtonClose").isVisible());
        EXPECT_FALSE(windows::control<QWidget>(window, "ButtonSave").isVisible());
        QThread::msleep(longLookUp);
    };
    checkAll();
    EXPECT_EQ(selected, notices);
    const auto& lines = windows::control<QListWidget>(host.errorMsg(), "ListErrors");
    for (const int line : {notices - 1, notices})
        EXPECT_TRUE(lines.viewport()->rect().contains(lines.visualItemRect(lines.item(line)))) << line;
    EXPECT_EQ(lines.currentRow(), notices - 1);
}

namespace {

// Counts the times that a widget was painted.
class PaintCount : public QObject
{
public:
    int count = 0;

private:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const auto* const widget = qobject_cast<const QWidget*>(receiver);
        if (event->type() == QEvent::Paint && widget->parent()->objectName() == "ListErrors")
            ++count;
        return false;
    }
};

} // namespace

TEST_F(References, ArePaintedLineByLineDuringTheCheck)
{
    storeFour();
    linkAll();
    PaintCount paintings;
    std::vector<int> counts;
    host.duringCheck = [&] {
        if (counts.empty())
            windows::control<QListWidget>(host.errorMsg(), "ListErrors")
                .viewport()
                ->installEventFilter(&paintings);
        counts.push_back(paintings.count);
        QThread::msleep(longLookUp);
    };
    checkAll();
    ASSERT_EQ(counts.size(), 3U);
    EXPECT_LT(counts[0], counts[1]);
    EXPECT_LT(counts[1], counts[2]);
}

TEST_F(References, AreNotPaintedForEveryLineOfAQuickCheck)
{
    constexpr int lines = 1000;
    PaintCount paintings;
    host.openCheck({"", "", true});
    auto& list = windows::control<QListWidget>(host.errorMsg(), "ListErrors");
    list.viewport()->installEventFilter(&paintings);
    for (int line = 0; line < lines; ++line) {
        host.addErrorLine("Notice No: " + std::to_string(line) + " target found");
        host.selectErrorLine(line);
    }
    const int before = paintings.count;
    EXPECT_GE(before, 1);
    EXPECT_LT(before, lines / 4);
    host.endCheck();
    EXPECT_GT(paintings.count, before);
    EXPECT_EQ(list.currentRow(), lines - 1);
}

TEST_F(References, ShowTheLineReachedBehindABoxThatComesUpMeanwhile)
{
    mainscreen::QtHost real;
    real.openCheck({"", "", true});
    for (int line = 0; line < 3; ++line) {
        real.addErrorLine("line");
        real.selectErrorLine(line);
    }
    int row = -1;
    QTimer::singleShot(0, [&] {
        row = windows::control<QListWidget>(real.errorMsg(), "ListErrors").currentRow();
        QApplication::activeModalWidget()->close();
    });
    real.msgBox("a look-up failed", platform::Buttons::Ok, platform::Icon::None, "");
    EXPECT_EQ(row, 2);
}

TEST_F(References, LeaveTheKeysOfTheListAsTheyAre)
{
    storeFour();
    linkAll();
    session::keyArray = {4, 3, 2, 1};
    checkAll();
    EXPECT_EQ(session::keyArray, (std::vector<std::int32_t>{4, 3, 2, 1}));
    EXPECT_TRUE(screen.keysValid());
    session::ntcChanged = true;
    checkAll();
    EXPECT_EQ(session::keyArray, (std::vector<std::int32_t>{1, 2, 3, 4}));
    session::ntcChanged = false;
}

TEST_F(References, AreNotTheWorkingDatabaseItself)
{
    storeFour();
    linkAll();
    session::referenceDbPath = work.path();
    const auto before = work.contents();
    checkAll();
    choose({"mnuNtc", "mnuFind", "mnuSuppress", "mnuOneSuppress"});
    const auto refused = sameTables + work.path() + " = " + work.path();
    EXPECT_EQ(host.boxes, (Lines{refused, refused}));
    EXPECT_EQ(host.titles, (Lines{"", ""}));
    EXPECT_EQ(host.icons, (std::vector{platform::Icon::None, platform::Icon::None}));
    EXPECT_FALSE(host.isErrorMsgLoaded());
    EXPECT_EQ(work.contents(), before);
}

TEST_F(References, AreComparedWithTheWorkingDatabaseLetterByLetter)
{
    linkAll();
    session::workingDbPath = work.folder().path().string() + "/./work.mdb";
    session::referenceDbPath = work.path();
    checkAll();
    EXPECT_EQ(messages().back(), "DONE");
}

TEST_F(References, AreAskedForTheOneNoticeOfTheNumberGiven)
{
    storeFour();
    linkAll();
    checkOne("1");
    EXPECT_EQ(messages(), (Lines{"Notice No: 1 target found", "DONE"}));
    EXPECT_EQ(windows::control<QLineEdit>(host.errorMsg(), "TxtNbNtcs").text(),
              " 1 notice to be checked. Please wait....");
    EXPECT_EQ(listed(0, "site_name"), "VÉLQORNE HILL");
    EXPECT_TRUE(screen.keysValid());
    // Of any intent: one that adds looks for a pending notice.
    checkOne("3");
    EXPECT_EQ(messages(), (Lines{"Notice No: 3 target found", "DONE"}));
    EXPECT_EQ(listed(2, "site_name"), "PENDING HILL");
}

TEST_F(References, CanBeSavedButNotClosedDuringTheCheckOfOneNotice)
{
    storeFour();
    linkAll();
    bool closes = true;
    bool saves = false;
    host.duringCheck = [&] {
        closes = windows::control<QWidget>(host.errorMsg(), "ButtonClose").isVisible();
        saves = windows::control<QWidget>(host.errorMsg(), "ButtonSave").isVisible();
    };
    checkOne("1");
    EXPECT_FALSE(closes);
    EXPECT_TRUE(saves);
    EXPECT_TRUE(windows::control<QWidget>(host.errorMsg(), "ButtonClose").isVisible());
}

TEST_F(References, CheckNoNoticeWhenTheDialogIsCancelled)
{
    storeFour();
    linkAll();
    checkOne(cancel);
    const auto none = Lines{"Make sure that the selected notice is in the database"};
    EXPECT_EQ(messages(), none);
    EXPECT_TRUE(screen.keysValid());
    EXPECT_TRUE(list().isVisible());
    checkOne("2");
    checkOne(cancel);
    EXPECT_EQ(messages(), none) << "nor the one that was checked before";
}

TEST_F(References, AreMissedWithAMessageAndNoNoticeIsChanged)
{
    storeFour();
    linkAll();
    const auto before = work.contents();
    session::workingDbPath = work.folder().file("gone.mdb");
    host.setPointer(platform::pointerHourglass);
    checkOne("1");
    ASSERT_FALSE(host.boxes.empty());
    EXPECT_EQ(host.boxes.back(), "Error 91 : Object variable or With block variable not set");
    EXPECT_EQ(host.pointer(), 0);
    EXPECT_EQ(work.contents(), before);
}

TEST_F(References, AreReportedInAWindowThatItsButtonsTheFrameAndEscapeUnload)
{
    storeFour();
    linkAll();
    const std::vector<std::function<void(mainscreen::ErrorMsg&)>> ways = {
        [](auto& window) { windows::click(window, "ButtonClose"); },
        [](auto& window) { windows::click(window, "ButtonSave"); },
        [](auto& window) { window.close(); },
        [](auto& window) { windows::press(window, Qt::Key_Escape); },
    };
    for (const auto& way : ways) {
        checkAll();
        auto& window = host.errorMsg();
        windows::open(window);
        way(window);
        EXPECT_FALSE(host.isErrorMsgLoaded());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(windowsOf<mainscreen::ErrorMsg>(), 0);
        EXPECT_TRUE(screen.isVisible());
    }
    EXPECT_NE(work.folder().read("work.rpt").find("Notice No: 2 has no target\r\n"), std::string::npos);
}

TEST_F(References, AreReportedInAWindowWithBothButtonsWhenACheckFails)
{
    storeFour();
    linkAll();
    host.duringCheck = [] { platform::raise(platform::errOverflow); };
    checkAll();
    EXPECT_EQ(host.boxes, Lines{"Error 6 : Overflow"});
    ASSERT_TRUE(host.isErrorMsgLoaded());
    for (const char* button : {"ButtonSave", "ButtonClose"})
        EXPECT_TRUE(windows::control<QWidget>(host.errorMsg(), button).isVisible()) << button;
    windows::click(host.errorMsg(), "ButtonClose");
    QTest::qWait(0);
    EXPECT_FALSE(host.isErrorMsgLoaded());
}

TEST_F(References, AreReportedInAWindowThatTheNextCheckUnloads)
{
    storeFour();
    linkAll();
    checkAll();
    const QPointer<mainscreen::ErrorMsg> first = &host.errorMsg();
    checkOne("2");
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(windowsOf<mainscreen::ErrorMsg>(), 1);
    EXPECT_EQ(messages(), (Lines{"Notice No: 2 has no target", "DONE"}));
}

TEST_F(References, AreReportedInAWindowThatTheNextLoadUnloads)
{
    storeFour();
    linkAll();
    checkAll();
    const QPointer<mainscreen::ErrorMsg> window = &host.errorMsg();
    host.clearErrorLines();
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(host.errorMsg().lineCount(), 0);
    EXPECT_EQ(host.errorMsg().windowTitle(), "Messages");
    EXPECT_FALSE(host.errorMsg().isVisible());
}

TEST_F(References, AreReportedInAWindowBesideWhichTheMainScreenWorks)
{
    storeFour();
    linkAll();
    checkAll();
    screen.activateWindow();
    QTest::keyClick(&list(), Qt::Key_Return); // a notice, and back
    EXPECT_EQ(host.boxes, Lines{"Sorry! T15, T16 and T17 screens aren't ready yet"});
    EXPECT_EQ(session::currentVeldaKey, 1);
    EXPECT_TRUE(host.errorMsg().isVisible());
    choose({"mnuFile", "mnuClose"});
    EXPECT_FALSE(list().isVisible());
    EXPECT_TRUE(host.errorMsg().isVisible());
}

TEST_F(References, AreReportedInAWindowThatGoesWithTheMainScreen)
{
    storeFour();
    linkAll();
    checkAll();
    QTimer::singleShot(0, [&] { screen.close(); });
    constexpr int patience = 30000;
    QTimer::singleShot(patience, &screen, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0) << "the program goes on";
    EXPECT_FALSE(host.isErrorMsgLoaded());
    EXPECT_EQ(windowsOf<mainscreen::ErrorMsg>(), 0);
}
