#include "dao/sqlTranslator.h"

#include "dao/engineError.h"
#include "platform/ansiText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <utility>

namespace dao {

namespace {

using platform::equalNoCase;

struct Token
{
    enum class Kind
    {
        Word,
        Bracketed,
        Quoted,
        Sign
    };
    Kind kind;
    std::string_view text;  // without the brackets of a bracketed name
    std::size_t start, end; // where it stands in the query
};

bool isWordCharacter(char sign)
{
    return std::isalnum(static_cast<unsigned char>(sign)) != 0 || sign == '_' ||
           static_cast<unsigned char>(sign) > 127;
}

class Tokenizer
{
public:
    explicit Tokenizer(std::string_view sql) : m_sql(sql) {}

    std::optional<Token> next()
    {
        while (m_place < m_sql.size() && std::isspace(static_cast<unsigned char>(m_sql[m_place])) != 0)
            ++m_place;
        if (m_place == m_sql.size())
            return std::nullopt;
        const auto start = m_place;
        const char first = m_sql[start];
        if (first == '[')
            return closedBy(']', Token::Kind::Bracketed);
        if (first == '\'' || first == '"')
            return closedBy(first, Token::Kind::Quoted);
        if (!isWordCharacter(first))
            return Token{Token::Kind::Sign, m_sql.substr(m_place++, 1), start, start + 1};
        while (m_place < m_sql.size() && isWordCharacter(m_sql[m_place]))
            ++m_place;
        return Token{Token::Kind::Word, m_sql.substr(start, m_place - start), start, m_place};
    }

private:
    Token closedBy(char closing, Token::Kind kind)
    {
        const auto start = m_place;
        const auto end = m_sql.find(closing, start + 1);
        if (end == std::string_view::npos)
            raiseEngineError(errSyntax, m_sql.substr(start));
        m_place = end + 1;
        return {kind, m_sql.substr(start + 1, end - start - 1), start, m_place};
    }

    std::string_view m_sql;
    std::size_t m_place = 0;
};

std::vector<Token> tokensOf(std::string_view sql)
{
    std::vector<Token> tokens;
    Tokenizer tokenizer(sql);
    while (const auto token = tokenizer.next())
        tokens.push_back(*token);
    return tokens;
}

bool isWord(const Token& token, std::string_view word)
{
    return token.kind == Token::Kind::Word && equalNoCase(token.text, word);
}

bool isSign(const Token& token, std::string_view sign)
{
    return token.kind == Token::Kind::Sign && token.text == sign;
}

DataType parameterType(std::string_view name)
{
    struct Row
    {
        std::string_view name;
        DataType type;
    };
    constexpr std::array types = {
        Row{"Long", DataType::dbLong},
        Row{"Integer", DataType::dbInteger},
        Row{"Double", DataType::dbDouble},
        Row{"String", DataType::dbText},
    };
    for (const auto& row : types) {
        if (equalNoCase(row.name, name))
            return row.type;
    }
    raiseEngineError(errSyntax, name);
}

// Reads the clause from its first word on; the place behind its ";" comes back in `next`.
std::vector<DeclaredParameter> readParametersClause(const std::vector<Token>& tokens, std::size_t& next)
{
    std::vector<DeclaredParameter> parameters;
    for (next = 1; next + 2 < tokens.size(); next += 3) {
        const auto& name = tokens[next];
        const auto& type = tokens[next + 1];
        const auto& sign = tokens[next + 2];
        if (name.kind != Token::Kind::Bracketed || type.kind != Token::Kind::Word)
            break;
        parameters.push_back({std::string(name.text), parameterType(type.text)});
        if (isSign(sign, ";")) {
            next += 3;
            return parameters;
        }
        if (!isSign(sign, ","))
            break;
    }
    raiseEngineError(errSyntax, "PARAMETERS");
}

std::string bracketedName(std::string_view name, const std::vector<DeclaredParameter>& parameters)
{
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        if (equalNoCase(parameters[index].name, name))
            return "?" + std::to_string(index + 1);
    }
    return quotedName(name);
}

// Tells the names of tables in FROM clauses, those of subqueries included, from all other words.
class TableNames
{
public:
    // Takes the tokens in their order.
    bool isTable(const Token& token)
    {
        if (token.kind == Token::Kind::Sign) {
            passSign(token.text);
            return false;
        }
        if (token.kind == Token::Kind::Word && passKeyword(token))
            return false;
        return std::exchange(m_expected, false) && token.kind != Token::Kind::Quoted;
    }

private:
    enum class Clause : std::uint8_t
    {
        Other,
        From,
        Condition // of a join
    };

    void passSign(std::string_view sign)
    {
        auto& clause = m_clauses.back();
        if (sign == "(") {
            m_clauses.push_back(m_expected ? Clause::From : Clause::Other);
            return;
        }
        m_expected = sign == "," && clause != Clause::Other;
        if (m_expected)
            clause = Clause::From;
        if (sign == ")" && m_clauses.size() > 1)
            m_clauses.pop_back();
    }

