#include "tools/jetWriter.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace jetWriter {

namespace {

constexpr std::uint32_t longValueOwner = 0x4C41564C;
constexpr std::uint32_t inlineFlag = 0x80000000;
constexpr std::uint32_t singleFlag = 0x40000000;
constexpr std::uint32_t cataloguePage = 2;

Bytes headerPage(const FileForm& form)
{
    Bytes page(pageSize(form.version), '\0');
    putNumber(page, 0, 0x100, 4);
    page.replace(4, 15, "Standard Jet DB");
    putNumber(page, 0x14, form.version == Version::Jet3 ? 0 : 1, 1);
    putNumber(page, 0x3A, 0x409, 2);
    putNumber(page, 0x3C, form.codePage, 2);
    putNumber(page, 0x3E, form.key, 4);
    if (form.version == Version::Jet4)
        putNumber(page, 0x42, 0x1E25, 2); // what is not zero there is no password
    codeHeader(page, form.version);
    for (std::size_t at = page.size() - 512; at < page.size(); at += 2)
        putNumber(page, at, 0x100, 2);
    putNumber(page, page.size() - 512, form.commits, 2);
    return page;
}

Table catalogueTable(Version version)
{
    constexpr std::uint16_t name = 255;
    const auto textLength = static_cast<std::uint16_t>(version == Version::Jet3 ? name : 2 * name);
    Table table;
    table.name = "MSysObjects";
    table.add("Id", Type::Long);
    table.add("ParentId", Type::Long);
    table.add("Name", Type::Text, textLength);
    table.add("Type", Type::Integer);
    table.add("DateCreate", Type::DateTime);
    table.add("DateUpdate", Type::DateTime);
    table.add("Owner", Type::Binary, textLength);
    table.add("Flags", Type::Long);
    table.add("Database", Type::Memo);
    table.add("Connect", Type::Memo);
    table.add("ForeignName", Type::Text, textLength);
    table.add("RmtInfoShort", Type::Binary, textLength);
    for (const char* hidden : {"RmtInfoLong", "Lv", "LvProp", "LvModule", "LvExtra"})
        table.add(hidden, Type::Ole);
    for (auto& column : table.columns)
        column.flags = 0x12;
    table.addIndex("ParentIdName", {"ParentId", "Name"}, 0, uniqueIndex);
    table.addIndex("Id", {"Id"}, primaryKey, uniqueIndex | requiredIndex);
    if (version == Version::Jet4) // the entries go by the alphabet there, which the ids do not
        std::sort(table.columns.begin(), table.columns.end(),
                  [](const Column& a, const Column& b) { return a.name < b.name; });
    return table;
}

// Text of the catalogue.
Bytes textBytes(Version version, const std::string& text)
{
    if (version == Version::Jet3)
        return text;
    const auto wide = toUtf16(text);
    const bool isNarrow =
        std::all_of(wide.begin(), wide.end(), [](char16_t unit) { return unit > 0 && unit < 0x100; });
    return isNarrow && wide.size() > 2 ? compressedText(wide) : plainText(wide);
}

Cell cellOf(Version version, const Object& object, const std::string& column)
{
    if (column == "Id")
        return longValue(object.id);
    if (column == "ParentId")
        return longValue(object.parent);
    if (column == "Name")
        return textBytes(version, object.name);
    if (column == "Type")
        return integerValue(object.type);
    if (column == "DateCreate")
        return doubleValue(object.created);
    if (column == "DateUpdate")
        return doubleValue(object.updated);
    if (column == "Flags")
        return longValue(object.flags);
    if (column == "Owner")
        return Bytes("\x02\x01");
    if (column == "Database" && object.database)
        return FileWriter::inlineValue(textBytes(version, *object.database));
    if (column == "ForeignName" && object.foreignName)
        return textBytes(version, *object.foreignName);
    // Hidden content that points nowhere: nobody has to read it.
    if (column == "LvProp")
        return FileWriter::longValueHeader(singleFlag | 100, 0xFFFFFF07);
    return std::nullopt;
}

Object systemObject(std::int32_t id, std::int32_t parent, const char* name, std::int16_t type,
                    std::uint32_t flags)
{
    Object object;
    object.id = id;
    object.parent = parent;
    object.name = name;
    object.type = type;
    object.flags = static_cast<std::int32_t>(flags);
    return object;
}

void setBit(Bytes& bytes, std::size_t at, std::size_t bit)
{
    auto byte = static_cast<unsigned char>(bytes.at(at + bit / 8));
    byte = static_cast<unsigned char>(byte | 1U << bit % 8);
    bytes.at(at + bit / 8) = static_cast<char>(byte);
}

} // namespace

