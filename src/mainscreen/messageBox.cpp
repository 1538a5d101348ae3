#include "mainscreen/messageBox.h"

#include <QCloseEvent>
#include <QKeyEvent>

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
}

platform::Answer MessageBox::ask()
{
    return answerOf(exec());
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
