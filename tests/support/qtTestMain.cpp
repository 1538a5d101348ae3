#include "widgets/application.h"

#include <gtest/gtest.h>
#include <QByteArray>

// Tests of windows need the application object of the program, and no display.
int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const widgets::Application application(arguments);
    return RUN_ALL_TESTS();
}
