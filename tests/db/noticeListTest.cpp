#include "db/noticeList.h"

#include "support/noticeDatabase.h"

namespace {

using Keys = std::vector<std::int32_t>;

class NoticeList : public NoticeDatabase
{
protected:
    NoticeList()
    {
        session::keyArray = {99};
        session::keyCount = 1;
        session::firstKey = session::lastKey = 99;
    }

    dao::Ref<dao::Recordset> open(const std::string& where = "",
                                  noticeList::Sort sort = noticeList::Sort::Index)
    {
        return database->OpenRecordset(noticeList::buildNoticeQuery(where, sort), dao::dbOpenDynaset);
    }

    Ntc noticeOf(const std::string& adm, const std::string& frequency)
    {
        auto ntc = aNotice().build();
        ntc.adm = adm;
        ntc.freq_assgn = frequency;
        return ntc;
    }
};

} // namespace

TEST_F(NoticeList, TheQueryIsThisTextOrderedByIndexOrByAdministrationAndFrequency)
{
    const std::string columns =
        "SELECT DISTINCT kvr_velda.veldakey, kvr_pub_hist.pub_no, kvr_velda.fragment, kvr_velda.adm, "
        "kvr_velda.freq_assgn, kvr_velda.stn_cls, kvr_velda.notice_typ, kvr_velda.intent, "
        "kvr_velda.adm_ref_id, "
        "kvr_geo.site_name, kvr_geo.ctry, kvr_geo_pt.long_deg , kvr_geo_pt.long_min, kvr_geo_pt.long_sec , "
        "kvr_geo_pt.long_ew, kvr_geo_pt.lat_deg , kvr_geo_pt.lat_min, kvr_geo_pt.lat_sec , kvr_geo_pt.lat_ns "
        "FROM "
        "(kvr_geo LEFT JOIN kvr_geo_pt ON kvr_geo.geo_key = kvr_geo_pt.geo_key) INNER JOIN (kvr_velda LEFT "
        "JOIN "
        "kvr_pub_hist ON kvr_velda.veldakey = kvr_pub_hist.veldakey) ON kvr_geo.geo_key = kvr_velda.geo_key ";
    EXPECT_EQ(noticeList::buildNoticeQuery("", noticeList::Sort::Index),
              columns + "ORDER BY kvr_velda.veldakey ");
    EXPECT_EQ(noticeList::buildNoticeQuery("WHERE kvr_velda.intent = 'ADD' ", noticeList::Sort::AdmFreq),
              columns + "WHERE kvr_velda.intent = 'ADD' ORDER BY kvr_velda.adm, kvr_velda.freq_assgn, "
                        "kvr_velda.veldakey ");
}

TEST_F(NoticeList, TheColumnsAreThoseOfTheQueryHeadedByTheirFieldNames)
{
    EXPECT_EQ(open()->fieldNames(),
              (std::vector<std::string>{"veldakey", "pub_no", "fragment", "adm", "freq_assgn", "stn_cls",
                                        "notice_typ", "intent", "adm_ref_id", "site_name", "ctry", "long_deg",
                                        "long_min", "long_sec", "long_ew", "lat_deg", "lat_min", "lat_sec",
                                        "lat_ns"}));
}

TEST_F(NoticeList, AnEmptyDatabaseGivesNoKeysAndLeavesFirstAndLast)
{
    noticeList::loadNoticeKeys(open());
    EXPECT_EQ(session::keyCount, 0);
    EXPECT_EQ(session::keyArray, Keys{99}) << "the count alone tells that there are none";
    EXPECT_EQ(session::firstKey, 99);
    EXPECT_EQ(session::lastKey, 99);
}

TEST_F(NoticeList, ANoticeWithTwoPointsStandsInTwoRowsWithTheSameKey)
{
    insert(aNotice().build());
    insert(aNotice().withPoints(2).build());
    insert(aNotice().build());
    const auto rows = open();
    noticeList::loadNoticeKeys(rows);
    EXPECT_EQ(session::keyArray, (Keys{1, 2, 2, 3}));
    EXPECT_EQ(session::keyCount, 4);
    EXPECT_EQ(session::firstKey, 1);
    EXPECT_EQ(session::lastKey, 3);
    EXPECT_EQ(rows->Fields("veldakey"), std::int32_t{1}) << "the rows stand at the first one again";
}

TEST_F(NoticeList, PointsOfANoticeStandInTheOrderOfInsertionInBothSorts)
{
    insert(aNotice().withPoints(6).build());
    work.execute(
        "UPDATE kvr_geo_pt SET lat_sec = (geo_pt * 5) % 7, long_deg = 0, long_min = 0, long_sec = 0, "
        "lat_deg = 0, lat_min = 0");
    for (const auto sort : {noticeList::Sort::Index, noticeList::Sort::AdmFreq}) {
        std::string seconds;
        for (const auto& rows = open("", sort); !rows->EOF_(); rows->MoveNext())
            seconds += rows->Fields("lat_sec").text() + " ";
        EXPECT_EQ(seconds, "5 3 1 6 4 2 ");
    }
}

TEST_F(NoticeList, ByAdministrationAndFrequencyTheKeysFollow)
{
    insert(noticeOf("ZZZ", "1"));
    insert(noticeOf("aaa", "20"));
    insert(noticeOf("AAA", "3"));
    insert(noticeOf("", "3"));
    noticeList::loadNoticeKeys(open("", noticeList::Sort::AdmFreq));
    EXPECT_EQ(session::keyArray, (Keys{4, 3, 2, 1}));
}

TEST_F(NoticeList, TheFilterNarrowsTheList)
{
    insert(aNotice("T11").build());
    insert(aNotice("T12", "MODIFY").build());
    insert(aNotice("T13").build());
    noticeList::loadNoticeKeys(open("WHERE kvr_velda.notice_typ = 'T11' OR kvr_velda.notice_typ = 'T12'  "));
    EXPECT_EQ(session::keyArray, (Keys{1, 2}));
    noticeList::loadNoticeKeys(open("WHERE kvr_velda.intent = 'MODIFY' "));
    EXPECT_EQ(session::keyArray, Keys{2});
}

TEST_F(NoticeList, ANoticeWithoutASiteRowIsNotListed)
{
    auto ntc = aNotice().build();
    ntc.geo.present = false;
    insert(ntc);
    insert(aNotice().build());
    noticeList::loadNoticeKeys(open());
    EXPECT_EQ(session::keyArray, Keys{2});
}

TEST_F(NoticeList, AKeyThatIsNoneFailsAndTheArrayIsAsLongAsItsCount)
{
    for (int number = 0; number < 4; ++number)
        insert(aNotice().build());
    work.execute("UPDATE kvr_velda SET veldakey = 3000000000 WHERE veldakey = 3");
    EXPECT_FAILURE(6, noticeList::loadNoticeKeys(open()));
    EXPECT_EQ(static_cast<std::size_t>(session::keyCount), session::keyArray.size());
}

TEST_F(NoticeList, TheCurrentKeyIsLookedForAmongTheKeysAlone)
{
    session::keyCount = 2;
    session::currentVeldaKey = 7;
    EXPECT_FAILURE(platform::errSubscript, noticeList::locateCurrentKey());
}

TEST_F(NoticeList, ANoticeWithTwoPublicationsStandsInTwoRows)
{
    insert(aNotice().build());
    work.execute("INSERT INTO kvr_pub_hist VALUES (1, '2401'), (1, '2402')");
    noticeList::loadNoticeKeys(open());
    EXPECT_EQ(session::keyArray, (Keys{1, 1}));
}
