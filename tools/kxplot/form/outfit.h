#pragma once
// Files with the appearance of a graph.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/persist/Kxlargeini.h>

#include <string>

namespace kxplot {

/// Gives Graph the appearance that FileName holds for a graph of its name, and leaves the file's lines in
/// Ini. Raises kx::EFileError, which names the file and, where a value cannot be read, its section and key;
/// so it does for a file that holds nothing of such a graph.
void LoadOutfitFile(kx::TKx2DGraph& Graph, const std::string& FileName, kx::TKxIniList& Ini);

} // namespace kxplot
