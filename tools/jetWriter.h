#pragma once

#include "tools/jetTable.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

// Writes a file of the original engine page by page, in memory that does not grow with the rows. The stream
// has to take positions. What was given wrong is a std::logic_error; what the stream can't take is in its
// state.
namespace jetWriter {

struct RowPointer
{
    std::uint32_t page = 0;
    std::uint8_t row = 0;
    [[nodiscard]] std::uint32_t packed() const { return page << 8U | row; }
};

inline constexpr std::uint16_t skippedRow = 0x8000;
inline constexpr std::uint16_t movedRow = 0x4000;

enum class MapKind : std::uint8_t
{
    Shortest, // kind 0 where it reaches
    Bitmap,   // kind 0
    Pages     // kind 1
};

// Pages that wait until they are full or the file is finished.
class PageFile
{
public:
    PageFile(std::ostream& out, Version version, std::uint32_t key)
        : m_out(out), m_version(version), m_key(key)
    {}

    [[nodiscard]] Version version() const { return m_version; }
    [[nodiscard]] std::size_t size() const { return pageSize(m_version); }
    [[nodiscard]] std::uint32_t allocate() { return m_next++; }
    [[nodiscard]] std::uint32_t count() const { return m_next; }
    void write(std::uint32_t number, Bytes page);

private:
    void seek(std::uint32_t number);

    std::ostream& m_out;
    Version m_version;
    std::uint32_t m_key;
    std::uint32_t m_next = 0;
    std::uint32_t m_position = 0, m_end = 0; // of the stream, in pages
};

// A page of rows on its way.
class DataPage
{
public:
    DataPage(PageFile& file, std::uint32_t owner) : m_file(file), m_owner(owner) {}
    DataPage(const DataPage&) = delete;
    DataPage& operator=(const DataPage&) = delete;
    ~DataPage() = default;

    // Goes to a new page where the row does not fit any more.
    RowPointer add(std::string_view row, std::uint16_t flags = 0);
    void flush();
    [[nodiscard]] const std::vector<std::uint32_t>& pages() const { return m_pages; }
    // The longest row.
    [[nodiscard]] std::size_t capacity() const { return m_file.size() - head() - 2; }

private:
    [[nodiscard]] std::size_t head() const { return m_file.version() == Version::Jet3 ? 10 : 14; }
    void begin();

    PageFile& m_file;
    std::uint32_t m_owner;
    std::vector<std::uint32_t> m_pages;
    Bytes m_page; // empty: none begun
    std::size_t m_rows = 0, m_start = 0;
};

struct TableForm
{
    MapKind map = MapKind::Shortest;
    std::int32_t flags = 0; // in the catalogue
    double created = 35000.5, updated = 35001.25;
    std::optional<std::uint32_t> rowCount; // another one than that of the rows
};

class TableWriter
{
public:
    TableWriter(PageFile& file, Table table, const TableForm& form, std::uint32_t definitionPage);

    RowPointer add(const std::vector<Cell>& cells, const RowForm& form = {});
    // The row lives on a page of moved rows; its stub stands in its place. More than one hop: the stub points
    // to a stub there.
    RowPointer addMoved(const std::vector<Cell>& cells, int hops = 1);
    RowPointer addDeleted(const std::vector<Cell>& cells);
    // What a moved row leaves behind when its stub is gone.
    RowPointer addGhost(const std::vector<Cell>& cells);
    RowPointer addBytes(std::string_view row, std::uint16_t flags = 0);
    RowPointer addBytesElsewhere(std::string_view row, std::uint16_t flags = 0);

    [[nodiscard]] const Table& table() const { return m_table; }
    [[nodiscard]] const TableForm& form() const { return m_form; }
    [[nodiscard]] std::uint32_t rowCount() const { return m_rowCount; }
    // Rising, without those of other writers of the same table.
    [[nodiscard]] std::vector<std::uint32_t> dataPages() const;
    // The first one is that of the catalogue; the others are known when the file is finished.
    [[nodiscard]] const std::vector<std::uint32_t>& definitionPages() const { return m_definitionPages; }
    [[nodiscard]] const Places& places() const { return m_places; }

    struct MapMaker; // what the file's writer gives to finish a table
    void finish(MapMaker& maps);

private:
    void writeDefinition();

    PageFile& m_file;
    Table m_table;
    TableForm m_form;
    DataPage m_page, m_movedPage;
    std::vector<std::uint32_t> m_definitionPages;
    Places m_places;
    std::uint32_t m_rowCount = 0;
};

// A row of the catalogue.
struct Object
{
    std::int32_t id = 0, parent = 0x0F000001;
    std::string name; // UTF-8; in Jet 3 bytes of the file's code page
    std::int16_t type = 1;
    double created = 35000.5, updated = 35001.25;
    std::int32_t flags = 0;
    std::optional<std::string> database, foreignName;
};

struct FileForm
{
    Version version = Version::Jet3;
    std::uint16_t codePage = 1252;
    std::uint32_t key = 0; // not 0: encoded
    std::uint16_t commits = 0x0101;
    MapKind catalogueMap = MapKind::Shortest;
};

class FileWriter
{
public:
    FileWriter(std::ostream& out, const FileForm& form);
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    // Lives as long as the file's writer.
    TableWriter& addTable(const Table& table, const TableForm& form = {});
    void addLink(std::string_view name, std::string_view path, std::string_view foreignName,
                 double updated = 35001.25);
    void addObject(const Object& object);

    // Long values: the cell that names them.
    [[nodiscard]] static Bytes inlineValue(std::string_view value);
    Bytes singleRowValue(std::string_view value);
    // In parts of as many bytes; 0: as many as a page takes.
    Bytes chainValue(std::string_view value, std::size_t partSize = 0);
    RowPointer addLongRow(std::string_view row, std::uint16_t flags = 0);
    // A header of anyone's choice.
    [[nodiscard]] static Bytes longValueHeader(std::uint32_t lengthAndFlags, std::uint32_t pointer);

    // Nothing may be added afterwards; a second call does nothing.
    void finish();

    [[nodiscard]] std::uint32_t pageCount() const;
    [[nodiscard]] const TableWriter& catalogue() const;
    [[nodiscard]] std::vector<std::uint32_t> longValuePages() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace jetWriter
