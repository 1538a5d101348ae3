#include "mainscreen/frmWaiting.h"

#include "platform/paths.h"
#include "support/failures.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QApplication>

namespace {

TEST(FrmWaiting, failsToLoadForWantOfItsAnimation)
{
    const auto windows = QApplication::allWidgets().size();
    EXPECT_FAILURE(424, const mainscreen::FrmWaiting waiting(nullptr));
    EXPECT_EQ(QApplication::allWidgets().size(), windows) << "nothing of the window is left";
}

TEST(FrmWaiting, showsItsTextsAndSetsItsAnimationUp)
{
    QObject animation;
    mainscreen::FrmWaiting waiting(&animation);
    windows::open(waiting);
    EXPECT_EQ(windows::badNames(waiting), "");
    EXPECT_EQ(waiting.windowTitle(), "Creating Indexes");
    EXPECT_EQ(windows::control<QLabel>(waiting, "LblWaiting").text(), "Please wait.... ");
    EXPECT_EQ(windows::control<QLabel>(waiting, "LblTimeEstimate").text(), "Estimated time: 10-15 minutes");
    EXPECT_EQ(animation.property("fileName").toString().toStdString(),
              platform::programDirectory() + "/turnbook.gif");
    EXPECT_TRUE(animation.property("Visible").toBool());
}

} // namespace
