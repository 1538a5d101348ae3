#include "recordMappingNotices.h"

#include "model/session.h"
#include "platform/hostFormat.h"

using namespace mapping;
using namespace screens;

namespace {

class RecordMappingNotice : public testing::Test
{
protected:
    FakeHost host;
};

struct Shown
{
    ScreenType screen;
    const char* fragment;
    const char* provision;
    const char* selected; // "" for none
};

std::string selectedProvision(const NoticeForm& form)
{
    for (const char* option : {"Prov1", "Prov2", "prov4"}) {
        if (form.isSelected(option))
            return option;
    }
    return "";
}

void expectProvision(NoticeForm& form, const Ntc& expected, const char* intent, const char* option)
{
    InitalizeNotice(form);
    form.setSelected(intent, true);
    form.setSelected(option, true);
    const auto notice = read(form);
    EXPECT_EQ(notice.fragment, expected.fragment) << option;
    EXPECT_EQ(notice.prov, expected.prov) << option << " with " << intent;
}

} // namespace

TEST_F(RecordMappingNotice, DatesAreShownAsNumbersWithoutLeadingZeros)
{
    NoticeForm form(ScreenType::T11);
    auto notice = bareNotice(ScreenType::T11, "ADD");
    notice.d_adm_ntc = "2024-05-03";
    notice.d_inuse = "2023/12/1";
    fillScreen(form, notice);
    EXPECT_EQ(form.text("dNtcDD"), "3");
    EXPECT_EQ(form.text("dNtcMM"), "5");
    EXPECT_EQ(form.text("dNtcYY"), "2024");
    EXPECT_EQ(form.text("dUseDD"), "1");
    EXPECT_EQ(form.text("dUseMM"), "12");
    EXPECT_EQ(form.text("dUseYY"), "2023");
}

TEST_F(RecordMappingNotice, ADateWithItsYearLastIsShownInTheOrderOfTheHost)
{
    NoticeForm form(ScreenType::T14);
    auto notice = bareNotice(ScreenType::T14, "ADD");
    notice.d_inuse = "03.05.2024";
    for (const auto& [locale, day] : {std::pair{"de_DE", "3"}, {"en_US", "5"}}) {
        platform::setHostLocale(locale);
        fillScreen(form, notice);
        EXPECT_EQ(form.text("dUseDD"), day) << locale;
    }
    platform::setHostLocale("");
}

TEST_F(RecordMappingNotice, TheDateReceivedKeepsItsZerosAndIsNotReadBack)
{
    NoticeForm form(ScreenType::T12);
    auto notice = bareNotice(ScreenType::T12, "ADD");
    notice.d_rcv = "2024-6-7";
    fillScreen(form, notice);
    EXPECT_EQ(form.text("TxtDateRcv"), "2024-06-07");
    fillNtcFromScreen(form, notice);
    EXPECT_EQ(notice.d_rcv, "2024-6-7");
}

TEST_F(RecordMappingNotice, TextThatIsNoDateFailsWhereItIsSplit)
{
    for (const auto member : {&Ntc::d_rcv, &Ntc::d_adm_ntc, &Ntc::d_inuse}) {
        NoticeForm form(ScreenType::T13);
        auto notice = bareNotice(ScreenType::T13, "ADD");
        notice.*member = "soon";
        EXPECT_FAILURE(5, fillScreen(form, notice));
    }
}

TEST_F(RecordMappingNotice, TextWithTwoDotsIsSplitAndItsWordsCountAsZero)
{
    NoticeForm form(ScreenType::T13);
    auto notice = bareNotice(ScreenType::T13, "ADD");
    notice.d_inuse = "a.04x.1999 or so";
    fillScreen(form, notice);
    EXPECT_EQ(form.text("dUseDD"), "0");
    EXPECT_EQ(form.text("dUseMM"), "4");
    EXPECT_EQ(form.text("dUseYY"), "1999");
}

