#include "dao/jetConversion.h"

#include "dao/bookkeeping.h"
#include "dao/columnTypes.h"
#include "dao/connection.h"
#include "dao/definitions.h"
#include "dao/engineError.h"
#include "dao/jetFailure.h"
#include "dao/sqlTranslator.h"
#include "dao/valueForms.h"
#include "platform/ansiText.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace dao {

namespace {

using platform::equalNoCase;

// Nobody else looks at the file before it is whole, and a half one is thrown away. Sorting for an index takes
// as much memory as the cache of pages has, once for each thread.
constexpr auto settings = "PRAGMA page_size=4096; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; "
                          "PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-32768; PRAGMA threads=1; "
                          "PRAGMA trusted_schema=OFF";

// Inserts rows of an old table as they come.
class RowWriter
{
public:
    RowWriter(sqlite3* connection, const jet::Table& table, const std::string& path)
        : m_connection(connection), m_path(path)
    {
        std::string marks;
        for (const auto& column : table.columns) {
            m_types.push_back(column.type);
            marks += marks.empty() ? "?" : ", ?";
        }
        m_texts.resize(m_types.size());
        m_insertion =
            prepare(connection, "INSERT INTO " + quotedName(table.name) + " VALUES (" + marks + ")");
    }

    void write(const jet::Rows& row)
    {
        for (std::size_t column = 0; column < m_types.size(); ++column)
            require(bind(row, column));
        const int result = sqlite3_step(m_insertion.get());
        sqlite3_reset(m_insertion.get());
        if (result != SQLITE_DONE)
            throw engineFailure(result, m_connection, m_path);
    }

private:
    void require(int result) const
    {
        if (result != SQLITE_OK)
            throw engineFailure(result, m_connection, m_path);
    }

    int bind(const jet::Rows& row, std::size_t column)
    {
        auto* const statement = m_insertion.get();
        const int place = static_cast<int>(column) + 1;
        const auto type = m_types[column];
        if (type != jet::Type::Boolean && row.isNull(column))
            return sqlite3_bind_null(statement, place);
        switch (type) {
        case jet::Type::Boolean:
            return bindText(place, row.boolean(column) ? "TRUE" : "FALSE");
        case jet::Type::Byte:
        case jet::Type::Integer:
        case jet::Type::Long:
            return sqlite3_bind_int(statement, place, row.integer(column));
        case jet::Type::Single:
            return bindNumber(place, shortestNumber(row.single(column)), column);
        case jet::Type::Double:
            return bindNumber(place, row.number(column), column);
        case jet::Type::Text:
        case jet::Type::Memo:
            return bindText(place, row.text(column));
        case jet::Type::DateTime:
            return bindText(place, m_texts[column] = momentOf(row.dateTime(column)));
        case jet::Type::Currency:
        case jet::Type::Decimal:
        case jet::Type::Guid:
            return bindText(place, m_texts[column] = row.exactText(column));
        default:
            m_texts[column] = row.bytes(column);
            return sqlite3_bind_blob64(statement, place, m_texts[column].data(), m_texts[column].size(),
                                       SQLITE_STATIC);
        }
    }

    // The text lives until the step. One without an address would be Null.
    int bindText(int place, std::string_view text)
    {
        return sqlite3_bind_text64(m_insertion.get(), place, text.empty() ? "" : text.data(), text.size(),
                                   SQLITE_STATIC, SQLITE_UTF8);
    }

    // What is no number would come out as Null.
    int bindNumber(int place, double number, std::size_t column)
    {
        if (std::isnan(number))
            return bindText(place, m_texts[column] = "NaN");
        return sqlite3_bind_double(m_insertion.get(), place, number);
    }

    // One bad moment must not make the other rows unreadable, and must not look like none.
    static std::string momentOf(jet::DateTime moment)
    {
        try {
            const auto [year, month, day, hour, minute, second] = jet::calendarTime(moment);
            return momentText(year, month, day, hour, minute, second);
        } catch (const jet::Error&) {
            return shortestText(moment.days);
        }
    }