void PageFile::seek(std::uint32_t number)
{
    if (number > m_end) { // not every stream goes beyond its end
        seek(m_end);
        for (; m_end < number; ++m_end)
            m_out << Bytes(size(), '\0');
        m_position = m_end;
    }
    if (number != m_position)
        m_out.seekp(static_cast<std::streamoff>(number * std::uint64_t{size()}));
    m_position = number;
}

void PageFile::write(std::uint32_t number, Bytes page)
{
    page.resize(size(), '\0');
    if (m_key != 0 && number != 0)
        page = coded(page, m_key ^ number);
    seek(number);
    m_out.write(page.data(), static_cast<std::streamsize>(page.size()));
    m_end = std::max(m_end, ++m_position);
}

void DataPage::begin()
{
    m_pages.push_back(m_file.allocate());
    m_page.assign(m_file.size(), '\0');
    putNumber(m_page, 0, 0x101, 2);
    putNumber(m_page, 4, m_owner, 4);
    m_rows = 0;
    m_start = m_file.size();
}

RowPointer DataPage::add(std::string_view row, std::uint16_t flags)
{
    if (row.size() > capacity())
        throw std::logic_error("a row is longer than a page");
    if (!m_page.empty() && (head() + 2 * (m_rows + 1) + row.size() > m_start || m_rows == 255))
        flush();
    if (m_page.empty())
        begin();
    m_start -= row.size();
    m_page.replace(m_start, row.size(), row);
    putNumber(m_page, head() + 2 * m_rows, m_start | flags, 2);
    return {m_pages.back(), static_cast<std::uint8_t>(m_rows++)};
}

void DataPage::flush()
{
    if (m_page.empty())
        return;
    putNumber(m_page, 2, m_start - head() - 2 * m_rows, 2);
    putNumber(m_page, head() - 2, m_rows, 2);
    m_file.write(m_pages.back(), std::move(m_page));
    m_page.clear();
}

// Usage maps and the empty leaf that all indexes share.
struct TableWriter::MapMaker
{
    PageFile& file;
    DataPage page{file, 0};
    std::uint32_t leaf = 0;

    [[nodiscard]] std::size_t rowSize() const { return file.version() == Version::Jet3 ? 133 : 69; }

    RowPointer add(const std::vector<std::uint32_t>& pages, MapKind kind)
    {
        const std::size_t reach = 8 * (rowSize() - 5);
        const std::uint32_t first = pages.empty() ? 0 : pages.front() / 8 * 8;
        const bool fits = pages.empty() || pages.back() - first < reach;
        if (kind == MapKind::Bitmap && !fits)
            throw std::logic_error("the bitmap does not reach the last page");
        return page.add(fits && kind != MapKind::Pages ? bitmap(pages, first) : pageMap(pages));
    }

    [[nodiscard]] Bytes bitmap(const std::vector<std::uint32_t>& pages, std::uint32_t first) const
    {
        Bytes row(rowSize(), '\0');
        putNumber(row, 1, first, 4);
        for (const auto number : pages)
            setBit(row, 5, number - first);
        return row;
    }

    Bytes pageMap(const std::vector<std::uint32_t>& pages)
    {
        const std::size_t reach = 8 * (file.size() - 4);
        Bytes row(rowSize(), '\0');
        putNumber(row, 0, 1, 1);
        for (std::size_t at = 0; at < pages.size();) {
            const std::size_t part = pages.at(at) / reach;
            Bytes map(file.size(), '\0');
            putNumber(map, 0, 0x105, 2);
            for (; at < pages.size() && pages.at(at) / reach == part; ++at)
                setBit(map, 4, pages.at(at) % reach);
            const auto mapPage = file.allocate();
            putNumber(row, 1 + 4 * part, mapPage, 4);
            file.write(mapPage, std::move(map));
        }
        return row;
    }

