#include "screens/fieldRuleTable.h"

#include "model/ScreenModule.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"

#include <algorithm>
#include <charconv>

namespace screens {

namespace {

// Tests

bool numeric(const std::string& text)
{
    return platform::isNumeric(text);
}

template <std::size_t count>
bool lengthIs(const std::string& text)
{
    return platform::characterCount(text) == count;
}

template <std::size_t count>
bool atMost(const std::string& text)
{
    return platform::characterCount(text) <= count;
}

template <bool (*check)(std::int16_t)>
bool number(const std::string& text)
{
    return ScreenModule::readsAs(check, text);
}

template <bool (*check)(std::string_view)>
bool word(const std::string& text)
{
    return check(text);
}

bool isFx(const std::string& text)
{
    return text == "FX";
}

bool isRotating(const std::string& text)
{
    return text == "R";
}

using namespace ScreenModule;
constexpr auto day = number<isValidDay>, month = number<isValidMonth>, year = number<isValidYear>,
               noticeYear = number<isValidNoticeYear>, longDegree = number<isLongDegree>,
               latDegree = number<isLatDegree>, minSec = number<isMinSec>, hourMinute = number<isHourMinute>;
constexpr auto noDigit = word<hasNoDigit>, classOp = word<isClassOp>, powerType = word<isPowerType>,
               antDir = word<isAntDir>, powerEiv = word<isPowerEIV>, gainType = word<isGainType>,
               freqUnit = word<isFreqUnit>, eastWest = word<isEastWest>, northSouth = word<isNorthSouth>;

// Words; the blanks at the end of some belong to them.

constexpr auto E = Wording::English, T = Wording::TitleOnly, L = Wording::ThreeWay;
// clang-format off
constexpr Words
    dayE        {"Value should be between 1 and 31 ", "", E},
    dayL        {"Value should be between [1,31]", "La valeur doit être entre [1,31]", L},
    monthE      {"Value should be between 1 and 12 ", "", E},
    monthL      {"Value should be between [1,12]", "La valeur doit être entre [1,12]", L},
    yearFormE   {"The year must be entered as YYYY", "", E},
    yearFormL   {"The year must be entered as YYYY", "L'année doit avoir ce format YYYY", L},
    // Wider than the test: so the operators know it.
    yearE       {"Value should be between 1900 and 2500 ", "", E},
    noticeYearT {"Invalid year in date of notice", "", T},
    useYearT    {"Invalid year in date of bringing to use (2c)", "", T},
    lettersE    {"Value must have only characters", "", E},
    lettersL    {"Value must have only characters", "Seul les caractères sont acceptés", L},
    fxE         {"Only value permitted for T11 notices is FX", "", E},
    numericE    {"Value must be numerical", "", E},
    numericL    {"Value must be numerical", "La valeur doit être numerique", L},
    longFormT   {"The longitude degrees must be entered as DDD", "", T},
    longMinFormT{"The longitude minutes must be entered as MM", "", T},
    longSecFormT{"The longitude seconds must be entered as SS", "", T},
    latFormT    {"The latitude degrees must be entered as DD", "", T},
    latMinFormT {"The latitude minutes must be entered as MM", "", T},
    latSecFormT {"The latitude seconds must be entered as SS", "", T},
    to180E      {"Value must be between [0,180]", "", E},
    to180L      {"Value must be between [0,180]", "La valeur doit être entre [0,180]", L},
    to90E       {"Value must be between [0,90]", "", E},
    to59E       {"Value must be between [0,59]", "", E},
    to59L       {"Value must be between [0,59]", "La valeur doit être entre [0,59]", L},
    hoursE      {"Value must be between 0000 and 2400", "", E},
    eastWestE   {"Value can only be E or W", "", E},
    eastWestL   {"Value can only be E or W", "La valeur doit être E ou W", L},
    northSouthE {"Value can only be N or S", "", E},
    northSouthL {"Value can only be N or S", "La valeur doit être N ou S", L},
    unitE       {"Value can only be k, M or G ", "", E},
    unitCapitalE{"Value can only be K, M or G ", "", E},
    classOpL    {"Value can only be A, B or C", "La valeur doit être A, B ou C", L},
    trgClassOpE {"Value can only be A B or C", "", E},
    antDirL     {"Value can only be ND or D", "La valeur doit être ND ou D", L},
    powerTypeE  {"Value can only be X Y or Z", "", E},
    powerEivE   {"Value can only be E I or V", "", E},
    gainTypeE   {"Value can only be I V or D", "", E},
    rotatingE   {"Value can only be R", "", E},
    max2T       {"Max 2 characters", "", T},
    max3T       {"Max 3 characters", "", T},
    max10T      {"Max 10 characters", "", T},
    max30T      {"Max 30 characters", "", T},
    max4DigitsT {"Max 4 digits", "", T};

constexpr ScreenSet notT11 = onT12 | onT13 | onT14, notT14 = onT11 | onT12 | onT13;

constexpr std::array rules = {
    Rule{"dNtcDD dUseDD", onT11,  plain, {{{day, &dayL}}}},
    Rule{"dNtcDD dUseDD", notT11, plain, {{{day, &dayE}}}},
    Rule{"dNtcMM dUseMM", onT11,  plain, {{{month, &monthL}}}},
    Rule{"dNtcMM dUseMM", notT11, plain, {{{month, &monthE}}}},
    Rule{"dNtcYY",        onT11,  plain, {{{lengthIs<4>, &yearFormL}, {noticeYear, &noticeYearT}}}},
    Rule{"dUseYY",        onT11,  plain, {{{lengthIs<4>, &yearFormL}, {year, &useYearT}}}},
    Rule{"dNtcYY dUseYY", notT11, plain, {{{lengthIs<4>, &yearFormE}, {year, &yearE}}}},

    Rule{"nAdm trgStnCls",   onAll,  upper, {{{noDigit, &lettersE}}}},
    Rule{"stnCls",           notT11, upper, {{{noDigit, &lettersE}}}},
    Rule{"stnCls",           onT11,  upper | silent | blanking, {{{isFx, &fxE}}}},
    Rule{"ctry cAdm1-13",    notT14, upper, {{{noDigit, &lettersL}}}},
    Rule{"cAdm1-13",         onT14,  upper, {{{noDigit, &lettersE}}}},
    Rule{"zoneID trgZoneID", onT14,  upper, {{{noDigit, &lettersE}}}},
    Rule{"addr_cde bdwdth emi trgBdwdth trgEmi", onAll, upper, {}},
    Rule{"siteName",         notT14, upper, {}},
    Rule{"polar",            onT11,  upper, {}},

    Rule{"freq freqCarr pwrant radiated trgFreq", onAll, plain, {{{numeric, &numericE}}}},
    Rule{"elev gainMax engDisp freqDev pwrDens radius Rradius", onAll, plain, {{{numeric, &numericE}}}},
    Rule{"azmMax beamwdth",  onT11 | onT12, plain, {{{numeric, &numericL}}}},

    Rule{"deg", onT11, plain, {{{numeric, &numericL}, {lengthIs<3>, &longFormT}, {longDegree, &to180L}}}},
    Rule{"deg",                 notT11,        plain, {{{numeric, &numericE}, {longDegree, &to180E}}}},
    Rule{"trgDeg RDeg1-5 RCDeg", onAll,        plain, {{{numeric, &numericE}, {longDegree, &to180E}}}},
    Rule{"Ldeg trgLdeg RLdeg1-5", onAll,       plain, {{{numeric, &numericE}, {latDegree, &to90E}}}},
    // A latitude under the test of a longitude: so it has always been.
    Rule{"RCLdeg",              onT12 | onT13, plain, {{{numeric, &numericE}, {longDegree, &to180E}}}},
    Rule{"min sec LMin Lsec trgMin trgsec trgLMin trgLsec RMin1-5 Rsec1-5 RLMin1-5 RLsec2-5 "
         "RCMin RCsec RCLMin RCLsec", onAll,   plain, {{{numeric, &numericE}, {minSec, &to59E}}}},
    Rule{"ophhFr ophhTo trgOphhFr trgOphhTo", onAll, plain,
         {{{numeric, &numericE}, {hourMinute, &hoursE}}}},
    Rule{"EW EW1 REW1-5 RCEW",  onAll,         upper, {{{eastWest, &eastWestE}}}},
    Rule{"NS1 RNS1-5 RCNS",     onAll,         upper, {{{northSouth, &northSouthE}}}},
    Rule{"NS",                  notT11,        upper, {{{northSouth, &northSouthE}}}},
    Rule{"NS",                  onT11,         upper, {{{northSouth, &northSouthL}}}},

    Rule{"Units1 Units2", onAll,  upper, {{{freqUnit, &unitE}}}},
    Rule{"Unit",          notT11, upper, {{{freqUnit, &unitE}}}},
    Rule{"Unit",          onT11,  upper, {{{freqUnit, &unitCapitalE}}}},
    Rule{"clsOp",         onT11,  upper, {{{classOp, &classOpL}}}},
    Rule{"trgOpCls",      onT11,  upper, {{{classOp, &trgClassOpE}}}},
    Rule{"antDir",        onT11 | onT12, upper, {{{antDir, &antDirL}}}},
    Rule{"pwrtype",       onAll,  upper, {{{powerType, &powerTypeE}}}},
    Rule{"pwr_eiv",       onAll,  upper, {{{powerEiv, &powerEivE}}}},
    Rule{"gainType",      onAll,  upper, {{{gainType, &gainTypeE}}}},
    Rule{"rot",           onT11 | onT12, upper, {{{isRotating, &rotatingE}}}},

    // Row 6 in plain boxes: as rows 1 to 5.
    Rule{"RDeg6",  onT12, plain, {{{numeric, &numericE}, {longDegree, &to180E}}}},
    Rule{"RLdeg6", onT12, plain, {{{numeric, &numericE}, {latDegree, &to90E}}}},
    Rule{"RMin6 Rsec6 RLMin6 RLsec6", onT12, plain, {{{numeric, &numericE}, {minSec, &to59E}}}},
    Rule{"REW6",   onT12, upper, {{{eastWest, &eastWestE}}}},
    Rule{"RNS6",   onT12, upper, {{{northSouth, &northSouthE}}}},

    // Boxes of several values.
    Rule{"callSign", onT11 | onT12, upper, {{{atMost<10>, &max10T}}}},
    Rule{"natsrv",   onAll, upper, {{{atMost<2>, &max2T}}}},
    Rule{"opAgcy",   onAll, plain, {{{atMost<3>, &max3T}}}},
    Rule{"max_fr max_to", onT11 | onT12, plain, {{{numeric, &numericL}, {atMost<4>, nullptr}}}},
    Rule{"noisTmp6", onT11, plain, {{{atMost<4>, &max4DigitsT}, {numeric, &numericL}}}},
    Rule{"Rsite6",   onT11, upper, {{{atMost<30>, &max30T}}}},
    Rule{"Rctry6",   onT11, upper, {{{noDigit, &lettersL}, {atMost<3>, &max3T}}}},
    // Their one rule is that of the option for several points.
    Rule{"Rsite1-5", onT11, plain, {}},
    Rule{"Rctry1-5", onT11, plain, {{{noDigit, &lettersE}}}},
    Rule{"RDeg6",  onT11, plain, {{{numeric, &numericL}, {lengthIs<3>, &longFormT},    {longDegree, &to180L}}}},
    Rule{"RMin6",  onT11, plain, {{{numeric, &numericL}, {lengthIs<2>, &longMinFormT}, {minSec, &to59L}}}},
    Rule{"Rsec6",  onT11, plain, {{{numeric, &numericL}, {lengthIs<2>, &longSecFormT}, {minSec, &to59L}}}},
    // A latitude with the words of a longitude: so it has always been.
    Rule{"RLdeg6", onT11, plain, {{{numeric, &numericL}, {lengthIs<2>, &latFormT},     {latDegree, &to180L}}}},
    Rule{"RLMin6", onT11, plain, {{{numeric, &numericL}, {lengthIs<2>, &latMinFormT},  {minSec, &to59L}}}},
    Rule{"RLsec6", onT11, plain, {{{numeric, &numericL}, {lengthIs<2>, &latSecFormT},  {minSec, &to59L}}}},
    Rule{"REW6",   onT11, upper, {{{eastWest, &eastWestL}}}},
    Rule{"RNS6",   onT11, upper, {{{northSouth, &northSouthL}}}},
};

constexpr std::array changeRules = {
    Rule{"RLsec1", onT11 | onT12, plain, {{{numeric, &numericE}, {minSec, &to59E}}}},
};
// clang-format on

int readInt(std::string_view digits)
{
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

// "cAdm1-13" as its thirteen names; any other name is alone.
void addNames(std::vector<std::string>& names, std::string_view item)
{
    const auto dash = item.find('-');
    if (dash == std::string_view::npos) {
        names.emplace_back(item);
        return;
    }
    const auto digits = item.substr(0, dash).find_last_not_of("0123456789") + 1;
    const int last = readInt(item.substr(dash + 1));
    for (int index = readInt(item.substr(digits, dash - digits)); index <= last; ++index)
        names.push_back(std::string(item.substr(0, digits)) + std::to_string(index));
}

} // namespace

BoxText boxText(const Words& words, std::string_view language)
{
    const bool french = language == "F" && words.wording != Wording::English;
    const char* const title = french ? "Erreur" : "Error";
    if (words.wording != Wording::ThreeWay)
        return {title, words.english};
    if (french)
        return {title, words.french};
    return {title, language == "S" ? "" : words.english};
}

std::span<const Rule> rulesOnLeaving()
{
    return rules;
}

std::span<const Rule> rulesOnChange()
{
    return changeRules;
}

std::vector<std::string> namesIn(std::string_view controls)
{
    std::vector<std::string> names;
    while (!controls.empty()) {
        const auto blank = std::min(controls.find(' '), controls.size());
        addNames(names, controls.substr(0, blank));
        controls.remove_prefix(std::min(blank + 1, controls.size()));
    }
    return names;
}

} // namespace screens
