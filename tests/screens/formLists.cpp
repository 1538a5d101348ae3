#include "screens/formLists.h"

#include <sstream>

namespace formLists {

namespace {

using Names = std::vector<std::string>;

Names split(const std::string& text)
{
    std::istringstream words(text);
    Names names;
    for (std::string word; words >> word;)
        names.push_back(word);
    return names;
}

std::string target(int screen)
{
    return std::string("trgadmRefID trgFreq Unit trgStnCls trgBdwdth trgEmi ") +
           (screen == 1 ? "trgOpCls " : "") + "trgOphhFr(0) trgOphhTo(1) " +
           (screen == 4 ? "trgZoneID " : "") + "trgDeg trgMin trgsec EW trgLdeg trgLMin trgLsec NS ";
}

std::string notice(int screen)
{
    return "nAdm Int_Add Int_Mod Int_Sup Int_Wdraw dNtcDD dNtcMM dNtcYY Prov1 " +
           std::string(screen == 4 ? "" : "Prov2 ") + (screen == 2 ? "prov4 " : "") + "FirstNtf " +
           (screen == 4 ? "" : "Re_Sub ") + "admRefID ";
}

std::string assignment(int screen)
{
    return std::string("freq(0) Units1(0) stnCls bdwdth emi ") + (screen == 1 ? "clsOp " : "") +
           "ophhFr ophhTo freqCarr Units2 natsrv " + (screen == 1 ? "freqDev engDisp " : "") +
           (screen == 4 ? "dUseDD(0) dUseMM dUseYY " : "");
}

std::string station(int screen)
{
    const std::string position = "deg min sec EW1 Ldeg LMin Lsec NS1 ";
    if (screen == 4)
        return "zoneID " + position + "radius ";
    return "siteName(0) ctry(0) " + position + "dUseDD(0) dUseMM dUseYY " +
           (screen == 3 ? "" : "callSign stateID st_Alt ");
}

std::string coordination()
{
    return "coordProv cAdm1 cAdm2 cAdm3 cAdm4 cAdm5 cAdm6 cAdm7 cAdm8 cAdm9 cAdm10 cAdm11 cAdm12 cAdm13 "
           "opAgcy "
           "addr_cde ";
}

std::string antenna(int screen)
{
    const std::string all = "ButtonPrevAnt ButtonNextAnt pwrtype(0) pwrant(0) radiated pwr_eiv ";
    if (screen == 3)
        return all;
    if (screen == 4)
        return all + "gainType(0) gainMax(0) ";
    return all + "pwrMax " + (screen == 1 ? "pwrDens polar(1) " : "") +
           "hgtAgl distMax antDir(0) azmMax(1) rot(1) max_fr max_to beamwdth(1) gainType(0) gainMax(0) "
           "antRef "
           "elev(1) ";
}

std::string pointRow(const std::string& n)
{
    return "RDeg" + n + " RMin" + n + " Rsec" + n + " REW" + n + " RLdeg" + n + " RLMin" + n + " RLsec" + n +
           " RNS" + n + " ";
}

std::string stationRow(const std::string& n)
{
    const std::string first = n == "1" ? "(1) " : " ";
    return "Rsite" + n + " Rctry" + n + first + pointRow(n) + "noisTmp" + n + (n == "1" ? "(0) " : " ");
}

std::string zonesAndCircle()
{
    std::string all;
    for (int zone = 1; zone <= 24; ++zone)
        all += "Rzone" + std::to_string(zone) + " ";
    return all + "RCDeg RCMin RCsec RCEW RCLdeg RCLMin RCLsec RCNS Rradius ";
}

std::string otherEnd(int screen)
{
    std::string all = screen == 1   ? "Rpoint multipt "
                      : screen == 2 ? "multipt Rcircle zone "
                                    : "zone Tcircle ";
    for (int row = 1; row <= 6; ++row)
        all += screen == 1   ? stationRow(std::to_string(row))
               : screen == 2 ? pointRow(std::to_string(row))
                             : "";
    return screen == 4 ? "" : screen == 1 ? all : all + zonesAndCircle();
}

std::string longitudeFields(const std::string& prefix, const std::string& n = "")
{
    return prefix + "Min" + n + " " + prefix + "sec" + n + " ";
}

void add(std::vector<Limit>& limits, int characters, const std::string& names)
{
    for (const auto& name : split(names))
        limits.push_back({name, characters});
}

} // namespace

Names tabOrder(int screen)
{
    return split(notice(screen) + target(screen) + assignment(screen) + station(screen) + coordination() +
                 antenna(screen) + otherEnd(screen) +
                 "TxtRemarks ButtonPrevNtc ButtonNextNtc ButtonUpdate ButtonDelete ButtonNTC ButtonPrint "
                 "ButtonCancel");
}

Names others(int screen)
{
    const std::string all =
        "TxtVeldakey TxtDateRcv TxtAntennaCnt Label13 LblDateRcv Label1 Label2 Label3 Label4 "
        "Label5 Label12 Label33 Label40 LblAntennaCnt LblHint LblRemarks ";
    static const Names own{"Label27 Label51 Label67 Label69",
                           "Label27 Label51 Label67 Label69 Label7 CircRxArea", "Label67 Label7 CircRxArea",
                           "Label31 LblCentreRxArea"};
    return split(all + own.at(static_cast<std::size_t>(screen) - 1));
}

Names optionSets(int screen)
{
    Names sets{"Int_Add Int_Mod Int_Sup Int_Wdraw"};
    static const Names provisions{"Prov1 Prov2", "Prov1 Prov2 prov4", "Prov1 Prov2", "Prov1"};
    static const Names areas{"Rpoint multipt", "multipt Rcircle zone", "zone Tcircle"};
    sets.push_back(provisions.at(static_cast<std::size_t>(screen) - 1));
    sets.emplace_back(screen == 4 ? "FirstNtf" : "FirstNtf Re_Sub");
    if (screen != 4)
        sets.push_back(areas.at(static_cast<std::size_t>(screen) - 1));
    return sets;
}

std::vector<Limit> inputLimits(int screen)
{
    std::vector<Limit> all;
    add(all, 1, "EW NS EW1 NS1 Unit Units1 Units2 pwrtype pwr_eiv");
    add(all, 2,
        "dNtcDD dNtcMM dUseDD dUseMM stnCls trgStnCls addr_cde Ldeg trgLdeg min sec LMin Lsec trgMin trgsec "
        "trgLMin trgLsec");
    add(all, 3, "nAdm deg trgDeg");
    add(all, 4, "dNtcYY dUseYY ophhFr ophhTo trgOphhFr trgOphhTo bdwdth trgBdwdth");
    add(all, 5, "emi trgEmi pwrant radiated");
    add(all, 10, "freq freqCarr trgFreq");
    for (int n = 1; n <= 13; ++n)
        add(all, 3, "cAdm" + std::to_string(n));
    if (screen != 4)
        add(all, 30, "siteName"), add(all, 3, "ctry");
    if (screen != 3)
        add(all, 1, "gainType"), add(all, 5, "gainMax");
    if (screen == 4)
        add(all, 5, "zoneID trgZoneID radius");
    if (screen == 1)
        add(all, 1, "clsOp trgOpCls"), add(all, 2, "polar"), add(all, 5, "freqDev pwrDens"),
            add(all, 6, "engDisp");
    if (screen <= 2)
        add(all, 1, "rot"), add(all, 2, "antDir"), add(all, 3, "beamwdth"), add(all, 5, "azmMax elev");
    for (int row = 1; screen <= 2 && row <= (screen == 1 ? 5 : 6); ++row) {
        const auto n = std::to_string(row);
        add(all, 1, "REW" + n + " RNS" + n);
        add(all, 2, longitudeFields("R", n) + longitudeFields("RL", n) + "RLdeg" + n);
        add(all, 3, "RDeg" + n);
    }
    if (screen == 2 || screen == 3) {
        add(all, 1, "RCEW RCNS");
        add(all, 2, longitudeFields("RC") + longitudeFields("RCL") + "RCLdeg");
        add(all, 3, "RCDeg");
        add(all, 5, "Rradius");
        for (int zone = 1; zone <= 24; ++zone) {
            const bool isShort = zone == 7 || zone == 8 || zone == 11;
            add(all, screen == 2 ? 5 : isShort ? 3 : zone == 6 ? 30 : 5, "Rzone" + std::to_string(zone));
        }
    }
    return all;
}

// clang-format off
std::vector<MultiCaption> captionsOfColumns(int screen)
{
    std::vector<MultiCaption> all;
    all.push_back({"Label12",
            {"0-4c  longitude          E/W               latitude                          N/S",
             "0-4c  longitude          E/W               latitude                          N/S",
             "0-4c  longitud            E/W               latitud                            N/S"},
            {"trgDeg", "EW", "trgLdeg", "NS"}});
    if (screen <= 2) {
        all.push_back({"Label27",
            {"2c                                       3a                          or    Station identification (RR S19)",
             "2c                                       3a                          ou    identification de la station (RR S19)",
             "2c                                       3a                           o    Identificación de la estación (RR S19)"},
            {"dUseDD", "callSign", "", "stateID"}});
        all.push_back({"Label51",
            {"9                 9a                           9ab      (from)            (to)              9c                       9g                           9j                                            9b",
             "9                 9a                           9ab         (de)             (à)                  9c                       9g                           9j                                           9b",
             "9                 9a                           9ab         (de)               (a)                9c                       9g                           9j                                            9b"},
            {"antDir", "azmMax", "rot", "max_fr", "max_to", "beamwdth", "gainType", "antRef", "elev"}});
    }
    if (screen <= 3)
        all.push_back({"Label33",
            {"4c  longitude              E/W    latitude                         N/S",
             "4c  longitude              E/W    latitude                         N/S",
             "4c  longitud                E/W    latitud                          N/S"},
            {"deg", "EW1", "Ldeg", "NS1"}});
    if (screen == 1)
        all.push_back({"Label67",
            {"5a Name of the location of the receiving station(s)                              5b",
             "5a Nom de l'emplacement de la/des station(s) de réception           5b",
             "5a Nombre del emplazamiento de la(s) estación(es) receptora(s)  5b"},
            {"Rsite1", "Rctry1"}});
    if (screen <= 2)
        all.push_back({"Label69",
            {"5c longitude                                 E/W          latitude                                      N/S",
             "5c longitude                                E/W           latitude                                       N/S",
             "5c longitud                                    E/W         latitud                                          N/S"},
            {"RDeg1", "REW1", "RLdeg1", "RNS1"}});
    if (screen == 2 || screen == 3)
        all.push_back({"Label7",
            {"5e  longitude               E/W    latitude                        N/S                         and                      5f Nominal Radius",
             "5e  longitude               E/W    latitude                        N/S                          et                      5f Rayon Nominal",
             "5e  longitud                E/W      latitud                          N/S                             y                       5f Radio Nominal"},
            {"RCDeg", "RCEW", "RCLdeg", "RCNS", "", "Rradius"}});
    if (screen == 4) {
        all.push_back({"Label33",
            {"4c  longitude              E/W    latitude                         N/S          and           4d",
             "4c  longitude              E/W    latitude                         N/S          et           4d",
             "4c  longitud               E/W    latitud                             N/S           y           4d"},
            {"deg", "EW1", "Ldeg", "NS1", "", "radius"}});
        all.push_back({"Label31",
            {"4e                                              or",
             "4e                                              ou",
             "4e                                              ó"},
            {"zoneID", ""}});
    }
    return all;
}
// clang-format on

} // namespace formLists
