#include "support/engineText.h"

#include "platform/ansiText.h"
#include "support/tsvText.h"

using tsv::appendEscaped;

namespace {

std::string momentText(std::string moment)
{
    constexpr std::size_t endOfDay = 10;
    if (moment.size() == endOfDay)
        return moment + "T00:00:00";
    moment.at(endOfDay) = 'T';
    return moment;
}

std::string valueText(const dao::Value& value, dao::DataType type, std::size_t decimals)
{
    if (const auto* number = std::get_if<double>(&value.variant()))
        return tsv::shortest(*number);
    switch (type) {
    case dao::DataType::dbBoolean:
        return platform::toLower(value.text());
    case dao::DataType::dbDate:
        return momentText(value.text());
    case dao::DataType::dbDecimal:
        return tsv::padded(value.text(), decimals);
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