    sqlite3* m_connection;
    const std::string& m_path;
    std::vector<jet::Type> m_types;
    std::vector<std::string> m_texts; // that values stand in until the step, by their columns
    Statement m_insertion;
};

struct NeededIndex
{
    std::string_view table, name;
    std::array<std::string_view, 9> columns; // up to the first empty one
};

// Those that the queries of the system look up by, here and in the master database.
constexpr std::array neededIndexes = {
    // clang-format off
    NeededIndex{"kvr_velda", "VeldaIndex", {"freq_assgn", "op_hh_fr", "op_hh_to", "op_cls", "emi_cls",
                                            "bdwdth_cde", "stn_cls", "is_notice"}},
    NeededIndex{"kvr_geo_pt", "GeoIndex", {"geo_key", "long_deg", "long_min", "long_sec", "long_ew",
                                           "lat_deg", "lat_min", "lat_sec", "lat_ns"}},
    NeededIndex{"kvr_velda", "velda_key", {"veldakey"}},
    NeededIndex{"kvr_velda", "velda_freq", {"freq_assgn", "op_hh_fr", "op_hh_to"}},
    NeededIndex{"kvr_velda", "velda_geo", {"geo_key"}},
    NeededIndex{"kvr_geo", "geo_key", {"geo_key"}},
    NeededIndex{"kvr_geo_pt", "geo_pt_geo", {"geo_key"}},
    NeededIndex{"kvr_ant", "ant_velda", {"veldakey"}},
    NeededIndex{"kvr_rot", "rot_ant", {"veldakey", "ant_key"}},
    NeededIndex{"kvr_rx", "rx_ant", {"veldakey", "ant_key"}},
    NeededIndex{"kvr_tx", "tx_ant", {"veldakey", "ant_key"}},
    NeededIndex{"kvr_coord", "coord_velda", {"veldakey"}},
    NeededIndex{"kvr_call_sign", "call_sign_velda", {"veldakey"}},
    NeededIndex{"kvr_nat_serv", "nat_serv_velda", {"veldakey"}},
    NeededIndex{"kvr_op_agcy", "op_agcy_velda", {"veldakey"}},
    NeededIndex{"kvr_rmks", "rmks_velda", {"veldakey"}},
    NeededIndex{"kvr_target", "target_key", {"target"}},
    NeededIndex{"kvr_pub_hist", "pub_hist_velda", {"veldakey"}},
}; // clang-format on

bool hasColumn(const jet::Table& table, std::string_view name)
{
    return std::any_of(table.columns.begin(), table.columns.end(),
                       [name](const jet::Column& column) { return equalNoCase(column.name, name); });
}

bool beginsWith(const std::vector<std::string>& columns, const std::vector<std::string>& first)
{
    return first.size() <= columns.size() &&
           std::equal(first.begin(), first.end(), columns.begin(), equalNoCase);
}

// The table's own indexes, and those needed ones that none of them and no longer one of the needed does the
// work of.
std::vector<jet::Index> indexesOf(const jet::Table& table)
{
    auto indexes = table.indexes;
    for (const auto& needed : neededIndexes) {
        std::vector<std::string> columns(needed.columns.begin(),
                                         std::find(needed.columns.begin(), needed.columns.end(), ""));
        const bool possible =
            equalNoCase(needed.table, table.name) &&
            std::all_of(columns.begin(), columns.end(),
                        [&table](const std::string& column) { return hasColumn(table, column); });
        const bool served = std::any_of(indexes.begin(), indexes.end(), [&columns](const jet::Index& index) {
            return beginsWith(index.columns, columns);
        });
        if (possible && !served)
            indexes.push_back({std::string(needed.name), std::move(columns)});
    }
    return indexes;
}

bool hasIndex(const std::vector<jet::Index>& indexes, std::string_view name)
{
    return std::any_of(indexes.begin(), indexes.end(),
                       [name](const jet::Index& index) { return equalNoCase(index.name, name); });
}

class Conversion
{
public:
    Conversion(const jet::File& file, const std::string& path, const std::string& target)
        : m_file(file),
          m_path(path),
          m_connection(openAnyFile(target, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE))
    {
        execute(settings);
        execute("PRAGMA application_id=" + std::to_string(applicationId) + "; BEGIN");
    }

