#include "fuzz/readerFuzz.h"

#include "platform/hostFormat.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

namespace {

// A file of this process alone, in memory where the host has such a folder.
std::string fuzzFile()
{
    namespace fs = std::filesystem;
    const fs::path memory = "/dev/shm";
    const auto folder = fs::is_directory(memory) ? memory : fs::temp_directory_path();
    return (folder / ("readerFuzzer-" + std::to_string(std::random_device()()))).string();
}

struct RemovedAtEnd
{
    RemovedAtEnd() : path(fuzzFile()) {}
    ~RemovedAtEnd()
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    RemovedAtEnd(const RemovedAtEnd&) = delete;
    RemovedAtEnd& operator=(const RemovedAtEnd&) = delete;

    std::string path;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const RemovedAtEnd file;
    platform::setHostLocale("de_DE.UTF-8");
    readerFuzz::run(file.path, {reinterpret_cast<const char*>(data), size});
    return 0;
}