    std::uint32_t emptyLeaf()
    {
        if (leaf == 0) {
            leaf = file.allocate();
            file.write(leaf, Bytes("\x04\x01", 2));
        }
        return leaf;
    }
};

TableWriter::TableWriter(PageFile& file, Table table, const TableForm& form, std::uint32_t definitionPage)
    : m_file(file),
      m_table(std::move(table)),
      m_form(form),
      m_page(file, definitionPage),
      m_movedPage(file, definitionPage),
      m_definitionPages{definitionPage}
{}

RowPointer TableWriter::add(const std::vector<Cell>& cells, const RowForm& form)
{
    ++m_rowCount;
    return m_page.add(rowBytes(m_file.version(), m_table, cells, form));
}

RowPointer TableWriter::addMoved(const std::vector<Cell>& cells, int hops)
{
    ++m_rowCount;
    auto target = m_movedPage.add(rowBytes(m_file.version(), m_table, cells), skippedRow);
    for (int hop = 1; hop < hops; ++hop)
        target = m_movedPage.add(number(target.packed(), 4), skippedRow | movedRow);
    // The rest of a stub is what the row was before.
    return m_page.add(number(target.packed(), 4) + "old content", movedRow);
}

RowPointer TableWriter::addDeleted(const std::vector<Cell>& cells)
{
    return m_page.add(rowBytes(m_file.version(), m_table, cells), skippedRow | movedRow);
}

RowPointer TableWriter::addGhost(const std::vector<Cell>& cells)
{
    return m_page.add(rowBytes(m_file.version(), m_table, cells), skippedRow);
}

RowPointer TableWriter::addBytes(std::string_view row, std::uint16_t flags)
{
    m_rowCount += (flags & skippedRow) == 0 ? 1 : 0;
    return m_page.add(row, flags);
}

RowPointer TableWriter::addBytesElsewhere(std::string_view row, std::uint16_t flags)
{
    return m_movedPage.add(row, flags);
}

std::vector<std::uint32_t> TableWriter::dataPages() const
{
    std::vector<std::uint32_t> pages;
    std::merge(m_page.pages().begin(), m_page.pages().end(), m_movedPage.pages().begin(),
               m_movedPage.pages().end(), std::back_inserter(pages));
    return pages;
}

void TableWriter::finish(MapMaker& maps)
{
    m_page.flush();
    m_movedPage.flush();
    m_places.rowCount = m_form.rowCount.value_or(m_rowCount);
    m_places.map = maps.add(dataPages(), m_form.map).packed();
    m_places.freeMap = maps.add({}, MapKind::Bitmap).packed();
    if (!m_table.realIndexes.empty())
        m_places.indexRoot = maps.emptyLeaf();
    writeDefinition();
}

void TableWriter::writeDefinition()
{
    const Bytes bytes = definitionBytes(m_file.version(), m_table, m_places);
    const std::size_t part = m_file.size() - 8;
    for (std::size_t at = m_file.size(); at < bytes.size(); at += part)
        m_definitionPages.push_back(m_file.allocate());
    for (std::size_t i = 0; i < m_definitionPages.size(); ++i) {
        const std::uint32_t next = i + 1 < m_definitionPages.size() ? m_definitionPages.at(i + 1) : 0;
        Bytes page = i == 0 ? bytes.substr(0, m_file.size())
                            : bytes.substr(0, 8) + bytes.substr(m_file.size() + (i - 1) * part, part);
        putNumber(page, 4, next, 4);
        m_file.write(m_definitionPages.at(i), std::move(page));
    }
}

struct FileWriter::State
{
    State(std::ostream& out, const FileForm& fileForm)
        : form(fileForm), pages(out, fileForm.version, fileForm.key), longValues(pages, longValueOwner)
    {}

    FileForm form;
    PageFile pages;
    DataPage longValues;
    std::vector<std::unique_ptr<TableWriter>> tables;
    std::unique_ptr<TableWriter> catalogue;
    bool isFinished = false;
};

