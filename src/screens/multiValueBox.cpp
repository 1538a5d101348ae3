#include "screens/multiValueBox.h"

#include "widgets/textEntry.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

namespace screens {

namespace {

bool isPlain(const QKeyEvent& event)
{
    return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == Qt::NoModifier;
}

} // namespace

MultiValueBox::MultiValueBox(QWidget* parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus); // the wheel takes no focus, and so leaves no field
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    // The toolkit would pick an entry that equals the text but for case, on Enter and on leaving.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);

    new widgets::TextEntry(*lineEdit());

    connect(this, &QComboBox::editTextChanged, this, [this] { m_selected = false; });
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) { m_selected = index >= 0; });
    connect(this, &QComboBox::activated, this, [this] { m_selected = true; });
}

std::vector<std::string> MultiValueBox::entries() const
{
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(count()));
    for (int index = 0; index < count(); ++index)
        all.push_back(itemText(index).toStdString());
    return all;
}

void MultiValueBox::clearAll()
{
    clear();
    show(-1);
}

void MultiValueBox::addEntry(const std::string& entry)
{
    const auto shown = currentText();
    const bool isFirst = count() == 0;
    addItem(QString::fromStdString(entry));
    if (!isFirst)
        return;
    show(-1); // the toolkit shows the first entry of its own accord
    setEditText(shown);
}

void MultiValueBox::showFirstEntry()
{
    show(count() > 0 ? 0 : -1);
}

int MultiValueBox::selectedEntry() const
{
    return m_selected ? currentIndex() : -1;
}

void MultiValueBox::show(int entry)
{
    setCurrentIndex(entry);
    setEditText(itemText(entry)); // an index that stays would leave what was typed
    m_selected = entry >= 0;
}

void MultiValueBox::removeSelectedOrBlank()
{
    if (const int selected = selectedEntry(); selected >= 0)
        removeItem(selected);
    show(-1);
}

// From typed text the arrows go back to the list, at the entry that was picked last.
bool MultiValueBox::pickByArrow(int key)
{
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || m_selected || count() == 0)
        return false;
    show(std::max(currentIndex(), 0));
    return true;
}

void MultiValueBox::keyPressEvent(QKeyEvent* event)
{
    const int key = isPlain(*event) ? event->key() : 0;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (!currentText().isEmpty())
            emit entered();
    } else if (key == Qt::Key_Backspace)
        removeSelectedOrBlank();
    else if (!pickByArrow(key))
        QComboBox::keyPressEvent(event);
}

void MultiValueBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace screens
