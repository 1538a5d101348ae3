#pragma once

#include <cstdint>
#include <string>

// Makes electronic notice files of any size: plausible notices with invented names, the same bytes for the
// same seed on every host. Knows nothing of the program that reads them. All text is Windows-1252 with CR LF.
namespace noticeGenerator {

// In all but the last about one notice in fifty describes the assignment of an earlier one again.
enum class Shape
{
    Diverse,      // types, frequencies, positions and zones as they come
    OneFrequency, // all on one assigned frequency at differing positions; no zones
    OnePosition,  // all at one position on differing frequencies; no zones
    Identical,    // one notice over and over
};

// A notice depends on seed, shape and its number alone, so any of them can be made without those before it.
class NoticeGenerator
{
public:
    explicit NoticeGenerator(std::uint64_t seed, Shape shape = Shape::Diverse);

    [[nodiscard]] std::string head() const;
    [[nodiscard]] std::string notice(int number) const; // numbers start at 1
    [[nodiscard]] static std::string tail(int count);

private:
    std::uint64_t m_seed;
    Shape m_shape;
};

struct FileOptions
{
    int count = 1;
    std::uint64_t seed = 1;
    Shape shape = Shape::Diverse;
    int start = 1; // number of the first notice: files of one seed can follow one another
};

// Replaces the file. One notice at a time is in memory. Throws std::runtime_error when it can't be written.
void writeNoticeFile(const std::string& path, const FileOptions& options);

// Text with letters up to U+00FF from UTF-8 to the one byte a letter that it has in Windows-1252.
[[nodiscard]] std::string toAnsi(const std::string& utf8);

} // namespace noticeGenerator
