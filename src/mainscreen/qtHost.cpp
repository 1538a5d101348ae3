#include "mainscreen/qtHost.h"

#include "dao/jetCache.h"
#include "mainscreen/errorMsg.h"
#include "mainscreen/frmWaiting.h"
#include "mainscreen/messageBox.h"
#include "mainscreen/openFileDialog.h"
#include "mainscreen/readingWindow.h"
#include "widgets/application.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QThread>
#include <QWindow>

#include <utility>

namespace mainscreen {

namespace {

// The window that a box or a dialog stands over.
QWidget* windowInFront()
{
    if (auto* const modal = QApplication::activeModalWidget())
        return modal;
    if (auto* const active = QApplication::activeWindow())
        return active;
    const auto windows = QApplication::topLevelWidgets();
    for (auto* const window : windows) {
        if (window->isVisible() && window->windowType() == Qt::Window)
            return window;
    }
    return nullptr;
}

// Milliseconds. The eye follows no faster, and a check of many notices must not spend its time on painting.
constexpr int shortestStep = 40;

// "Text (*.txt)|*.txt|Other (*.o)|*.o" as the toolkit's name filters: each description names its pattern.
QStringList nameFilters(const std::string& filter)
{
    const auto parts = QString::fromStdString(filter).split(u'|');
    QStringList filters;
    for (qsizetype index = 0; index + 1 < parts.size(); index += 2)
        filters << parts[index];
    return filters;
}

} // namespace

void printOn(QPrinter& printer, const platform::Picture& picture)
{
    if (!printer.isValid())
        platform::raise(platform::errPrinter);
    printer.setPageOrientation(QPageLayout::Landscape);
    const QImage image(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGB32);
    if (image.isNull())
        platform::raise(platform::errPrinter);
    QPainter painter;
    if (!painter.begin(&printer))
        platform::raise(platform::errPrinter);
    const QRect page = painter.viewport();
    QRect place(QPoint(), image.size().scaled(page.size(), Qt::KeepAspectRatio));
    place.moveCenter(page.center());
    painter.drawImage(place, image);
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        platform::raise(platform::errPrinter);
}

QtHost::QtHost()
{
    platform::setHost(this);
    dao::setReadingSign(
        {[this](const std::vector<std::string>& paths) { showReading(paths); }, [this] { hideReading(); }});
}

QtHost::~QtHost()
{
    unloadErrorMsg();
    dao::setReadingSign({});
    platform::setHost(nullptr);
}

platform::Answer QtHost::msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                                const std::string& title)
{
    showReachedLine();
    return MessageBox(text, buttons, icon, title, windowInFront()).ask();
}

void QtHost::beep()
{
    QApplication::beep();
}

void QtHost::setPointer(int pointer)
{
    if (pointer == m_pointer)
        return;
    m_pointer = pointer;
    if (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    if (pointer == platform::pointerHourglass)
        QApplication::setOverrideCursor(Qt::WaitCursor);
}

std::optional<std::string> QtHost::openFile(const platform::FileChoice& choice)
{
    const auto filters = nameFilters(choice.filter);
    const auto offered = QString::fromStdString(choice.fileName);
    OpenFileDialog dialog(windowInFront(), m_folder, m_fileDialogLook);
    dialog.setProperty("filter", QString::fromStdString(choice.filter));
    dialog.setProperty("fileName", offered);
    dialog.setNameFilters(filters);
    if (!offered.isEmpty())
        dialog.selectFile(offered);
    const int answer = dialog.exec();
    m_fileDialogLook = dialog.look();
    if (answer != QDialog::Accepted || dialog.chosenFile().isEmpty())
        return std::nullopt;
    const auto path = dialog.chosenFile();
    m_folder = QFileInfo(path).absolutePath();
    return path.toStdString();
}

void QtHost::print(const platform::Picture& picture)
{
    QPrinter printer(QPrinter::HighResolution);
    printOn(printer, picture);
}

ErrorMsg& QtHost::errorMsg()
{
    if (!m_errorMsg)
        m_errorMsg = new ErrorMsg(windowInFront());
    return *m_errorMsg;
}

void QtHost::unloadErrorMsg()
{
    delete m_errorMsg.data();
}

// A load begins with this: line i of its list is message i, so one of an earlier check that is still open
// goes.
void QtHost::clearErrorLines()
{
    unloadErrorMsg();
}

void QtHost::addErrorLine(const std::string& line)
{
    errorMsg().addLine(line);
}

void QtHost::openCheck(const platform::CheckStart& start)
{
    unloadErrorMsg();
    auto& window = errorMsg();
    // Nobody waits for its end, so it unloads itself.
    QObject::connect(&window, &QDialog::finished, &window, widgets::guarded([this](int) {
        m_errorMsg->deleteLater();
        m_errorMsg.clear();
    }));
    m_reachedLine = noLine;
    m_sinceShown.invalidate();
    window.beginCheck(start);
    bringUp(window);
}

void QtHost::appendCheckText(const std::string& text)
{
    errorMsg().appendCountText(text);
    workOffPainting();
}

void QtHost::selectErrorLine(int line)
{
    m_reachedLine = line;
    if (!m_sinceShown.isValid() || m_sinceShown.elapsed() >= shortestStep) {
        showReachedLine();
        workOffPainting();
        m_sinceShown.start();
    }
}

void QtHost::showReachedLine()
{
    const int line = std::exchange(m_reachedLine, noLine);
    if (line != noLine && isErrorMsgLoaded())
        errorMsg().selectLine(line);
}

void QtHost::endCheck()
{
    showReachedLine();
    errorMsg().endCheck();
    workOffPainting();
}

void QtHost::showWaiting()
{
    closeWaiting();
    m_waiting = new FrmWaiting(waitingAnimation(), windowInFront());
    bringUp(*m_waiting);
}

void QtHost::paintWaiting()
{
    workOffPainting();
}

void QtHost::closeWaiting()
{
    delete m_waiting.data();
}

void QtHost::showReading(const std::vector<std::string>& paths)
{
    if (m_reading) {
        workOffPainting();
        return;
    }
    QStringList names;
    for (const auto& path : paths)
        names.append(QFileInfo(QString::fromStdString(path)).fileName());
    m_activeBeforeReading = QApplication::activeWindow();
    auto* const front = windowInFront();
    m_reading = new ReadingWindow(names, front);
    m_reading->adjustSize();
    if (front != nullptr)
        m_reading->move(front->frameGeometry().center() - m_reading->rect().center());
    bringUp(*m_reading);
}

void QtHost::hideReading()
{
    delete m_reading.data();
    // Not each window system gives it back.
    if (m_activeBeforeReading)
        m_activeBeforeReading->activateWindow();
}

void QtHost::workOffPainting()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// A window that is new to the window system can be painted only once that has brought it up. One that it
// never brings up, as over a main screen that stands minimised, stops nothing.
void QtHost::bringUp(QWidget& window)
{
    constexpr int patience = 500; // milliseconds
    window.show();
    const QDeadlineTimer deadline(patience);
    workOffPainting();
    while (!window.windowHandle()->isExposed() && !deadline.hasExpired()) {
        QThread::msleep(1);
        workOffPainting();
    }
    workOffPainting();
}

} // namespace mainscreen
