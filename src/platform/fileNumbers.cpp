#include "platform/fileNumbers.h"

#include "platform/ansiText.h"
#include "platform/paths.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>

namespace platform {

namespace {

constexpr int lastNumber = 511;
constexpr std::size_t bufferSize = std::size_t{64} * 1024;

enum class Mode : std::uint8_t
{
    Input,
    Output,
    Append
};

struct FileCloser
{
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

struct OpenFile
{
    FileHandle file;
    Mode mode = Mode::Input;
    std::string buffer;       // of a file for input: bytes read
    std::size_t position = 0; // of the next byte in the buffer
};

// In the order of their numbers; empty for a number that is not open.
std::array<std::unique_ptr<OpenFile>, lastNumber + 1> openFiles;

std::unique_ptr<OpenFile>& slotOf(int number)
{
    if (number < 1 || number > lastNumber)
        raise(errBadFileNumber);
    return openFiles[static_cast<std::size_t>(number)];
}

ErrorNumber writeError(int hostError)
{
#ifdef EDQUOT
    if (hostError == EDQUOT)
        return errDiskFull;
#endif
    return hostError == ENOSPC ? errDiskFull : errDeviceIo;
}

bool isFolder(const std::filesystem::path& path)
{
    std::error_code notThere;
    return std::filesystem::is_directory(path, notThere);
}

ErrorNumber openError(const std::filesystem::path& path, int hostError)
{
    switch (hostError) {
    case ENOENT:
        return path.parent_path().empty() || isFolder(path.parent_path()) ? errFileNotFound : errPathNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
        return errPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return errPathFileAccess;
    default:
        return writeError(hostError);
    }
}

std::FILE* openOnHost(const std::filesystem::path& path, Mode mode)
{
#ifdef _WIN32
    constexpr std::array<const wchar_t*, 3> modes = {L"rb", L"wb", L"ab"};
    return _wfopen(path.c_str(), modes[static_cast<std::size_t>(mode)]);
#else
    constexpr std::array<const char*, 3> modes = {"rbe", "wbe", "abe"};
    return std::fopen(path.c_str(), modes[static_cast<std::size_t>(mode)]);
#endif
}

FileHandle openHandle(const std::string& name, Mode mode)
{
    const auto path = hostPath(name);
    // The host would open a folder for reading and fail at the first byte only.
    if (isFolder(path))
        raise(errPathFileAccess);
    errno = 0;
    FileHandle handle(openOnHost(path, mode));
    if (!handle)
        raise(openError(path, errno));
    return handle;
}

void openFile(int number, const std::string& name, Mode mode)
{
    auto& slot = slotOf(number);
    if (slot)
        raise(errFileAlreadyOpen);
    auto file = std::make_unique<OpenFile>();
    file->file = openHandle(name, mode);
    file->mode = mode;
    if (mode == Mode::Input) // it has a buffer of its own
        std::setvbuf(file->file.get(), nullptr, _IONBF, 0);
    else
        std::setvbuf(file->file.get(), nullptr, _IOFBF, bufferSize);
    slot = std::move(file);
}

OpenFile& openForReading(int number)
{
    const auto& slot = slotOf(number);
    if (!slot || slot->mode != Mode::Input)
        raise(errBadFileNumber);
    return *slot;
}

// Whether a byte is left; reads on when the buffer is used up.
bool hasByte(OpenFile& file)
{
    if (file.position < file.buffer.size())
        return true;
    file.buffer.resize(bufferSize);
    file.position = 0;
    file.buffer.resize(std::fread(file.buffer.data(), 1, bufferSize, file.file.get()));
    if (file.buffer.empty() && std::ferror(file.file.get()) != 0)
        raise(errDeviceIo);
    return !file.buffer.empty();
}

bool nextIs(OpenFile& file, char byte)
{
    return hasByte(file) && file.buffer[file.position] == byte;
}

bool takeIf(OpenFile& file, char byte)
{
    const bool found = nextIs(file, byte);
    if (found)
        ++file.position;
    return found;
}

void skipBlanks(OpenFile& file)
{
    while (takeIf(file, ' '))
        ;
}

// The one line end at the position, if there is any.
bool takeLineEnd(OpenFile& file)
{
    if (!takeIf(file, '\r'))
        return takeIf(file, '\n');
    takeIf(file, '\n');
    return true;
}

// The one comma or line end at the position, if there is any.
void takeSeparator(OpenFile& file)
{
    if (!takeLineEnd(file))
        takeIf(file, ',');
}

bool isQuote(char byte)
{
    return byte == '"';
}

bool endsLine(char byte)
{
    return byte == '\r' || byte == '\n';
}

bool isSeparator(char byte)
{
    return byte == ',' || endsLine(byte);
}

// Appends what comes before the first byte that ends the item, which becomes the next one.
template <class EndsItem>
void takeUntil(OpenFile& file, std::string& item, EndsItem endsItem)
{
    while (hasByte(file)) {
        const auto rest = std::string_view(file.buffer).substr(file.position);
        const auto length =
            static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), endsItem) - rest.begin());
        appendAnsiAsUtf8(item, rest.substr(0, length));
        file.position += length;
        if (length < rest.size())
            return;
    }
}