    // The definitions come first: beneath, tables and indexes share their names.
    void run()
    {
        std::vector<jet::Table> tables;
        for (const auto& entry : m_file.catalogue()) {
            note(entry);
            if (entry.isLink())
                continue;
            auto table = m_file.table(entry.name);
            if (table.columns.empty())
                continue; // it holds nothing
            createTable(table);
            tables.push_back(std::move(table));
        }
        for (const auto& table : tables)
            writeRows(table);
        for (const auto& table : tables)
            writeIndexes(table);
        execute("PRAGMA analysis_limit=1000; ANALYZE; COMMIT");
    }

private:
    void execute(const std::string& sql) const { dao::execute(m_connection.get(), sql.c_str()); }

    void createTable(const jet::Table& table) const
    {
        std::string columns;
        std::set<std::string> names;
        for (const auto& column : table.columns) {
            columns += (columns.empty() ? "" : ", ") + quotedName(column.name) + " " +
                       declarationOf(columnTypeOf(column));
            names.insert(platform::toLower(column.name));
        }
        // Names that no file of the original engine has.
        if (names.size() != table.columns.size() || isReservedName(table.name) ||
            findTable(m_connection.get(), "main", table.name))
            raiseEngineError(errDamaged, m_path);
        execute("CREATE TABLE " + quotedName(table.name) + " (" + columns + ")");
    }

    void writeRows(const jet::Table& table) const
    {
        RowWriter writer(m_connection.get(), table, m_path);
        for (auto rows = m_file.rows(table); rows.next();)
            writer.write(rows);
    }

    // An index never changes a result: one that can't be made under its name is left out.
    void writeIndexes(const jet::Table& table) const
    {
        std::vector<jet::Index> written;
        for (const auto& index : indexesOf(table)) {
            if (index.columns.empty() || hasIndex(written, index.name))
                continue;
            Index copy(index.name);
            for (const auto& column : index.columns)
                copy.Fields().Append(Field(column));
            createIndex(m_connection.get(), table.name, copy);
            written.push_back(index);
        }
    }

    void note(const jet::CatalogueEntry& entry) const
    {
        const auto kind = entry.isLink() ? ObjectKind::Link : ObjectKind::Table;
        noteObject(m_connection.get(), kind, {entry.name, entry.linkedFile, entry.linkedTable},
                   lastChange(entry));
    }

    const jet::File& m_file;
    const std::string& m_path;
    Connection m_connection;
};

} // namespace

ColumnType columnTypeOf(const jet::Column& column)
{
    switch (column.type) {
    case jet::Type::Boolean:
        return DataType::dbBoolean;
    case jet::Type::Byte:
        return DataType::dbByte;
    case jet::Type::Integer:
        return DataType::dbInteger;
    case jet::Type::Long:
        return DataType::dbLong;
    case jet::Type::Currency:
        return DataType::dbCurrency;
    case jet::Type::Single:
        return DataType::dbSingle;
    case jet::Type::Double:
        return DataType::dbDouble;
    case jet::Type::DateTime:
        return DataType::dbDate;
    case jet::Type::Text:
        return DataType::dbText;
    case jet::Type::Memo:
        return DataType::dbMemo;
    case jet::Type::Guid:
        return DataType::dbGUID;
    case jet::Type::Decimal:
        return {DataType::dbDecimal, column.precision, column.scale};
    default:
        return DataType::dbBinary;
    }
}

void convertJetFile(const jet::File& file, const std::string& path, const std::string& target)
{
    withEngineFailures(path, [&] { Conversion(file, path, target).run(); });
}

platform::LocalTime lastChange(const jet::CatalogueEntry& entry)
{
    try {
        const auto [year, month, day, hour, minute, second] = jet::calendarTime(entry.updated);
        return {year, month, day, hour, minute, second};
    } catch (const jet::Error&) {
        return {1899, 12, 30}; // the day from which the days of the file are counted
    }
}

} // namespace dao
