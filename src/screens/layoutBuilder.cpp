#include "screens/layoutBuilder.h"

#include "screens/captionLabel.h"
#include "screens/fieldEdit.h"
#include "screens/recordFields.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <map>

namespace screens {

namespace {

constexpr int closeSpacing = 3;  // between fields that belong together
constexpr int columnSpacing = 8; // between columns
constexpr int lineSpacing = 2;   // between a caption and what stands below, and between repeated rows
constexpr int titleSpacing = 4;  // more below the title of a group
constexpr int rowSpacing = 5;    // between rows of a group
constexpr int blockSpacing = 28; // between blocks side by side
constexpr int gap = 14;          // wanted in the table
constexpr int groupSpacing = 6;  // between groups
constexpr int groupMargin = 8;   // within them
constexpr int pageMargin = 8;
constexpr int footMargin = 4; // above the line of hints

// Lines of the grid of a row.
constexpr int captionLine = 1; // what stands over several captions stands in line 0
constexpr int firstFieldLine = 2;

using Items = std::vector<Item>;

bool is(const Item& item, Kind kind)
{
    return item.kind == kind;
}

bool beginsRow(const Item& item)
{
    return is(item, Kind::Row) || is(item, Kind::Rows);
}

bool beginsBlock(const Item& item)
{
    return is(item, Kind::Block);
}

bool beginsColumn(const Item& item)
{
    return is(item, Kind::Column);
}

bool isLead(const Item& item)
{
    return is(item, Kind::Lead) || is(item, Kind::LeadLabel);
}

// The runs of items that begin with one that `begins`; the first may lack it. Empty runs are left out.
template <class Predicate>
std::vector<Items> parted(const Items& items, Predicate begins)
{
    std::vector<Items> parts(1);
    for (const auto& item : items) {
        if (begins(item) && !parts.back().empty())
            parts.emplace_back();
        parts.back().push_back(item);
    }
    return parts;
}

bool has(const Items& items, Kind kind)
{
    return std::any_of(items.begin(), items.end(), [kind](const Item& item) { return is(item, kind); });
}

// Whether something in the row takes spare width itself.
bool takesSpareWidth(const Items& row)
{
    return has(row, Kind::Name) || has(row, Kind::End) || has(row, Kind::Remarks);
}

// Captions stand above the fields.
bool isAbove(const Item& item)
{
    return is(item, Kind::Column) || is(item, Kind::Pieces) || is(item, Kind::Over);
}

} // namespace

LayoutBuilder::Items LayoutBuilder::ofThisScreen(std::span<const Item> items) const
{
    Items mine;
    std::copy_if(items.begin(), items.end(), std::back_inserter(mine),
                 [this](const Item& item) { return contains(item.screens, m_type); });
    return mine;
}

void LayoutBuilder::buildPage(QWidget& page)
{
    auto* const lines = new QVBoxLayout(&page);
    lines->setContentsMargins(pageMargin, pageMargin, pageMargin, footMargin);
    lines->setSpacing(groupSpacing);
    std::map<int, QHBoxLayout*> lineOf;
    for (const auto& group : groups()) {
        if (!contains(group.screens, m_type))
            continue;
        auto*& line = lineOf[group.line];
        if (line == nullptr) {
            line = new QHBoxLayout;
            line->setSpacing(groupSpacing);
            lines->addLayout(line);
        }
        line->addWidget(buildGroup(group, page), group.stretch);
    }
    lines->setStretch(lines->count() - 1, 1);
}

void LayoutBuilder::buildBar(QWidget& barWidget)
{
    auto* const row = new QHBoxLayout(&barWidget);
    row->setContentsMargins(pageMargin, groupSpacing, pageMargin, pageMargin);
    for (const auto& item : ofThisScreen(bar()))
        addToCell(item, *row, barWidget);
}

void LayoutBuilder::orderTabs() const
{
    const auto& stops = m_factory.tabStops();
    for (std::size_t next = 1; next < stops.size(); ++next)
        QWidget::setTabOrder(stops[next - 1], stops[next]);
}

QWidget* LayoutBuilder::buildGroup(const Group& group, QWidget& page)
{
    auto* const box = new QGroupBox(&page);
    box->setObjectName(group.name);
    auto* const content = new QVBoxLayout(box);
    content->setContentsMargins(groupMargin, groupMargin / 2, groupMargin, groupMargin / 2);
    content->setSpacing(0);
    const auto items = ofThisScreen(group.items);
    box->setAccessibleName(QString::fromUtf8(group.title));
    if (!has(items, Kind::Heading)) {
        auto* const title = makeHeading(group.title, *box);
        title->setObjectName(QString::fromUtf8(group.name) + QStringLiteral("Title"));
        content->addWidget(title);
        content->addSpacing(titleSpacing);
    }
    content->addLayout(buildBlocks(items, *box));
    if (!has(items, Kind::Remarks))
        content->addStretch(1);
    return box;
}

QLayout* LayoutBuilder::buildBlocks(const Items& items, QWidget& box)
{
    auto* const all = new QVBoxLayout;
    all->setSpacing(rowSpacing);
    QHBoxLayout* beside = nullptr;
    for (const auto& block : parted(items, beginsBlock)) {
        if (!beginsBlock(block.front())) {
            all->addLayout(buildBlock(block, box));
            continue;
        }
        if (beside == nullptr) {
            beside = new QHBoxLayout;
            beside->setSpacing(blockSpacing);
            all->addLayout(beside);
        }
        beside->addLayout(buildBlock({block.begin() + 1, block.end()}, box));
        beside->setAlignment(beside->itemAt(beside->count() - 1)->layout(), Qt::AlignTop | Qt::AlignLeft);
    }
    return all;
}

QGridLayout* LayoutBuilder::buildBlock(const Items& items, QWidget& box)
{
    auto* const block = new QGridLayout;
    block->setHorizontalSpacing(columnSpacing);
    block->setVerticalSpacing(rowSpacing);
    block->setColumnStretch(1, 1);
    int line = 0;
    for (const auto& row : parted(items, beginsRow)) {
        auto* const lead = makeLead(row, box);
        auto* const fields = buildRow(row, box);
        if (lead != nullptr)
            block->addWidget(lead, line, 0);
        block->addLayout(fields, line, lead != nullptr ? 1 : 0, 1, lead != nullptr ? 1 : 2);
        ++line;
    }
    return block;
}

QWidget* LayoutBuilder::makeLead(const Items& row, QWidget& box)
{
    const auto lead = std::find_if(row.begin(), row.end(), isLead);
    return lead == row.end() ? nullptr : m_factory.create(*lead, box);
}

QGridLayout* LayoutBuilder::buildRow(const Items& row, QWidget& box)
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(columnSpacing);
    grid->setVerticalSpacing(lineSpacing);
    if (has(row, Kind::Zones))
        addZones(*grid, box);
    else if (is(row.front(), Kind::Rows))
        addLines(row, *grid, box);
    else
        addLine(row, *grid, firstFieldLine, box);
    if (!takesSpareWidth(row))
        grid->setColumnStretch(grid->columnCount(), 1);
    return grid;
}