void flushAndClose(OpenFile& file)
{
    errno = 0;
    const bool flushed = file.mode == Mode::Input || std::fflush(file.file.get()) == 0;
    const int flushError = errno;
    const bool closed = std::fclose(file.file.release()) == 0;
    if (!flushed)
        raise(writeError(flushError));
    if (!closed)
        raise(writeError(errno));
}

} // namespace

void openForInput(int number, const std::string& path)
{
    openFile(number, path, Mode::Input);
}

void openForOutput(int number, const std::string& path)
{
    openFile(number, path, Mode::Output);
}

void openForAppend(int number, const std::string& path)
{
    openFile(number, path, Mode::Append);
}

std::string inputItem(int number)
{
    std::string item;
    inputItem(number, item);
    return item;
}

void inputItem(int number, std::string& item)
{
    auto& file = openForReading(number);
    item.clear();
    if (!hasByte(file))
        raise(errInputPastEnd);
    skipBlanks(file);
    if (takeIf(file, '"')) {
        takeUntil(file, item, isQuote);
        takeIf(file, '"');
        skipBlanks(file);
    } else {
        takeUntil(file, item, isSeparator);
    }
    takeSeparator(file);
}

std::string inputLine(int number)
{
    auto& file = openForReading(number);
    if (!hasByte(file))
        raise(errInputPastEnd);
    std::string line;
    takeUntil(file, line, endsLine);
    takeLineEnd(file);
    return line;
}

bool endOfFile(int number)
{
    return !hasByte(openForReading(number));
}

void printLine(int number, std::string_view text)
{
    auto& slot = slotOf(number);
    if (!slot || slot->mode == Mode::Input)
        raise(errBadFileNumber);
    const auto line = utf8ToAnsi(text) + "\r\n";
    errno = 0;
    if (std::fwrite(line.data(), 1, line.size(), slot->file.get()) == line.size())
        return;
    const auto failure = writeError(errno);
    slot.reset();
    raise(failure);
}

void closeFile(int number)
{
    // Taken out first, so that the number is free whether or not the last bytes can be written.
    const auto file = std::move(slotOf(number));
    if (file)
        flushAndClose(*file);
}

void closeAllFiles()
{
    std::exception_ptr firstFailure;
    for (int number = 1; number <= lastNumber; ++number) {
        try {
            closeFile(number);
        } catch (const RuntimeError&) {
            // The other files are closed all the same; the first failure is told at the end.
            if (!firstFailure)
                firstFailure = std::current_exception();
        }
    }
    if (firstFailure)
        std::rethrow_exception(firstFailure);
}

void testReadable(const std::string& path)
{
    openHandle(path, Mode::Input);
}

} // namespace platform
