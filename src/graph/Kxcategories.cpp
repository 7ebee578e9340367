#include <kxgraph/graph/Kxcategories.h>

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/numeric/Kxconsts.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kx {

namespace {

constexpr double CLeastDistance = 3; // pixels between ticks
constexpr double CFurthest = 1e9;    // far beyond any number of categories, and exact by halves

bool NeedsQuotes(std::string_view Text) {
    return Text.find_first_of(";\"") != Text.npos ||
           (!Text.empty() && (Text.front() == ' ' || Text.back() == ' '));
}

std::string Quoted(std::string_view Text) {
    std::string quoted = "\"";
    for (const char c : Text) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + "\"";
}

/// Takes one text off the front of Line, up to its semicolon.
std::string TakeText(std::string_view& Line) {
    std::string text;
    bool isQuoted = false;
    std::size_t i = std::min(Line.find_first_not_of(' '), Line.size());
    if (i < Line.size() && Line[i] == '"') isQuoted = true, ++i;
    const bool keepsBlanks = isQuoted;
    for (; i < Line.size() && (isQuoted || Line[i] != ';'); ++i) {
        if (isQuoted && Line[i] == '"' && !(i + 1 < Line.size() && Line[i + 1] == '"')) {
            isQuoted = false;
            continue;
        }
        if (isQuoted && Line[i] == '"') ++i;
        text += Line[i];
    }
    Line.remove_prefix(i);
    while (!keepsBlanks && text.ends_with(' ')) text.pop_back();
    return text;
}

constexpr int CMostLines = 3;

/// The words of a text in lines of no more than Width bytes, but for longer words.
std::vector<std::string> Broken(const std::string& Text, std::size_t Width) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin <= Text.size();) {
        const std::size_t end = std::min(Text.find(' ', begin), Text.size());
        const std::string word = Text.substr(begin, end - begin);
        if (lines.empty() || lines.back().size() + 1 + word.size() > Width)
            lines.push_back(word);
        else
            lines.back() += " " + word;
        begin = end + 1;
    }
    return lines;
}

/// Up to so many lines, the longest as short as can be. Markup must not end with its line.
std::vector<std::string> InLines(const std::string& Text, int Lines) {
    const auto most = static_cast<std::size_t>(Lines);
    if (most == 1 || Text.find('\\') != Text.npos) return {Text};
    for (std::size_t width = Text.size() / most; width < Text.size(); ++width)
        if (auto lines = Broken(Text, width); lines.size() <= most) return lines;
    return {Text};
}

TKxTickLabel LabelOf(int Number, const std::string& Text, int Lines) {
    auto lines = InLines(Text, Lines);
    TKxTickLabel label{double(Number), 0, lines.front()};
    label.More.assign(lines.begin() + 1, lines.end());
    return label;
}

double EndWithin(double End) { return std::clamp(End, -CFurthest, CFurthest); }

} // namespace

std::string JoinCategories(const TKxCategories& Categories) {
    std::string line;
    for (std::size_t i = 0; i < Categories.size(); ++i) {
        const std::string& text = Categories[i];
        const bool isOnlyOne = text.empty() && Categories.size() == 1; // no line would be none
        line += (i > 0 ? "; " : "") + (NeedsQuotes(text) || isOnlyOne ? Quoted(text) : text);
    }
    return line;
}

TKxCategories SplitCategories(std::string_view Line) {
    TKxCategories categories;
    if (Line.empty()) return categories;
    for (;;) {
        categories.push_back(TakeText(Line));
        if (Line.empty()) return categories;
        Line.remove_prefix(1); // the semicolon
    }
}

TKxScaleEnds CategoryEnds(const TKxScaleInput& Input) {
    TKxScaleEnds ends;
    ends.TickPart = Input.TickPart;
    ends.MajorTickPart = Input.MajorTickPart;
    ends.LabelPart = Input.LabelPart;
    double start = EndWithin(Input.Start), stop = EndWithin(Input.Stop);
    ends.EndsCorrected = !(start <= stop);
    if (ends.EndsCorrected) start = stop = 1;
    ends.Start = Input.KeepStart || Input.StartEnd == AxFixed ? start : std::floor(start + 0.5) - 0.5;
    ends.Stop = Input.KeepStop || Input.StopEnd == AxFixed ? stop : std::ceil(stop - 0.5) + 0.5;
    if (!(ends.Start < ends.Stop))
        ends.Start = start - 0.5, ends.Stop = stop + 0.5, ends.EndsCorrected = true;
    ends.SpanExponent = GetExponent(ends.Stop - ends.Start);
    return ends;
}

TKxTicks CategoryTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options,
                       const TKxCategories& Categories) {
    const auto most = double(Categories.size());
    const int first = static_cast<int>(std::clamp(std::ceil(Ends.Start), 1.0, most + 1));
    const int last = static_cast<int>(std::clamp(std::floor(Ends.Stop), 0.0, most));
    const int stride = std::max(1, RoundToInt(std::ceil(CLeastDistance * std::abs(Map.Scale))));
    const bool mayBreak = Options.Side.IsHorizontal() && Options.Coarseness < CMostLines;
    const int lines = mayBreak ? Options.Coarseness + 1 : 1;
    std::vector<TKxTick> ticks;
    std::vector<TKxTickLabel> labels;
    for (int number = first; number <= last; number += stride) {
        ticks.push_back({double(number), true});
        if (Options.ShowScaleLabels)
            labels.push_back(LabelOf(number, Categories[static_cast<std::size_t>(number - 1)], lines));
    }
    TKxTicks result = TicksAt(ticks, std::move(labels), Map, Options.Side);
    result.CanBeCoarser = mayBreak;
    result.MayTurn = result.MustThin = true;
    return result;
}

std::string CategoryAt(double Value, const TKxCategories& Categories) {
    if (!(Value >= 0.5 && Value < double(Categories.size()) + 0.5)) return {};
    return GetStrippedString(Categories[static_cast<std::size_t>(std::floor(Value + 0.5)) - 1]);
}

} // namespace kx
