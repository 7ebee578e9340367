#pragma once
// How the command line says that the table is written.

#include <kxgraph/table/Kxtableformat.h>

#include <optional>
#include <string>

namespace kxplot {

struct TTableRequest {
    kx::TKxTableFormat Format;
    std::optional<std::string> Time; ///< column of Unix seconds over x
    bool Explain = false;            ///< tell how it is read and what would be drawn, and draw nothing
};

} // namespace kxplot
