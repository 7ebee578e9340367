#pragma once
// A form with a graph, two primary axes, live vectors and a series with error bars, all named, as a program
// would have put them there.

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::test {

struct TGraphForm {
    TGraphForm() {
        Form->SetName("Form1");
        Form->SetBounds(0, 0, 420, 320);
        Graph->SetParent(Form);
        Graph->SetBounds(10, 10, 400, 300);
        X->SetParent(Graph);
        Y->SetParent(Graph);
        Graph->SetPrimaryXAxis(X);
        Graph->SetPrimaryYAxis(Y);
        const std::pair<TComponent*, const char*> names[] = {{Graph, "Graph1"}, {X, "XAxis1"}, {Y, "YAxis1"},
                                                             {XV, "X1"},        {YV, "Y1"},    {DX, "DX1"},
                                                             {DY, "DY1"}};
        for (auto [component, name] : names) component->SetName(name);
    }
    ~TGraphForm() { delete TApplication::Instance().FindComponent("Form1"); }
    TGraphForm(const TGraphForm&) = delete;
    TGraphForm& operator=(const TGraphForm&) = delete;

    template <class T = TKxDataWithErrorSeries>
    T* AddSeries() {
        auto* series = new T(Form);
        series->SetXData(XV);
        series->SetYData(YV);
        return series;
    }
    void Fill(std::initializer_list<TKxRealPos> Points) {
        for (const auto& p : Points) {
            XV->Add(p.X);
            YV->Add(p.Y);
        }
    }
    /// "XAxis1.Twisted=1; Graph1.Font.Height=-11": properties of the form's components by their texts. Of
    /// stands in front of each path.
    void Set(const std::string& Assignments, const std::string& Of = "") {
        std::istringstream all(Assignments);
        for (std::string one; std::getline(all >> std::ws, one, ';');) {
            one.insert(0, Of);
            const auto dot = one.find('.'), is = one.find('=');
            SetPropertyText(*Form->FindComponent(one.substr(0, dot)), one.substr(dot + 1, is - dot - 1),
                            one.substr(is + 1),
                            [this](std::string_view Name) { return Form->FindComponent(Name); });
        }
    }
    /// One more component of the form, controls on the graph; Assignments are of its own properties.
    template <class T>
    T* Make(const std::string& Name, const std::string& Assignments = "") {
        auto* made = new T(Form);
        made->SetName(Name);
        if constexpr (std::is_base_of_v<TControl, T>) made->SetParent(Graph);
        Set(Assignments, Name + ".");
        return made;
    }
    void Fix(double X0, double X1, double Y0, double Y1) {
        for (auto [axis, start, stop] : {std::tuple{X, X0, X1}, {Y, Y0, Y1}}) {
            axis->SetStartEnd(AxFixed);
            axis->SetStopEnd(AxFixed);
            axis->SetStart(start);
            axis->SetStop(stop);
        }
    }
    TRecording Draw(bool CanXor = false) {
        TRecorder recorder(Form->GetBoundsRect().Size(), 96, CanXor);
        PaintFrame(*Form, recorder);
        return std::move(recorder.Recording);
    }
    void Mouse(TMouseKind Kind, TPoint World) {
        const TPoint at = Graph->GetDrawingWorld().ClientToRoot(World);
        const TShiftState shift = Kind == TMouseKind::Up ? 0 : unsigned(ssLeft);
        Form->AsHostClient().HostMouse(Kind, mbLeft, shift, at);
    }
    void Drag(TPoint From, TPoint To) {
        Mouse(TMouseKind::Down, From);
        Mouse(TMouseKind::Move, {(From.X + To.X) / 2, To.Y});
        Mouse(TMouseKind::Up, To);
    }
    /// Where a value stands in the drawing world.
    TPoint At(double Xv, double Yv) const { return {X->RealToIntPosition(Xv), Y->RealToIntPosition(Yv)}; }
    TPoint OnForm(double Xv, double Yv) const { return World() + At(Xv, Yv); }
    /// The drawing world on the graph, after a frame.
    TRect LaidOut() {
        Draw();
        return Graph->GetDrawingWorld().GetBoundsRect();
    }
    /// Top left of the drawing world on the form.
    TPoint World() const { return Graph->GetDrawingWorld().ClientToRoot({}); }

    TForm* Form = new TForm(&TApplication::Instance());
    TKx2DGraph* Graph = new TKx2DGraph(Form);
    TKxAxis* X = new TKxAxis(Form);
    TKxAxis* Y = new TKxAxis(Form);
    TKxLiveVector* XV = new TKxLiveVector(Form);
    TKxLiveVector* YV = new TKxLiveVector(Form);
    TKxLiveVector* DX = new TKxLiveVector(Form);
    TKxLiveVector* DY = new TKxLiveVector(Form);
};

/// From and to in x, then in y.
inline std::array<double, 4> ExtentsOf(TKxSeries& Series) {
    return {Series.GetXRange().GetStart(), Series.GetXRange().GetStop(), Series.GetYRange().GetStart(),
            Series.GetYRange().GetStop()};
}

/// What a series shows of itself in a place of a legend.
inline TRecording SampleOf(TKxSeries& Series, const TRect& Place) {
    TRecorder recorder({50, 30});
    TCanvas canvas(&recorder);
    Series.DrawSample(canvas, Place);
    return std::move(recorder.Recording);
}

/// All texts of a picture: captions are painted letter by letter.
inline std::string LettersOf(const TRecording& Recording) {
    std::string letters;
    for (const auto& call : Recording.Calls)
        if (const auto* text = std::get_if<TRecording::TText>(&call)) letters += text->Text;
    return letters;
}
/// The polylines of one colour.
inline std::vector<TRecording::TPolyline> LinesOf(const TRecording& Recording, TColor Color) {
    std::vector<TRecording::TPolyline> lines;
    for (const auto& call : Recording.Calls)
        if (const auto* line = std::get_if<TRecording::TPolyline>(&call); line && line->Stroke.Color == Color)
            lines.push_back(*line);
    return lines;
}

template <class T>
std::vector<T> CallsOf(const TRecording& Recording) {
    std::vector<T> calls;
    for (const auto& call : Recording.Calls)
        if (const auto* one = std::get_if<T>(&call)) calls.push_back(*one);
    return calls;
}

} // namespace kx::test
