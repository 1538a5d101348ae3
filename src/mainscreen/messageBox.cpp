#include "mainscreen/messageBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QStyle>
#include <QWindow>

namespace mainscreen {

namespace {

QMessageBox::Icon iconOf(platform::Icon icon)
{
    switch (icon) {
    case platform::Icon::Information:
        return QMessageBox::Information;
    case platform::Icon::Exclamation:
        return QMessageBox::Warning;
    case platform::Icon::Question:
        return QMessageBox::Question;
    case platform::Icon::Critical:
        return QMessageBox::Critical;
    case platform::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(platform::Buttons buttons)
{
    return buttons == platform::Buttons::Ok ? QMessageBox::StandardButtons(QMessageBox::Ok)
                                            : QMessageBox::Yes | QMessageBox::No;
}

platform::Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return platform::Answer::Yes;
    case QMessageBox::No:
        return platform::Answer::No;
    default:
        return platform::Answer::Ok;
    }
}

} // namespace

MessageBox::MessageBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                       const std::string& title, QWidget* parent)
    : QMessageBox(parent)
{
    setTextFormat(Qt::PlainText);
    setIcon(iconOf(icon));
    setWindowTitle(QString::fromStdString(title));
    setText(QString::fromStdString(text));
    setStandardButtons(buttonsOf(buttons));
    if (buttons == platform::Buttons::YesNoDefaultNo)
        setDefaultButton(QMessageBox::No);
    makeRoomForTitle();
}

platform::Answer MessageBox::ask()
{
    return answerOf(exec());
}

// The toolkit takes the letters of a title for as wide as those of the text, beside one button of the frame.
// Frames draw them bold and in the middle: what the buttons take on one side is lost on the other too.
void MessageBox::makeRoomForTitle()
{
    constexpr int lostSquares = 2 * 3;
    auto font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(windowTitle()) +
                      lostSquares * style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    if (auto* const grid = qobject_cast<QGridLayout*>(layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

void MessageBox::showEvent(QShowEvent* event)
{
    QMessageBox::showEvent(event);
    // For a window without a title the toolkit puts the program's name in the frame.
    if (windowTitle().isEmpty())
        windowHandle()->setTitle(QStringLiteral(" "));
}

// Neither Escape nor the frame stands for a button of a question: a stray key must not decide about an
// operator's changes.
void MessageBox::keyPressEvent(QKeyEvent* event)
{
    if (!isQuestion() || !event->matches(QKeySequence::Cancel))
        QMessageBox::keyPressEvent(event);
}

void MessageBox::closeEvent(QCloseEvent* event)
{
    if (isQuestion())
        event->ignore();
    else
        QMessageBox::closeEvent(event);
}

} // namespace mainscreen
