#include "recordMappingNotices.h"

using namespace mapping;
using namespace screens;

namespace {

constexpr std::array otherIntents{"Int_Mod", "Int_Sup", "Int_Wdraw"};

bool takesBack(const std::string& intent)
{
    return intent == "Int_Sup" || intent == "Int_Wdraw";
}

void start(NoticeForm& form, const char* intent)
{
    InitalizeNotice(form);
    form.setSelected(intent, true);
}

template <class Record>
void put(const NoticeForm& form, const fields::PairRow<Record>& row, const char* own, const char* target)
{
    form.setText(row.control, own);
    form.setText(row.target, target);
    if (row.unit) {
        form.setText(row.unit, "M");
        form.setText(row.targetUnit, "M");
    }
}

// Walks all pairs of the screen with a way to the record that holds the own value.
template <class Visit>
void forPairs(ScreenType type, Visit visit)
{
    const auto walk = [&](const auto& rows, auto locate) {
        for (const auto& row : rows) {
            if (contains(row.screens, type))
                visit(row, locate);
        }
    };
    walk(fields::assignmentPairs, [](Ntc& n) -> Ntc& { return n; });
    walk(fields::positionPairs, [](Ntc& n) -> NtcGeoPt& { return n.geo.pt[0]; });
    walk(fields::zonePairs, [](Ntc& n) -> NtcGeo& { return n.geo; });
}

int pairsOf(ScreenType type)
{
    int count = 0;
    forPairs(type, [&](const auto&, auto) { ++count; });
    return count;
}

std::string geoTypeOf(const std::vector<std::string>& filled)
{
    NoticeForm form(ScreenType::T14);
    start(form, "Int_Add");
    for (const auto& control : filled)
        form.setText(control, "1");
    return read(form).geo.geo_type;
}

} // namespace

TEST(RecordMappingTarget, ThePairsAreThoseOfTheScreen)
{
    EXPECT_EQ(pairsOf(ScreenType::T11), 16);
    EXPECT_EQ(pairsOf(ScreenType::T12), 15);
    EXPECT_EQ(pairsOf(ScreenType::T13), 15);
    EXPECT_EQ(pairsOf(ScreenType::T14), 16);
}

TEST(RecordMappingTarget, AnEmptyTargetTakesTheNoticesValueButForTheReference)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        for (const auto* intent : otherIntents) {
            forPairs(type, [&](const auto& row, auto locate) {
                start(form, intent);
                put(form, row, "12", "");
                auto notice = read(form);
                const bool isReference = std::string(row.control) == "admRefID";
                EXPECT_EQ(notice.target.*row.targetMember, isReference ? "" : "12") << row.control;
                EXPECT_EQ(locate(notice).*row.member, isReference && takesBack(intent) ? "" : "12")
                    << row.control << " with " << intent;
            });
        }
    }
}

TEST(RecordMappingTarget, WithSuppressAndWithdrawTheTargetsValueIsTheNotices)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        for (const auto* intent : otherIntents) {
            forPairs(type, [&](const auto& row, auto locate) {
                start(form, intent);
                put(form, row, "12", "34");
                auto notice = read(form);
                EXPECT_EQ(notice.target.*row.targetMember, "34") << row.control;
                EXPECT_EQ(locate(notice).*row.member, takesBack(intent) ? "34" : "12") << row.control;
            });
        }
    }
}

TEST(RecordMappingTarget, AnAddBlanksItsTargetFieldsBeforeTheyAreRead)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        forPairs(type, [&](const auto& row, auto locate) {
            start(form, "Int_Add");
            put(form, row, "12", "34");
            auto notice = read(form);
            EXPECT_TRUE(notice.target == NtcTarget{}) << row.control;
            EXPECT_EQ(locate(notice).*row.member, "12") << row.control;
            EXPECT_EQ(form.text(row.target), "") << row.target;
            EXPECT_EQ(form.text("Unit"), "");
        });
    }
}

