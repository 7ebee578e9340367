#include "kxplot/notes.h"

#include "kxplot/captiontext.h"
#include "kxplot/corner.h"
#include "kxplot/fitting.h"
#include "kxplot/lines.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CGap = 10;                              // between the block and the edges of the drawing world
constexpr int CSolidSample = 28, CPatternSample = 44; // two dashes of a pen two pixels wide
constexpr int CSmallestFont = 8;

} // namespace

/// A short piece of a line as it looks in the graph.
class TLineSample : public TGraphicControl {
public:
    explicit TLineSample(TComponent* Owner) : TGraphicControl(Owner), FStyle(nullptr) {}
    void SetStyle(const TKxLineStyle& Style) { FStyle.Assign(Style); }
    bool IsSolid() const { return FStyle.GetStyle() == psSolid; }

protected:
    void Paint() override {
        TCanvas& canvas = GetCanvas();
        canvas.Pen.SetStyle(FStyle.GetStyle());
        canvas.Pen.SetWidth(FStyle.GetWidth() == 1 ? 0 : FStyle.GetWidth());
        canvas.Pen.SetColor(FStyle.GetColor());
        canvas.Polyline(std::array{TPoint{1, GetHeight() / 2}, TPoint{GetWidth() - 1, GetHeight() / 2}});
    }

private:
    TKxLineStyle FStyle;
};

template <class T>
T* TNotes::Make(const std::string& Name, const TFont& Font) {
    auto* label = new T(FGraph.GetOwner());
    label->SetName(Name);
    label->SetParent(&FGraph);
    label->SetTransparent(true);
    label->SetFont(Font);
    return label;
}

TNotes::TNotes(TKx2DGraph& Graph, const TFont& Font, const TAnalyses& Analyses,
               const std::vector<TLabelSpec>& Labels, const TKxLegend& Legend)
    : FGraph(Graph), FAnalyses(Analyses), FLegend(Legend), FInk(Font.GetColor()) {
    for (const auto& analysis : Analyses.GetItems()) {
        auto* sample = new TLineSample(Graph.GetOwner());
        sample->SetParent(&Graph);
        const std::string name = KindOf(analysis.Spec) + ("Name" + std::to_string(analysis.Number));
        FNames.push_back({Make<TKxLabel>(name, Font), sample});
    }
    for (const auto& spec : Labels) {
        auto* label = Make<TKxResultLabel>("Label" + std::to_string(FResults.size() + 1), Font);
        label->SetSignificantDigits(spec.Digits);
        FResults.push_back({spec, label});
    }
}

void TNotes::Bind() {
    for (auto& result : FResults) {
        result.Analysis = &FAnalyses.Find(result.Spec);
        if (result.Label->GetPrefix().empty())
            result.Label->SetPrefix(EscapeCaption(result.Spec.Key) + " = ");
        result.Label->SetIdentifier(result.Spec.Key);
        result.Label->SetErrorIdentifier(result.Spec.ErrorKey);
        // Without a curve there are markers in place of results, which belong in no picture.
        if (result.Analysis->HasCurve()) result.Label->SetSeries(result.Analysis->Line);
    }
}

bool TNotes::IsLabelled(const TAnalysis& Analysis) const {
    return std::any_of(FResults.begin(), FResults.end(),
                       [&](const TResult& Result) { return Result.Analysis == &Analysis; });
}

// What is not drawn is named where it has labels: they must belong to something. With a legend the sample
// tells what the labels of one of several analyses belong to.
void TNotes::UpdateNames() {
    const bool several = FNames.size() > 1;
    for (std::size_t k = 0; k < FNames.size(); ++k) {
        const TAnalysis& analysis = FAnalyses.GetItems()[k];
        const auto& [label, sample] = FNames[k];
        const bool labelled = IsLabelled(analysis), drawn = analysis.IsDrawn();
        const bool listed = HasLegend() && analysis.Line->GetIncludeInLegend();
        label->SetVisible(label->GetVisible() && !listed && (drawn || labelled));
        sample->SetVisible(drawn && (label->GetVisible() || (listed && labelled && several)));
        label->SetCaption(analysis.Line->GetCaption());
        label->GetFont().SetColor(analysis.Line->GetLineStyle().GetColor());
        sample->SetStyle(analysis.Line->GetLineStyle());
    }
    if (HasLegend() && several) ColourResults();
}

