// The box that collects values in its list: what the keys, the mouse and code do to its list, its text and
// the entry that is selected.
#include "screens/multiValueBox.h"

#include <gtest/gtest.h>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

using Entries = std::vector<std::string>;

class Box : public testing::Test
{
protected:
    Box()
    {
        auto* const layout = new QVBoxLayout(&window);
        for (auto* const widget : std::initializer_list<QWidget*>{&box, &other, &button})
            layout->addWidget(widget);
        QObject::connect(&button, &QPushButton::clicked, [this] { ++presses; });
        QObject::connect(&box, &screens::MultiValueBox::entered, [this] { ++entered; });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        box.setFocus();
    }

    void fill(const Entries& entries)
    {
        for (const auto& entry : entries)
            box.addEntry(entry);
        box.showFirstEntry();
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.windowHandle(), code, modifiers);
    }
    void type(const char* text)
    {
        for (; *text != '\0'; ++text)
            QTest::keyClick(window.windowHandle(), *text);
    }
    // By the mouse on the open list.
    void pick(int entry)
    {
        box.showPopup();
        auto* const list = box.view();
        const auto place = list->visualRect(list->model()->index(entry, 0)).center();
        QTest::mouseMove(list->viewport(), place);
        QTest::qWait(QApplication::doubleClickInterval() +
                     50); // the list takes an early click for its opening
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        QTest::qWait(0);
    }
    std::string text() { return box.currentText().toStdString(); }

    QDialog window;
    screens::MultiValueBox box;
    QLineEdit other;
    QPushButton button{"Go"};
    int entered = 0, presses = 0;
};

} // namespace

TEST_F(Box, EntriesStandInTheirOrderAndMayBeEqual)
{
    box.addEntry("CP");
    box.addEntry("OT");
    box.addEntry("CP");
    EXPECT_EQ(box.entries(), (Entries{"CP", "OT", "CP"}));
}

TEST_F(Box, AddingLeavesTheTextAndSelectsNothing)
{
    type("xy");
    box.addEntry("CP");
    EXPECT_EQ(text(), "xy");
    EXPECT_EQ(box.selectedEntry(), -1);
    box.addEntry("OT");
    EXPECT_EQ(text(), "xy");
    EXPECT_EQ(box.selectedEntry(), -1);
}

TEST_F(Box, TheFirstEntryIsShownAndSelected)
{
    fill({"CP", "OT"});
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.selectedEntry(), 0);
    type("x");
    box.showFirstEntry();
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.selectedEntry(), 0);
}

TEST_F(Box, WithoutEntriesTheFirstOneIsBlank)
{
    type("xy");
    box.showFirstEntry();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(box.selectedEntry(), -1);
}

TEST_F(Box, ClearingEmptiesListAndText)
{
    fill({"CP", "OT"});
    type("x");
    box.clearAll();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(box.entries(), Entries());
    EXPECT_EQ(box.selectedEntry(), -1);
}

TEST_F(Box, EnterWithTextIsToldAndChangesNothingItself)
{
    type("CP");
    key(Qt::Key_Return);
    key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.entries(), Entries());
}

TEST_F(Box, EnterInAnEmptyBoxDoesNothing)
{
    key(Qt::Key_Return);
    EXPECT_EQ(entered, 0);
}

TEST_F(Box, EnterNeverPressesTheDefaultButton)
{
    button.setDefault(true);
    key(Qt::Key_Return);
    type("CP");
    key(Qt::Key_Return);
    EXPECT_EQ(presses, 0);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Box, BackspaceBlanksTheWholeOfWhatWasTyped)
{
    fill({"CP"});
    box.setEditText("");
    type("OTX");
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(box.entries(), Entries{"CP"});
}

TEST_F(Box, BackspaceRemovesTheEntryShownAndBlanksTheText)
{
    fill({"CP", "OT", "CR"});
    key(Qt::Key_Backspace);
    EXPECT_EQ(box.entries(), (Entries{"OT", "CR"}));
    EXPECT_EQ(text(), "");
    EXPECT_EQ(box.selectedEntry(), -1);
    key(Qt::Key_Backspace);
    EXPECT_EQ(box.entries(), (Entries{"OT", "CR"}));
}

