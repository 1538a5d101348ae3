#include "fuzz/readerFuzz.h"

#include "platform/hostFormat.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzzFile::RemovedAtEnd file("readerFuzzer");
    platform::setHostLocale("de_DE.UTF-8");
    readerFuzz::run(file.path, {reinterpret_cast<const char*>(data), size});
    return 0;
}
