#include "jet/rowLayout.h"

#include "jet/values.h"

#include <algorithm>

namespace jet {

RowLayout::RowLayout(const Table& table, Version version)
    : m_isJet3(version == Version::Jet3), m_dataStart(m_isJet3 ? 1 : 2), m_slots(table.columns.size())
{
    for (const auto& column : table.columns) {
        const auto typeSize = sizeOf(column.type);
        const std::size_t size = column.isFixed && typeSize == 0 ? column.length : typeSize;
        m_places.push_back({column.type == Type::Boolean, column.isFixed, column.id, column.variableIndex,
                            column.fixedOffset, size});
    }
}

void RowLayout::parse(const ByteView& row)
{
    m_row = row;
    m_isVariableTableRead = false;
    parseEnds();
    for (std::size_t i = 0; i < m_places.size(); ++i)
        fill(m_slots[i], m_places[i]);
}

void RowLayout::parseEnds()
{
    m_columnsInRow = m_isJet3 ? m_row.u8(0) : m_row.u16(0);
    const auto maskSize = (m_columnsInRow + 7) / 8;
    if (m_dataStart + maskSize > m_row.size())
        raiseDamage(m_row.page(), "a row is shorter than its ends");
    m_maskStart = m_row.size() - maskSize;
}

void RowLayout::fill(Slot& slot, const Place& place)
{
    slot = {};
    // A row older than the column knows nothing of it.
    const bool isKnown = place.id < m_columnsInRow;
    const bool bit = isKnown && ((m_row.u8(m_maskStart + place.id / 8U) >> (place.id % 8U)) & 1U) != 0;
    if (place.isBoolean) {
        slot.hasValue = true;
        slot.isSet = bit;
    } else if (bit && place.isFixed) {
        fillFixed(slot, place);
    } else if (bit) {
        fillVariable(slot, place);
    }
}

void RowLayout::fillFixed(Slot& slot, const Place& place) const
{
    const auto start = m_dataStart + place.fixedOffset;
    if (start + place.size > m_maskStart)
        raiseDamage(m_row.page(), "a row is shorter than one of its values");
    slot.start = static_cast<std::uint16_t>(start);
    slot.size = static_cast<std::uint16_t>(place.size);
    slot.hasValue = true;
}

void RowLayout::fillVariable(Slot& slot, const Place& place)
{
    if (!m_isVariableTableRead)
        readVariableTable();
    if (place.variableIndex >= m_variableCount)
        return;
    slot.start = m_offsets[place.variableIndex];
    slot.size = static_cast<std::uint16_t>(m_offsets[place.variableIndex + 1U] - slot.start);
    if (slot.size < place.size)
        raiseDamage(m_row.page(), "a value is shorter than its type needs");
    slot.hasValue = true;
}

void RowLayout::readVariableTable()
{
    if (m_isJet3)
        readJet3Offsets();
    else
        readJet4Offsets();
    m_isVariableTableRead = true;
}

// Offsets of one byte each. Every jump entry tells from which offset on 256 more are meant. Their number
// follows from the row's length, which the table itself adds to, so that the last one may mean nothing.
void RowLayout::readJet3Offsets()
{
    const auto end = m_maskStart;
    const auto jumps = (m_row.size() - 1) / 256;
    m_variableCount = m_row.u8(end - 1);
    if (end < 3 + jumps + m_variableCount)
        raiseDamage(m_row.page(), "a row is shorter than its table of values");
    const auto tableStart = end - 2 - jumps - m_variableCount;
    const auto usedJumps = std::min(jumps, tableStart / 256);
    const auto last = tableStart + m_variableCount;
    for (std::size_t i = 0; i <= m_variableCount; ++i)
        m_offsets[i] = m_row.u8(last - i);
    for (std::size_t k = 0; k < usedJumps; ++k) {
        for (std::size_t i = m_row.u8(end - 2 - k); i <= m_variableCount; ++i)
            m_offsets[i] = static_cast<std::uint16_t>(m_offsets[i] + 256U);
    }
    checkOffsets(tableStart);
}

void RowLayout::readJet4Offsets()
{
    const auto end = m_maskStart;
    m_variableCount = end < 2 ? 0 : m_row.u16(end - 2);
    if (m_variableCount > mostVariable || end < 6 + 2 * m_variableCount)
        raiseDamage(m_row.page(), "a row is shorter than its table of values");
    for (std::size_t i = 0; i <= m_variableCount; ++i)
        m_offsets[i] = m_row.u16(end - 4 - 2 * i);
    checkOffsets(end - 4 - 2 * m_variableCount);
}

void RowLayout::checkOffsets(std::size_t tableStart) const
{
    std::size_t before = m_dataStart;
    for (std::size_t i = 0; i <= m_variableCount; ++i) {
        if (m_offsets[i] < before)
            raiseDamage(m_row.page(), "the values of a row are out of order");
        before = m_offsets[i];
    }
    if (before > tableStart)
        raiseDamage(m_row.page(), "a value goes beyond its row");
}

} // namespace jet
