#include "sessions/difference.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const std::string& text)
{
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// Length of the longest common run of lines, in order, of what stands from each pair of lines on.
std::vector<std::vector<std::size_t>> commonLengths(const Lines& left, const Lines& right)
{
    std::vector common(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
    for (auto i = left.size(); i-- > 0;) {
        for (auto j = right.size(); j-- > 0;)
            common[i][j] =
                left[i] == right[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
    return common;
}

// All lines of both, each with " ", "-" or "+" before it.
Lines marked(const Lines& left, const Lines& right)
{
    const auto common = commonLengths(left, right);
    Lines all;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() || j < right.size()) {
        const bool isSame = i < left.size() && j < right.size() && left[i] == right[j];
        const bool isGone =
            !isSame && i < left.size() && (j == right.size() || common[i + 1][j] >= common[i][j + 1]);
        all.push_back(isSame ? ' ' + left[i] : isGone ? '-' + left[i] : '+' + right[j]);
        i += isSame || isGone ? 1 : 0;
        j += isGone ? 0 : 1;
    }
    return all;
}

} // namespace

std::string difference(const std::string& expected, const std::string& actual)
{
    constexpr std::size_t around = 3;
    if (expected == actual)
        return {};
    const auto lines = marked(linesOf(expected), linesOf(actual));
    std::string text = "--- expected\n+++ actual\n";
    std::size_t shown = 0;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (lines[at].front() == ' ')
            continue;
        const auto first = std::max(shown, at < around ? 0 : at - around);
        const auto end = std::min(lines.size(), at + around + 1);
        if (first > shown || shown == 0)
            text += "@@ line " + std::to_string(first + 1) + " @@\n";
        for (shown = first; shown < end; ++shown)
            text += lines[shown] + '\n';
    }
    return text;
}
