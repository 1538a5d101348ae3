#include "tools/actingNotices.h"

#include <cctype>
#include <charconv>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace actingNotices {

namespace {

using Text = std::string_view;
using Values = std::map<std::string, std::string, std::less<>>; // of a notice, by key

std::string withLetters(std::string text, int (*turn)(int))
{
    for (char& letter : text) {
        if (static_cast<unsigned char>(letter) < 0x80)
            letter = static_cast<char>(turn(static_cast<unsigned char>(letter)));
    }
    return text;
}

std::string upper(std::string text)
{
    return withLetters(std::move(text), std::toupper);
}

Text trimmed(Text text)
{
    constexpr Text blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == Text::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class Number>
Number numberFrom(Text text)
{
    Number number{};
    if (text.empty())
        return number;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        throw std::runtime_error("'" + std::string(text) + "' is no number");
    return number;
}

// A part of a value that may be shorter.
int partOf(Text value, std::size_t from, std::size_t length)
{
    return from < value.size() ? numberFrom<int>(value.substr(from, length)) : 0;
}

// Its own value, or that of the target where it has none.
std::string valueOf(const Values& values, const std::string& name)
{
    for (const auto& key : {"t_" + name, "t_trg_" + name}) {
        const auto found = values.find(key);
        if (found != values.end() && !found->second.empty())
            return found->second;
    }
    return {};
}

int hourOf(const std::string& value) // "hh:mm"
{
    return 100 * partOf(value, 0, 2) + partOf(value, 3, 2);
}

Position positionOf(const std::string& longitude, const std::string& latitude)
{
    return {partOf(longitude, 1, 3), partOf(longitude, 4, 2),
            partOf(longitude, 6, 2), longitude.starts_with('+') ? "E" : "W",
            partOf(latitude, 1, 2),  partOf(latitude, 3, 2),
            partOf(latitude, 5, 2),  latitude.starts_with('-') ? "S" : "N"};
}

ActingNotice noticeOf(const Values& values, const std::string& intent)
{
    ActingNotice notice;
    notice.withdraws = intent == "WITHDRAW";
    notice.type = upper(valueOf(values, "notice_type"));
    notice.frequency = numberFrom<double>(valueOf(values, "freq_assgn"));
    notice.hourFrom = hourOf(valueOf(values, "op_hh_fr"));
    notice.hourTo = hourOf(valueOf(values, "op_hh_to"));
    notice.stn_cls = upper(valueOf(values, "stn_cls"));
    notice.op_cls = upper(valueOf(values, "op_cls"));
    notice.emi_cls = valueOf(values, "emi_cls");
    notice.bdwdth_cde = valueOf(values, "bdwdth_cde");
    notice.zone_id = valueOf(values, "zone_id");
    notice.position = positionOf(valueOf(values, "long"), valueOf(values, "lat"));
    return notice;
}

// Takes the lines of a file one by one.
class Reader
{
public:
    void take(Text line)
    {
        if (line.starts_with("</"))
            close(line);
        else if (line.starts_with('<'))
            open(line);
        else if (const auto equals = line.find('='); equals != Text::npos)
            takeKey(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }

    std::vector<ActingNotice> notices;

private:
    void open(Text tag)
    {
        if (tag == "<NOTICE>") {
            m_values.clear();
            ++m_number;
            m_depth = 0;
        } else if (tag == "<HEAD>") {
            m_values.clear();
        } else {
            ++m_depth;
        }
    }

    void close(Text tag)
    {
        if (tag == "</HEAD>")
            m_adm = valueOf(m_values, "adm");
        else if (tag == "</NOTICE>")
            keep();
        else
            --m_depth;
    }

    void keep()
    {
        const auto intent = upper(valueOf(m_values, "action"));
        if (intent != "SUPPRESS" && intent != "WITHDRAW")
            return;
        auto notice = noticeOf(m_values, intent);
        notice.number = m_number;
        notice.adm = m_adm;
        notices.push_back(std::move(notice));
    }

    // The values of antennas, stations and coordinations are no matter here.
    void takeKey(Text key, Text value)
    {
        if (m_depth == 0)
            m_values[withLetters(std::string(key), std::tolower)] = value;
    }

    Values m_values;
    std::string m_adm;
    int m_number = 0;
    int m_depth = 0; // of sections within the notice
};

} // namespace

std::vector<ActingNotice> readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    Reader reader;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        try {
            reader.take(trimmed(line));
        } catch (const std::runtime_error& fault) {
            throw std::runtime_error(path + ", line " + std::to_string(number) + ": " + fault.what());
        }
    }
    if (file.bad())
        throw std::runtime_error("cannot read " + path);
    return std::move(reader.notices);
}

} // namespace actingNotices
