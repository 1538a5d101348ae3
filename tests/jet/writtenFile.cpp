#include "jet/writtenFile.h"

#include <array>
#include <cstdio>
#include <sstream>

using namespace jetWriter;

std::string fileBytes(const FileForm& form, const std::function<void(FileWriter&)>& fill)
{
    std::ostringstream stream;
    FileWriter writer(stream, form);
    fill(writer);
    writer.finish();
    return stream.str();
}

std::string fileOfRows(const FileForm& form, const Table& table, const std::vector<std::vector<Cell>>& rows)
{
    return fileBytes(form, [&](FileWriter& writer) {
        auto& written = writer.addTable(table);
        for (const auto& row : rows)
            written.add(row);
    });
}

Bytes asciiText(Version version, std::string_view text)
{
    return version == Version::Jet3 ? Bytes(text) : plainText(toUtf16(text));
}

namespace {

std::string hexadecimal(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02x",
                      static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += digits.data();
    }
    return text;
}

std::string shortest(double number, const char* format)
{
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), format, number);
    return digits.data();
}

std::string shownTime(jet::DateTime moment)
{
    const auto time = jet::calendarTime(moment);
    std::array<char, 80> digits{};
    std::snprintf(digits.data(), digits.size(), "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return digits.data();
}

std::string shownValue(const jet::Rows& rows, std::size_t at, jet::Type type)
{
    switch (type) {
    case jet::Type::Boolean:
        return rows.boolean(at) ? "true" : "false";
    case jet::Type::Byte:
    case jet::Type::Integer:
    case jet::Type::Long:
        return std::to_string(rows.integer(at));
    case jet::Type::Single:
        return shortest(static_cast<double>(rows.single(at)), "%.9g");
    case jet::Type::Double:
        return shortest(rows.number(at), "%.17g");
    case jet::Type::DateTime:
        return shownTime(rows.dateTime(at));
    case jet::Type::Currency:
    case jet::Type::Decimal:
    case jet::Type::Guid:
        return rows.exactText(at);
    case jet::Type::Text:
    case jet::Type::Memo:
        return std::string(rows.text(at));
    default:
        return hexadecimal(rows.bytes(at));
    }
}

} // namespace

std::string shownRow(const jet::Table& table, const jet::Rows& rows)
{
    std::string text;
    for (std::size_t at = 0; at < table.columns.size(); ++at) {
        const auto type = table.columns[at].type;
        const bool isThere = type == jet::Type::Boolean || !rows.isNull(at);
        text += (at == 0 ? "" : "|") + (isThere ? shownValue(rows, at, type) : "\\N");
    }
    return text;
}

Lines shownRows(const jet::File& file, const std::string& table)
{
    Lines lines;
    const jet::Table read = file.table(table);
    for (auto rows = file.rows(read); rows.next();)
        lines.push_back(shownRow(read, rows));
    return lines;
}

Lines shownFile(const jet::File& file)
{
    Lines lines;
    for (const auto& entry : file.catalogue()) {
        lines.push_back(entry.name + " " + entry.linkedFile + " " + entry.linkedTable);
        if (entry.isLink())
            continue;
        const auto rows = shownRows(file, entry.name);
        lines.insert(lines.end(), rows.begin(), rows.end());
    }
    return lines;
}