void LayoutBuilder::addLines(const Items& row, QGridLayout& grid, QWidget& box)
{
    const auto& [lines, multiValueLine] = std::pair(row.front().size, row.front().limit);
    for (int line = 1; line <= lines; ++line) {
        m_factory.beginRow(line, line == multiValueLine);
        addLine(row, grid, firstFieldLine + line - 1, box);
    }
    m_factory.beginRow(0, false);
    if (multiValueLine > 0)
        alignLines(row, lines, multiValueLine);
}

// One line of fields; the captions above stand in lines 0 and 1 of the grid.
void LayoutBuilder::addLine(const Items& row, QGridLayout& grid, int line, QWidget& box)
{
    Items fields;
    std::remove_copy_if(row.begin(), row.end(), std::back_inserter(fields),
                        [](const Item& item) { return beginsRow(item) || isLead(item); });
    int column = 0;
    for (const auto& part : parted(fields, beginsColumn)) {
        addColumn(part, grid, line, column, box);
        if (!is(part.front(), Kind::Pieces))
            ++column;
    }
}

void LayoutBuilder::addColumn(const Items& items, QGridLayout& grid, int line, int column, QWidget& box)
{
    auto* const cell = new QHBoxLayout;
    cell->setSpacing(closeSpacing);
    for (const auto& item : items) {
        if (!isAbove(item))
            addToCell(item, *cell, box);
        else if (line == firstFieldLine)
            addAbove(item, grid, &item == items.data() ? column : column + 1, box);
    }
    const bool wide = takesSpareWidth(items);
    grid.addLayout(cell, line, column, wide ? Qt::Alignment() : Qt::AlignLeft | Qt::AlignVCenter);
    if (wide)
        grid.setColumnStretch(column, 1);
}

// A caption above this column, or pieces above the columns that follow.
void LayoutBuilder::addAbove(const Item& item, QGridLayout& grid, int column, QWidget& box)
{
    if (is(item, Kind::Pieces))
        m_factory.enter(*new CaptionLabel(grid, captionLine, column, item.size, &box), item);
    else if (is(item, Kind::Over))
        grid.addWidget(m_factory.create(item, box), 0, column, 1, item.size);
    else if (*item.name != '\0')
        grid.addWidget(m_factory.create(item, box), captionLine, column);
}

void LayoutBuilder::addToCell(const Item& item, QHBoxLayout& cell, QWidget& box)
{
    if (is(item, Kind::Gap))
        cell.addSpacing(gap);
    else if (is(item, Kind::End))
        cell.addStretch(1);
    else if (auto* const control = m_factory.create(item, box))
        cell.addWidget(control);
}

void LayoutBuilder::addZones(QGridLayout& grid, QWidget& box)
{
    constexpr int inRow = 6;
    for (int zone = 1; zone <= fields::zoneBoxes; ++zone) {
        const int limit = zoneLimit(m_type, zone);
        m_factory.beginRow(zone, false);
        auto* const field =
            m_factory.create({onAll, limit < 10 ? Kind::Code : Kind::Text, "Rzone#", limit, limit,
                              zone > fields::zonesKept ? "Zone # (not stored)" : "Zone #"},
                             box);
        grid.addWidget(field, (zone - 1) / inRow, (zone - 1) % inRow, Qt::AlignLeft);
    }
    m_factory.beginRow(0, false);
}

// The boxes above those of several values get the width of these.
void LayoutBuilder::alignLines(const Items& row, int lines, int multiValueLine)
{
    for (const auto& item : row)
        for (int line = 1; line <= lines; ++line)
            if (auto* const edit = qobject_cast<FieldEdit*>(m_factory.control(item, line)))
                edit->alignWith(m_factory.control(item, multiValueLine));
}

} // namespace screens
