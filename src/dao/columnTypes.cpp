#include "dao/columnTypes.h"

#include "platform/ansiText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dao {

namespace {

struct Declaration
{
    DataType type;
    std::string_view name; // the whole declaration; of a Decimal what stands before its digits
};

// A name that is not SQLite's own has behind it the one that tells SQLite how to store the values. Decimals
// and moments are exact as text.
constexpr std::array declarations = {
    // clang-format off
    Declaration{DataType::dbInteger,  "SMALLINT"},
    Declaration{DataType::dbLong,     "INTEGER"},
    Declaration{DataType::dbDouble,   "DOUBLE"},
    Declaration{DataType::dbText,     "TEXT"},
    Declaration{DataType::dbBoolean,  "BOOLEAN TEXT"},
    Declaration{DataType::dbByte,     "BYTE"},
    Declaration{DataType::dbCurrency, "CURRENCY TEXT"},
    Declaration{DataType::dbSingle,   "SINGLE REAL"},
    Declaration{DataType::dbDate,     "DATETIME TEXT"},
    Declaration{DataType::dbBinary,   "BLOB"},
    Declaration{DataType::dbMemo,     "MEMO TEXT"},
    Declaration{DataType::dbGUID,     "GUID TEXT"},
    Declaration{DataType::dbDecimal,  "DECIMAL TEXT"},
}; // clang-format on

constexpr std::string_view storedAsText = "TEXT";

std::string_view nameOf(DataType type)
{
    const auto* const found =
        std::find_if(declarations.begin(), declarations.end(),
                     [type](const Declaration& declaration) { return declaration.type == type; });
    return found->name;
}

bool readNumber(std::string_view& text, std::uint8_t& number, char ending)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error != std::errc{} || length >= text.size() || text[length] != ending)
        return false;
    text.remove_prefix(length + 1);
    return true;
}

// "DECIMAL TEXT(18,4)".
bool readDecimal(std::string_view text, ColumnType& type)
{
    const auto name = nameOf(DataType::dbDecimal);
    if (text.size() <= name.size() || !platform::equalNoCase(text.substr(0, name.size()), name))
        return false;
    text.remove_prefix(name.size() + 1);
    type = DataType::dbDecimal;
    return readNumber(text, type.precision, ',') && readNumber(text, type.scale, ')') && text.empty();
}

} // namespace

ColumnType columnTypeOf(const char* declaration)
{
    const std::string_view text = declaration != nullptr ? declaration : "";
    for (const auto& [type, name] : declarations) {
        if (type != DataType::dbDecimal && platform::equalNoCase(text, name))
            return type;
    }
    ColumnType decimal = DataType::dbDecimal;
    return readDecimal(text, decimal) ? decimal : DataType::dbText;
}

std::string declarationOf(const ColumnType& type)
{
    std::string declaration(nameOf(type.type));
    const bool isText = declaration.ends_with(storedAsText);
    if (type.type == DataType::dbDecimal)
        declaration += "(" + std::to_string(type.precision) + "," + std::to_string(type.scale) + ")";
    return isText ? declaration + " COLLATE NOCASE" : declaration;
}

bool holdsNumbers(DataType type)
{
    switch (type) {
    case DataType::dbInteger:
    case DataType::dbLong:
    case DataType::dbDouble:
    case DataType::dbByte:
    case DataType::dbCurrency:
    case DataType::dbSingle:
    case DataType::dbDecimal:
        return true;
    default:
        return false;
    }
}

} // namespace dao
