// tellingProgram FILE [ARGUMENTS...]: picks the file in a file dialog that it has turned to its detailed
// view, and tells what the toolkit made of the arguments and of any settings that it found.
#include "widgets/application.h"

#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QStyle>
#include <QTimer>
#include <QWindow>

#include <iostream>

int main(int, char** arguments)
{
    const widgets::Application application(arguments);
    QWidget window;
    window.show();
    std::cout << "platform " << QApplication::platformName().toStdString() << "\nstyle "
              << QApplication::style()->name().toStdString() << "\nsheet " << qApp->styleSheet().toStdString()
              << "\ndirection " << QApplication::layoutDirection() << "\nsession "
              << qApp->sessionId().toStdString().size() << "\ntitle "
              << window.windowHandle()->title().toStdString() << '\n';
    QFileDialog dialog;
    std::cout << "details " << (dialog.viewMode() == QFileDialog::Detail) << '\n';
    dialog.setViewMode(QFileDialog::List);
    QTimer::singleShot(0, &dialog, [&] {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(arguments[1]);
        static_cast<QDialog&>(dialog).accept();
    });
    const bool picked = dialog.exec() == QDialog::Accepted;
    std::cout << "picked " << (picked ? dialog.selectedFiles().constFirst().toStdString() : "") << '\n';
}