TEST(RecordMappingTarget, WithoutAnIntentATargetIsStoredAsTypedAndNotPresent)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        forPairs(type, [&](const auto& row, auto locate) {
            InitalizeNotice(form);
            put(form, row, "12", "34");
            auto notice = read(form);
            EXPECT_FALSE(notice.target.present);
            EXPECT_EQ(notice.target.*row.targetMember, "34") << row.control;
            EXPECT_EQ(locate(notice).*row.member, "12") << row.control;
            put(form, row, "12", "");
            EXPECT_EQ(read(form).target.*row.targetMember, "") << row.control;
        });
    }
}

TEST(RecordMappingTarget, AnEmptyTargetFrequencyTakesTheConvertedOne)
{
    NoticeForm form(ScreenType::T11);
    start(form, "Int_Mod");
    form.setText("freq", "1500");
    form.setText("Units1", "K");
    form.setText("Unit", "G");
    EXPECT_EQ(read(form).target.trg_freq_assgn, "1.5");
    EXPECT_EQ(read(form).freq_assgn, "1.5");
}

TEST(RecordMappingTarget, AStoredSuppressHoldsItsTargetsValuesAsItsOwn)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto notice = aNotice(nameOf(type), "SUPPRESS").build();
        notice.d_adm_ntc = notice.d_inuse = notice.d_rcv = "01.01.2024";
        notice.target.trg_freq_assgn = "7.5";
        notice.target.trg_long_deg = "123";
        notice.target.trg_zone_id = "EURA";
        notice = stored(form, notice);
        EXPECT_EQ(notice.freq_assgn, "7.5");
        EXPECT_EQ(notice.adm_ref_id, "trg_adm_ref_id t");
        EXPECT_EQ(notice.geo.pt[0].long_deg, "123");
        EXPECT_EQ(notice.geo.zone_id, type == ScreenType::T14 ? "EURA" : "");
        EXPECT_EQ(notice.op_cls, type == ScreenType::T11 ? notice.target.trg_op_cls : "");
    }
}

TEST(RecordMappingTarget, TheGeoTypeOfT14FollowsFromWhatIsFilledAndTheLaterWins)
{
    EXPECT_EQ(geoTypeOf({}), "");
    EXPECT_EQ(geoTypeOf({"radius"}), "CIRCLE");
    EXPECT_EQ(geoTypeOf({"zoneID"}), "ZONE");
    EXPECT_EQ(geoTypeOf({"radius", "zoneID"}), "ZONE");
    for (const auto& row : fields::positionPairs) {
        EXPECT_EQ(geoTypeOf({row.control}), "CIRCLE") << row.control;
        EXPECT_EQ(geoTypeOf({"radius", "zoneID", row.control}), "CIRCLE") << row.control;
    }
}

TEST(RecordMappingTarget, TheTargetsGeoTypeOfT14IsTheDerivedOne)
{
    NoticeForm form(ScreenType::T14);
    for (const auto* intent : otherIntents) {
        start(form, intent);
        form.setText("zoneID", "EURA");
        auto notice = read(form);
        EXPECT_EQ(notice.geo.geo_type, "ZONE") << intent;
        EXPECT_EQ(notice.target.trg_geo_type, "ZONE") << intent;
    }
    start(form, "Int_Sup"); // a zone of the target alone gives the notice its zone and no type
    form.setText("trgZoneID", "EURA");
    auto notice = read(form);
    EXPECT_EQ(notice.geo.zone_id, "EURA");
    EXPECT_EQ(notice.geo.geo_type, "");
    EXPECT_EQ(notice.target.trg_geo_type, "");
    start(form, "Int_Add");
    form.setText("zoneID", "EURA");
    EXPECT_EQ(read(form).target.trg_geo_type, "");
}

TEST(RecordMappingTarget, ThreeScreensStoreNoGeoTypeOfTheirOwn)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12, ScreenType::T13}) {
        NoticeForm form(type);
        start(form, "Int_Mod");
        form.setText("deg", "007");
        const auto notice = read(form);
        EXPECT_EQ(notice.geo.geo_type, "");
        EXPECT_EQ(notice.target.trg_geo_type, "");
        EXPECT_TRUE(notice.geo.present);
        EXPECT_TRUE(notice.geo.pt[0].present);
    }
}