void TNotes::ColourResults() {
    for (auto& result : FResults)
        if (result.Analysis->IsDrawn() && result.Label->GetFont().GetColor() == FInk)
            result.Label->GetFont().SetColor(result.Analysis->Line->GetLineStyle().GetColor());
}

std::vector<TNotes::TLine> TNotes::GetLines() const {
    std::vector<TLine> lines;
    for (std::size_t k = 0; k < FNames.size(); ++k) {
        TLineSample* sample = FNames[k].Sample->GetVisible() ? FNames[k].Sample : nullptr;
        const auto add = [&](TKxCustomLabel* Label) {
            if (Label->GetVisible()) lines.push_back({Label, std::exchange(sample, nullptr)});
        };
        add(FNames[k].Label);
        for (const auto& result : FResults)
            if (result.Analysis == &FAnalyses.GetItems()[k]) add(result.Label);
    }
    return lines;
}

int TNotes::SampleWidth() const {
    int width = 0;
    for (const auto& name : FNames)
        if (name.Sample->GetVisible())
            width = std::max(width, name.Sample->IsSolid() ? CSolidSample : CPatternSample);
    return width;
}

TSize TNotes::SizeOf(const std::vector<TLine>& Lines) const {
    TSize size;
    for (const auto& line : Lines) {
        size.Width = std::max(size.Width, Indent() + line.Label->GetWidth());
        size.Height += line.Label->GetHeight();
    }
    return size;
}

void TNotes::FitInto(TSize Room, const std::vector<TLine>& Lines) {
    ShortenFormulas(Room.Width / 2 - Indent());
    const auto isTooLarge = [&] {
        const TSize size = SizeOf(Lines);
        return size.Width > Room.Width || size.Height > Room.Height;
    };
    std::vector<int> sizes;
    for (const auto& line : Lines) sizes.push_back(line.Label->GetFont().GetSize());
    const auto fitsBy = [&](int Points) {
        for (std::size_t i = 0; i < Lines.size(); ++i)
            if (sizes[i] > CSmallestFont)
                Lines[i].Label->GetFont().SetSize(std::max(CSmallestFont, sizes[i] - Points));
        return !isTooLarge();
    };
    const int most = std::ranges::max(sizes) - CSmallestFont;
    if (most > 0 && isTooLarge()) fitsBy(StepsToFit(most, fitsBy));
    for (std::size_t k = 0; k < FNames.size(); ++k) ShortenName(k, Room.Width - Indent());
}

namespace {

void ShortenCaption(TKxLabel& Label, const std::string& Head, const std::string& Tail, int Width) {
    if (Label.GetWidth() <= Width || Head.empty()) return;
    const auto fitsAs = [&](const std::string& Beginning) {
        Label.SetCaption(EscapeCaption(Beginning + "…" + Tail));
        return Label.GetWidth() <= Width;
    };
    fitsAs(LongestFitting(Head, fitsAs));
}

} // namespace

// A formula may be as long as it likes; the block would hide the data or have tiny letters.
void TNotes::ShortenFormulas(int Width) {
    for (std::size_t k = 0; k < FNames.size(); ++k) {
        if (FAnalyses.GetItems()[k].Spec.Method != TMethod::Formula) continue;
        TKxLabel& label = *FNames[k].Label;
        ShortenCaption(label, PlainText(label.GetCaption()), "", Width);
    }
}

// What the analysis is stays, and the beginning of what it is about.
void TNotes::ShortenName(std::size_t Index, int Width) {
    TKxLabel& label = *FNames[Index].Label;
    const std::string plain = PlainText(label.GetCaption());
    const auto colon = std::min(plain.rfind(": "), plain.size());
    ShortenCaption(label, plain.substr(0, colon), plain.substr(colon), Width);
}

void TNotes::Place() {
    UpdateNames();
    const auto lines = GetLines();
    if (lines.empty()) return;
    const TSize world = FGraph.GetDrawingWorld().GetClientRect().Size();
    FitInto({world.Width - 2 * CGap, world.Height - 2 * CGap}, lines);
    TPoint at = FreestCorner(FGraph, SizeOf(lines), CGap, HasLegend() ? FLegend.GetBoundsRect() : TRect{});
    for (const auto& [label, sample] : lines) {
        label->SetBounds(at.X + Indent(), at.Y, label->GetWidth(), label->GetHeight());
        if (sample) sample->SetBounds(at.X, at.Y, SampleWidth(), label->GetHeight());
        at.Y += label->GetHeight();
    }
}

} // namespace kxplot
