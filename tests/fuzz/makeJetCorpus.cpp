// Writes the seeds of jetFuzzer into a folder: makeJetCorpus FOLDER
#include "tools/jetWriter.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace jetWriter;

Bytes text(Version version, std::string_view ascii)
{
    return version == Version::Jet3 ? Bytes(ascii) : compressedText(toUtf16(ascii));
}

// A column of each type, and one deleted since.
Table allTypes()
{
    Table table;
    table.name = "Types";
    for (const auto type : {Type::Boolean, Type::Byte, Type::Integer, Type::Long, Type::Currency,
                            Type::Single, Type::Double, Type::DateTime, Type::Guid, Type::Decimal})
        table.add("c" + std::to_string(table.columns.size()), type);
    table.columns.back().scale = 2;
    table.skipFixed(4);
    table.add("binary", Type::Binary, 20);
    table.add("text", Type::Text, 100);
    table.add("memo", Type::Memo);
    table.add("ole", Type::Ole);
    table.addVariable("long", Type::Long, 4);
    table.addIndex("PrimaryKey", {"c3"}, primaryKey, uniqueIndex | requiredIndex);
    table.addIndex("Two", {"text", "c6"});
    table.logicalIndexes.push_back({".rC", 2, 1, relationship});
    return table;
}

std::vector<Cell> rowOfAllTypes(Version version, const Bytes& memo, const Bytes& ole)
{
    return {Bytes(),
            byteValue(200),
            integerValue(-2),
            longValue(70000),
            currencyValue(35000),
            singleValue(0.5F),
            doubleValue(7.044),
            doubleValue(36326.354224537036),
            guidValue(1, 2, 3, "12345678"),
            decimalValue(true, 2705),
            Bytes("\x01\x02"),
            version == Version::Jet3 ? Bytes("M\xFCller")
                                     : compressedText({{true, u"A"}, {false, u"Ми"}, {true, u"B"}}),
            memo,
            ole,
            longValue(-1)};
}

void fillRows(FileWriter& writer, Version version)
{
    auto& table = writer.addTable(allTypes());
    const auto words = text(version, "a few words of a longer text");
    const auto add = [&](const Bytes& memo, const Bytes& ole) {
        table.add(rowOfAllTypes(version, memo, ole));
    };
    add(FileWriter::inlineValue(words), FileWriter::inlineValue(""));
    add(writer.singleRowValue(words), writer.singleRowValue("bytes"));
    add(writer.chainValue(words, 7), writer.chainValue(Bytes(60, 'x'), 20));
    table.add(std::vector<Cell>(table.table().columns.size()));
    const auto last = rowOfAllTypes(version, FileWriter::inlineValue(words), FileWriter::inlineValue("x"));
    table.addMoved(last);
    table.addMoved(last, 2);
    table.addDeleted(last);
    table.addGhost(last);
    table.add(last, {5});
}

// Maps of pages, links, and a definition that needs a second page.
void fillMaps(FileWriter& writer, Version version)
{
    TableForm form;
    form.map = MapKind::Pages;
    Table wide;
    wide.name = "Wide";
    const int columns = version == Version::Jet3 ? 60 : 70;
    for (int i = 0; i < columns; ++i)
        wide.add("column number " + std::to_string(i), i % 2 == 0 ? Type::Text : Type::Byte, 100);
    auto& table = writer.addTable(wide, form);
    for (const std::size_t length : {0U, 4U, 9U, 20U, 40U}) { // up to four jumps
        std::vector<Cell> cells;
        for (int i = 0; i < columns; ++i)
            cells.emplace_back(i % 2 == 0 ? Bytes(length, 'a') : byteValue(1));
        table.add(cells);
    }
    writer.addLink("kvr_velda", R"(D:\QRS\REFBASE\VELDAKVR3.MDB)", "kvr_velda");
    writer.addLink("kvr_geo_pt", R"(D:\QRS\REFBASE\VELDAKVR1.MDB)", "kvr_geo_pt");
}

void fillBytes(FileWriter& writer, Version version)
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    table.add("t", Type::Text, 50);
    auto& written = writer.addTable(table);
    for (int i = 0; i < 60; ++i)
        written.add({longValue(i), text(version, std::to_string(i))});
}

std::string fileOf(FileForm form, void (*fill)(FileWriter&, Version))
{
    std::ostringstream stream;
    FileWriter writer(stream, form);
    fill(writer, form.version);
    writer.finish();
    return stream.str();
}

void write(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        throw std::runtime_error("cannot write " + path.string());
}

void writeAll(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const auto version : {Version::Jet3, Version::Jet4}) {
        const std::string end = version == Version::Jet3 ? "-jet3.mdb" : "-jet4.mdb";
        FileForm form;
        form.version = version;
        const auto rows = fileOf(form, fillRows);
        write(folder / ("sound-rows" + end), rows);
        write(folder / ("odd-header" + end), rows.substr(0, pageSize(version)));
        write(folder / ("odd-cut" + end), rows.substr(0, 3 * pageSize(version)));
        form.catalogueMap = MapKind::Pages;
        write(folder / ("sound-maps" + end), fileOf(form, fillMaps));
        form.key = 0x1234567;
        write(folder / ("sound-encoded" + end), fileOf(form, fillBytes));
    }
    write(folder / "odd-start.mdb", fileOf({}, fillBytes).substr(0, 21));
}

} // namespace

int main(int count, char** arguments)
try {
    if (count != 2) {
        std::cerr << "usage: makeJetCorpus FOLDER\n";
        return 2;
    }
    writeAll(arguments[1]);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
