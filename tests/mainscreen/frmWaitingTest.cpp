#include "mainscreen/frmWaiting.h"

#include "support/failures.h"

#include <gtest/gtest.h>
#include <QApplication>

namespace {

TEST(FrmWaiting, failsToLoadForWantOfItsAnimation)
{
    const auto windows = QApplication::allWidgets().size();
    EXPECT_FAILURE(424, const mainscreen::FrmWaiting waiting);
    EXPECT_EQ(QApplication::allWidgets().size(), windows) << "nothing of the window is left";
}

} // namespace
