// Outfits: any settings are loaded into a whole graph, which still settles, and whose own outfit then reads
// back.

#include "fuzz/frames.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::fuzz::outfitstarget {

/// A graph with everything that an outfit holds.
struct TPlot {
    TPlot() {
        Form.SetName("Form1");
        Form.SetBounds(0, 0, 320, 240);
        Graph.SetParent(&Form);
        Graph.SetBounds(0, 0, 320, 240);
        const char* names[] = {"Graph1", "XAxis", "YAxis", "X1", "Y1", "Series1", "Bars1", "Line1"};
        for (int i = 0; i < 8; ++i) Form.GetComponent(i)->SetName(names[i]);
        for (TKxAxis* axis : {&X, &Y}) axis->SetParent(&Graph);
        Graph.SetPrimaryXAxis(&X);
        Graph.SetPrimaryYAxis(&Y);
        for (int i = 0; i < 7; ++i) {
            XV.Add(i + 1);
            YV.Add(0.5 + i % 3);
        }
        for (TKxSeries* series : {static_cast<TKxSeries*>(&Series), static_cast<TKxSeries*>(&Bars)}) {
            series->SetXAxis(&X);
            series->SetYAxis(&Y);
            series->SetXData(&XV);
            series->SetYData(&YV);
        }
        Line.SetParentSeries(&Series);
        Legend.SetParent(&Graph);
        Legend.SetGraph(&Graph);
    }
    std::string Saved() {
        TKxIniList ini;
        Graph.SaveOutfit("Graph", ini);
        return ini.GetText();
    }
    bool Load(const std::string& Text) {
        TKxIniList ini;
        ini.SetText(Text);
        try {
            Graph.LoadOutfit("Graph", ini);
            return true;
        } catch (const Exception&) {
            return false;
        }
    }

    TForm Form{nullptr};
    TKx2DGraph Graph{&Form};
    TKxAxis X{&Form}, Y{&Form};
    TKxRealVector XV{&Form}, YV{&Form};
    TKxDataWithErrorSeries Series{&Form};
    TKxBarSeries Bars{&Form};
    TKxLinearRegressionLine Line{&Form};
    TKxLegend Legend{&Form};
};

/// The outfit of a new graph with some of its values replaced.
std::string Changed(TData& Data) {
    static const std::string original = TPlot().Saved();
    TStringList lines;
    lines.SetText(original);
    for (int changes = Data.Between(0, 10); changes > 0; --changes) {
        const int index = Data.Between(0, lines.GetCount() - 1);
        const std::string& line = lines.GetLine(index);
        const auto equals = line.find('=');
        if (equals == line.npos) continue;
        const std::string value = Data.Flag() ? std::to_string(Data.Between(-3, 260)) : Data.Text(12);
        lines.PutLine(index, line.substr(0, equals + 1) + value);
    }
    return lines.GetText();
}

KX_FUZZ(outfits) {
    test::TFaults quiet;
    TPlot first, second;
    const std::string changed = Changed(Data);
    first.Load(changed + Data.Text(200));
    DemandFrame(first.Form, quiet);
    const std::string saved = first.Saved();
    KX_DEMAND(second.Load(saved), +saved);
    DemandFrame(second.Form, quiet);
    KX_DEMAND(second.Saved() == saved, +saved + "\n--- becomes ---\n" + second.Saved());
}

} // namespace kx::fuzz::outfitstarget
