#pragma once

#include "jet/jetFile.h"
#include "support/temporaryFolder.h"
#include "tools/jetWriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Files that a test writes and reads back at once.

// Of a test of both versions.
[[nodiscard]] inline std::string versionName(const testing::TestParamInfo<jetWriter::Version>& test)
{
    return test.param == jetWriter::Version::Jet3 ? "Jet3" : "Jet4";
}

using Lines = std::vector<std::string>;

// A file of the form, filled by the caller.
[[nodiscard]] std::string fileBytes(const jetWriter::FileForm& form,
                                    const std::function<void(jetWriter::FileWriter&)>& fill);

// A file of one table of the rows.
[[nodiscard]] std::string fileOfRows(const jetWriter::FileForm& form, const jetWriter::Table& table,
                                     const std::vector<std::vector<jetWriter::Cell>>& rows);

// ASCII in the text of the version.
[[nodiscard]] jetWriter::Bytes asciiText(jetWriter::Version version, std::string_view text);

// Values of a row with "|" between them, `\N` for Null; bytes in hexadecimal digits.
[[nodiscard]] std::string shownRow(const jet::Table& table, const jet::Rows& rows);
[[nodiscard]] Lines shownRows(const jet::File& file, const std::string& table);
// Of all tables, each with its name before it.
[[nodiscard]] Lines shownFile(const jet::File& file);

class ReadBack
{
public:
    explicit ReadBack(const std::string& bytes) : m_file(m_folder.write("written.mdb", bytes)) {}
    [[nodiscard]] const jet::File& file() const { return m_file; }
    [[nodiscard]] Lines rows(const std::string& table) const { return shownRows(m_file, table); }

private:
    TemporaryFolder m_folder;
    jet::File m_file;
};
