#include "support/jetText.h"

#include "support/tsvText.h"

#include <array>
#include <cstdio>

using tsv::appendEscaped;
using tsv::padded;
using tsv::shortest;

namespace {

std::string dateText(jet::DateTime moment)
{
    const auto time = jet::calendarTime(moment);
    std::array<char, 80> text{};
    const auto size = std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", time.year,
                                    time.month, time.day, time.hour, time.minute, time.second);
    return {text.data(), static_cast<std::size_t>(size)};
}

std::string hexText(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char letter : bytes) {
        const auto byte = static_cast<unsigned char>(letter);
        (text += digits[byte >> 4U]) += digits[byte & 0xFU];
    }
    return text;
}

std::string textOf(const jet::Rows& rows, const jet::Column& definition, std::size_t column)
{
    switch (definition.type) {
    case jet::Type::Boolean:
        return rows.boolean(column) ? "true" : "false";
    case jet::Type::Byte:
    case jet::Type::Integer:
    case jet::Type::Long:
        return std::to_string(rows.integer(column));
    case jet::Type::Single:
        return shortest(rows.single(column));
    case jet::Type::Double:
        return shortest(rows.number(column));
    case jet::Type::DateTime:
        return dateText(rows.dateTime(column));
    case jet::Type::Text:
    case jet::Type::Memo:
        return std::string(rows.text(column));
    case jet::Type::Decimal:
        return padded(rows.exactText(column), definition.scale);
    case jet::Type::Currency:
    case jet::Type::Guid:
        return rows.exactText(column);
    default:
        return hexText(rows.bytes(column));
    }
}

} // namespace

std::string jetValueText(const jet::Rows& rows, const jet::Table& table, std::size_t column)
{
    if (rows.isNull(column))
        return "\\N";
    std::string text;
    appendEscaped(text, textOf(rows, table.columns.at(column), column));
    return text;
}

std::string jetTableText(const jet::File& file, std::string_view name)
{
    const auto table = file.table(name);
    std::string text;
    const auto endOf = [&](std::size_t column) { return column + 1 == table.columns.size() ? '\n' : '\t'; };
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        appendEscaped(text, table.columns[i].name);
        text += endOf(i);
    }
    auto rows = file.rows(table);
    while (rows.next()) {
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            (text += jetValueText(rows, table, i)) += endOf(i);
    }
    return text;
}