FileWriter::FileWriter(std::ostream& out, const FileForm& form) : m_state(std::make_unique<State>(out, form))
{
    auto& pages = m_state->pages;
    pages.write(pages.allocate(), headerPage(form));
    DataPage freePages(pages, 1);
    freePages.add(Bytes(form.version == Version::Jet3 ? 133 : 69, '\0'));
    freePages.flush();
    TableForm catalogueForm;
    catalogueForm.map = form.catalogueMap;
    m_state->catalogue =
        std::make_unique<TableWriter>(pages, catalogueTable(form.version), catalogueForm, pages.allocate());
    addObject(systemObject(0x0F000001, 0x0F000000, "Tables", 3, 0x80000000));
    addObject(systemObject(0x0F000002, 0x0F000000, "Databases", 3, 0x80000000));
    addObject(systemObject(0x10000000, 0x0F000002, "MSysDb", 2, 0x80000000));
    addObject(systemObject(cataloguePage, 0x0F000001, "MSysObjects", 1, 0x80000000));
    addObject(systemObject(-1000, 0x0F000001, "Query1", 5, 0));
}

FileWriter::~FileWriter() = default;

TableWriter& FileWriter::addTable(const Table& table, const TableForm& form)
{
    const auto definitionPage = m_state->pages.allocate();
    m_state->tables.push_back(std::make_unique<TableWriter>(m_state->pages, table, form, definitionPage));
    Object object = systemObject(static_cast<std::int32_t>(definitionPage), 0x0F000001, table.name.c_str(), 1,
                                 static_cast<std::uint32_t>(form.flags));
    object.created = form.created;
    object.updated = form.updated;
    addObject(object);
    return *m_state->tables.back();
}

void FileWriter::addLink(std::string_view name, std::string_view path, std::string_view foreignName,
                         double updated)
{
    Object link = systemObject(-0x7FFFFFF6, 0x0F000001, "", 6, 0x200000);
    link.name = name;
    link.updated = updated;
    link.database = path;
    link.foreignName = foreignName;
    addObject(link);
}

void FileWriter::addObject(const Object& object)
{
    std::vector<Cell> cells;
    for (const auto& column : m_state->catalogue->table().columns)
        cells.push_back(cellOf(m_state->form.version, object, column.name));
    m_state->catalogue->add(cells);
}

Bytes FileWriter::longValueHeader(std::uint32_t lengthAndFlags, std::uint32_t pointer)
{
    return number(lengthAndFlags, 4) + number(pointer, 4) + number(0x5A5A5A5A, 4);
}

Bytes FileWriter::inlineValue(std::string_view value)
{
    return longValueHeader(inlineFlag | static_cast<std::uint32_t>(value.size()), 0) + Bytes(value);
}

Bytes FileWriter::singleRowValue(std::string_view value)
{
    return longValueHeader(singleFlag | static_cast<std::uint32_t>(value.size()),
                           m_state->longValues.add(value).packed());
}

Bytes FileWriter::chainValue(std::string_view value, std::size_t partSize)
{
    const std::size_t most = m_state->longValues.capacity() - 4;
    const std::size_t size = partSize == 0 ? most : std::min(partSize, most);
    std::uint32_t next = 0;
    for (std::size_t part = std::max<std::size_t>(1, (value.size() + size - 1) / size); part-- > 0;)
        next = addLongRow(number(next, 4) + Bytes(value.substr(part * size, size))).packed();
    return longValueHeader(static_cast<std::uint32_t>(value.size()), next);
}

RowPointer FileWriter::addLongRow(std::string_view row, std::uint16_t flags)
{
    return m_state->longValues.add(row, flags);
}

void FileWriter::finish()
{
    if (std::exchange(m_state->isFinished, true))
        return;
    m_state->longValues.flush();
    TableWriter::MapMaker maps{m_state->pages};
    for (const auto& table : m_state->tables)
        table->finish(maps);
    m_state->catalogue->finish(maps);
    maps.page.flush();
    // What was allocated last stands last, so that the file has all its pages.
    m_state->pages.write(m_state->pages.allocate(), Bytes("\x04\x01", 2));
}

std::uint32_t FileWriter::pageCount() const
{
    return m_state->pages.count();
}

const TableWriter& FileWriter::catalogue() const
{
    return *m_state->catalogue;
}

std::vector<std::uint32_t> FileWriter::longValuePages() const
{
    return m_state->longValues.pages();
}

} // namespace jetWriter
