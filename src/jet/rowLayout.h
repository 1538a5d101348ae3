#pragma once

#include "jet/byteView.h"

#include <array>
#include <vector>

namespace jet {

// Where the values of a row stand.
class RowLayout
{
public:
    RowLayout(const Table& table, Version version);

    // Takes a row apart; it has to last as long as its values are asked for.
    void parse(const ByteView& row);

    [[nodiscard]] std::size_t columnCount() const { return m_slots.size(); }
    [[nodiscard]] bool isNull(std::size_t column) const { return !m_slots.at(column).hasValue; }
    // Of a Boolean.
    [[nodiscard]] bool isSet(std::size_t column) const { return m_slots.at(column).isSet; }
    // Of the length that the type of the column has, or longer.
    [[nodiscard]] ByteView value(std::size_t column) const
    {
        const auto& slot = m_slots.at(column);
        return m_row.part(slot.start, slot.size);
    }

private:
    // What the definition says of a column.
    struct Place
    {
        bool isBoolean, isFixed;
        std::uint16_t id, variableIndex, fixedOffset;
        std::size_t size; // of a variable one: at least
    };
    // What the row at hand holds of it.
    struct Slot
    {
        std::uint16_t start = 0, size = 0;
        bool hasValue = false, isSet = false;
    };

    static constexpr std::size_t mostVariable = 255;

    // Into the place where it stays: handed over by value, slots took nearly a third of the time of reading.
    void fill(Slot& slot, const Place& place);
    void fillFixed(Slot& slot, const Place& place) const;
    void fillVariable(Slot& slot, const Place& place);
    void parseEnds();
    void readVariableTable();
    void readJet3Offsets();
    void readJet4Offsets();
    void checkOffsets(std::size_t tableStart) const;

    bool m_isJet3;
    std::size_t m_dataStart; // behind the number of columns
    std::vector<Place> m_places;

    ByteView m_row;
    std::size_t m_columnsInRow = 0;
    std::size_t m_maskStart = 0;
    bool m_isVariableTableRead = false;
    std::size_t m_variableCount = 0;
    std::array<std::uint16_t, mostVariable + 1> m_offsets{}; // the last one is the end of the data
    std::vector<Slot> m_slots;
};

} // namespace jet
