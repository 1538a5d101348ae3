#include "support/engineText.h"

#include "platform/ansiText.h"

#include <array>
#include <charconv>

namespace {

void appendEscaped(std::string& text, std::string_view value)
{
    constexpr std::string_view meant = "\t\r\n\\";
    constexpr std::string_view written = "trn\\";
    for (const char letter : value) {
        const auto at = meant.find(letter);
        if (at == std::string_view::npos)
            text += letter;
        else
            (text += '\\') += written[at];
    }
}

std::string numberText(double number)
{
    std::array<char, 400> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr;
    return {digits.data(), end};
}

std::string momentText(std::string moment)
{
    constexpr std::size_t endOfDay = 10;
    if (moment.size() == endOfDay)
        return moment + "T00:00:00";
    moment.at(endOfDay) = 'T';
    return moment;
}

std::string withDecimals(std::string number, std::size_t count)
{
    const auto point = number.find('.');
    const auto there = point == std::string::npos ? 0 : number.size() - point - 1;
    if (point == std::string::npos && count > 0)
        number += '.';
    return number.append(count > there ? count - there : 0, '0');
}

std::string valueText(const dao::Value& value, dao::DataType type, std::size_t decimals)
{
    if (const auto* number = std::get_if<double>(&value.variant()))
        return numberText(*number);
    switch (type) {
    case dao::DataType::dbBoolean:
        return platform::toLower(value.text());
    case dao::DataType::dbDate:
        return momentText(value.text());
    case dao::DataType::dbDecimal:
        return withDecimals(value.text(), decimals);
    default:
        return value.text();
    }
}

} // namespace

std::string engineText(const dao::Ref<dao::Recordset>& rows,
                       const std::map<std::string, std::size_t>& decimals)
{
    const auto snapshot = rows->snapshot();
    const auto columns = snapshot->columnCount();
    const auto endOf = [&](std::size_t column) { return column + 1 == columns ? '\n' : '\t'; };
    std::string text;
    for (std::size_t column = 0; column < columns; ++column) {
        appendEscaped(text, snapshot->fieldName(column));
        text += endOf(column);
    }
    for (std::size_t row = 0; row < snapshot->rowCount(); ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            const auto value = snapshot->value(row, column);
            const auto places = decimals.find(snapshot->fieldName(column));
            if (value.isNull())
                text += "\\N";
            else
                appendEscaped(text, valueText(value, snapshot->fieldType(column),
                                              places == decimals.end() ? 0 : places->second));
            text += endOf(column);
        }
    }
    return text;
}
