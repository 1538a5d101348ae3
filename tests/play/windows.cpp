#include "play/windows.h"

#include "play/transcript.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace play {

namespace {

bool isWindowOfOurs(const QWidget& widget)
{
    const auto type = widget.windowType();
    const bool isFramed = type == Qt::Window || type == Qt::Dialog || type == Qt::Sheet || type == Qt::Tool;
    return widget.isWindow() && isFramed;
}

const char* iconName(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::Information:
        return "information";
    case QMessageBox::Warning:
        return "exclamation";
    case QMessageBox::Question:
        return "question";
    case QMessageBox::Critical:
        return "critical";
    default:
        return "plain";
    }
}

// In the order of creation, which is not the order in which the host's style lays them out.
std::string buttonsOf(const QMessageBox& box)
{
    std::string captions;
    const auto buttons = box.findChildren<QPushButton*>();
    for (const auto* const button : buttons)
        captions += (captions.empty() ? "" : ",") + button->text().remove(u'&').toStdString();
    return captions;
}

std::string lineOf(const QMessageBox& box)
{
    return std::string("box: ") + iconName(box.icon()) + ' ' + quoted(box.windowTitle()) + ' ' +
           quoted(box.text()) + " [" + buttonsOf(box) + ']';
}

// Its own name, or else that of its class.
std::string nameOf(const QWidget& window)
{
    const std::string className = window.metaObject()->className();
    const auto colon = className.rfind(':');
    const bool isNamed = !window.objectName().isEmpty();
    return isNamed ? window.objectName().toStdString() : className.substr(colon + 1);
}

std::string lineOf(const QWidget& window)
{
    auto line = "open: " + nameOf(window) + ' ' + quoted(window.windowTitle());
    if (qobject_cast<const QFileDialog*>(&window) != nullptr)
        line += " filter=" + quoted(window.property("filter").toString()) +
                " name=" + quoted(window.property("fileName").toString());
    return line;
}

} // namespace

Windows::Windows(Transcript& transcript) : m_transcript(transcript)
{
    qApp->installEventFilter(this);
}

std::string Windows::openNames() const
{
    std::string names;
    for (const auto& entry : m_open) {
        if (entry.window)
            names += (names.empty() ? "" : " ") + entry.name;
    }
    return names;
}

QWidget* Windows::named(const std::string& name) const
{
    const auto found = std::find_if(m_open.rbegin(), m_open.rend(), [&](const Entry& entry) {
        return !entry.window.isNull() && !entry.isBox && entry.name == name;
    });
    return found != m_open.rend() ? found->window.data() : nullptr;
}

bool Windows::eventFilter(QObject* receiver, QEvent* event)
{
    const bool changes = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    auto* const widget = changes && !event->spontaneous() ? qobject_cast<QWidget*>(receiver) : nullptr;
    if (widget != nullptr && event->type() == QEvent::Show && isWindowOfOurs(*widget))
        opened(*widget);
    else if (widget != nullptr && event->type() == QEvent::Hide)
        closed(*widget);
    return false;
}

void Windows::opened(QWidget& window)
{
    const auto* const box = qobject_cast<QMessageBox*>(&window);
    const bool isKnown = std::any_of(m_open.begin(), m_open.end(),
                                     [&](const Entry& entry) { return entry.identity == &window; });
    if (isKnown)
        return;
    ++m_openings;
    m_open.push_back({&window, &window, box != nullptr ? "box" : nameOf(window), box != nullptr});
    if (onOpening)
        onOpening();
    m_transcript.line(box != nullptr ? lineOf(*box) : lineOf(window));
}

void Windows::closed(const QWidget& window)
{
    const auto entry = std::find_if(m_open.begin(), m_open.end(),
                                    [&](const Entry& candidate) { return candidate.identity == &window; });
    if (entry == m_open.end())
        return;
    const auto gone = *entry;
    m_open.erase(entry);
    if (!gone.isBox)
        m_transcript.line("closed: " + gone.name);
    if (onClosed)
        onClosed(gone.name);
}

} // namespace play