TEST_F(Box, BackspaceRemovesTheEntryThatWasPicked)
{
    fill({"CP", "OT", "CP"});
    pick(2);
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.selectedEntry(), 2);
    key(Qt::Key_Backspace);
    EXPECT_EQ(box.entries(), (Entries{"CP", "OT"}));
    EXPECT_EQ(text(), "");
}

TEST_F(Box, TypingAfterPickingSelectsNothingAnyMore)
{
    fill({"CP", "OT"});
    pick(1);
    key(Qt::Key_End);
    type("x");
    EXPECT_EQ(text(), "OTx");
    EXPECT_EQ(box.selectedEntry(), -1);
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), "");
    EXPECT_EQ(box.entries(), (Entries{"CP", "OT"}));
}

TEST_F(Box, TheSameEntryCanBePickedAgainAfterTyping)
{
    fill({"CP", "OT"});
    type("x");
    pick(0);
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.selectedEntry(), 0);
}

TEST_F(Box, TextThatEqualsAnEntryDoesNotSelectIt)
{
    fill({"CP", "OT"});
    box.setEditText("");
    type("ot");
    key(Qt::Key_Return);
    EXPECT_EQ(text(), "ot");
    EXPECT_EQ(box.selectedEntry(), -1);
    other.setFocus();
    EXPECT_EQ(text(), "ot");
    EXPECT_EQ(box.selectedEntry(), -1);
}

TEST_F(Box, NothingIsCompleted)
{
    fill({"CPX"});
    box.setEditText("");
    type("CP");
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.completer(), nullptr);
}

TEST_F(Box, TextSetByCodeIsNoEntry)
{
    fill({"CP"});
    box.setEditText("OT");
    EXPECT_EQ(box.selectedEntry(), -1);
    box.setEditText("CP");
    EXPECT_EQ(box.selectedEntry(), -1);
}

TEST_F(Box, TheArrowsWalkTheList)
{
    fill({"CP", "OT"});
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "OT");
    EXPECT_EQ(box.selectedEntry(), 1);
    key(Qt::Key_Down);
    EXPECT_EQ(box.selectedEntry(), 1);
    key(Qt::Key_Up);
    EXPECT_EQ(box.selectedEntry(), 0);
}

TEST_F(Box, AnArrowLeadsFromTypedTextBackToTheList)
{
    fill({"CP"});
    type("x");
    key(Qt::Key_Down);
    EXPECT_EQ(text(), "CP");
    EXPECT_EQ(box.selectedEntry(), 0);
}

TEST_F(Box, AnArrowInAnEmptyListKeepsTheText)
{
    type("x");
    key(Qt::Key_Down);
    key(Qt::Key_Up);
    EXPECT_EQ(text(), "x");
}

TEST_F(Box, TheWheelChangesNothing)
{
    fill({"CP", "OT"});
    const QPointF middle(box.rect().center());
    QWheelEvent wheel(middle, box.mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &wheel);
    EXPECT_EQ(text(), "CP");
}

TEST_F(Box, APastedTextIsTypedText)
{
    fill({"CP"});
    QApplication::clipboard()->setText("OT");
    box.lineEdit()->selectAll();
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), "OT");
    EXPECT_EQ(box.selectedEntry(), -1);
    EXPECT_EQ(box.entries(), Entries{"CP"});
}

TEST_F(Box, APastedTextIsOneLine)
{
    QApplication::clipboard()->setText(" OT \r\nCP");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), "OT");
    EXPECT_EQ(box.entries(), Entries());
}

TEST_F(Box, OtherKeysAreJustTyped)
{
    type("a 1-");
    key(Qt::Key_Left);
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), "a 1");
    EXPECT_EQ(entered, 0);
}
