#pragma once

#include "fuzz/fuzzFile.h"
#include "jet/jetFile.h"

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

// The reader of the original engine's files under any bytes: everything of a file is read once. A jet::Error
// passes; any other failure, and a broken promise, comes out as an exception.
namespace jetFuzz {

// How much of a file came out. The bytes of all values together are bounded: a small file can name one long
// value in each of thousands of rows, which is slow but no fault.
struct Seen
{
    static constexpr std::size_t enough = 32U << 20U;

    std::size_t tables = 0, links = 0, rows = 0, bytes = 0;
    bool isWhole = true; // false: the reader found the file damaged
};

// Follows the table of well-formed sequences: no surrogates, nothing longer than need be.
inline bool isUtf8(std::string_view text)
{
    const auto byteAt = [&](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    for (std::size_t at = 0; at < text.size();) {
        const unsigned first = byteAt(at);
        const std::size_t length = first < 0x80   ? 1
                                   : first < 0xC2 ? 0
                                   : first < 0xE0 ? 2
                                   : first < 0xF0 ? 3
                                                  : 4;
        const unsigned second = byteAt(at + 1);
        if (length == 0 || first > 0xF4 || (first == 0xE0 && second < 0xA0) ||
            (first == 0xED && second > 0x9F) || (first == 0xF0 && second < 0x90) ||
            (first == 0xF4 && second > 0x8F))
            return false;
        for (std::size_t next = 1; next < length; ++next)
            if ((byteAt(at + next) & 0xC0U) != 0x80U)
                return false;
        at += length;
    }
    return true;
}

inline std::size_t checkedText(std::string_view text)
{
    if (!isUtf8(text))
        throw std::logic_error("a text of the reader is no UTF-8");
    return text.size();
}

// How many bytes the value brought.
inline std::size_t readValue(const jet::Rows& rows, std::size_t at, jet::Type type)
{
    switch (type) {
    case jet::Type::Boolean:
        return rows.boolean(at) ? 1 : 0;
    case jet::Type::Byte:
    case jet::Type::Integer:
    case jet::Type::Long:
        return rows.integer(at) != 0 ? 1 : 0;
    case jet::Type::Single:
        return rows.single(at) != 0 ? 1 : 0;
    case jet::Type::Double:
        return rows.number(at) != 0 ? 1 : 0;
    case jet::Type::DateTime:
        return jet::calendarTime(rows.dateTime(at)).year > 0 ? 1 : 0;
    case jet::Type::Currency:
        return (rows.currency(at) != 0 ? 1 : 0) + checkedText(rows.exactText(at));
    case jet::Type::Decimal:
    case jet::Type::Guid:
        return checkedText(rows.exactText(at));
    case jet::Type::Text:
    case jet::Type::Memo:
        return checkedText(rows.text(at));
    default:
        return rows.bytes(at).size();
    }
}

// A value that is damaged is not read further, its row and the next ones are.
inline void readRow(const jet::Table& table, const jet::Rows& rows, Seen& seen)
{
    for (std::size_t at = 0; at < table.columns.size() && seen.bytes < Seen::enough; ++at) {
        try {
            if (table.columns[at].type == jet::Type::Boolean || !rows.isNull(at))
                seen.bytes += readValue(rows, at, table.columns[at].type) + 1;
        } catch (const jet::Error&) {
            seen.isWhole = false;
        }
    }
}

inline void readTable(const jet::File& file, const std::string& name, Seen& seen)
{
    try {
        const jet::Table table = file.table(name);
        for (const auto& column : table.columns)
            checkedText(column.name);
        for (const auto& index : table.indexes)
            checkedText(index.name);
        ++seen.tables;
        for (auto rows = file.rows(table); seen.bytes < Seen::enough && rows.next(); ++seen.rows)
            readRow(table, rows, seen);
    } catch (const jet::Error&) {
        seen.isWhole = false;
    }
}

inline Seen readEverything(const std::filesystem::path& path)
{
    Seen seen;
    static_cast<void>(jet::File::hasMark(path));
    try {
        const jet::File file(path);
        static_cast<void>(file.stamp());
        for (const auto& entry : file.catalogue()) {
            seen.bytes +=
                checkedText(entry.name) + checkedText(entry.linkedFile) + checkedText(entry.linkedTable);
            if (entry.isLink())
                ++seen.links;
            else if (seen.bytes < Seen::enough)
                readTable(file, entry.name, seen);
        }
    } catch (const jet::Error&) {
        seen.isWhole = false;
    }
    return seen;
}

// `path` is a file of the caller's, overwritten.
inline Seen run(const std::filesystem::path& path, std::string_view bytes)
{
    fuzzFile::write(path, bytes);
    return readEverything(path);
}

} // namespace jetFuzz