TEST_F(RecordMappingNotice, ADateIsStoredAsTypedAndOnlyWhenAllThreePartsAreGiven)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        InitalizeNotice(form);
        for (const char* left : {"dNtcDD", "dNtcMM", "dNtcYY"}) {
            form.setText("dNtcDD", "03");
            form.setText("dNtcMM", "05");
            form.setText("dNtcYY", "2024");
            EXPECT_EQ(read(form).d_adm_ntc, "2024-05-03");
            form.setText(left, "");
            EXPECT_EQ(read(form).d_adm_ntc, "") << left;
        }
        form.setText("dUseDD", "1");
        form.setText("dUseMM", "12");
        form.setText("dUseYY", "2023");
        EXPECT_EQ(read(form).d_inuse, "2023-12-1");
    }
}

TEST_F(RecordMappingNotice, ABlankAdministrationLeavesTheOneOfTheRecord)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        InitalizeNotice(form);
        Ntc notice;
        notice.adm = "SUI";
        fillNtcFromScreen(form, notice);
        EXPECT_EQ(notice.adm, "SUI");
        form.setText("nAdm", "AUT");
        fillNtcFromScreen(form, notice);
        EXPECT_EQ(notice.adm, "AUT");
        EXPECT_TRUE(host.boxes.empty());
    }
}

TEST_F(RecordMappingNotice, EachIntentHasItsOptionAndAllButAddHaveATarget)
{
    for (const auto type : allScreens) {
        for (const auto& row : fields::intents) {
            NoticeForm form(type);
            fillScreen(form, bareNotice(type, row.word));
            EXPECT_TRUE(form.isSelected(row.control)) << row.control;
            const auto notice = read(form);
            EXPECT_EQ(notice.intent, row.word);
            EXPECT_EQ(notice.target.present, notice.intent != "ADD");
        }
    }
}

TEST_F(RecordMappingNotice, WithoutAnIntentNoneIsShownAndNoneStored)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        fillScreen(form, bareNotice(type, "add"));
        for (const auto& row : fields::intents)
            EXPECT_FALSE(form.isSelected(row.control));
        EXPECT_EQ(read(form).intent, "");
        EXPECT_FALSE(read(form).target.present);
    }
}

TEST_F(RecordMappingNotice, TheProvisionIsShownByFragmentOrByProvision)
{
    using enum ScreenType;
    // clang-format off
    const std::vector<Shown> cases{
        {T11, "NTFD_RR",  "",       "Prov1"}, {T12, "NTFD_RR",  "",       "Prov1"},
        {T11, "",         "S11.2",  "Prov1"}, {T12, "",         "S11.2",  "Prov1"},
        {T11, "",         "RR11.2", "Prov1"}, {T12, "",         "RR11.2", "Prov1"},
        {T11, "Req_agrt", "",       "Prov2"}, {T12, "Req_agrt", "",       "Prov2"},
        {T11, "RR9.21",   "",       "Prov2"}, {T12, "RR9.21",   "",       "Prov2"},
        {T11, "",         "S9.21",  "Prov2"}, {T12, "",         "S9.21",  "Prov2"},
        {T11, "",         "RR9.21", ""},      {T12, "",         "RR9.21", ""},
        {T11, "Req_agrt", "S11.2",  "Prov1"}, {T12, "GE85N",    "S9.21",  "Prov2"},
        {T11, "GE85N",    "GE85N",  ""},      {T12, "GE85N",    "",       "prov4"},
        {T11, "",         "",       ""},      {T12, "",         "GE85N",  "prov4"},
        {T13, "NTFD_RR",  "",       "Prov1"}, {T14, "NTFD_RR",  "",       "Prov1"},
        {T13, "",         "S11.9",  "Prov1"}, {T14, "",         "S11.17", "Prov1"},
        {T13, "",         "RR11.9", ""},      {T14, "",         "RR11.17", ""},
        {T13, "Req_agrt", "",       "Prov2"}, {T14, "Req_agrt", "",       ""},
        {T13, "",         "S9.21",  "Prov2"}, {T14, "",         "S9.21",  ""},
        {T13, "",         "RR9.21", ""},      {T13, "RR9.21",   "",       ""},
        {T13, "",         "S11.2",  ""},      {T14, "",         "",       ""},
    };
    // clang-format on
    for (const auto& row : cases) {
        NoticeForm form(row.screen);
        auto notice = bareNotice(row.screen, "ADD");
        notice.fragment = row.fragment;
        notice.prov = row.provision;
        fillScreen(form, notice);
        EXPECT_EQ(selectedProvision(form), row.selected)
            << nameOf(row.screen) << ' ' << row.fragment << ' ' << row.provision;
    }
}

