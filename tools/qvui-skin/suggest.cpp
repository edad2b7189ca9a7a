#include "suggest.h"

#include <algorithm>

namespace qvui::skin_tool {
namespace {

constexpr std::size_t kLongestWord = 64;

std::string Lower(std::string_view word)
{
    std::string lower(word.substr(0, kLongestWord));
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter + ('a' - 'A'));
    return lower;
}

}  // namespace

int EditDistance(std::string_view from, std::string_view to)
{
    from = from.substr(0, kLongestWord);
    to = to.substr(0, kLongestWord);
    const std::size_t columns = to.size() + 1;
    // cost[row * columns + column]: from the first `row` letters to the first `column` letters.
    std::vector<int> cost((from.size() + 1) * columns);
    const auto at = [&](std::size_t row, std::size_t column) -> int& { return cost[row * columns + column]; };
    for (std::size_t row = 0; row <= from.size(); ++row)
        for (std::size_t column = 0; column <= to.size(); ++column) {
            int& best = at(row, column);
            if (row == 0 || column == 0) {
                best = static_cast<int>(row + column);
                continue;
            }
            const bool isSame = from[row - 1] == to[column - 1];
            best = std::min({at(row - 1, column) + 1, at(row, column - 1) + 1,
                             at(row - 1, column - 1) + (isSame ? 0 : 1)});
            if (row > 1 && column > 1 && from[row - 1] == to[column - 2] && from[row - 2] == to[column - 1])
                best = std::min(best, at(row - 2, column - 2) + 1);
        }
    return cost.back();
}

std::string Nearest(std::string_view word, const std::vector<std::string>& candidates)
{
    const std::string lower = Lower(word);
    const int length = static_cast<int>(lower.size());
    int least = (length <= 3 ? 1 : std::max(2, length / 3)) + 1;
    std::string nearest;
    for (const std::string& candidate : candidates) {
        const int distance = EditDistance(lower, Lower(candidate));
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

}  // namespace qvui::skin_tool
