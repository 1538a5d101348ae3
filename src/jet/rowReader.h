#pragma once

#include "jet/dataPage.h"
#include "jet/rowLayout.h"
#include "jet/usageMap.h"

#include <string>
#include <vector>

namespace jet {

// Walks over the rows of a table, at the place where each one stood first.
class RowReader
{
public:
    RowReader(const Table& table, const PageFile& file);

    [[nodiscard]] bool next();
    [[nodiscard]] const RowLayout& row() const { return m_row; }
    [[nodiscard]] Type typeOf(std::size_t column) const { return m_table->columns.at(column).type; }
    [[nodiscard]] unsigned scaleOf(std::size_t column) const { return m_table->columns.at(column).scale; }

    // Text and Memo; lasts until the next row or the next text of the column.
    [[nodiscard]] std::string_view text(std::size_t column);
    // As stored, of a long value too; lasts until the next value.
    [[nodiscard]] std::string_view bytes(std::size_t column);

private:
    [[nodiscard]] bool advance();
    void checkEnd() const;
    [[nodiscard]] bool findRow(RowPlace& place);
    [[nodiscard]] ByteView movedRow(ByteView stub);
    [[nodiscard]] std::uint32_t pagesAhead(std::uint32_t page) const;
    [[nodiscard]] std::string_view longBytes(std::size_t column);
    [[nodiscard]] std::string_view decoded(std::string_view bytes, std::size_t column);

    const Table* m_table;
    const PageFile* m_file;
    PageSet m_pages;
    RowPlace m_next{1, 0}; // where to look for the next row
    std::uint32_t m_count = 0;
    PageBuffer m_walked, m_moved, m_long;
    RowLayout m_row;
    std::vector<std::string> m_texts; // of each column, where it had to be decoded
    std::string m_joined;             // of a long value
};

} // namespace jet
