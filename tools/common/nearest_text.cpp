#include "tools/common/nearest_text.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace velmora {

namespace {

bool sameLetter(char x, char y)
{
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
}

} // namespace

// Levenshtein's distance, one row at a time.
std::size_t editDistance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (sameLetter(a[i - 1], b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

std::string nearestText(std::string_view text, const std::vector<std::string>& candidates)
{
    const auto nearest = std::ranges::min_element(
        candidates, {}, [text](const std::string& candidate) { return editDistance(text, candidate); });
    return nearest != candidates.end() ? *nearest : std::string();
}

bool sameLetters(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, sameLetter);
}

} // namespace velmora