TEST_F(RecordMappingNotice, TheProvisionIsStoredForAddAndModifyAndItsFragmentAlways)
{
    for (const auto& row : fields::provisions) {
        for (const auto type : allScreens) {
            if (!contains(row.screens, type))
                continue;
            NoticeForm form(type);
            Ntc expected;
            expected.fragment = row.fragment;
            expected.prov = row.provision;
            expectProvision(form, expected, "Int_Add", row.control);
            expectProvision(form, expected, "Int_Mod", row.control);
            expected.prov = "";
            expectProvision(form, expected, "Int_Sup", row.control);
            expectProvision(form, expected, "Int_Wdraw", row.control);
        }
    }
}

TEST_F(RecordMappingNotice, TheProvisionsThatAreStoredAreTheNewerWords)
{
    const auto provisionOf = [](ScreenType type, const char* option) {
        NoticeForm form(type);
        InitalizeNotice(form);
        form.setSelected("Int_Add", true);
        form.setSelected(option, true);
        const auto notice = read(form);
        return notice.fragment + " " + notice.prov;
    };
    EXPECT_EQ(provisionOf(ScreenType::T11, "Prov1"), "NTFD_RR RR11.2");
    EXPECT_EQ(provisionOf(ScreenType::T11, "Prov2"), "Req_agrt RR9.21");
    EXPECT_EQ(provisionOf(ScreenType::T12, "Prov1"), "NTFD_RR RR11.2");
    EXPECT_EQ(provisionOf(ScreenType::T12, "Prov2"), "Req_agrt RR9.21");
    EXPECT_EQ(provisionOf(ScreenType::T12, "prov4"), "GE85N GE85N");
    EXPECT_EQ(provisionOf(ScreenType::T13, "Prov1"), "NTFD_RR RR11.9");
    EXPECT_EQ(provisionOf(ScreenType::T13, "Prov2"), "Req_agrt RR9.21");
    EXPECT_EQ(provisionOf(ScreenType::T14, "Prov1"), "NTFD_RR RR11.17");
}

TEST_F(RecordMappingNotice, ResubmissionIsOneOfTwoOptionsOrNone)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12, ScreenType::T13}) {
        NoticeForm form(type);
        auto notice = bareNotice(type, "ADD");
        EXPECT_EQ(stored(form, notice).is_resub, "");
        notice.is_resub = "FALSE";
        EXPECT_EQ(stored(form, notice).is_resub, "FALSE");
        EXPECT_TRUE(form.isSelected("FirstNtf"));
        EXPECT_FALSE(form.isSelected("Re_Sub"));
        notice.is_resub = "TRUE";
        EXPECT_EQ(stored(form, notice).is_resub, "TRUE");
        EXPECT_FALSE(form.isSelected("FirstNtf"));
        EXPECT_TRUE(form.isSelected("Re_Sub"));
    }
}

TEST_F(RecordMappingNotice, AT14ScreenAlwaysStoresOneOfTheTwo)
{
    NoticeForm form(ScreenType::T14);
    auto notice = bareNotice(ScreenType::T14, "ADD");
    EXPECT_EQ(stored(form, notice).is_resub, "TRUE");
    EXPECT_FALSE(form.isSelected("FirstNtf"));
    notice.is_resub = "FALSE";
    EXPECT_EQ(stored(form, notice).is_resub, "FALSE");
    EXPECT_TRUE(form.isSelected("FirstNtf"));
}

