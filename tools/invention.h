#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// What the makers of sample data draw from: numbers, invented names, plausible emissions and places. A change
// here changes what a seed gives.
namespace invention {

// Numbers from a seed. The standard distributions give other numbers with every library, so a generator of
// our own keeps the files the same everywhere.
class Random
{
public:
    Random(std::uint64_t seed, std::uint64_t number, std::uint64_t purpose)
        : m_state(seed * 0x9E3779B97F4A7C15U + number * 0xD1B54A32D192ED03U + purpose * 0x8CB92BA72F3D8DD7U)
    {
        next();
    }

    int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(bound)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool chance(int perThousand) { return below(1000) < perThousand; }

    template <class T, std::size_t N>
    const T& oneOf(const std::array<T, N>& values)
    {
        return values[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }

private:
    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    std::uint64_t m_state;
};

using Text = std::string_view;

// No code that an administration bears.
inline constexpr std::array<Text, 10> administrations = {"QVA", "XOL", "QER", "ZQM", "XUD",
                                                         "QIB", "ZAQ", "XEY", "QOF", "ZYX"};
inline constexpr std::array<Text, 12> zones = {"QAA", "QAB", "QAC", "QBA", "QBB", "QBD",
                                               "XQA", "XQC", "XQE", "ZQA", "ZQD", "ZQF"};
inline constexpr std::array<Text, 16> nameStarts = {"Vélq", "Zøm",  "Grüx", "Quov", "Xard", "Drél",
                                                    "Plüv", "Tøq",  "Bæl",  "Okwi", "Narü", "Ymp",
                                                    "Cøld", "Fézz", "Umbr", "Skwa"};
inline constexpr std::array<Text, 14> nameEnds = {"orne",  "ataly", "üna", "imoor", "ébec", "ogrund", "ellø",
                                                  "asque", "ivik",  "oda", "umar",  "ère",  "yfell",  "ock"};
inline constexpr std::array<Text, 8> nameExtras = {"", "", "", "", " HILL", " MAST 2", " NØRD", " SÜD"};

// What goes on the air, and where: bounds and raster of the assigned frequency in units of 100 Hz.
struct Emission
{
    Text stnCls, emiCls, bdwdth;
    int low, high, raster;
    bool hasOpCls;
};
inline constexpr std::array<Emission, 5> t11Emissions = {{
    {"FX", "J3E--", "2K80", 30'000, 270'000, 5, true},
    {"FX", "F1B--", "1K24", 40'000, 230'000, 5, true},
    {"FX", "G7W--", "28M0", 71'250'000, 84'500'000, 70'000, false},
    {"FX", "D7W--", "14M0", 128'000'000, 132'500'000, 35'000, false},
    {"FX", "F3E--", "16K0", 1'480'000, 1'740'000, 125, false},
}};
inline constexpr std::array<Emission, 5> t12Emissions = {{
    {"FB", "F3E--", "8K00", 1'460'000, 1'740'000, 125, false},
    {"FB", "F3E--", "11K0", 4'400'000, 4'700'000, 125, false},
    {"BC", "F8EHF", "180K", 875'000, 1'080'000, 1'000, false},
    {"BC", "A3EGN", "9K00", 5'265, 16'065, 90, true},
    {"FA", "A3E--", "6K00", 1'180'000, 1'370'000, 250, false},
}};
inline constexpr std::array<Emission, 3> t13Emissions = {{
    {"FC", "J3E--", "2K80", 40'000, 260'000, 5, true},
    {"FB", "F3E--", "8K00", 1'460'000, 1'740'000, 125, false},
    {"FA", "A3E--", "6K00", 1'180'000, 1'370'000, 250, false},
}};
inline constexpr std::array<Emission, 3> t14Emissions = {{
    {"ML", "F3E--", "8K00", 680'000, 880'000, 125, false},
    {"ML", "F3E--", "16K0", 1'480'000, 1'740'000, 125, false},
    {"MO", "G1W--", "12K5", 4'100'000, 4'300'000, 125, false},
}};

// Seconds of arc, east and north counted up from zero.
struct Position
{
    int longitude = 0;
    int latitude = 0;
    bool withSeconds = true;
};

inline constexpr int degree = 3600;

inline Position anywhere(Random& random)
{
    return {random.between(-170 * degree, 170 * degree), random.between(-65 * degree, 70 * degree),
            random.chance(920)};
}

inline Position within(Random& random, const Position& centre, int reach)
{
    return {centre.longitude + random.between(-reach, reach), centre.latitude + random.between(-reach, reach),
            random.chance(920)};
}

inline std::string digits(int value, std::size_t width)
{
    const std::string text = std::to_string(value);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

// A number of whole parts, `places` decimals of which are behind the point; no zeros at its end.
inline std::string decimal(int parts, std::size_t places)
{
    std::string text = digits(std::abs(parts), places + 1);
    text.insert(text.size() - places, ".");
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return (parts < 0 ? "-" : "") + text;
}

inline std::string frequencyText(int frequency)
{
    return decimal(frequency, 4);
}

inline std::string siteName(Random& random)
{
    std::string name(random.oneOf(nameStarts));
    name += random.oneOf(nameEnds);
    name += random.oneOf(nameExtras);
    return name;
}

// The letter Q begins no call sign of any country.
inline std::string callSign(Random& random)
{
    const auto letter = [&] { return static_cast<char>('A' + random.below(26)); };
    std::string sign{'Q', letter(), static_cast<char>('0' + random.below(10))};
    for (int rest = random.between(2, 3); rest > 0; --rest)
        sign += letter();
    return sign;
}

inline std::string date(Random& random, int firstYear, int lastYear)
{
    // One draw a statement, here and elsewhere: compilers differ in the order within an expression.
    const int year = random.between(firstYear, lastYear);
    const int month = random.between(1, 12);
    const int day = random.between(1, 28);
    return digits(year, 4) + "-" + digits(month, 2) + "-" + digits(day, 2);
}

} // namespace invention
