#pragma once

#include "bareNotice.h"

#include <vector>

// The tokenizer of the load's floor. It reads what the generator of notice files writes, and throws at
// anything that it was not written for.
namespace bare {

[[nodiscard]] std::string readFile(const std::string& path);

class Reader
{
public:
    explicit Reader(Text file) : m_rest(file) {}

    // False at the end of the file. Everything in the notice is set but the columns that no file gives; texts
    // live until the next call.
    bool next(Notice& notice);

private:
    bool nextItem();
    void advance();
    bool isKeyLine();
    void readHead();
    void readNotice(Notice& notice);
    void takeNoticeKey(Notice& notice);
    void readCoordination(Notice& notice);
    void readAntenna(Antenna& antenna);
    void readSector(Sector& sector);
    void readStation(Station& station);
    void readPoint(Point& point);
    template <std::size_t N>
    void storeCoordinates(std::array<Text, N>& columns, std::size_t first, bool longitude);

    [[nodiscard]] Text plain();
    [[nodiscard]] Text upper();
    [[nodiscard]] Text time();
    [[nodiscard]] Text paddedAgency();
    [[nodiscard]] Text keep(Text first, Text second);
    char* room(std::size_t length);

    Text m_rest;
    Text m_item, m_key, m_value;
    Text m_adm;
    std::vector<char> m_memory = std::vector<char>(256UL * 1024UL); // texts that differ from the file's
    std::size_t m_used = 0;
};

} // namespace bare
