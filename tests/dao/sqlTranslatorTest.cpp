#include "dao/sqlTranslator.h"
#include "platform/runtimeError.h"

#include <gtest/gtest.h>

using dao::DataType;
using dao::translateQuery;

TEST(SqlTranslator, DeclaredParametersBecomeNumberedOnesInTheOrderOfTheirDeclaration)
{
    const auto query =
        translateQuery("PARAMETERS [Key] Long, [AntNb] Integer;SELECT azm_fr FROM kvr_rot WHERE "
                       "((veldakey = [Key]) and (ant_key = [AntNb]))");
    ASSERT_EQ(query.parameters.size(), 2U);
    EXPECT_EQ(query.parameters[0].name, "Key");
    EXPECT_EQ(query.parameters[0].type, DataType::dbLong);
    EXPECT_EQ(query.parameters[1].type, DataType::dbInteger);
    EXPECT_NE(query.sql.find("((veldakey = ?1) and (ant_key = ?2))"), std::string::npos) << query.sql;
}

TEST(SqlTranslator, AQueryOfOneTableCarriesTheIdentityOfItsRowsInTheOrderOfInsertion)
{
    const auto query =
        translateQuery("PARAMETERS [Key] Long;SELECT call_sign FROM kvr_call_sign WHERE veldakey = [Key]");
    EXPECT_EQ(query.sql, "SELECT rowid, call_sign FROM kvr_call_sign WHERE veldakey = ?1 ORDER BY rowid");
    EXPECT_EQ(query.table, "kvr_call_sign");
}

TEST(SqlTranslator, AJoinAndADistinctQueryCannotBeWrittenThrough)
{
    EXPECT_EQ(translateQuery("SELECT a.x FROM a INNER JOIN b ON a.x = b.x").table, "");
    EXPECT_EQ(translateQuery("SELECT DISTINCT x FROM a").table, "");
}

TEST(SqlTranslator, AnOrderOfItsOwnStays)
{
    EXPECT_EQ(translateQuery("SELECT x FROM a WHERE y = 1 ORDER BY y ").sql,
              "SELECT rowid, x FROM a WHERE y = 1 ORDER BY y");
}

TEST(SqlTranslator, ABracketedNameThatIsNoParameterIsAName)
{
    EXPECT_EQ(translateQuery("SELECT [odd name] FROM [a\"b]").sql,
              "SELECT rowid, \"odd name\" FROM \"a\"\"b\" ORDER BY rowid");
}

TEST(SqlTranslator, BracketsAndKeywordsInsideAQuotedTextAreText)
{
    EXPECT_EQ(translateQuery("SELECT x FROM a WHERE y = '[Key] ORDER BY (' ").sql,
              "SELECT rowid, x FROM a WHERE y = '[Key] ORDER BY (' ORDER BY rowid");
}

TEST(SqlTranslator, AParenthesisInAQuotedTextOrANameIsNone)
{
    EXPECT_EQ(translateQuery("SELECT x FROM a WHERE y = '(' ORDER BY y").sql,
              "SELECT rowid, x FROM a WHERE y = '(' ORDER BY y");
    EXPECT_EQ(translateQuery("SELECT x FROM [(]").table, "(");
}

TEST(SqlTranslator, ParameterNamesAndTypesAreNotCaseSensitive)
{
    const auto query = translateQuery("parameters [Freq] double;select x from a where y = [FREQ]");
    EXPECT_EQ(query.sql, "SELECT rowid, x from a where y = ?1 ORDER BY rowid");
}

TEST(SqlTranslator, TextThatIsNoQueryIsASyntaxError)
{
    for (const char* text :
         {"", "DELETE FROM a", "SELECT 1", "PARAMETERS [Key] Long SELECT x FROM a",
          "PARAMETERS [Key] Picture;SELECT x FROM a", "PARAMETERS Key Long;SELECT x FROM a",
          "SELECT [x FROM a", "SELECT 'x FROM a", "PARAMETERS [Key] Long;"}) {
        try {
            static_cast<void>(translateQuery(text));
            ADD_FAILURE() << text;
        } catch (const platform::RuntimeError& failure) {
            EXPECT_EQ(failure.number, 3075) << text;
        }
    }
}

namespace {

std::string linked(std::string_view sql)
{
    return translateQuery(sql, {{"far", "zeph_link1", "Real\"Far"}, {"b c", "zeph_link2", "bc"}}).sql;
}

} // namespace

TEST(SqlTranslator, ALinkInAFromClauseBecomesTheTableOfItsFile)
{
    EXPECT_EQ(linked("SELECT x FROM FAR WHERE FAR.y = 1"),
              R"(SELECT x FROM "zeph_link1"."Real""Far" AS "far" WHERE FAR.y = 1 ORDER BY rowid)");
    EXPECT_EQ(linked("SELECT x FROM [b c]"), R"(SELECT x FROM "zeph_link2"."bc" AS "b c" ORDER BY rowid)");
    EXPECT_EQ(linked("SELECT x FROM far AS f"), R"(SELECT x FROM "zeph_link1"."Real""Far" AS f ORDER BY 1)");
    EXPECT_EQ(linked("SELECT x FROM far f, [b c] [g]"),
              R"(SELECT x FROM "zeph_link1"."Real""Far" f, "zeph_link2"."bc" "g" ORDER BY 1)");
}

TEST(SqlTranslator, BesideLinksATableIsThatOfTheFileItself)
{
    EXPECT_EQ(linked("SELECT x FROM near"), R"(SELECT rowid, x FROM main."near" ORDER BY rowid)");
    EXPECT_EQ(
        linked("SELECT a.x FROM a INNER JOIN (near INNER JOIN far ON near.x = far.x) ON a.x = near.x, c"),
        R"(SELECT a.x FROM main."a" INNER JOIN (main."near" INNER JOIN "zeph_link1"."Real""Far" AS "far" )"
        R"(ON near.x = far.x) ON a.x = near.x, main."c" ORDER BY 1)");
}

TEST(SqlTranslator, TheNameOfALinkElsewhereIsNoTable)
{
    EXPECT_EQ(
        linked("SELECT a.far, far FROM a INNER JOIN c ON (far = max(c.x, far)) WHERE f(a, far) = 'FROM far'"),
        R"(SELECT a.far, far FROM main."a" INNER JOIN main."c" ON (far = max(c.x, far)) )"
        R"(WHERE f(a, far) = 'FROM far' ORDER BY 1)");
    EXPECT_EQ(linked("SELECT x FROM other.far"), "SELECT x FROM other.far ORDER BY 1");
}

TEST(SqlTranslator, ALinkInASubqueryIsFollowed)
{
    EXPECT_EQ(linked("SELECT x FROM a WHERE x IN (SELECT y FROM far) AND f(x, far)"),
              R"(SELECT rowid, x FROM main."a" WHERE x IN (SELECT y FROM "zeph_link1"."Real""Far" AS "far") )"
              R"(AND f(x, far) ORDER BY rowid)");
}
