#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// A reader of database files of the original engine, versions 3 and 4. Files are not trusted: every access is
// checked, every chain has a limit, and whatever is wrong is a jet::Error. Nothing is ever written. Text is
// UTF-8.
namespace jet {

enum class Fault : std::uint8_t
{
    Missing,      // no such file
    NoPermission, // it may not be read
    Disk,         // reading failed
    Unrecognized, // no file of these versions: another kind, or a newer one
    Damaged,      // the text names the page
    NoSuchTable,
};

class Error : public std::runtime_error
{
public:
    Error(Fault fault, const std::string& text) : std::runtime_error(text), m_fault(fault) {}
    [[nodiscard]] Fault fault() const { return m_fault; }

private:
    Fault m_fault;
};

enum class Version : std::uint8_t
{
    Jet3,
    Jet4
};

// As stored. A column of another type gives its raw bytes.
enum class Type : std::uint8_t
{
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    DateTime = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

// Days since 1899-12-30 with the time of day as their fraction, which counts forwards below 0 too.
struct DateTime
{
    double days = 0;
    bool operator==(const DateTime&) const = default;
};

struct CalendarTime
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    bool operator==(const CalendarTime&) const = default;
};

// Rounded to the second. Throws Damaged for what lies outside the years 100 to 9999.
[[nodiscard]] CalendarTime calendarTime(DateTime moment);

struct Column
{
    std::string name;
    Type type = Type::Text;
    std::uint8_t precision = 0, scale = 0; // of a Decimal

    // Where its value stands in a row.
    bool isFixed = false;
    std::uint16_t id = 0, variableIndex = 0, fixedOffset = 0, length = 0, codePage = 0;
};

struct Index
{
    std::string name;
    std::vector<std::string> columns; // in the order of the key
    bool isPrimary = false, isUnique = false;
};

struct Table
{
    std::string name;
    std::vector<Column> columns; // in the order in which they are shown
    std::vector<Index> indexes;  // those that a user made, by their names; no relationships
    std::uint32_t rowCount = 0;  // a hint
    std::uint32_t definitionPage = 0, mapPointer = 0;
};

// A user's table, or a link to a table of another file.
struct CatalogueEntry
{
    std::string name;
    DateTime created, updated;
    std::uint32_t definitionPage = 0; // 0 for a link
    std::string linkedFile;           // as stored: mostly a path of another machine; empty for a table
    std::string linkedTable;

    [[nodiscard]] bool isLink() const { return definitionPage == 0; }
};

// By what a changed file is told from an unchanged one.
struct Stamp
{
    std::uint64_t size = 0;
    std::int64_t modified = 0;                   // of the host's clock of files, in nanoseconds
    std::array<std::uint8_t, 512> commitBytes{}; // change when something is committed
    bool operator==(const Stamp&) const = default;
};

class Rows;

// A file in use. It may be read, written and replaced by others meanwhile: whatever is found wrong then is an
// error after a second look.
class File
{
public:
    explicit File(const std::filesystem::path& path);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File(File&&) noexcept;
    File& operator=(File&&) noexcept;

    // Whether the file begins as one of these versions or of a newer one does; false too when it can't be
    // read.
    [[nodiscard]] static bool hasMark(const std::filesystem::path& path);

    [[nodiscard]] Version version() const;
    [[nodiscard]] std::uint64_t size() const;
    // Read anew; of the file that was opened, not of one that took its place since.
    [[nodiscard]] Stamp stamp() const;
    // Users' tables and links, in the order of the catalogue.
    [[nodiscard]] const std::vector<CatalogueEntry>& catalogue() const;
    // Names are not case-sensitive. Throws NoSuchTable, for a link too.
    [[nodiscard]] Table table(std::string_view name) const;
    // In the order of their first place. The table must outlive the rows, and the file too.
    [[nodiscard]] Rows rows(const Table& table) const;

    struct State;

private:
    std::unique_ptr<State> m_state;
};

// The rows of a table, one after another. A value is asked for by the number of its column, from 0; asking
// for a Null, or by another type than the column's, is a mistake of the caller. What is asked for is decoded
// then.
class Rows
{
public:
    ~Rows();
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    Rows(Rows&&) noexcept;
    Rows& operator=(Rows&&) noexcept;

    // To the next row, the first one at first; false behind the last.
    [[nodiscard]] bool next();

    [[nodiscard]] bool isNull(std::size_t column) const; // never for a Boolean
    [[nodiscard]] bool boolean(std::size_t column) const;
    [[nodiscard]] std::int32_t integer(std::size_t column) const;  // Byte, Integer, Long
    [[nodiscard]] std::int64_t currency(std::size_t column) const; // times 10,000
    [[nodiscard]] float single(std::size_t column) const;
    [[nodiscard]] double number(std::size_t column) const; // Double
    [[nodiscard]] DateTime dateTime(std::size_t column) const;
    // Text and Memo. The view lasts until the next row, or the next text of the same column.
    [[nodiscard]] std::string_view text(std::size_t column) const;
    // A Decimal or Currency with "." and without zeros at the end; a Guid in braces.
    [[nodiscard]] std::string exactText(std::size_t column) const;
    // Binary, Ole and what has no other form.
    [[nodiscard]] std::string bytes(std::size_t column) const;

    struct State;
    explicit Rows(std::unique_ptr<State> state);

private:
    std::unique_ptr<State> m_state;
};

} // namespace jet
