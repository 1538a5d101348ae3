#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "widgets/application.h"

#include <QIcon>

namespace {

QIcon programIcon()
{
    QIcon icon;
    for (const char* file : {":/icons/32.png", ":/icons/64.png", ":/icons/128.png", ":/icons/256.png"})
        icon.addFile(QString::fromUtf8(file));
    return icon;
}

} // namespace

int main(int, char** arguments)
{
    const widgets::Application application(arguments);
    QApplication::setWindowIcon(programIcon());
    mainscreen::QtHost host;
    mainscreen::OpenScreen screen(host);
    screen.show();
    return QApplication::exec();
}
