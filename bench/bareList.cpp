#include "bareList.h"

namespace bare {

namespace {

constexpr int frequencyColumn = 4;
constexpr std::array textColumns = {1, 2, 3, 5, 6, 7, 8, 9, 10, 14, 18};
constexpr std::array positionColumns = {11, 12, 13, 15, 16, 17};
constexpr int columns = 19;

ListRow readRow(const Statement& query, std::string& texts)
{
    ListRow row;
    for (int column = 0; column < columns; ++column)
        row.given |= query.isNull(column) ? 0U : 1U << static_cast<unsigned>(column);
    row.key = query.number(0);
    row.frequency = query.real(frequencyColumn);
    for (std::size_t place = 0; place < positionColumns.size(); ++place)
        row.position[place] = query.number(positionColumns[place]);
    for (std::size_t place = 0; place < textColumns.size(); ++place) {
        texts += query.text(textColumns[place]);
        row.ends[place] = static_cast<std::uint32_t>(texts.size());
    }
    return row;
}

} // namespace

NoticeListRows readList(Statement& query)
{
    NoticeListRows list;
    query.reset();
    while (query.step()) {
        list.rows.push_back(readRow(query, list.texts));
        list.keys.push_back(list.rows.back().key);
    }
    query.reset();
    return list;
}

} // namespace bare
