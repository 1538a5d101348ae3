#pragma once

#include "screens/layoutTable.h"

#include <QWidget>

#include <string>
#include <unordered_map>
#include <vector>

namespace screens {

class OptionSet;

using Controls = std::unordered_map<std::string, QWidget*>; // by their names without index

// Makes the single controls of a screen from the rows of the tables, and knows all that it made.
class ControlFactory
{
public:
    // From here on rows repeat under this number, the last one perhaps of multi-value boxes.
    void beginRow(int number, bool ofMultiValueBoxes);

    // Null for what is no control: begins a set of options, for instance.
    QWidget* create(const Item& item, QWidget& parent);

    // Gives a control its name, with its index where it is an element of an array.
    void enter(QWidget& control, const Item& item);

    // The control of a repeated row; null when there is none.
    [[nodiscard]] QWidget* control(const Item& item, int number) const;
    [[nodiscard]] const Controls& controls() const { return m_controls; }
    // All that Tab goes to, in its order.
    [[nodiscard]] const std::vector<QWidget*>& tabStops() const { return m_tabStops; }

private:
    QWidget* make(const Item& item, QWidget& parent);
    QWidget* makeField(const Item& item, QWidget& parent) const;
    QWidget* makeOption(const Item& item, QWidget& parent);

    Controls m_controls;
    std::vector<QWidget*> m_tabStops;
    OptionSet* m_options = nullptr;
    QString m_decided; // by the set of options in work
    int m_number = 0;
    bool m_multiValueRow = false;
    int m_freeCaptions = 0;
};

// The title of a group.
[[nodiscard]] QWidget* makeHeading(const char* text, QWidget& parent);

} // namespace screens
