#pragma once
// The bracket that the graph itself sets while it calculates. For the sources of the graph only.

#include <kxgraph/graph/Kxgraph2d.h>

namespace kx {

/// Nothing settles the graph while it lives, exceptions included. Unlike a program's bracket it neither keeps
/// a picture nor asks for a frame.
class TKx2DGraph::TUpdateScope {
public:
    explicit TUpdateScope(TKx2DGraph& Graph) : FGraph(Graph) { ++FGraph.FUpdateCount; }
    ~TUpdateScope() { --FGraph.FUpdateCount; }
    TUpdateScope(const TUpdateScope&) = delete;
    TUpdateScope& operator=(const TUpdateScope&) = delete;

private:
    TKx2DGraph& FGraph;
};

} // namespace kx
