#include "jet/rowReader.h"

#include "jet/longValue.h"
#include "jet/secondLook.h"
#include "jet/textDecoder.h"

namespace jet {

RowReader::RowReader(const Table& table, const PageFile& file)
    : m_table(&table),
      m_file(&file),
      m_pages(withSecondLook([&] { return readUsageMap(table.mapPointer, file); }, [] {})),
      m_walked(file),
      m_moved(file),
      m_long(file),
      m_row(table, file.version()),
      m_texts(table.columns.size())
{}

bool RowReader::next()
{
    return withSecondLook([this] { return advance(); },
                          [this] {
                              m_walked.forget();
                              m_moved.forget();
                          });
}

bool RowReader::advance()
{
    auto place = m_next;
    while (const auto page = m_pages.firstFrom(place.page)) {
        if (*page != place.page)
            place = {*page, 0};
        if (findRow(place)) {
            m_next = {place.page, place.row + 1};
            ++m_count;
            return true;
        }
        place = {place.page + 1, 0};
    }
    checkEnd();
    m_next = place;
    return false;
}

// Neither the map nor the number of rows is to be trusted alone; together they tell that the file was cut.
void RowReader::checkEnd() const
{
    if (m_pages.lacksPages() && m_count < m_table->rowCount)
        raiseDamage(m_table->definitionPage, "the file ends before the last rows of its table");
}

// The first row of the page from the place's own on.
bool RowReader::findRow(RowPlace& place)
{
    const auto ahead = m_walked.has(place.page) ? 0 : pagesAhead(place.page);
    const auto page = m_walked.page(place.page, ahead);
    if (!isOfType(page, PageType::Data) || ownerOf(page) != m_table->definitionPage)
        return false;
    const DataPage data(page, m_file->version());
    for (; place.row < data.rowCount(); ++place.row) {
        const auto row = data.row(place.row);
        if (row.isSkipped)
            continue;
        m_row.parse(row.isMoved ? movedRow(row.bytes) : row.bytes);
        return true;
    }
    return false;
}

ByteView RowReader::movedRow(ByteView stub)
{
    constexpr int mostHops = 4;
    for (int hop = 0; hop < mostHops; ++hop) {
        const auto place = placeOfPointer(stub.u32(0));
        const auto row = rowAt(place, m_table->definitionPage, m_moved, m_file->version());
        if (!row.isMoved)
            return row.bytes;
        stub = row.bytes;
    }
    raiseDamage(stub.page(), "a moved row is nowhere to be found");
}

// How many pages of the table follow at once, to be read with it: on a share each reading costs a way there
// and back.
std::uint32_t RowReader::pagesAhead(std::uint32_t page) const
{
    constexpr std::uint32_t most = 31;
    std::uint32_t count = 0;
    while (count < most && m_pages.holds(page + count + 1))
        ++count;
    return count;
}

std::string_view RowReader::text(std::size_t column)
{
    if (typeOf(column) != Type::Memo)
        return decoded(m_row.value(column).bytes(), column);
    // Those bytes give way to the next long value's.
    const auto text = decoded(longBytes(column), column);
    if (text.data() != m_texts[column].data())
        m_texts[column] = text;
    return m_texts[column];
}

std::string_view RowReader::bytes(std::size_t column)
{
    const auto type = typeOf(column);
    return type == Type::Ole || type == Type::Memo ? longBytes(column) : m_row.value(column).bytes();
}

std::string_view RowReader::longBytes(std::size_t column)
{
    return withSecondLook([&] { return longValueBytes(m_row.value(column), *m_file, m_long, m_joined); },
                          [this] { m_long.forget(); });
}

std::string_view RowReader::decoded(std::string_view bytes, std::size_t column)
{
    if (m_file->isJet3())
        return decodeCodePage(bytes, m_table->columns[column].codePage, m_texts[column]);
    return decodeUnicode(bytes, m_texts[column]);
}

} // namespace jet
