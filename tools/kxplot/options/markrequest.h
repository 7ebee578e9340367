#pragma once
// Lines, texts and arrows that are put into a picture.

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kxplot {

/// The options as CLI11 stores them.
struct TMarkArguments {
    std::vector<std::string> Vertical, Horizontal, Texts, Arrows;
};

struct TTextMark {
    double X = 0, Y = 0;
    std::string Caption; ///< with markup
};

struct TArrowMark {
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
};

struct TMarkRequest {
    std::vector<double> Vertical, Horizontal; ///< where lines stand
    std::vector<TTextMark> Texts;
    std::vector<TArrowMark> Arrows;
};

/// --vline, --hline, --text and --arrow.
void AddMarkOptions(CLI::App& App, TMarkArguments& Given);
/// Raises TUsageError.
TMarkRequest ParseMarks(const TMarkArguments& Given);

} // namespace kxplot
