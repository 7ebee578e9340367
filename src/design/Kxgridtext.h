#pragma once
// Numbers in the cells of grids, and rows of cells as spreadsheets put them into the clipboard. Pure.

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// The shortest text that reads back; empty for what is no number.
std::string GridText(double Value);
/// A number with a point or a comma before its fraction; NaN of an empty text. Raises EPropertyError that
/// names Row, counted from 0 here and from 1 there.
double GridValue(std::string_view Text, int Row);
/// Rows of cells; a first one that holds a text and no number is left out. Raises as GridValue does.
std::vector<std::vector<double>> ReadGridText(std::string_view Text);

} // namespace kx
