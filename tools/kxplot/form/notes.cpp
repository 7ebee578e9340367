#include "kxplot/form/notes.h"

#include "kxplot/form/captionfit.h"
#include "kxplot/form/corner.h"
#include "kxplot/form/legend.h"
#include "kxplot/methods/methods.h"
#include "kxplot/plan/captiontext.h"

#include <algorithm>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CGap = 10;                              // between the block and the edges of the drawing world
constexpr int CSolidSample = 28, CPatternSample = 44; // two dashes of a pen two pixels wide

void Shorten(TKxLabel& Label, const TCutCaption& Plain, int Width) {
    if (Label.GetWidth() <= Width || Plain.Head.empty()) return;
    Label.SetCaption(Shortened(Plain.Head, Plain.Tail, [&](const TKxCaption& Caption) {
        Label.SetCaption(Caption);
        return Label.GetWidth() <= Width;
    }));
}

} // namespace

template <class T>
T* TNotes::Make(const std::string& Name, const TFont& Font) {
    auto* label = new T(FGraph.GetOwner());
    label->SetName(Name);
    label->SetParent(&FGraph);
    label->SetTransparent(true);
    label->SetFont(Font);
    return label;
}

TNotes::TNotes(const TParts& Parts)
    : FParts(Parts), FGraph(*Parts.Graph), FInk(Parts.XAxis->GetFont().GetColor()) {
    const TFont& font = Parts.XAxis->GetFont();
    for (const auto& analysis : Parts.Analyses) {
        auto* sample = new TKxLineSample(FGraph.GetOwner());
        sample->SetParent(&FGraph);
        const TAnalysisPlan& plan = *analysis.Plan;
        const std::string name = KindOf(plan.Request) + ("Name" + std::to_string(plan.Number));
        FNames.push_back({Make<TKxLabel>(name, font), sample});
    }
    for (const auto& request : Parts.Plan.Labels) {
        auto* label = Make<TKxResultLabel>("Label" + std::to_string(FResults.size() + 1), font);
        label->SetSignificantDigits(request.Digits);
        FResults.push_back({label});
    }
}

void TNotes::Bind(const std::vector<TLabelSource>& Sources) {
    for (std::size_t k = 0; k < FResults.size(); ++k) {
        const auto& [analysis, key, errorKey] = Sources[k];
        TKxResultLabel& label = *FResults[k].Label;
        FResults[k].Analysis = analysis;
        if (label.GetPrefix().empty()) label.SetPrefix(EscapeCaption(key) + " = ");
        label.SetIdentifier(key);
        label.SetErrorIdentifier(errorKey);
        // Without a curve there are markers in place of results, which belong in no picture.
        if (analysis->HasCurve()) label.SetSeries(analysis->Line);
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
        const TAnalysis& analysis = FParts.Analyses[k];
        const auto& [label, sample] = FNames[k];
        const bool labelled = IsLabelled(analysis), drawn = analysis.IsDrawn();
        const bool listed = IsShown(*FParts.Legend) && analysis.Line->GetIncludeInLegend();
        label->SetVisible(label->GetVisible() && !listed && (drawn || labelled));
        sample->SetVisible(drawn && (label->GetVisible() || (listed && labelled && several)));
        label->SetCaption(analysis.Line->GetCaption());
        label->GetFont().SetColor(analysis.Line->GetLineStyle().GetColor());
        sample->GetLineStyle().Assign(analysis.Line->GetLineStyle());
    }
    if (IsShown(*FParts.Legend) && several) ColourResults();
}

void TNotes::ColourResults() {
    for (auto& result : FResults)
        if (result.Analysis->IsDrawn() && result.Label->GetFont().GetColor() == FInk)
            result.Label->GetFont().SetColor(result.Analysis->Line->GetLineStyle().GetColor());
}

std::vector<TNotes::TLine> TNotes::GetLines() const {
    std::vector<TLine> lines;
    for (std::size_t k = 0; k < FNames.size(); ++k) {
        TKxLineSample* sample = FNames[k].Sample->GetVisible() ? FNames[k].Sample : nullptr;
        const auto add = [&](TKxCustomLabel* Label) {
            if (Label->GetVisible()) lines.push_back({Label, std::exchange(sample, nullptr)});
        };
        add(FNames[k].Label);
        for (const auto& result : FResults)
            if (result.Analysis == &FParts.Analyses[k]) add(result.Label);
    }
    return lines;
}

int TNotes::SampleWidth() const {
    int width = 0;
    for (const auto& name : FNames)
        if (name.Sample->GetVisible())
            width = std::max(width, name.Sample->GetLineStyle().GetStyle() == psSolid ? CSolidSample
                                                                                      : CPatternSample);
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
    std::vector<int> sizes;
    sizes.reserve(Lines.size());
    for (const auto& line : Lines) sizes.push_back(line.Label->GetFont().GetSize());
    const auto takeOff = [&](int Points) {
        for (std::size_t i = 0; i < Lines.size(); ++i)
            if (sizes[i] > CSmallestFont)
                Lines[i].Label->GetFont().SetSize(std::max(CSmallestFont, sizes[i] - Points));
    };
    ShrinkToFit(std::ranges::max(sizes), takeOff, [&] {
        const TSize size = SizeOf(Lines);
        return size.Width <= Room.Width && size.Height <= Room.Height;
    });
    // What the analysis is stays, and the beginning of what it is about.
    for (const auto& name : FNames)
        Shorten(*name.Label, CutAtColon(PlainText(name.Label->GetCaption())), Room.Width - Indent());
}

// A formula may be as long as it likes; the block would hide the data or have tiny letters.
void TNotes::ShortenFormulas(int Width) {
    for (std::size_t k = 0; k < FNames.size(); ++k)
        if (FParts.Analyses[k].Plan->Request.Method == TMethod::Formula)
            Shorten(*FNames[k].Label, {PlainText(FNames[k].Label->GetCaption()), ""}, Width);
}

void TNotes::Show(bool Shown) {
    const auto hide = [this](TControl* Control) {
        if (!Control->GetVisible()) return;
        Control->SetVisible(false);
        FHidden.push_back(Control);
    };
    for (TControl* control : std::exchange(FHidden, {})) control->SetVisible(true);
    if (Shown) return;
    for (const auto& name : FNames) hide(name.Label), hide(name.Sample);
    for (const auto& result : FResults) hide(result.Label);
}

void TNotes::Place() {
    if (!FHidden.empty()) return;
    UpdateNames();
    const auto lines = GetLines();
    if (lines.empty()) return;
    const TSize world = FGraph.GetDrawingWorld().GetClientRect().Size();
    FitInto({world.Width - 2 * CGap, world.Height - 2 * CGap}, lines);
    TPoint at = FreestCorner(FGraph, SizeOf(lines), CGap,
                             IsShown(*FParts.Legend) ? FParts.Legend->GetBoundsRect() : TRect{});
    for (const auto& [label, sample] : lines) {
        label->SetBounds(at.X + Indent(), at.Y, label->GetWidth(), label->GetHeight());
        if (sample) sample->SetBounds(at.X, at.Y, SampleWidth(), label->GetHeight());
        at.Y += label->GetHeight();
    }
}

} // namespace kxplot
