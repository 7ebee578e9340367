#include <kxgraph/annotation/Kxlegend.h>

#include <kxgraph/platform/controls/controlsmouse.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace kx {

TKxLegend::TKxLegend(TComponent* Owner) : TGraphicControl(Owner), FFrameLine(this) {
    FFrameLine.SetColor(clBlack);
}

TKxLegend::~TKxLegend() {
    if (FGraph) FGraph->UnregisterCompanion(this);
}

int TKxLegend::Limited(int Pixels) {
    constexpr int CMost = 10000; // sums of many stay defined
    return std::clamp(Pixels, 0, CMost);
}

void TKxLegend::SetGraph(TKx2DGraph* Graph) {
    if (Graph == FGraph) return;
    if (FGraph) FGraph->UnregisterCompanion(this);
    FGraph = Graph;
    if (Graph) Graph->RegisterCompanion(this, this);
    FItemsStale = true;
    RequestLayout();
}

void TKxLegend::SetTransparent(bool Transparent) {
    if (FTransparent == Transparent) return;
    FTransparent = Transparent;
    Invalidate();
}

// A legend without size has no pixel that could be asked for.
void TKxLegend::RequestFrame() {
    Invalidate();
    if (GetClientRect().IsEmpty() && GetVisible() && GetParent()) GetParent()->Invalidate();
}

void TKxLegend::RequestLayout() {
    FLayoutStale = true;
    RequestFrame();
    if (StandsOnGraph()) FGraph->Modified();
}

// Called for every live value: once a frame is enough.
void TKxLegend::ItemsModified() {
    if (FItemsStale) return;
    FItemsStale = true;
    RequestFrame();
}

void TKxLegend::SetParent(TWinControl* Parent) {
    TGraphicControl::SetParent(Parent);
    RequestLayout();
}

void TKxLegend::SetBounds(int Left, int Top, int Width, int Height) {
    const TSize before = GetBoundsRect().Size();
    TGraphicControl::SetBounds(Left, Top, Width, Height);
    if (GetBoundsRect().Size() != before) FLayoutStale = true;
}

void TKxLegend::CMFontChanged() {
    TGraphicControl::CMFontChanged();
    FMetricsStale = true;
    RequestLayout();
}

void TKxLegend::CMTextChanged() {
    TGraphicControl::CMTextChanged();
    FTitle = ParseCaption(GetText());
    FMetricsStale = true;
    RequestLayout();
}

void TKxLegend::CMVisibleChanged() {
    TGraphicControl::CMVisibleChanged();
    RequestLayout();
}

void TKxLegend::Notification(TComponent* Component, TOperation Operation) {
    TGraphicControl::Notification(Component, Operation);
    if (Operation != opRemove) return;
    const auto gone = std::erase_if(FEntries, [=](const TEntry& E) { return E.Series == Component; });
    if (Component == FGraph) {
        FGraph = nullptr;
        FEntries.clear();
    } else if (gone == 0) {
        return;
    }
    FItemsStale = FLayoutStale = true;
    RequestFrame();
}

namespace {

/// The series to show, parents before their children.
void Collect(TKxGraphSeries& Series, std::set<const TKxGraphSeries*>& Seen,
             std::vector<TKxGraphSeries*>& Shown) {
    if (!Seen.insert(&Series).second) return; // children may be entered in more than one list
    if (Series.GetIncludeInLegend()) Shown.push_back(&Series);
    for (TKxGraphSeries* child : Series.GetChildSeries()) Collect(*child, Seen, Shown);
}

std::vector<TKxGraphSeries*> ShownSeries(TKx2DGraph* Graph) {
    std::set<const TKxGraphSeries*> seen;
    std::vector<TKxGraphSeries*> shown;
    if (Graph)
        for (TKxGraphSeries* series : Graph->GetSeriesList()) Collect(*series, seen, shown);
    return shown;
}

const std::string& TextOf(const TKxGraphSeries& Series) {
    return Series.GetCaption().empty() ? Series.GetName() : Series.GetCaption();
}

/// The width on the screen; more where the letters of a smooth device would reach over half of the padding.
int RoomFor(const TKxParsedCaption& Caption, TCanvas& Canvas, int Padding) {
    const int exact = RoundToInt(std::ceil(ExactCaptionWidth(Caption, Canvas)));
    return std::max(MeasureCaption(Caption, Canvas), exact - Padding / 2);
}

} // namespace

