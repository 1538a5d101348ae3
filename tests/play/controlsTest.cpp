#include "play/controls.h"
#include "screens/fieldEdit.h"

#include <gtest/gtest.h>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

using play::described;

namespace {

template <class Widget, class... Arguments>
Widget* add(QWidget& window, const char* name, Arguments... arguments)
{
    auto* const widget = new Widget(arguments...);
    widget->setObjectName(QString::fromUtf8(name));
    window.layout()->addWidget(widget);
    return widget;
}

class Controls : public testing::Test
{
protected:
    Controls() { new QVBoxLayout(&window); }

    static std::vector<std::string> names(const QList<QWidget*>& controls)
    {
        std::vector<std::string> all;
        for (const auto* const control : controls)
            all.push_back(control->objectName().toStdString());
        return all;
    }

    using Names = std::vector<std::string>;

    QWidget window;
};

} // namespace

TEST_F(Controls, TextFieldsTellTheirLimitAndWhetherTheyAreLocked)
{
    auto* const field = add<QLineEdit>(window, "TxtDay");
    field->setText(QStringLiteral("a\\b\"c\td"));
    EXPECT_EQ(described(*field), R"(TxtDay text "a\\b\"c\td")");
    field->setMaxLength(2);
    field->setReadOnly(true);
    EXPECT_EQ(described(*field), R"(TxtDay text "a\\" locked max=2)");
}

TEST_F(Controls, AFieldThatBoundsOnlyWhatIsTypedTellsThatLimit)
{
    auto* const free = add<screens::FieldEdit>(window, "stateID", QStringLiteral("00"));
    EXPECT_EQ(described(*free), R"(stateID text "")");
    auto* const field = add<screens::FieldEdit>(window, "dNtcMM", QStringLiteral("00"), 2);
    field->setText(QStringLiteral("1 Jan"));
    EXPECT_EQ(described(*field), R"(dNtcMM text "1 Jan" max=2)");
}

TEST_F(Controls, LinesEndWithCarriageReturnAndLineFeedUnlessTheTextIsKeptApart)
{
    auto* const text = add<QPlainTextEdit>(window, "TxtAbout");
    text->setPlainText(QStringLiteral("one\ntwo"));
    EXPECT_EQ(described(*text), R"(TxtAbout text "one\r\ntwo")");
    text->setProperty("text", QStringLiteral("one\n\rtwo"));
    EXPECT_EQ(described(*text), R"(TxtAbout text "one\n\rtwo")");
}

TEST_F(Controls, ButtonsKeepTheAccessKeyOfTheirCaptionAndTellWhatIsOn)
{
    auto* const option = add<QRadioButton>(window, "optYes", QStringLiteral("&Yes"));
    option->setChecked(true);
    EXPECT_EQ(described(*option), R"(optYes option "&Yes" on)");
    auto* const check = add<QCheckBox>(window, "ChkAdd", QStringLiteral("Add"));
    EXPECT_EQ(described(*check), R"(ChkAdd check "Add")");
    auto* const button = add<QPushButton>(window, "ButtonOK", QStringLiteral("&OK"));
    button->setEnabled(false);
    EXPECT_EQ(described(*button), R"(ButtonOK button "&OK" disabled)");
}

TEST_F(Controls, ListsAndCombosTellTheirCurrentTextAndTheNumberOfEntries)
{
    auto* const combo = add<QComboBox>(window, "cboUnit");
    combo->addItems({QStringLiteral("H"), QStringLiteral("K")});
    combo->setEditable(true);
    combo->lineEdit()->setMaxLength(1);
    combo->setCurrentIndex(1);
    EXPECT_EQ(described(*combo), R"(cboUnit combo "K" max=1 items=2)");
    auto* const list = add<QListWidget>(window, "ListErrors");
    EXPECT_EQ(described(*list), R"(ListErrors list "" items=0)");
    list->addItems({QStringLiteral("first"), QStringLiteral("second")});
    list->setCurrentRow(1);
    EXPECT_EQ(described(*list), R"(ListErrors list "second" items=2)");
}

TEST_F(Controls, AGridTellsTheFirstColumnOfItsCurrentRow)
{
    auto* const grid = add<QTableWidget>(window, "DBGridView", 2, 2);
    grid->setItem(1, 0, new QTableWidgetItem(QStringLiteral("17")));
    EXPECT_EQ(described(*grid), R"(DBGridView grid "")");
    grid->setCurrentCell(1, 1);
    EXPECT_EQ(described(*grid), R"(DBGridView grid "17")");
}

TEST_F(Controls, AControlInAHiddenOrDisabledFrameIsHiddenOrDisabled)
{
    auto* const frame = add<QGroupBox>(window, "FrmIntent", QStringLiteral("Intent"));
    auto* const label = new QLabel(QStringLiteral("AND"), frame);
    label->setObjectName(QStringLiteral("Lbl"));
    frame->setEnabled(false);
    EXPECT_EQ(described(*frame), R"(FrmIntent frame "Intent" disabled)");
    frame->hide();
    EXPECT_EQ(described(*label), R"(Lbl label "AND" hidden disabled)");
}

TEST_F(Controls, AreFoundInTheOrderOfTheirNamesByCharacterCode)
{
    for (const auto* name : {"b", "B", "a(1)", "a(0)", ""})
        add<QLabel>(window, name);
    add<QLineEdit>(window, "qt_part");
    add<QMenuBar>(window, "menuBar");
    EXPECT_EQ(names(play::namedControls(window)), (Names{"B", "a(0)", "a(1)", "b"}));
}

TEST_F(Controls, OfAnotherWindowAreNotFound)
{
    QWidget dialog(&window, Qt::Dialog);
    new QVBoxLayout(&dialog);
    add<QLabel>(dialog, "Lbl");
    EXPECT_EQ(play::findControl(window, "Lbl"), nullptr);
    EXPECT_NE(play::findControl(dialog, "Lbl"), nullptr);
}

TEST_F(Controls, TheNameOfAnArrayMeansTheElementThatHoldsTheValue)
{
    auto* const first = add<QRadioButton>(window, "antDir(0)", QStringLiteral("D"));
    auto* const second = add<QRadioButton>(window, "antDir(1)", QStringLiteral("ND"));
    EXPECT_EQ(play::findControl(window, "antDir(1)"), second);
    EXPECT_EQ(play::findControl(window, "antDir"), first);
    second->setChecked(true);
    EXPECT_EQ(play::findControl(window, "antDir"), second);
    EXPECT_EQ(play::findControl(window, "ant"), nullptr);
}

TEST_F(Controls, ThePartOfAControlHasTheNameOfTheControl)
{
    auto* const combo = add<QComboBox>(window, "cboUnit");
    combo->setEditable(true);
    EXPECT_EQ(play::controlNameOf(combo->lineEdit()), "cboUnit");
    EXPECT_EQ(play::controlNameOf(&window), "");
    EXPECT_EQ(play::controlNameOf(nullptr), "");
}

TEST_F(Controls, TabVisitsWhatTakesTheFocusInTheGivenOrder)
{
    add<QLineEdit>(window, "first");
    auto* const third = add<QLineEdit>(window, "third");
    add<QLabel>(window, "label");
    add<QLineEdit>(window, "hidden")->hide();
    add<QLineEdit>(window, "disabled")->setEnabled(false);
    auto* const second = add<QPushButton>(window, "second");
    QWidget::setTabOrder(second, third);
    EXPECT_EQ(names(play::tabStops(window)), (Names{"first", "second", "third"}));
}
