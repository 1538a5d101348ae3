// What gets into a field of text when an operator types, pastes or drops.
#include "widgets/textEntry.h"

#include "support/fakeHost.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QVBoxLayout>

namespace {

class Entry : public testing::Test
{
protected:
    Entry()
    {
        new widgets::TextEntry(field);
        new widgets::TextEntry(bounded, 5);
        box.setEditable(true);
        auto* const layout = new QVBoxLayout(&window);
        for (auto* const widget : std::initializer_list<QWidget*>{&field, &bounded, &box, &lines})
            layout->addWidget(widget);
        windows::open(window);
        field.setFocus();
    }

    static void paste(QWidget& into, const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&into, Qt::Key_V, Qt::ControlModifier);
    }
    static void drop(QWidget& onto, const QString& text)
    {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter({3, 3}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&onto, &enter);
        QDropEvent event({3, 3}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&onto, &event);
    }
    // As a keyboard of another country sends it.
    static void key(QWidget& into, char16_t character)
    {
        QKeyEvent press(QEvent::KeyPress, character, Qt::NoModifier, QString(QChar(character)));
        QApplication::sendEvent(&into, &press);
    }
    // What a paste makes of a text in an empty field.
    QString pasted(const QString& text)
    {
        field.clear();
        paste(field, text);
        return field.text();
    }

    FakeHost host;
    QDialog window;
    QLineEdit field, bounded;
    QComboBox box;
    QPlainTextEdit lines;
};

struct Modified
{
    Qt::KeyboardModifiers modifiers;
    const char* name;
};

class MuffledKey : public Entry, public testing::WithParamInterface<Modified>
{};

} // namespace

TEST_F(Entry, EndsAtItsFirstLineBreakWhenPasted)
{
    EXPECT_EQ(pasted("7.4125\nt_adm=QVA"), "7.4125");
    EXPECT_EQ(pasted("7.4125\r\nt_adm=QVA\r\n"), "7.4125");
    EXPECT_EQ(pasted("7.4125\rt_adm=QVA"), "7.4125");
    EXPECT_EQ(pasted(QString("7.4125") + QChar(QChar::ParagraphSeparator) + "t_adm=QVA"), "7.4125");
    EXPECT_EQ(host.beeps, 0);
}

TEST_F(Entry, LosesBlanksAndControlCharactersAtItsEndsWhenPasted)
{
    EXPECT_EQ(pasted(" 7.4125 "), "7.4125");
    EXPECT_EQ(pasted("\t7.4125\n"), "7.4125");
    EXPECT_EQ(pasted("\r\n 7.4125"), "7.4125");
    EXPECT_EQ(pasted(QString("\u00a0") + "7.4125" + QChar(0x01)), "7.4125");
    EXPECT_EQ(pasted(" \r\n\t"), "");
    EXPECT_EQ(pasted("\n"), "");
}

TEST_F(Entry, KeepsItsBlanksWithinAndHasNoOtherControlCharacters)
{
    EXPECT_EQ(pasted("NORTH  HILL"), "NORTH  HILL");
    EXPECT_EQ(pasted("NORTH\tHILL"), "NORTH HILL");
}

TEST_F(Entry, IsOneLineWhenDroppedToo)
{
    drop(field, " 7.4125\r\nt_adm=QVA");
    EXPECT_EQ(field.text(), "7.4125");
}

TEST_F(Entry, IsCleanedWhereItIsPutIn)
{
    field.setText("151.MHz");
    field.setSelection(4, 0);
    paste(field, "25\n");
    EXPECT_EQ(field.text(), "151.25MHz");
    EXPECT_EQ(field.cursorPosition(), 6);
    field.setSelection(0, 6);
    paste(field, " 9 ");
    EXPECT_EQ(field.text(), "9MHz");
}

TEST_F(Entry, OfNothingThatCountsLeavesTheFieldAsItWas)
{
    field.setText("7.4125");
    field.selectAll();
    paste(field, "\r\n");
    EXPECT_EQ(field.text(), "7.4125");
}

TEST_F(Entry, FillsTheRoomThatThereIs)
{
    paste(bounded, "  1234567\n");
    EXPECT_EQ(bounded.text(), "12345");
    EXPECT_EQ(bounded.property("inputLimit").toInt(), 5);
}