// What was measured for the entry at this place before serves again if the text is the same.
TKxLegend::TEntry TKxLegend::MakeEntry(TKxGraphSeries& Series, TEntry* Before) const {
    TEntry entry;
    const std::string& text = TextOf(Series);
    if (Before && Before->Text == text) {
        entry = std::move(*Before);
    } else {
        entry.Text = text;
        entry.Caption = ParseCaption(text);
        TCanvas canvas;
        canvas.Font.Assign(GetFont());
        entry.Width = RoomFor(entry.Caption, canvas, Padding());
    }
    entry.Series = &Series;
    return entry;
}

// Whether anything that is shown has changed.
bool TKxLegend::RefreshEntries() {
    if (!FItemsStale && !FMetricsStale) return false;
    const auto shown = ShownSeries(FGraph);
    const bool same = std::equal(
        shown.begin(), shown.end(), FEntries.begin(), FEntries.end(),
        [](const TKxGraphSeries* S, const TEntry& E) { return S == E.Series && TextOf(*S) == E.Text; });
    FItemsStale = false;
    if (same && !FMetricsStale) return false;
    std::vector<TEntry> entries;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const bool reusable = i < FEntries.size() && !FMetricsStale;
        entries.push_back(MakeEntry(*shown[i], reusable ? &FEntries[i] : nullptr));
        shown[i]->FreeNotification(this);
    }
    FEntries = std::move(entries);
    if (FMetricsStale) {
        TCanvas canvas;
        canvas.Font.Assign(GetFont());
        FLineHeight = canvas.TextHeight("X");
        FTitleWidth = RoomFor(FTitle, canvas, Padding());
        FMetricsStale = false;
    }
    return true;
}

TKxGraphSeries* TKxLegend::GetEntrySeries(int Index) const {
    return Index >= 0 && Index < GetEntryCount() ? FEntries[std::size_t(Index)].Series : nullptr;
}

TRect TKxLegend::GetEntryRect(int Index) const {
    return Index >= 0 && Index < GetEntryCount() ? FEntries[std::size_t(Index)].Rect : TRect{};
}

TKxGraphSeries* TKxLegend::EntryAt(int X, int Y) const {
    if (!GetClientRect().Contains({X, Y})) return nullptr;
    const auto found = std::find_if(FEntries.begin(), FEntries.end(), [=](const TEntry& E) {
        return E.Rect.Contains({X, Y});
    });
    return found == FEntries.end() ? nullptr : found->Series;
}

void TKxLegend::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    FMouse = {X, Y};
    if (Button == mbLeft) FPressed = EntryAt(X, Y);
    TGraphicControl::MouseDown(Button, Shift, X, Y);
}

void TKxLegend::MouseMove(TShiftState Shift, int X, int Y) {
    FMouse = {X, Y};
    if (FGraph && FGraph->GetLegendPicking()) {
        SetCursor(EntryAt(X, Y) ? crHandPoint : crDefault);
        ShowCursorOf(*this);
    }
    TGraphicControl::MouseMove(Shift, X, Y);
}

void TKxLegend::Click() {
    const std::weak_ptr<char> alive = FAlive;
    TGraphicControl::Click(); // the handler may destroy the legend, or the series
    if (alive.expired()) return;
    TKxGraphSeries* series = EntryAt(FMouse.X, FMouse.Y);
    if (!series || series != FPressed) return;
    if (FGraph && FGraph->GetLegendPicking()) series->SetVisible(!series->GetVisible());
    OnEntryClick(series);
}

} // namespace kx
