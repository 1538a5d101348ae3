#include "jet/victim.h"

#include "fuzz/jetFuzz.h"

using namespace jetWriter;

namespace {

constexpr std::size_t textLength = 4; // of the text before each memo, in bytes

Table threeColumns()
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    table.add("t", Type::Text, 100);
    table.add("m", Type::Memo);
    table.addIndex("PrimaryKey", {"n"}, primaryKey, uniqueIndex | requiredIndex);
    return table;
}

Table wideTable()
{
    Table table;
    table.name = "Wide";
    for (int i = 0; i < 100; ++i)
        table.add("a column with a long name " + std::to_string(i), Type::Long);
    return table;
}

RowPointer pointerIn(std::string_view bytes, std::size_t at)
{
    return {static_cast<std::uint32_t>(numberAt(bytes, at + 1, 3)),
            static_cast<std::uint8_t>(numberAt(bytes, at, 1))};
}

} // namespace

Victim::Victim(Version ofVersion) : version(ofVersion)
{
    FileForm form;
    form.version = version;
    bytes = fileBytes(form, [&](FileWriter& writer) {
        auto& table = writer.addTable(threeColumns());
        auto& wide = writer.addTable(wideTable());
        const auto text = asciiText(version, version == Version::Jet3 ? "abcd" : "ab");
        plain = table.add({longValue(1), text, std::nullopt});
        stub = table.addMoved({longValue(2), text, std::nullopt});
        inlineMemo = table.add({longValue(3), text, FileWriter::inlineValue("inline")});
        singleMemo = table.add({longValue(4), text, writer.singleRowValue("single row")});
        chainMemo = table.add({longValue(5), text, writer.chainValue("a chain of parts", 10)});
        otherPage = wide.add(std::vector<Cell>(100, longValue(1))).page;
        writer.addLink("Link", "C:\\A.MDB", "T");
        writer.finish();
        definition = table.definitionPages().at(0);
        map = table.places().map;
        wideDefinition = wide.definitionPages().at(0);
        wideContinuation = wide.definitionPages().at(1);
        catalogueRow = {writer.catalogue().dataPages().at(0), 5}; // behind five of the system
    });
    dataPage = plain.page;
    target = pointerIn(bytes, rowAt(stub));
    singleRow = pointerIn(bytes, headerAt(singleMemo) + 4);
    chainFirst = pointerIn(bytes, headerAt(chainMemo) + 4);
    chainLast = pointerIn(bytes, rowAt(chainFirst));
}

std::size_t Victim::entryAt(RowPointer row) const
{
    return pageAt(row.page) + (version == Version::Jet3 ? 10 : 14) + 2 * std::size_t{row.row};
}

std::size_t Victim::rowAt(RowPointer row) const
{
    return pageAt(row.page) + (numberAt(bytes, entryAt(row), 2) & 0x1FFFU);
}

std::size_t Victim::rowEnd(RowPointer row) const
{
    if (row.row == 0)
        return pageAt(row.page + 1);
    return rowAt({row.page, static_cast<std::uint8_t>(row.row - 1)});
}

std::size_t Victim::mapAt() const
{
    return rowAt({map >> 8U, static_cast<std::uint8_t>(map & 0xFFU)});
}

std::size_t Victim::definitionAt(std::size_t jet3, std::size_t jet4) const
{
    return pageAt(definition) + (version == Version::Jet3 ? jet3 : jet4);
}

std::size_t Victim::columnAt(std::size_t column, std::size_t jet3, std::size_t jet4) const
{
    return definitionAt(43 + 8 + 18 * column + jet3, 63 + 12 + 25 * column + jet4);
}

std::size_t Victim::headerAt(RowPointer row) const
{
    return rowAt(row) + (version == Version::Jet3 ? 1 : 2) + 4 + textLength;
}

std::uint32_t Victim::pageCount() const
{
    return static_cast<std::uint32_t>(bytes.size() / pageSize(version));
}

void Victim::shorten(RowPointer row, std::size_t length)
{
    const auto flags = numberAt(bytes, entryAt(row), 2) & 0xE000U;
    put(entryAt(row), (rowEnd(row) - pageAt(row.page) - length) | flags, 2);
}

std::optional<jet::Error> firstError(const std::string& bytes)
{
    const TemporaryFolder folder;
    try {
        const jet::File file(folder.write("victim.mdb", bytes));
        for (const auto& entry : file.catalogue()) {
            if (entry.isLink())
                continue;
            const auto table = file.table(entry.name);
            for (auto rows = file.rows(table); rows.next();)
                for (std::size_t at = 0; at < table.columns.size(); ++at)
                    if (table.columns[at].type == jet::Type::Boolean || !rows.isNull(at))
                        jetFuzz::readValue(rows, at, table.columns[at].type);
        }
        return std::nullopt;
    } catch (const jet::Error& error) {
        return error;
    }
}
