// Under which heading an inspector shows a property.

#include <kxgraph/design/Kxdesignrows.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace kx {

namespace {

constexpr auto CCategories = std::to_array<std::string_view>(
    {"Component", "Data", "Analysis", "Axis", "Style", "Text", "Layout", "Behaviour", "Events"});

/// The first of them that is in the name, as a word or as the end of one, decides.
struct TWord {
    std::string_view Text, Category;
};
constexpr auto CWords = std::to_array<TWord>({// What a word would be taken for by a later one.
                                              {"FittingFunction", "Analysis"},
                                              {"FixedCoef", "Analysis"},
                                              {"ParentWeight", "Data"},
                                              {"ParentSeries", "Data"},
                                              {"ParentColor", "Style"},
                                              {"ParentFont", "Text"},
                                              {"ParentShowHint", "Behaviour"},
                                              {"DataColor", "Style"},
                                              {"ColumnsGap", "Layout"},
                                              {"WindowState", "Layout"},
                                              {"TabStop", "Behaviour"},
                                              {"TabOrder", "Behaviour"},
                                              {"AutoSize", "Layout"},
                                              {"BarsGap", "Style"},
                                              {"DragCursor", "Behaviour"},
                                              {"LabelKind", "Axis"},
                                              {"ScaleLabels", "Axis"},
                                              {"ThinLabels", "Axis"},
                                              {"ErrorIdentifier", "Data"},
                                              {"SampleWidth", "Layout"},
                                              {"ZoomKeys", "Behaviour"},
                                              {"CheckConvergence", "Analysis"},
                                              {"ErrorIndicators", "Style"},
                                              {"CaptionScalings", "Layout"},
                                              {"BorderCaption", "Layout"},
                                              {"UnzoomOn", "Behaviour"},
                                              {"EmptyAsNaN", "Data"},
                                              // Looks
                                              {"Color", "Style"},
                                              {"Style", "Style"},
                                              {"Line", "Style"},
                                              {"Thicknes", "Style"},
                                              {"Grid", "Style"},
                                              {"Transparent", "Style"},
                                              {"Font", "Text"},
                                              {"Bars", "Style"},
                                              {"Overlays", "Style"},
                                              {"Stack", "Style"},
                                              {"DepthPercent", "Style"},
                                              {"BarHorizontal", "Style"},
                                              {"Tip", "Style"},
                                              {"Symbol", "Style"},
                                              {"Direction", "Style"},
                                              {"BreakAtGaps", "Style"},
                                              // What is analysed, and how
                                              {"Calculation", "Analysis"},
                                              {"DisplayStart", "Analysis"},
                                              {"DisplayStop", "Analysis"},
                                              {"DisplayAuto", "Analysis"},
                                              {"AutoStart", "Analysis"},
                                              {"AutoStop", "Analysis"},
                                              {"WeightMeaning", "Analysis"},
                                              {"WeightFactor", "Analysis"},
                                              {"Order", "Analysis"},
                                              {"Iterations", "Analysis"},
                                              {"Method", "Analysis"},
                                              {"Bounds", "Analysis"},
                                              {"Coefficient", "Analysis"},
                                              {"Covariance", "Analysis"},
                                              {"Expression", "Analysis"},
                                              {"Smooth", "Analysis"},
                                              {"Offset", "Analysis"},
                                              {"Level", "Analysis"},
                                              {"Kind", "Analysis"},
                                              {"Markers", "Analysis"},
                                              // Where the numbers are
                                              {"Data", "Data"},
                                              {"dX", "Data"},
                                              {"dY", "Data"},
                                              {"Weight", "Data"},
                                              {"Series", "Data"},
                                              {"Values", "Data"},
                                              {"Capacity", "Data"},
                                              {"Increment", "Data"},
                                              {"Count", "Data"},
                                              {"FileName", "Data"},
                                              {"Column", "Data"},
                                              {"Identifier", "Data"},
                                              {"Fit", "Data"},
                                              {"Sequenced", "Data"},
                                              {"Active", "Data"},
                                              // Axes
                                              {"Axis", "Axis"},
                                              {"Scal", "Axis"},
                                              {"Tick", "Axis"},
                                              {"Start", "Axis"},
                                              {"Stop", "Axis"},
                                              {"Twisted", "Axis"},
                                              {"Categories", "Axis"},
                                              {"LabelPart", "Axis"},
                                              {"ZeroOrigin", "Axis"},
                                              {"MirrorOf", "Axis"},
                                              // Texts
                                              {"Caption", "Text"},
                                              {"Title", "Text"},
                                              {"Text", "Text"},
                                              {"Prefix", "Text"},
                                              {"Suffix", "Text"},
                                              {"Digits", "Text"},
                                              {"Alignment", "Text"},
                                              {"Angle", "Text"},
                                              {"Legend", "Text"},
                                              {"Hint", "Text"},
                                              // Places
                                              {"Left", "Layout"},
                                              {"Top", "Layout"},
                                              {"Width", "Layout"},
                                              {"Height", "Layout"},
                                              {"Align", "Layout"},
                                              {"Position", "Layout"},
                                              {"Placement", "Layout"},
                                              {"Margin", "Layout"},
                                              {"Gap", "Layout"},
                                              {"Size", "Layout"},
                                              {"Graph", "Layout"}});

std::map<std::string, std::string_view>& Moved() {
    static std::map<std::string, std::string_view> moved;
    return moved;
}

/// Rows refer to it, also when it is used no more.
std::string_view Lasting(std::string_view Category) {
    static std::set<std::string, std::less<>> categories;
    return *categories.emplace(Category).first;
}

} // namespace

std::string_view CategoryOf(const TProperty& Row) {
    if (const auto moved = Moved().find(UpperCase(Row.Name)); moved != Moved().end()) return moved->second;
    if (Row.Name == "Name" || Row.Name == "Tag") return "Component";
    if (Row.Kind == TPropertyKind::Event) return "Events";
    if (Row.Kind == TPropertyKind::Color) return "Style";
    for (const TWord& word : CWords)
        if (Row.Name.find(word.Text) != Row.Name.npos) return word.Category;
    return "Behaviour";
}

void SetCategory(std::string_view Property, std::string_view Category) {
    if (Category.empty())
        Moved().erase(UpperCase(Property));
    else
        Moved()[UpperCase(Property)] = Lasting(Category);
}

std::vector<std::string_view> DesignCategories() {
    std::vector<std::string_view> all(CCategories.begin(), CCategories.end());
    for (const auto& [property, category] : Moved())
        if (std::ranges::find(all, category) == all.end()) all.push_back(category);
    return all;
}

} // namespace kx
