#include <kxgraph/platform/text/suggest.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace kx {

namespace {

constexpr std::size_t CLongest = 200; // beyond it nobody guesses

} // namespace

int SlipsBetween(std::string_view A, std::string_view B) {
    const std::string a = UpperCase(A), b = UpperCase(B);
    // Rows of the table of prefixes: the present one and the two before.
    std::array<std::vector<int>, 3> rows;
    for (auto& row : rows) row.resize(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) rows[0][j] = int(j);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        auto& row = rows[i % 3];
        const auto &above = rows[(i + 2) % 3], &second = rows[(i + 1) % 3];
        row[0] = int(i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const int replaced = above[j - 1] + (a[i - 1] != b[j - 1]);
            row[j] = std::min({replaced, above[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], second[j - 2] + 1);
        }
    }
    return rows[a.size() % 3][b.size()];
}

std::string_view Closest(std::string_view Name, std::span<const std::string_view> Known) {
    std::string_view closest;
    int fewest = std::max(1, int(std::min(Name.size(), CLongest)) / 3) + 1;
    if (Name.empty() || Name.size() > CLongest) return closest;
    for (const std::string_view known : Known) {
        if (known.empty() || known.size() > CLongest) continue;
        if (known == Name) return {};
        const int slips = SlipsBetween(Name, known);
        // A short name that has to be written all over is another one.
        if (slips >= fewest || slips >= int(std::max(Name.size(), known.size()))) continue;
        fewest = slips;
        closest = known;
    }
    return closest;
}

std::string DidYouMean(std::string_view Name, std::span<const std::string_view> Known) {
    const std::string_view closest = Closest(Name, Known);
    return closest.empty() ? std::string() : "; did you mean '" + Abridged(closest) + "'?";
}

} // namespace kx
