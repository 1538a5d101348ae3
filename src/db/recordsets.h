#pragma once

#include "dao/dao.h"
#include "db/columns.h"
#include "model/ScreenModule.h"

#include <cstdint>

// What the operations on one notice do with recordsets, whatever the table.
namespace recordsets {

using DatabaseRef = dao::Ref<dao::Database>;
using RecordsetRef = dao::Ref<dao::Recordset>;

[[nodiscard]] RecordsetRef openTable(const DatabaseRef& database, const char* name);
// A query of one key, or of a key and an antenna number.
[[nodiscard]] RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key);
[[nodiscard]] RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key,
                                     std::int16_t antennaNumber);

void update(const RecordsetRef& rows);

// Deletes the rows from the current one to the end, then closes.
void deleteToEnd(const RecordsetRef& rows);

// An empty member leaves the column of a new row Null.
template <class Record, std::size_t Count>
void assignColumns(const RecordsetRef& rows, const std::array<columns::Row<Record>, Count>& table,
                   const Record& record)
{
    for (const auto& [column, member, reading] : table) {
        const auto& text = record.*member;
        if (!text.empty())
            rows->setCollect(column,
                             reading == columns::Reading::Upper ? ScreenModule::upperText(text) : text);
    }
}

// An empty member makes the column of a stored row Null, and no other is turned to upper case.
template <class Record, std::size_t Count>
void assignOrClearColumns(const RecordsetRef& rows, const std::array<columns::Row<Record>, Count>& table,
                          const Record& record)
{
    for (const auto& row : table) {
        const auto& text = record.*row.member;
        rows->setCollect(row.column, text.empty() ? dao::Value(dao::Null) : dao::Value(text));
    }
}

} // namespace recordsets
