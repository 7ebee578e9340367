#pragma once
// Categories on an axis: texts at 1, 2, 3, ... What belongs to one reaches half a unit to both sides.

#include <kxgraph/graph/Kxticks.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Rich captions; the first one stands at 1.
using TKxCategories = std::vector<std::string>;

/// The texts in a line: joined by semicolons and blanks, within quotation marks where a text has a semicolon,
/// a quotation mark (which is doubled), or blanks at an end: "Fe; Cu; \"Fe; heated\"". None gives an empty
/// line, and an empty one of several nothing between semicolons.
std::string JoinCategories(const TKxCategories& Categories);
/// The other way round. What follows the closing quotation mark of a text belongs to it as it stands.
TKxCategories SplitCategories(std::string_view Line);

/// Ends that follow the data show whole categories: they lie between two.
TKxScaleEnds CategoryEnds(const TKxScaleInput& Input);
/// A tick and a label each, no minor ones; every second, third, ... where they would run together to a bar.
/// Beside a horizontal axis texts of several words are broken into two or three lines by Options.Coarseness;
/// one more, and they have one line that may turn.
TKxTicks CategoryTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options,
                       const TKxCategories& Categories);
/// The text of the category that Value lies in, without markup; empty outside.
std::string CategoryAt(double Value, const TKxCategories& Categories);

} // namespace kx
