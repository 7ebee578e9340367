#pragma once
// The form with a graph and two primary axes that benches draw on.

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>

namespace kx {

struct TGraphForm {
    TForm Form{&TApplication::Instance()};
    TKx2DGraph Graph{&Form};
    TKxAxis XAxis{&Form}, YAxis{&Form};

    TGraphForm() {
        Graph.SetParent(&Form);
        XAxis.SetParent(&Graph);
        YAxis.SetParent(&Graph);
        Graph.SetPrimaryXAxis(&XAxis);
        Graph.SetPrimaryYAxis(&YAxis);
    }
};

} // namespace kx
