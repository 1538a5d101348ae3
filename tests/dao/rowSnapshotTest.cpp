#include "dao/dao.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

using dao::dbOpenDynaset;
using dao::Null;

namespace {

const std::string points = "SELECT geo_key, lat_ns, lat_sec, site_kind, freq FROM points";

class RowsInMemory : public testing::Test
{
protected:
    RowsInMemory()
    {
        work.execute("CREATE TABLE points (geo_key INTEGER, lat_ns TEXT, lat_sec SMALLINT, site_kind TEXT, "
                     "freq DOUBLE)");
    }

    void addPoints(int count) const
    {
        for (int number = 1; number <= count; ++number)
            work.execute("INSERT INTO points VALUES (" + std::to_string(number * 10) + ", 'N', " +
                         std::to_string(number) + ", NULL, " + std::to_string(number) + ".5)");
    }

    // Opened when the rows stand in the file.
    dao::Ref<dao::Recordset> open()
    {
        if (!database)
            database = work.open(true);
        return database->OpenRecordset(points, dbOpenDynaset);
    }

    [[nodiscard]] bool canBeLockedByAnother() const
    {
        try {
            work.execute("PRAGMA busy_timeout = 0; BEGIN EXCLUSIVE; ROLLBACK");
        } catch (const std::exception&) {
            return false;
        }
        return true;
    }

    WorkingDatabase work;
    dao::Ref<dao::Database> database;
};

using Snapshot = RowsInMemory;
using FindFirst = RowsInMemory;

struct Criterion
{
    const char* name;
    const char* text;
    int row; // 0: none
};
class FindFirstBy : public RowsInMemory, public testing::WithParamInterface<Criterion>
{};

struct Refusal
{
    const char* name;
    const char* text;
    int number;
};
class FindFirstRefuses : public RowsInMemory, public testing::WithParamInterface<Refusal>
{};

} // namespace

TEST_F(Snapshot, HoldsTheNamesTheTypesAndTheValuesOfAllRows)
{
    addPoints(3);
    const auto rows = open()->snapshot();
    ASSERT_EQ(rows->rowCount(), 3U);
    ASSERT_EQ(rows->columnCount(), 5U);
    EXPECT_EQ(rows->fieldName(0), "geo_key");
    EXPECT_EQ(rows->fieldName(4), "freq");
    EXPECT_EQ(rows->fieldType(0), dao::DataType::dbLong);
    EXPECT_EQ(rows->fieldType(1), dao::DataType::dbText);
    EXPECT_EQ(rows->fieldType(2), dao::DataType::dbInteger);
    EXPECT_EQ(rows->fieldType(4), dao::DataType::dbDouble);
    EXPECT_EQ(rows->value(2, 0), std::int32_t{30});
    EXPECT_EQ(rows->value(1, 1), "N");
    EXPECT_EQ(rows->value(0, 2), std::int16_t{1});
    EXPECT_EQ(rows->value(1, 3), Null);
    EXPECT_EQ(rows->value(2, 4), 3.5);
}

TEST_F(Snapshot, OfAnEmptyResultHasNamesAndNoRows)
{
    const auto recordset = open();
    const auto rows = recordset->snapshot();
    EXPECT_EQ(rows->rowCount(), 0U);
    EXPECT_EQ(rows->fieldName(1), "lat_ns");
    EXPECT_EQ(recordset->RecordCount(), 0);
    EXPECT_TRUE(recordset->EOF_());
}

TEST_F(Snapshot, FailsBesideItsRowsAndColumns)
{
    addPoints(2);
    const auto rows = open()->snapshot();
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(rows->value(2, 0)));
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(rows->value(0, 5)));
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(rows->fieldName(5)));
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(rows->fieldType(5)));
}

TEST_F(Snapshot, LeavesTheCurrentRowAndTheCountOfRowsVisited)
{
    addPoints(4);
    const auto recordset = open();
    static_cast<void>(recordset->snapshot());
    EXPECT_EQ(recordset->RecordCount(), 1);
    EXPECT_EQ(recordset->Fields("geo_key"), std::int32_t{10});

    const auto walked = open();
    walked->MoveNext();
    walked->MoveNext();
    EXPECT_EQ(walked->snapshot()->rowCount(), 4U);
    EXPECT_EQ(walked->RecordCount(), 3);
    EXPECT_EQ(walked->Fields("geo_key"), std::int32_t{30});
    walked->MoveNext();
    EXPECT_EQ(walked->Fields("geo_key"), std::int32_t{40});
    walked->MoveNext();
    EXPECT_TRUE(walked->EOF_());
    EXPECT_EQ(walked->RecordCount(), 4);
    walked->MoveFirst();
    EXPECT_EQ(walked->Fields("geo_key"), std::int32_t{10});
}

TEST_F(Snapshot, BehindTheLastRowItStaysThere)
{
    addPoints(2);
    const auto recordset = open();
    while (!recordset->EOF_())
        recordset->MoveNext();
    EXPECT_EQ(recordset->snapshot()->rowCount(), 2U);
    EXPECT_TRUE(recordset->EOF_());
    EXPECT_EQ(recordset->RecordCount(), 2);
}

TEST_F(Snapshot, OutlivesTheRecordsetAndItsDatabase)
{
    addPoints(2);
    std::shared_ptr<const dao::RowSnapshot> rows;
    {
        const auto recordset = open();
        rows = recordset->snapshot();
        recordset->Close();
        database->Close();
        database.reset();
    }
    EXPECT_EQ(rows->value(1, 0), std::int32_t{20});
    EXPECT_EQ(rows->fieldName(0), "geo_key");
}

