#include "mainscreen/noticeListModel.h"

#include "mainscreen/listRows.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

class NoticeListModel : public testing::Test
{
protected:
    QString text(int row, int column) { return model.index(row, column).data().toString(); }
    int alignment(int column)
    {
        return model.index(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
    }

    mainscreen::NoticeListModel model;
    // Asks for everything that a view may ask for, whenever something changes.
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(NoticeListModel, IsEmptyBeforeItHasRows)
{
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal).isValid());
}

TEST_F(NoticeListModel, ShowsNumbersUnpaddedAndNullAsNothing)
{
    model.setRows(ListRows(8).read());
    ASSERT_EQ(model.rowCount(), 8);
    ASSERT_EQ(model.columnCount(), 4);
    EXPECT_EQ(text(6, 0), "7");
    EXPECT_EQ(text(6, 1), "ADM7");
    EXPECT_EQ(text(3, 2), "4.5");
    EXPECT_EQ(text(6, 3), "");
}

TEST_F(NoticeListModel, ShowsAWholeFrequencyWithoutAPointAndLettersBeyondAscii)
{
    const ListRows rows(1);
    rows.work().execute("UPDATE listed SET freq_assgn = 7, site_name = 'Åre'");
    model.setRows(rows.read());
    EXPECT_EQ(text(0, 2), "7");
    EXPECT_EQ(text(0, 3), QString::fromUtf8("Åre"));
}

TEST_F(NoticeListModel, HeadsAreTheNamesOfTheColumns)
{
    model.setRows(ListRows(0).read());
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "veldakey");
    EXPECT_EQ(model.headerData(3, Qt::Horizontal).toString(), "site_name");
    EXPECT_FALSE(model.headerData(4, Qt::Horizontal).isValid());
    EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
}

TEST_F(NoticeListModel, NumbersStandAtTheRightAndTextAtTheLeftHeadsAlike)
{
    model.setRows(ListRows(1).read());
    EXPECT_EQ(alignment(0), Qt::AlignRight);
    EXPECT_EQ(alignment(1), Qt::AlignLeft);
    EXPECT_EQ(alignment(2), Qt::AlignRight);
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole),
                  model.index(0, column).data(Qt::TextAlignmentRole));
}

TEST_F(NoticeListModel, CannotBeEditedAndHasNoToolTips)
{
    model.setRows(ListRows(1).read());
    const auto index = model.index(0, 1);
    EXPECT_FALSE(model.flags(index).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.setData(index, "X"));
    EXPECT_EQ(text(0, 1), "ADM1");
    EXPECT_FALSE(index.data(Qt::ToolTipRole).isValid());
}

TEST_F(NoticeListModel, TellsItsViewsOfNewRowsAtOnce)
{
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setRows(ListRows(5).read());
    model.setRows(ListRows(2).read());
    EXPECT_EQ(resets.count(), 2);
    EXPECT_EQ(model.rowCount(), 2);
    model.setRows(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}
