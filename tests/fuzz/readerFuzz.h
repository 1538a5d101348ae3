#pragma once

#include "elect/noticeLoop.h"
#include "elect/writeOneNtcElect.h"
#include "fuzz/fuzzFile.h"
#include "platform/ansiText.h"
#include "platform/fileNumbers.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The reader and the writer of notice files under any bytes. Only the failures that the two may end with
// pass; any other one, and a broken promise, comes out as an exception.
namespace readerFuzz {

inline bool isExpected(const platform::RuntimeError& failure)
{
    return failure.number == platform::errInvalidCall || failure.number == platform::errOverflow ||
           failure.number == platform::errSubscript || failure.number == platform::errInputPastEnd;
}

// The text of each notice of the file, up to the failure that stops the reader, if any. A notice whose date
// can't be written is left out.
inline std::vector<std::string> blocksOf(const std::string& path, std::string_view bytes)
{
    static Ntc ntc; // its size would be too much for some stacks
    ntc.adm.clear();
    std::vector<std::string> blocks;
    fuzzFile::write(path, bytes);
    platform::openForInput(1, path);
    try {
        walkNotices(ntc, [&](const Ntc& read) {
            try {
                blocks.push_back(writeOneNtcElect::noticeBlock(read));
            } catch (const platform::RuntimeError& failure) {
                if (failure.number != platform::errInvalidCall)
                    throw;
            }
        });
    } catch (const platform::RuntimeError& failure) {
        if (!isExpected(failure))
            throw;
    }
    platform::closeFile(1);
    return blocks;
}

// A written notice reads back as one notice, and read and written again it settles: what the first rounds
// still lose or fill in is lost or there in the end. A date that is none loses two dots in each round, until
// it can't be written at all.
inline void checkSettles(const std::string& path, std::string text)
{
    const auto rounds = 8 + std::count(text.begin(), text.end(), '.');
    for (std::ptrdiff_t round = 0; round < rounds; ++round) {
        const auto back = blocksOf(path, platform::utf8ToAnsi(text));
        if (back.empty())
            return;
        if (back.size() > 1)
            throw std::logic_error("one notice came back as more than one:\n" + text);
        if (back.front() == text)
            return;
        text = back.front();
    }
    throw std::logic_error("a notice changes with each reading and writing:\n" + text);
}

// `path` is a file of the caller's, overwritten.
inline void run(const std::string& path, std::string_view bytes)
{
    const auto blocks = blocksOf(path, bytes);
    // Only a quoted item can hold a comma or a line end, which make other items of a value on its way back.
    if (bytes.find('"') != std::string_view::npos)
        return;
    for (const auto& block : blocks)
        checkSettles(path, block);
}

} // namespace readerFuzz