TEST_F(RecordMappingNotice, TheOwnAssignmentIsShownForAddAndModifyAlone)
{
    for (const auto type : allScreens) {
        for (const auto& intent : fields::intents) {
            NoticeForm form(type);
            auto notice = bareNotice(type, intent.word);
            for (const auto& row : fields::assignmentPairs)
                notice.*row.member = "12";
            fillScreen(form, notice);
            const bool shown = notice.intent == "ADD" || notice.intent == "MODIFY";
            for (const auto& row : fields::assignmentPairs)
                EXPECT_EQ(form.text(row.control), shown && form.has(row.control) ? "12" : "") << row.control;
            EXPECT_EQ(form.text("Units1"), shown ? "M" : "");
        }
    }
}

TEST_F(RecordMappingNotice, TheTargetIsShownWhateverTheIntent)
{
    for (const auto type : allScreens) {
        for (const auto& intent : fields::intents) {
            NoticeForm form(type);
            auto notice = bareNotice(type, intent.word);
            notice.target.trg_freq_assgn = "7.5";
            notice.target.trg_long_ew = "W";
            notice.target.trg_zone_id = "EURA";
            fillScreen(form, notice);
            EXPECT_EQ(form.text("trgFreq"), "7.5");
            EXPECT_EQ(form.text("Unit"), "M");
            EXPECT_EQ(form.text("EW"), "W");
            EXPECT_EQ(form.text("trgZoneID"), type == ScreenType::T14 ? "EURA" : "");
        }
    }
}

TEST_F(RecordMappingNotice, ASuppressShowsItsFrequencyAsTheTargetsAloneAndNoAntenna)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto notice = aNotice(nameOf(type), "SUPPRESS").withAntennas(2, 0, 0).build();
        notice.d_adm_ntc = notice.d_inuse = notice.d_rcv = "01.01.2024";
        notice.target.trg_freq_assgn = "151.3375";
        fillScreen(form, notice);
        EXPECT_EQ(form.text("freq"), "");
        EXPECT_EQ(form.text("trgFreq"), "151.3375");
        EXPECT_EQ(form.text("TxtAntennaCnt"), "0");
        EXPECT_EQ(form.text("pwrant"), "");
        EXPECT_FALSE(isEnabled(form, "ButtonNextAnt"));
        EXPECT_FALSE(isEnabled(form, "ButtonPrevAnt"));
        EXPECT_EQ(host.beeps, 0);
    }
}

TEST_F(RecordMappingNotice, FrequenciesAreStoredInMegahertzByTheirUnit)
{
    struct Case
    {
        const char* text;
        const char* unit;
        const char* megahertz;
    };
    for (const auto type : allScreens) {
        NoticeForm form(type);
        for (const auto& row :
             {Case{"1500", "K", "1.5"}, Case{"1500", "k", "1.5"}, Case{"7", "M", "7"},
              Case{"2.50", "G", "2500"}, Case{"7", "", "0"}, Case{"7", "X", "0"}, Case{"", "M", ""},
              Case{"", "", ""}, Case{"12a", "M", "12"}, Case{"abc", "M", "0"}, Case{"1E3", "M", "1000"},
              Case{"-.5", "M", "-0.5"}, Case{"1", "k", "0.001"}, Case{"0.1", "k", "0.0001"}}) {
            InitalizeNotice(form);
            form.setSelected("Int_Mod", true);
            for (const char* control : {"freq", "trgFreq", "freqCarr"})
                form.setText(control, row.text);
            for (const char* unit : {"Units1", "Unit", "Units2"})
                form.setText(unit, row.unit);
            const auto notice = read(form);
            EXPECT_EQ(notice.freq_assgn, row.megahertz) << row.text << row.unit;
            EXPECT_EQ(notice.target.trg_freq_assgn, row.megahertz) << row.text << row.unit;
            EXPECT_EQ(notice.freq_carr, row.megahertz) << row.text << row.unit;
        }
    }
}

