#include "mainscreen/selectIndexDlg.h"

#include "support/failures.h"
#include "support/fakeHost.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using mainscreen::SelectIndexDlg;
using namespace windows;

class IndexNumber : public testing::Test
{
protected:
    void SetUp() override { open(dialog); }

    FakeHost host;
    SelectIndexDlg dialog;
};

TEST_F(IndexNumber, isAskedForUnderItsLabel)
{
    EXPECT_EQ(badNames(dialog), "");
    EXPECT_EQ(control<QLabel>(dialog, "LblIndex").text(), "Index number");
    EXPECT_EQ(control<QLineEdit>(dialog, "TxtIndex").text(), "");
    EXPECT_EQ(control<QPushButton>(dialog, "OKButton").text(), "OK");
    EXPECT_EQ(focusName(dialog), "TxtIndex");
    EXPECT_EQ(dialog.number(), 0);
}

TEST_F(IndexNumber, isTheNumericReadingOfTheText)
{
    const std::pair<const char*, std::int32_t> rows[] = {
        {"42", 42},
        {"", 0},
        {"abc", 0},
        {"12a", 12},
        {"  7 ", 7},
        {"2.5", 2},
        {"3.5", 4},
        {"1E3", 1000},
        {"-10", -10},
        {"+8", 8},
        {"2147483647", 2147483647},
        {"12,5", 12},
    };
    for (const auto& [text, expected] : rows) {
        open(dialog);
        control<QLineEdit>(dialog, "TxtIndex").setText(text);
        click(dialog, "OKButton");
        EXPECT_EQ(dialog.number(), expected) << text;
        EXPECT_FALSE(dialog.isVisible()) << text;
    }
}

TEST_F(IndexNumber, isTakenByEnter)
{
    type(dialog, "123");
    press(dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.number(), 123);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(IndexNumber, isNoneWithoutOk)
{
    const std::function<void()> ways[] = {
        [&] { click(dialog, "CancelButton"); },
        [&] { press(dialog, Qt::Key_Escape); },
        [&] { dialog.close(); },
    };
    for (const auto& way : ways) {
        open(dialog);
        control<QLineEdit>(dialog, "TxtIndex").setText("5");
        way();
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.number(), 0);
    }
}

TEST_F(IndexNumber, overflowsForWhoeverAsksAndTheDialogIsGone)
{
    for (const char* text : {"2147483648", "99999999999", "1E400"}) {
        open(dialog);
        control<QLineEdit>(dialog, "TxtIndex").setText(text);
        click(dialog, "OKButton");
        EXPECT_FALSE(dialog.isVisible()) << text;
        EXPECT_FAILURE(6, static_cast<void>(dialog.number()));
    }
}

} // namespace