    bool passKeyword(const Token& token)
    {
        struct Keyword
        {
            std::string_view word;
            Clause clause;
            bool tableFollows;
        };
        constexpr std::array keywords = {
            Keyword{"FROM", Clause::From, true},     Keyword{"JOIN", Clause::From, true},
            Keyword{"ON", Clause::Condition, false}, Keyword{"SELECT", Clause::Other, false},
            Keyword{"WHERE", Clause::Other, false},  Keyword{"GROUP", Clause::Other, false},
            Keyword{"HAVING", Clause::Other, false}, Keyword{"ORDER", Clause::Other, false},
            Keyword{"UNION", Clause::Other, false},
        };
        const auto* const found = std::find_if(keywords.begin(), keywords.end(),
                                               [&](const auto& row) { return isWord(token, row.word); });
        if (found == keywords.end())
            return false;
        m_clauses.back() = found->clause;
        m_expected = found->tableFollows;
        return true;
    }

    std::vector<Clause> m_clauses{Clause::Other}; // of the parentheses that are open, the innermost last
    bool m_expected = false;                      // a table's name may come next
};

// Whether the tokens behind a table's name give it another one.
bool hasOtherName(const std::vector<Token>& tokens, std::size_t next)
{
    if (next >= tokens.size() || tokens[next].kind == Token::Kind::Sign)
        return false;
    constexpr std::array followers = {"INNER", "LEFT",   "RIGHT", "JOIN",  "ON",    "WHERE",
                                      "GROUP", "HAVING", "ORDER", "UNION", "CROSS", "OUTER"};
    return std::none_of(followers.begin(), followers.end(),
                        [&](std::string_view word) { return isWord(tokens[next], word); });
}

// Where no link is, a table's name stands for itself. Otherwise it is told which file is meant, as a name
// that this file lacks could be found in another one.
std::string tableText(const std::vector<Token>& tokens, std::size_t place, const LinkedTables& links)
{
    const auto& name = tokens[place].text;
    const auto* const link = findLink(links, name);
    if (link == nullptr)
        return "main." + quotedName(name);
    const auto text = quotedName(link->schema) + '.' + quotedName(link->table);
    return hasOtherName(tokens, place + 1) ? text : text + " AS " + quotedName(link->name);
}

// What of a SELECT decides about the identity and the order of its rows.
struct Outline
{
    bool select = false, distinct = false, ordered = false;
    std::optional<std::size_t> from; // the token FROM
    std::size_t fromEnd = 0;         // the token behind the FROM clause
};

Outline outlineOf(const std::vector<Token>& tokens, std::size_t first)
{
    Outline outline;
    outline.select = first < tokens.size() && isWord(tokens[first], "SELECT");
    outline.distinct = first + 1 < tokens.size() && isWord(tokens[first + 1], "DISTINCT");
    outline.fromEnd = tokens.size();
    int depth = 0;
    for (std::size_t index = first; index < tokens.size(); ++index) {
        const auto& token = tokens[index];
        depth += isSign(token, "(") ? 1 : isSign(token, ")") ? -1 : 0;
        if (depth != 0 || token.kind != Token::Kind::Word)
            continue;
        const bool order = isWord(token, "ORDER");
        outline.ordered = outline.ordered || order;
        if (isWord(token, "FROM"))
            outline.from = index;
        else if (outline.from && outline.fromEnd == tokens.size() && (order || isWord(token, "WHERE")))
            outline.fromEnd = index;
    }
    return outline;
}

} // namespace

std::string quotedName(std::string_view name)
{
    std::string quoted = "\"";
    for (const char sign : name) {
        quoted += sign;
        if (sign == '"')
            quoted += sign;
    }
    return quoted + '"';
}

TranslatedQuery translateQuery(std::string_view jetSql, const LinkedTables& links)
{
    while (!jetSql.empty() && (jetSql.back() == ' ' || jetSql.back() == ';'))
        jetSql.remove_suffix(1);
    const auto tokens = tokensOf(jetSql);
    TranslatedQuery query;
    std::size_t first = 0;
    if (!tokens.empty() && isWord(tokens[0], "PARAMETERS"))
        query.parameters = readParametersClause(tokens, first);
    const auto outline = outlineOf(tokens, first);
    if (!outline.select || !outline.from)
        raiseEngineError(errSyntax, jetSql);
    const bool oneTable = !outline.distinct && outline.fromEnd == *outline.from + 2;
    const bool writable = oneTable && findLink(links, tokens[*outline.from + 1].text) == nullptr;
    if (writable)
        query.table = tokens[*outline.from + 1].text;

    query.sql = writable ? "SELECT rowid," : "SELECT";
    std::size_t copied = tokens[first].end;
    TableNames names;
    for (std::size_t index = first + 1; index < tokens.size(); ++index) {
        const auto& token = tokens[index];
        const bool isTable = names.isTable(token) && !links.empty() &&
                             (index + 1 == tokens.size() || !isSign(tokens[index + 1], "."));
        if (!isTable && token.kind != Token::Kind::Bracketed)
            continue;
        query.sql += jetSql.substr(copied, token.start - copied);
        query.sql += isTable ? tableText(tokens, index, links) : bracketedName(token.text, query.parameters);
        copied = token.end;
    }
    query.sql += jetSql.substr(copied);
    if (!outline.ordered)
        query.sql += oneTable ? " ORDER BY rowid" : " ORDER BY 1";
    return query;
}

} // namespace dao