TEST_F(Snapshot, EndsTheStatementSoThatNoLockStays)
{
    addPoints(2);
    const auto recordset = open();
    EXPECT_FALSE(canBeLockedByAnother()) << "a walk that has begun holds the lock of a reader";
    static_cast<void>(recordset->snapshot());
    EXPECT_TRUE(canBeLockedByAnother());
}

TEST_F(Snapshot, OfAClosedRecordsetIsFailure3420)
{
    const auto recordset = open();
    recordset->Close();
    EXPECT_FAILURE(3420, static_cast<void>(recordset->snapshot()));
    EXPECT_FAILURE(3420, recordset->FindFirst("geo_key = 1"));
}

TEST_P(FindFirstBy, GoesToTheFirstSuchRow)
{
    addPoints(4);
    work.execute("INSERT INTO points VALUES (-7, '20', 1, NULL, 0)");
    const auto recordset = open();
    recordset->FindFirst(GetParam().text);
    EXPECT_EQ(recordset->NoMatch(), GetParam().row == 0);
    const auto expected = GetParam().row == 0 ? 10 : GetParam().row == 5 ? -7 : GetParam().row * 10;
    EXPECT_EQ(recordset->Fields("geo_key"), std::int32_t{expected});
}

INSTANTIATE_TEST_SUITE_P(Criteria, FindFirstBy,
                         testing::Values(Criterion{"OfAKey", "geo_key = 30", 3},
                                         Criterion{"OfTheFirstOfSeveral", "lat_sec = 1", 1},
                                         Criterion{"WithoutBlanks", "geo_key=20", 2},
                                         Criterion{"WithBlanksAround", "  GEO_KEY   =   40  ", 4},
                                         Criterion{"WithASign", "geo_key = -7", 5},
                                         Criterion{"WithAPlusSign", "geo_key = +20", 2},
                                         Criterion{"OfAFraction", "freq = 2.5", 2},
                                         Criterion{"OfAKeyThatIsNotThere", "geo_key = 31", 0},
                                         Criterion{"TextIsNoNumber", "lat_ns = 20", 0},
                                         Criterion{"NullIsNoNumber", "site_kind = 0", 0}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(FindFirstRefuses, WithTheEnginesNumberAndTheRowStays)
{
    addPoints(2);
    const auto recordset = open();
    recordset->MoveNext();
    EXPECT_FAILURE(GetParam().number, recordset->FindFirst(GetParam().text));
    EXPECT_EQ(recordset->Fields("geo_key"), std::int32_t{20});
}

INSTANTIATE_TEST_SUITE_P(Criteria, FindFirstRefuses,
                         testing::Values(Refusal{"AnUnknownColumn", "veldakey = 7", 3070},
                                         Refusal{"NothingToCompareWith", "geo_key =", 3077},
                                         Refusal{"Text", "lat_ns = 'N'", 3077},
                                         Refusal{"AnotherComparison", "geo_key >= 7", 3077},
                                         Refusal{"TwoCriteria", "geo_key = 7 OR geo_key = 8", 3077},
                                         Refusal{"NoColumn", "= 7", 3077}, Refusal{"Nothing", "", 3077},
                                         Refusal{"NoComparison", "geo_key", 3077}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FindFirst, BeginsAtTheFirstRowWhereverTheWalkStands)
{
    addPoints(3);
    const auto recordset = open();
    recordset->MoveLast();
    recordset->FindFirst("geo_key = 10");
    EXPECT_FALSE(recordset->NoMatch());
    EXPECT_EQ(recordset->Fields("geo_key"), std::int32_t{10});
    recordset->MoveNext();
    EXPECT_EQ(recordset->Fields("geo_key"), std::int32_t{20});
}

TEST_F(FindFirst, CountsTheRowsUpToTheOneFoundAsVisited)
{
    addPoints(4);
    const auto recordset = open();
    recordset->FindFirst("geo_key = 99");
    EXPECT_EQ(recordset->RecordCount(), 1) << "the row stays";
    recordset->FindFirst("geo_key = 30");
    EXPECT_EQ(recordset->RecordCount(), 3);
}

TEST_F(FindFirst, ThePlaceOfTheRowFoundIsCountedFromZero)
{
    addPoints(3);
    const auto recordset = open();
    EXPECT_EQ(recordset->AbsolutePosition(), 0);
    recordset->FindFirst("geo_key = 30");
    EXPECT_EQ(recordset->AbsolutePosition(), 2);
    recordset->MoveNext();
    EXPECT_EQ(recordset->AbsolutePosition(), -1);
}

TEST_F(FindFirst, AMatchAfterNoMatchIsTold)
{
    addPoints(1);
    const auto recordset = open();
    EXPECT_FALSE(recordset->NoMatch()) << "nothing was looked for yet";
    recordset->FindFirst("geo_key = 99");
    EXPECT_TRUE(recordset->NoMatch());
    recordset->FindFirst("geo_key = 10");
    EXPECT_FALSE(recordset->NoMatch());
}

TEST_F(FindFirst, OnAnEmptyResultMatchesNothing)
{
    const auto recordset = open();
    recordset->FindFirst("geo_key = 10");
    EXPECT_TRUE(recordset->NoMatch());
    EXPECT_TRUE(recordset->EOF_());
}
