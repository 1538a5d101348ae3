#include "screens/optionSet.h"

#include "widgets/application.h"

#include <QKeyEvent>

#include <algorithm>

namespace screens {

namespace {

// A click on the selected button leaves it selected.
class OptionButton : public QRadioButton
{
public:
    using QRadioButton::QRadioButton;

protected:
    void nextCheckState() override { setChecked(true); }
};

int stepOf(int key)
{
    switch (key) {
    case Qt::Key_Right:
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Left:
    case Qt::Key_Up:
        return -1;
    default:
        return 0;
    }
}

} // namespace

QRadioButton* OptionSet::addButton(QWidget* parent)
{
    auto* const button = new OptionButton(parent);
    button->setAutoExclusive(false);
    button->installEventFilter(this);
    // The first to hear of it, so that nobody sees two selected.
    connect(button, &QRadioButton::toggled, this,
            widgets::guarded([this, button](bool selected) { toggled(button, selected); }));
    m_buttons.push_back(button);
    placeTabStop();
    return button;
}

bool OptionSet::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int step = stepOf(static_cast<const QKeyEvent*>(event)->key());
    if (step != 0)
        move(watched, step);
    return step != 0;
}

void OptionSet::toggled(QRadioButton* button, bool selected)
{
    if (selected)
        for (auto* const other : m_buttons)
            if (other != button)
                other->setChecked(false);
    placeTabStop();
}

// On the selected button, with none selected on the first.
void OptionSet::placeTabStop()
{
    const auto selected = std::find_if(m_buttons.begin(), m_buttons.end(),
                                       [](const QRadioButton* button) { return button->isChecked(); });
    const auto* const stop = selected == m_buttons.end() ? m_buttons.front() : *selected;
    for (auto* const button : m_buttons)
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void OptionSet::move(const QObject* from, int step)
{
    const auto count = static_cast<int>(m_buttons.size());
    const auto here = std::find(m_buttons.begin(), m_buttons.end(), from) - m_buttons.begin();
    auto* const next =
        m_buttons.at(static_cast<std::size_t>((static_cast<int>(here) + step + count) % count));
    next->setFocus(Qt::TabFocusReason);
    next->click();
}

} // namespace screens
