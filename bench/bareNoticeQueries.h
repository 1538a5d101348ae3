#pragma once

#include "bare.h"

#include <array>
#include <optional>

namespace bare {

// The queries that one notice is read with, as they reach the engine. Each is prepared when first asked for.
class NoticeQueries
{
public:
    enum Query : std::uint8_t
    {
        Velda,
        Site,
        Points,
        Target,
        Remarks,
        Antennas,
        Sectors,      // of a notice and an antenna number
        Receivers,    // the same
        Transmitters, // the same
        CallSigns,
        NatSrv,
        OpAgcy,
        Coord,
        count
    };

    explicit NoticeQueries(sqlite3* connection) : m_connection(connection) {}

    // Before its first row.
    Statement& start(Query query, int key);
    Statement& start(Query query, int key, int antennaNumber);

private:
    sqlite3* m_connection;
    std::array<std::optional<Statement>, count> m_statements;
};

// Reads every column of every row of a notice where the engine holds it, and gives the number of bytes.
std::size_t readNotice(NoticeQueries& queries, int key);

} // namespace bare
