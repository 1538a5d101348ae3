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
