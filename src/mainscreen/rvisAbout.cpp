#include "mainscreen/rvisAbout.h"

#include "mainscreen/dialogParts.h"
#include "platform/fileNumbers.h"
#include "platform/numberText.h"
#include "platform/paths.h"
#include "platform/runtimeError.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace mainscreen {

namespace {

constexpr int aboutFile = 4;
constexpr const char* lineEnd = "\r\n";

// The stamp is older than that of the log: it was never carried on.
std::string apology(int errorNumber)
{
    return "Error " + platform::integerText(errorNumber) + " : \n\r" +
           "File ZEPH_RvisAbout.txt containing short description of the software was not found" + lineEnd +
           lineEnd + "KD/LMN/QRS - Version 1.5 - 15.05.2002";
}

} // namespace

std::string aboutText()
{
    std::string text;
    try {
        platform::openForInput(aboutFile, platform::programDirectory() + "/ZEPH_RvisAbout.txt");
        while (!platform::endOfFile(aboutFile))
            text += platform::inputLine(aboutFile) + lineEnd;
    } catch (const platform::RuntimeError& failure) {
        text += apology(failure.number);
    }
    platform::closeFile(aboutFile);
    return text;
}

RvisAbout::RvisAbout(QWidget* parent)
    : QDialog(parent), m_about(named("TxtAbout", new QPlainTextEdit, "About the program"))
{
    setWindowTitle("ZEPH Record Revision (Rvis)");
    resize(560, 320);
    const auto text = QString::fromStdString(aboutText());
    m_about->setReadOnly(true);
    m_about->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_about->setPlainText(text);
    m_about->setProperty("text", text);
    m_about->viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_about);
}

bool RvisAbout::eventFilter(QObject* receiver, QEvent* event)
{
    const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
    const bool left = mouse != nullptr && mouse->button() == Qt::LeftButton;
    if (left && event->type() == QEvent::MouseButtonPress) {
        m_pressed = true;
    } else if (left && event->type() == QEvent::MouseButtonRelease && m_pressed) {
        m_pressed = false;
        if (!m_about->textCursor().hasSelection()) // the end of marking text is no click
            accept();
    }
    return QDialog::eventFilter(receiver, event);
}

// A key closes nothing here.
void RvisAbout::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

} // namespace mainscreen