TEST_F(RecordMappingNotice, AFrequencyThatNoNumberHoldsOverflows)
{
    NoticeForm form(ScreenType::T11);
    InitalizeNotice(form);
    form.setText("freq", "1E400");
    form.setText("Units1", "M");
    EXPECT_FAILURE(6, read(form));
    form.setText("freq", "1E308");
    form.setText("Units1", "G");
    EXPECT_FAILURE(6, read(form));
}

TEST_F(RecordMappingNotice, AnEmptyFrequencyIsShownWithoutAUnit)
{
    NoticeForm form(ScreenType::T11);
    fillScreen(form, bareNotice(ScreenType::T11, "MODIFY"));
    for (const char* control : {"freq", "Units1", "trgFreq", "Unit", "freqCarr", "Units2"})
        EXPECT_EQ(form.text(control), "") << control;
}

TEST_F(RecordMappingNotice, ListsTakeTheirEntriesWithoutGapsAndShowTheFirst)
{
    NoticeForm form(ScreenType::T11);
    auto notice = bareNotice(ScreenType::T11, "ADD");
    notice.nat_srv = {"", "CP", "", "CO", "CP", ""};
    fillScreen(form, notice);
    EXPECT_EQ(entries(form, "natsrv"), (std::vector<std::string>{"CP", "CO", "CP"}));
    EXPECT_EQ(form.text("natsrv"), "CP");
    EXPECT_EQ(form.multiValueBox("natsrv")->selectedEntry(), 0);
    EXPECT_EQ(read(form).nat_srv, (std::array<std::string, 6>{"CP", "CO", "CP", "", "", ""}));
}

TEST_F(RecordMappingNotice, TextLeftInABoxWithoutEnterIsNotStored)
{
    NoticeForm form(ScreenType::T12);
    InitalizeNotice(form);
    form.setText("callSign", "HB9XYZ");
    EXPECT_EQ(read(form).call_sign[0], "");
}

TEST_F(RecordMappingNotice, ASeventhEntryIsToldAndNoneOfItsListIsStored)
{
    for (const auto type : allScreens) {
        for (const auto& row : fields::lists) {
            if (!contains(row.screens, type))
                continue;
            const FakeHost watched;
            NoticeForm form(type);
            InitalizeNotice(form);
            for (const auto& other : fields::lists) {
                if (contains(other.screens, type))
                    setEntries(form, other.control, numbered("E", 6));
            }
            setEntries(form, row.control, numbered("E", 7));
            form.setText("addr_cde", "B");

            const auto notice = read(form);

            EXPECT_EQ(watched.boxes, std::vector{tooManyBox}) << row.control;
            EXPECT_EQ(watched.beeps, 1);
            EXPECT_EQ(focusOf(form), row.control);
            for (const auto& other : fields::lists) {
                const bool isStored = contains(other.screens, type) && other.control != row.control;
                EXPECT_EQ((notice.*other.member)[0], isStored ? "E1" : "") << other.control;
                EXPECT_EQ((notice.*other.member)[5], isStored ? "E6" : "") << other.control;
            }
            EXPECT_EQ(entries(form, row.control), numbered("E", 7));
            EXPECT_EQ(notice.addr_code, "B");
        }
    }
}

TEST_F(RecordMappingNotice, TheBoxAboutEntriesHasAFrenchTitleAndEnglishWords)
{
    NoticeForm form(ScreenType::T11);
    InitalizeNotice(form);
    setEntries(form, "opAgcy", numbered("E", 7));
    for (const auto& [language, title] : {std::pair{"F", "Erreur"}, {"S", "Error"}, {"E", "Error"}}) {
        host.boxes.clear();
        session::language = language;
        (void)read(form);
        ASSERT_EQ(host.boxes.size(), 1U);
        EXPECT_EQ(host.boxes[0].title, title);
        EXPECT_EQ(host.boxes[0].text, tooManyBox.text);
    }
    session::language = {};
}

