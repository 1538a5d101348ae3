#include "dao/fleetingFile.h"

#include "dao/engineError.h"
#include "dao/fileStamp.h"
#include "platform/paths.h"

#include <chrono>
#include <random>

namespace dao {

namespace {

constexpr auto unfinishedSuffix = ".tmp";
constexpr auto ageOfLeftovers = std::chrono::hours(24);

} // namespace

std::filesystem::path unfinishedName(const std::filesystem::path& target)
{
    std::random_device random;
    const auto number = (std::uint64_t{random()} << 32U) | random();
    return std::filesystem::path(target) += "." + hexadecimal(number) + unfinishedSuffix;
}

bool isLeftover(const std::filesystem::path& path, std::filesystem::file_time_type lastWrite)
{
    return path.extension() == unfinishedSuffix &&
           lastWrite < std::filesystem::file_time_type::clock::now() - ageOfLeftovers;
}

void flush(const std::filesystem::path& file)
{
    try {
        platform::flushToDisk(file);
    } catch (const platform::RuntimeError& failure) {
        raiseEngineError(failure.number == platform::errDiskFull ? errNoSpace : errDisk,
                         platform::utf8Path(file));
    }
}

} // namespace dao
