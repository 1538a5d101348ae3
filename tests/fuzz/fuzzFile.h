#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

// The file through which bytes that are tried reach a reader.
namespace fuzzFile {

inline void write(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        throw std::runtime_error("the file of the fuzzer can't be written");
}

// A file of this process alone, in memory where the host has such a folder.
struct RemovedAtEnd
{
    explicit RemovedAtEnd(const std::string& name)
    {
        namespace fs = std::filesystem;
        const fs::path memory = "/dev/shm";
        const auto folder = fs::is_directory(memory) ? memory : fs::temp_directory_path();
        path = (folder / (name + "-" + std::to_string(std::random_device()()))).string();
    }
    ~RemovedAtEnd()
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    RemovedAtEnd(const RemovedAtEnd&) = delete;
    RemovedAtEnd& operator=(const RemovedAtEnd&) = delete;

    std::string path;
};

} // namespace fuzzFile
