#pragma once
// A column of a table that comes from elsewhere than from a text, with its values.

#include <kxgraph/table/Kxtableformat.h>

#include <string>
#include <vector>

namespace kx {

struct TKxGivenColumn {
    std::string Header;
    TKxColumnKind Kind = TKxColumnKind::Numbers;
    std::vector<double> Values;     ///< of numbers and dates; NaN where there is none
    std::vector<std::string> Texts; ///< of texts; empty where there is none
};

} // namespace kx
