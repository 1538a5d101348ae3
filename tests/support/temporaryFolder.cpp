#include "support/temporaryFolder.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace {

// In memory where the host has such a place: hundreds of small databases are made and committed to.
std::filesystem::path placeForFolders()
{
    const std::filesystem::path inMemory = "/dev/shm";
    std::error_code none;
    return std::filesystem::is_directory(inMemory, none) ? inMemory : std::filesystem::temp_directory_path();
}

} // namespace

TemporaryFolder::TemporaryFolder()
{
    std::random_device seed;
    for (int attempt = 0; attempt < 100; ++attempt) {
        m_path = placeForFolders() / ("zeph-" + std::to_string(seed()));
        if (std::filesystem::create_directory(m_path))
            return;
    }
    throw std::runtime_error("no temporary folder could be made");
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::write(const std::string& name, const std::string& bytes) const
{
    std::ofstream stream(m_path / name, std::ios::binary);
    stream << bytes;
    stream.close();
    if (!stream)
        throw std::runtime_error("can't write " + file(name));
    return file(name);
}

std::string TemporaryFolder::read(const std::string& name) const
{
    const std::ifstream stream(m_path / name, std::ios::binary);
    if (!stream)
        throw std::runtime_error("can't read " + file(name));
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}