TEST_F(Entry, OfBlanksIsFreeWhenTyped)
{
    QTest::keyClicks(&field, " a ");
    EXPECT_EQ(field.text(), " a ");
}

TEST_F(Entry, OfACharacterThatNoFileHoldsIsRefusedWithABeep)
{
    QString lost;
    QObject::connect(field.findChild<widgets::TextEntry*>(), &widgets::TextEntry::refused,
                     [&lost](const QString& characters) { lost += characters; });
    for (const char16_t character : {u'\u0141', u'\u00f3', u'd', u'\u017a'})
        key(field, character);
    EXPECT_EQ(field.text(), "\u00f3d");
    EXPECT_EQ(host.beeps, 2);
    EXPECT_EQ(lost, "\u0141\u017a");
}

TEST_F(Entry, LosesCharactersThatNoFileHoldsWithABeepWhenPasted)
{
    EXPECT_EQ(pasted("\u0141\u00f3d\u017a"), "\u00f3d");
    EXPECT_EQ(host.beeps, 1);
    field.setText("as it was");
    field.selectAll();
    paste(field, "\u65e5\u672c");
    EXPECT_EQ(field.text(), "as it was");
    EXPECT_EQ(host.beeps, 2);
}

TEST_F(Entry, OfALetterAndItsAccentIsOneCharacter)
{
    EXPECT_EQ(pasted("Me\u0301xico"), "M\u00e9xico");
    EXPECT_EQ(host.beeps, 0);
}

TEST_F(Entry, IsHeardOfOnceAsItStands)
{
    QStringList edits;
    QObject::connect(&field, &QLineEdit::textEdited, [&edits](const QString& text) { edits << text; });
    paste(field, " 9\n");
    EXPECT_EQ(edits, QStringList("9"));
}

TEST_F(Entry, ByCodeStandsAsItIs)
{
    field.setText(" \u0141\n ");
    EXPECT_EQ(field.text(), " \u0141\n ");
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, "x");
    EXPECT_EQ(field.text(), " \u0141\n x");
    EXPECT_EQ(host.beeps, 0);
}

TEST_F(Entry, CanBeUndoneAndRedone)
{
    paste(field, "one");
    paste(field, "two");
    field.undo();
    EXPECT_EQ(field.text(), "one");
    field.redo();
    EXPECT_EQ(field.text(), "onetwo");
}

// A modifier that makes no character of the keyboard: the key must not change a value.
TEST_P(MuffledKey, TypesNothing)
{
    for (auto* const widget : std::initializer_list<QWidget*>{&field, &box, &lines}) {
        widget->setFocus();
        for (const char character : {'1', 'x', ' '})
            QTest::keyEvent(QTest::Click, window.windowHandle(), character, GetParam().modifiers);
    }
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(box.currentText(), "");
    EXPECT_EQ(lines.toPlainText(), "");
}

INSTANTIATE_TEST_SUITE_P(Modifiers, MuffledKey,
                         testing::Values(Modified{Qt::AltModifier, "Alt"}, Modified{Qt::MetaModifier, "Meta"},
                                         Modified{Qt::ControlModifier, "Control"},
                                         Modified{Qt::ControlModifier | Qt::KeypadModifier, "ControlKeypad"},
                                         Modified{Qt::ControlModifier | Qt::GroupSwitchModifier,
                                                  "ControlAltGr"},
                                         Modified{Qt::AltModifier | Qt::ShiftModifier, "AltShift"},
                                         Modified{Qt::ControlModifier | Qt::AltModifier, "ControlAlt"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(Entry, TakesTheKeysThatMakeCharacters)
{
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::KeyboardModifiers(Qt::KeypadModifier), Qt::KeyboardModifiers(Qt::GroupSwitchModifier)})
        QTest::keyEvent(QTest::Click, window.windowHandle(), '1', modifiers);
    EXPECT_EQ(field.text(), "1111");
}

TEST_F(Entry, LeavesTheKeysOfEditingAlone)
{
    field.setText("one two");
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(field.selectedText(), "one two");
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(field.text(), "one ");
}
