#include "dao/writtenJetFile.h"

#include <sstream>

namespace writtenJet {

std::string write(const TemporaryFolder& folder, const std::string& name, const Fill& fill,
                  const jetWriter::FileForm& form)
{
    std::ostringstream stream;
    jetWriter::FileWriter writer(stream, form);
    fill(writer);
    writer.finish();
    return folder.write(name, stream.str());
}

std::string writeWords(const TemporaryFolder& folder, const std::string& name, int rows,
                       std::uint16_t commits)
{
    jetWriter::FileForm form;
    form.commits = commits;
    return write(
        folder, name,
        [rows](jetWriter::FileWriter& file) {
            jetWriter::Table table;
            table.name = "words";
            table.add("number", jetWriter::Type::Long);
            table.add("word", jetWriter::Type::Text, 50);
            auto& writer = file.addTable(table);
            for (int row = 0; row < rows; ++row)
                writer.add({jetWriter::longValue(row), "word " + std::to_string(row)});
        },
        form);
}

} // namespace writtenJet
