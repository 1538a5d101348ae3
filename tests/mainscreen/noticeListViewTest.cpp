#include "mainscreen/noticeListView.h"

#include "mainscreen/listRows.h"
#include "mainscreen/noticeListModel.h"

#include <QAction>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

class NoticeListView : public testing::Test
{
protected:
    NoticeListView()
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        layout->addWidget(&other);
        view.setModel(&model);
        window.resize(300, 400);
        QGuiApplication::clipboard()->setText("untouched");
    }

    void show(int rows)
    {
        model.setRows(ListRows(rows).read());
        view.sizeColumnsOnce();
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        view.setFocus();
        view.setCurrentRow(0);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.focusWidget(), key, modifiers);
    }

    [[nodiscard]] QPoint placeOf(int row, int column = 0) const
    {
        return view.visualRect(model.index(row, column)).center();
    }
    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, placeOf(row));
    }

    [[nodiscard]] std::vector<int> selectedRows() const
    {
        std::vector<int> rows;
        for (const auto& index : view.selectionModel()->selectedRows())
            rows.push_back(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    [[nodiscard]] bool isInSight(int row) const
    {
        return view.viewport()->rect().contains(
            QRect(0, view.rowViewportPosition(row), 1, view.rowHeight(row)));
    }
    [[nodiscard]] static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    mainscreen::NoticeListModel model;
    QWidget window;
    mainscreen::NoticeListView view;
    QLineEdit other;
    QSignalSpy opened{&view, &mainscreen::NoticeListView::opened};
};

using Rows = std::vector<int>;

} // namespace

TEST_F(NoticeListView, WithoutRowsThereIsNoCurrentRow)
{
    EXPECT_EQ(view.currentRow(), -1);
    show(0);
    EXPECT_EQ(view.currentRow(), -1);
    press(Qt::Key_End);
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    EXPECT_EQ(view.currentRow(), -1);
    view.setCurrentRow(0);
    view.setCurrentRow(-1);
    EXPECT_EQ(view.currentRow(), -1);
}

TEST_F(NoticeListView, SelectsWholeRows)
{
    show(5);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(2, 1));
    EXPECT_EQ(selectedRows(), Rows{2});
    EXPECT_EQ(view.selectionModel()->selectedIndexes().size(), model.columnCount());
    EXPECT_EQ(view.currentRow(), 2);
}

TEST_F(NoticeListView, SelectsSeveralRowsWithShiftAndControl)
{
    show(8);
    click(1);
    click(3, Qt::ShiftModifier);
    click(6, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (Rows{1, 2, 3, 6}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedRows().size(), 8U);
}

TEST_F(NoticeListView, HomeAndEndGoToTheFirstAndTheLastRow)
{
    show(500);
    press(Qt::Key_End);
    EXPECT_EQ(view.currentRow(), 499);
    EXPECT_EQ(selectedRows(), Rows{499});
    EXPECT_TRUE(isInSight(499));
    press(Qt::Key_Home);
    EXPECT_EQ(view.currentRow(), 0);
    EXPECT_TRUE(isInSight(0));
    press(Qt::Key_Down);
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows().size(), 499U);
}

TEST_F(NoticeListView, PagesUpAndDown)
{
    show(500);
    press(Qt::Key_PageDown);
    const int page = view.currentRow();
    EXPECT_GT(page, 5);
    EXPECT_LT(page, 40);
    EXPECT_EQ(selectedRows(), Rows{page});
    press(Qt::Key_PageUp);
    EXPECT_EQ(view.currentRow(), 0);
}

TEST_F(NoticeListView, TheArrowsToTheSidesScrollAndTheRowStays)
{
    show(5);
    view.setColumnWidth(1, 2000);
    view.setCurrentRow(2);
    auto* const bar = view.horizontalScrollBar();
    press(Qt::Key_Right);
    EXPECT_GT(bar->value(), 0);
    EXPECT_EQ(view.currentRow(), 2);
    EXPECT_EQ(selectedRows(), Rows{2});
    press(Qt::Key_Left);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(NoticeListView, TabLeavesTheList)
{
    show(5);
    press(Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &other);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), &view);
    EXPECT_EQ(view.currentRow(), 0);
}

TEST_F(NoticeListView, NothingIsEdited)
{
    show(5);
    press(Qt::Key_F2);
    press(Qt::Key_X);
    EXPECT_EQ(view.findChild<QLineEdit*>(), nullptr);
}

TEST_F(NoticeListView, EnterOpensTheCurrentRowOnceHoweverLongItIsHeld)
{
    show(5);
    press(Qt::Key_Return);
    EXPECT_EQ(opened.count(), 1);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(opened.count(), 2);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(&view, &held);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(opened.count(), 2);
}

TEST_F(NoticeListView, ADoubleClickOpensTheRowUnderIt)
{
    show(5);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(3));
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(view.currentRow(), 3);
    EXPECT_EQ(selectedRows(), Rows{3});
}

TEST_F(NoticeListView, ADoubleClickBesideTheRowsOpensTheCurrentRow)
{
    show(3);
    view.setCurrentRow(1);
    const QPoint empty(view.viewport()->width() / 2, view.viewport()->height() - 3);
    ASSERT_FALSE(view.indexAt(empty).isValid());
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, empty);
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(view.currentRow(), 1);
    EXPECT_EQ(selectedRows(), Rows{1}) << "what is opened stays marked";
}

TEST_F(NoticeListView, ADoubleClickOpensAlsoWithoutAnyRow)
{
    show(0);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, {20, 20});
    EXPECT_EQ(opened.count(), 1);
}

