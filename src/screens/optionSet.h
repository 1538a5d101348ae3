#pragma once

#include <QObject>
#include <QRadioButton>

#include <vector>

namespace screens {

// Option buttons of which at most one is selected. Unlike the toolkit's own groups it can stand with none
// selected. It is one stop of the Tab key; the arrow keys go from one to the next and select it.
class OptionSet : public QObject
{
    Q_OBJECT
public:
    explicit OptionSet(QObject* parent = nullptr) : QObject(parent) {}

    // A new button at the end of the set. By the time that it emits toggled(true) the others are clear.
    QRadioButton* addButton(QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void toggled(QRadioButton* button, bool selected);
    void placeTabStop();
    void move(const QObject* from, int step);

    std::vector<QRadioButton*> m_buttons;
};

} // namespace screens
