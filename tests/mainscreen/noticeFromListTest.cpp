// From the list to the notice screens and back.
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "screens/shownNotices.h"

#include <QAction>
#include <QTimer>

#include <functional>

namespace {

// The operator's answers to file dialogs and boxes, given at once.
class AnsweringHost : public mainscreen::QtHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon,
                            const std::string&) override
    {
        boxes.push_back(text);
        return platform::Answer::Yes;
    }
    std::optional<std::string> openFile(const platform::FileChoice&) override { return chosen; }

    std::vector<std::string> boxes;
    std::string chosen;
};

class NoticeFromList : public ShownNotices
{
protected:
    NoticeFromList()
    {
        platform::setHost(&answering);
        answering.chosen = work.path();
    }

    void openList()
    {
        windows::open(openScreen);
        openScreen.findChild<QAction*>("mnuOpenMDB")->trigger();
    }
    mainscreen::NoticeListView& list()
    {
        return windows::control<mainscreen::NoticeListView>(openScreen, "DBGridView");
    }
    screens::NoticeScreen& inSight()
    {
        for (auto* const window : openScreen.findChildren<screens::NoticeScreen*>()) {
            if (window->isVisible())
                return *window;
        }
        throw std::runtime_error("no notice screen is in sight");
    }

    // Opens the row and runs the steps, each in a round of the screens' loop.
    void openRow(int row, std::vector<std::function<void()>> steps)
    {
        list().setCurrentRow(row);
        QTimer rounds;
        std::size_t next = 0;
        QObject::connect(&rounds, &QTimer::timeout, &rounds, [&] {
            if (next < steps.size())
                steps[next++]();
        });
        rounds.start(0);
        QTest::keyClick(&list(), Qt::Key_Return);
        EXPECT_EQ(next, steps.size());
    }
    std::function<void()> pressing(const char* button)
    {
        return [this, button] { QTest::mouseClick(inSight().control(button), Qt::LeftButton); };
    }

    AnsweringHost answering;
    mainscreen::OpenScreen openScreen{answering};
};

} // namespace

TEST_F(NoticeFromList, TheRowOfTheNoticeShownLastIsCurrentAfterwards)
{
    addAll({"T11", "T12", "T13", "T13"});
    openList();
    openRow(0, {pressing("ButtonNextNtc"), pressing("ButtonNextNtc"), pressing("ButtonCancel")});
    EXPECT_EQ(list().currentRow(), 2);
    EXPECT_TRUE(answering.boxes.empty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(openScreen.focusWidget(), &list());
}

TEST_F(NoticeFromList, AnUpdateIsInTheListAfterwards)
{
    addAll({"T12", "T12"});
    openList();
    const auto column = [&] {
        std::string all;
        for (int place = 0; place < list().model()->columnCount(); ++place)
            all += list().model()->index(1, place).data().toString().toStdString() + '|';
        return all;
    };
    const auto before = column();
    openRow(1, {[this] { inSight().setText("nAdm", "HNG"); }, pressing("ButtonUpdate"),
                pressing("ButtonCancel")});
    EXPECT_NE(column(), before);
    EXPECT_NE(column().find("HNG"), std::string::npos);
    EXPECT_EQ(list().currentRow(), 1);
}

TEST_F(NoticeFromList, ADeletedNoticeIsGoneFromTheListAndTheKeys)
{
    addAll({"T12", "T14", "T12"});
    openList();
    openRow(1, {pressing("ButtonDelete"), pressing("ButtonCancel")});
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(session::keyArray, (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(list().currentRow(), 1);
    openRow(0, {pressing("ButtonDelete"), pressing("ButtonDelete")});
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(NoticeFromList, AFailureWhileTheScreenLoadsIsShownAndLeavesTheList)
{
    addAll({"T12", "T12"});
    work.execute("UPDATE kvr_velda SET d_inuse = 'no date' WHERE veldakey = 1");
    openList();
    openRow(0, {});
    ASSERT_EQ(answering.boxes.size(), 1U);
    EXPECT_EQ(answering.boxes[0].substr(0, 10), "Error 5 : ");
    EXPECT_TRUE(openScreen.findChildren<screens::NoticeScreen*>().empty());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    openRow(1, {pressing("ButtonCancel")});
    EXPECT_EQ(answering.boxes.size(), 1U);
}

TEST_F(NoticeFromList, AFailureOnTheWayToTheNextEndsTheProgram)
{
    addAll({"T12", "T13"});
    work.execute("UPDATE kvr_velda SET d_inuse = 'no date' WHERE veldakey = 2");
    openList();
    const auto dying = [this] {
        EXPECT_EXIT(pressing("ButtonNextNtc")(), testing::ExitedWithCode(3), "run-time error 5: ");
    };
    openRow(0, {dying, pressing("ButtonCancel")});
}
