#include "dao/fileStamp.h"

#include <sqlite3.h>

namespace dao {

std::string_view commitBytes(const jet::Stamp& stamp)
{
    return {static_cast<const char*>(static_cast<const void*>(stamp.commitBytes.data())),
            stamp.commitBytes.size()};
}

void bindStamp(sqlite3_stmt* statement, int firstPlace, const jet::Stamp& stamp)
{
    const auto bytes = commitBytes(stamp);
    sqlite3_bind_int64(statement, firstPlace, static_cast<sqlite3_int64>(stamp.size));
    sqlite3_bind_int64(statement, firstPlace + 1, stamp.modified);
    sqlite3_bind_blob(statement, firstPlace + 2, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
}

std::uint64_t hashOf(std::string_view bytes, std::uint64_t hash)
{
    for (const char sign : bytes)
        hash = (hash ^ static_cast<unsigned char>(sign)) * 1099511628211ULL;
    return hash;
}

std::string hexadecimal(std::uint64_t number)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4)
        text += digits[(number >> static_cast<unsigned>(shift)) & 0xfU];
    return text;
}

} // namespace dao
