#include "play/script.h"

#include <optional>

namespace play {

namespace {

constexpr std::string_view blanks = " \t";

char escaped(char letter)
{
    switch (letter) {
    case 't':
        return '\t';
    case 'n':
        return '\n';
    default:
        return letter;
    }
}

bool isEscape(char letter)
{
    return letter == '"' || letter == '\\' || letter == 't' || letter == 'n';
}

// The words of one line, from left to right.
class Words
{
public:
    explicit Words(std::string_view line) : m_rest(line) {}

    // Nothing at the end of the line and after a problem.
    std::optional<std::string> next()
    {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(blanks), m_rest.size()));
        if (m_rest.empty() || !m_problem.empty())
            return std::nullopt;
        return m_rest.front() == '"' ? quotedWord() : plainWord();
    }

    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    std::optional<std::string> plainWord()
    {
        std::string word(m_rest.substr(0, m_rest.find_first_of(blanks)));
        m_rest.remove_prefix(word.size());
        return word;
    }

    std::optional<std::string> quotedWord()
    {
        std::string word;
        for (std::size_t at = 1; at < m_rest.size(); ++at) {
            if (m_rest[at] == '"')
                return endOfQuoted(word, at + 1);
            if (m_rest[at] == '\\' && at + 1 < m_rest.size() && isEscape(m_rest[at + 1]))
                word += escaped(m_rest[++at]);
            else
                word += m_rest[at];
        }
        m_problem = "unclosed quote";
        return std::nullopt;
    }

    std::optional<std::string> endOfQuoted(const std::string& word, std::size_t end)
    {
        m_rest.remove_prefix(end);
        if (m_rest.empty() || blanks.find(m_rest.front()) != std::string_view::npos)
            return word;
        m_problem = "no blank behind a closing quote";
        return std::nullopt;
    }

    std::string_view m_rest;
    std::string m_problem;
};

Command parseLine(std::string_view line)
{
    Command command;
    command.line = line;
    Words words(line);
    command.name = words.next().value_or("");
    while (auto word = words.next())
        command.words.push_back(*std::move(word));
    command.problem = words.problem();
    return command;
}

bool isCommand(std::string_view line)
{
    const auto first = line.find_first_not_of(blanks);
    return first != std::string_view::npos && line[first] != '#';
}

} // namespace

std::vector<Command> parseScript(std::string_view text)
{
    std::vector<Command> commands;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (isCommand(line))
            commands.push_back(parseLine(line));
    }
    return commands;
}

} // namespace play