TEST_F(NoticeListView, OtherButtonsAndTheHeadsOpenNothing)
{
    show(3);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, Qt::NoModifier, placeOf(1));
    QTest::mouseDClick(view.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, {20, 5});
    EXPECT_EQ(opened.count(), 0);
}

TEST_F(NoticeListView, CopiesTheSelectedRowsInRowOrder)
{
    show(6);
    click(4);
    click(1, Qt::ControlModifier);
    click(2, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "2\tADM2\t2.5\t\n3\tADM3\t3.5\t\n5\tADM5\t5.5\t");
}

TEST_F(NoticeListView, CopiesTheHeadsFirstWhenAskedTo)
{
    show(2);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clipboard(), "veldakey\tadm\tfreq_assgn\tsite_name\n1\tADM1\t1.5\t");
}

TEST_F(NoticeListView, WithoutASelectionTheClipboardStays)
{
    show(2);
    view.clearSelection();
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(clipboard(), "untouched");
}

TEST_F(NoticeListView, AValueWithTabsAndLinesStaysOneValueInTheCopy)
{
    const ListRows rows(1);
    rows.work().execute("UPDATE listed SET adm = 'A' || char(9) || 'B' || char(13, 10) || 'C'");
    model.setRows(rows.read());
    view.selectAll();
    view.actions().front()->trigger();
    EXPECT_EQ(clipboard(), "1\tA B  C\t1.5\t");
}

TEST_F(NoticeListView, TheContextMenuOffersTheTwoCopies)
{
    EXPECT_EQ(view.contextMenuPolicy(), Qt::ActionsContextMenu);
    ASSERT_EQ(view.actions().size(), 2);
    EXPECT_EQ(view.actions().at(0)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_C));
    EXPECT_EQ(view.actions().at(1)->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
}

TEST_F(NoticeListView, SetCurrentRowBringsTheRowIntoSightAndKeepsTheHorizontalPlace)
{
    show(500);
    view.setColumnWidth(1, 2000);
    QTest::qWait(0);
    view.horizontalScrollBar()->setValue(700);
    view.setCurrentRow(321);
    EXPECT_EQ(view.currentRow(), 321);
    EXPECT_EQ(selectedRows(), Rows{321});
    EXPECT_TRUE(isInSight(321));
    EXPECT_EQ(view.horizontalScrollBar()->value(), 700);
    view.setCurrentRow(0);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 700);
    press(Qt::Key_Down);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 700);
}

TEST_F(NoticeListView, SetCurrentRowReachesARowThatOnlyTheNewRowsHave)
{
    show(2);
    model.setRows(ListRows(900).read());
    view.setCurrentRow(899);
    EXPECT_EQ(view.currentRow(), 899);
    EXPECT_TRUE(isInSight(899));
}

TEST_F(NoticeListView, ColumnsAreWideEnoughForHeadsAndContents)
{
    const ListRows rows(300);
    rows.work().execute(
        "UPDATE listed SET site_name = 'WWWWWWWWWWWWWWWWWWWWWWWWWWWWWW' WHERE veldakey = 217");
    model.setRows(rows.read());
    view.sizeColumnsOnce();
    const auto metrics = view.fontMetrics();
    EXPECT_GT(view.columnWidth(3), metrics.horizontalAdvance(QString(30, 'W')) + 6);
    for (int column = 0; column < model.columnCount(); ++column) {
        EXPECT_GE(view.columnWidth(column), view.horizontalHeader()->sectionSizeHint(column));
        EXPECT_GE(view.columnWidth(column), view.sizeHintForIndex(model.index(299, column)).width());
    }
}

TEST_F(NoticeListView, ColumnsAreSizedWhenThereIsContentForTheFirstTimeAndStayAsTheOperatorSetsThem)
{
    model.setRows(ListRows(0).read());
    view.setColumnWidth(1, 400);
    view.sizeColumnsOnce();
    EXPECT_EQ(view.columnWidth(1), 400) << "nothing to measure yet";
    model.setRows(ListRows(3).read());
    view.sizeColumnsOnce();
    EXPECT_LT(view.columnWidth(1), 200);
    view.setColumnWidth(1, 321);
    model.setRows(ListRows(4).read());
    view.sizeColumnsOnce();
    EXPECT_EQ(view.columnWidth(1), 321);
}

TEST_F(NoticeListView, HeadsStandAndKeepTheirWeightWhileRowsAreSelected)
{
    show(2);
    EXPECT_TRUE(view.horizontalHeader()->isVisible());
    EXPECT_FALSE(view.verticalHeader()->isVisible());
    EXPECT_FALSE(view.horizontalHeader()->highlightSections());
    QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, {20, 5});
    EXPECT_EQ(selectedRows(), Rows{0}) << "a click on a head selects no column";
}

TEST_F(NoticeListView, RowsFollowTheFont)
{
    show(2);
    const int before = view.rowHeight(0);
    auto font = view.font();
    font.setPointSize(font.pointSize() * 3);
    view.setFont(font);
    EXPECT_GT(view.rowHeight(0), before * 2);
}

TEST_F(NoticeListView, Of200000RowsAllAreCopiedInAMomentAndEndIsReachedAtOnce)
{
    show(200'000);
    QElapsedTimer timer;
    timer.start();
    press(Qt::Key_End);
    EXPECT_EQ(view.currentRow(), 199'999);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_LT(timer.elapsed(), 5'000) << "generous, for slow builds on busy machines";
    RecordProperty("milliseconds", std::to_string(timer.elapsed()));
    const auto lines = clipboard().split('\n');
    EXPECT_EQ(lines.size(), 200'000);
    EXPECT_EQ(lines.front(), "1\tADM1\t1.5\t");
    EXPECT_EQ(lines.back(), "200000\tADM200000\t200000.5\t");
}
