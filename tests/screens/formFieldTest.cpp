#include "screens/fieldEdit.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QClipboard>

using screens::FieldEdit;

namespace {

class FieldEditTest : public testing::Test
{
protected:
    FieldEdit edit{QStringLiteral("00000"), 5};

    FieldEditTest() { windows::open(edit); }

    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    }
};

} // namespace

TEST_F(FieldEditTest, TypingStopsAtTheLimit)
{
    QTest::keyClicks(&edit, "1234567");
    EXPECT_EQ(edit.text(), "12345");
}

TEST_F(FieldEditTest, ARefusedKeyIsNoChange)
{
    edit.setText("12345");
    int changes = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, [&changes] { ++changes; });
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&changes] { ++changes; });
    QTest::keyClicks(&edit, "6");
    EXPECT_EQ(edit.text(), "12345");
    EXPECT_EQ(changes, 0);
}

TEST_F(FieldEditTest, RepeatedCharactersAreRefusedAnywhereInTheText)
{
    edit.setText("11111");
    edit.setCursorPosition(2);
    QTest::keyClicks(&edit, "1");
    EXPECT_EQ(edit.text(), "11111");
}

TEST_F(FieldEditTest, PastingFillsTheRoomThatThereIs)
{
    QTest::keyClicks(&edit, "12");
    edit.setCursorPosition(1);
    paste("abcdef");
    EXPECT_EQ(edit.text(), "1abc2");
    EXPECT_EQ(edit.cursorPosition(), 4);
}

TEST_F(FieldEditTest, PastingIntoASelectionReplacesIt)
{
    edit.setText("12345");
    edit.setSelection(1, 3);
    paste("abcdef");
    EXPECT_EQ(edit.text(), "1abc5");
}

TEST_F(FieldEditTest, PastingOverEverythingIsBoundedToo)
{
    edit.setText("longer than five");
    edit.selectAll();
    paste("abcdefgh");
    EXPECT_EQ(edit.text(), "abcde");
}

TEST_F(FieldEditTest, ALongTextFromCodeStandsAndCanBeShortenedButNotGrow)
{
    edit.setText("12345678");
    EXPECT_EQ(edit.text(), "12345678");
    QTest::keyClicks(&edit, "9");
    EXPECT_EQ(edit.text(), "12345678");
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.text(), "1234567");
    QTest::keyClick(&edit, Qt::Key_Home);
    QTest::keyClick(&edit, Qt::Key_Delete);
    EXPECT_EQ(edit.text(), "234567");
}

TEST_F(FieldEditTest, UndoBringsTheLongTextBackWhole)
{
    edit.setText("12345678");
    edit.selectAll();
    QTest::keyClicks(&edit, "ab");
    EXPECT_EQ(edit.text(), "ab");
    edit.undo();
    edit.undo();
    EXPECT_EQ(edit.text(), "12345678");
}

TEST_F(FieldEditTest, IsAsWideAsItsTextOfTheFontInUse)
{
    const int before = edit.sizeHint().width();
    EXPECT_GE(before, edit.fontMetrics().horizontalAdvance("00000"));
    auto larger = edit.font();
    larger.setPointSize(larger.pointSize() * 2);
    edit.setFont(larger);
    EXPECT_GT(edit.sizeHint().width(), before);
    EXPECT_GE(edit.sizeHint().width(), edit.fontMetrics().horizontalAdvance("00000"));
}

TEST_F(FieldEditTest, HasRoomForItsGreyText)
{
    FieldEdit month(QStringLiteral("00"));
    month.setPlaceholderText(QStringLiteral("mmmm"));
    EXPECT_GT(month.sizeHint().width(), month.fontMetrics().horizontalAdvance("mmmm"));
}