TEST_F(RecordMappingNotice, CoordinationIsShownOnlyWhenPresent)
{
    NoticeForm form(ScreenType::T14);
    auto notice = bareNotice(ScreenType::T14, "ADD");
    notice.coord.coord_prov = "RR9";
    notice.coord.adm[0] = "F";
    fillScreen(form, notice);
    EXPECT_EQ(form.text("coordProv"), "");
    EXPECT_EQ(form.text("cAdm1"), "");
}

TEST_F(RecordMappingNotice, AnyFilledCoordinationBoxMakesItPresentButTheLastThree)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        for (const auto& control : {"coordProv", "cAdm1", "cAdm10", "cAdm11", "cAdm12", "cAdm13"}) {
            InitalizeNotice(form);
            form.setText(control, "F");
            const auto number = std::string(control).substr(1);
            const bool kept = number != "Adm11" && number != "Adm12" && number != "Adm13";
            EXPECT_EQ(read(form).coord.present, kept) << control;
            EXPECT_EQ(read(form).coord == NtcCoord{}, !kept) << control;
        }
    }
}

TEST_F(RecordMappingNotice, RemarksLoseAllButTheirLastTwoLines)
{
    NoticeForm form(ScreenType::T13);
    auto notice = bareNotice(ScreenType::T13, "ADD");
    notice.rmk_text = "first;second";
    fillScreen(form, notice);
    EXPECT_EQ(form.text("TxtRemarks"), "first;second");
    EXPECT_EQ(read(form).rmk_text, "first;second");
    form.setText("TxtRemarks", "a\r\nb\r\nc");
    EXPECT_EQ(form.text("TxtRemarks"), "a\r\nb\r\nc");
    EXPECT_EQ(read(form).rmk_text, "bc");
    form.setText("TxtRemarks", "a\r\n");
    EXPECT_EQ(read(form).rmk_text, "a");
}

TEST_F(RecordMappingNotice, ASiteThatIsNotPresentIsNotShownAndIsStoredAsPresent)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto notice = bareNotice(type, "ADD");
        notice.geo.site_name = "BERN";
        notice.geo.radius = "5";
        notice.geo.pt[0] = aPoint(1);
        notice = stored(form, notice);
        NtcGeo expected;
        expected.present = true;
        expected.pt[0].present = true;
        EXPECT_TRUE(notice.geo == expected) << nameOf(type);
    }
}

TEST_F(RecordMappingNotice, AT14ScreenShowsItsAreaForAddAndModifyAloneTheOthersAlways)
{
    for (const auto type : allScreens) {
        for (const auto& intent : fields::intents) {
            NoticeForm form(type);
            auto notice = bareNotice(type, intent.word);
            notice.geo.present = true;
            notice.geo.zone_id = "EURA";
            notice.geo.radius = "5";
            notice.geo.pt[0].long_deg = "007";
            fillScreen(form, notice);
            const bool adds = notice.intent == "ADD" || notice.intent == "MODIFY";
            EXPECT_EQ(form.text("deg"), adds || type != ScreenType::T14 ? "007" : "");
            EXPECT_EQ(form.text("zoneID"), adds && type == ScreenType::T14 ? "EURA" : "");
            EXPECT_EQ(form.text("radius"), adds && type == ScreenType::T14 ? "5" : "");
        }
    }
}

TEST_F(RecordMappingNotice, TheStationTypeStaysWhatItWas)
{
    NoticeForm form(ScreenType::T13);
    auto notice = bareNotice(ScreenType::T13, "ADD");
    notice.stn_type = "RX";
    notice = stored(form, notice);
    EXPECT_EQ(notice.stn_type, "RX");
    EXPECT_EQ(notice.notice_typ, "T13");
}
