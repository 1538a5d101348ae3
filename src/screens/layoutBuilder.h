#pragma once

#include "screens/controlFactory.h"
#include "screens/layoutTable.h"

#include <vector>

class QBoxLayout;
class QGridLayout;
class QHBoxLayout;
class QLayout;

namespace screens {

// Arranges one screen from the tables, in one walk, in the order of the Tab key.
class LayoutBuilder
{
public:
    explicit LayoutBuilder(ScreenType type) : m_type(type) {}

    void buildPage(QWidget& page);
    void buildBar(QWidget& bar);
    // After both: the way of the Tab key.
    void orderTabs() const;

    [[nodiscard]] const Controls& controls() const { return m_factory.controls(); }

private:
    using Items = std::vector<Item>;

    [[nodiscard]] Items ofThisScreen(std::span<const Item> items) const;
    QWidget* buildGroup(const Group& group, QWidget& page);
    QLayout* buildBlocks(const Items& items, QWidget& box);
    QGridLayout* buildBlock(const Items& items, QWidget& box);
    QWidget* makeLead(const Items& row, QWidget& box);
    QGridLayout* buildRow(const Items& row, QWidget& box);
    void addLines(const Items& row, QGridLayout& grid, QWidget& box);
    void addLine(const Items& row, QGridLayout& grid, int line, QWidget& box);
    void addColumn(const Items& items, QGridLayout& grid, int line, int column, QWidget& box);
    void addAbove(const Item& item, QGridLayout& grid, int column, QWidget& box);
    void addToCell(const Item& item, QHBoxLayout& cell, QWidget& box);
    void addZones(QGridLayout& grid, QWidget& box);
    void alignLines(const Items& row, int lines, int multiValueLine);

    ScreenType m_type;
    ControlFactory m_factory;
};

} // namespace screens
