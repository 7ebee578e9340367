#include <kxgraph/series/Kxbarseries.h>

#include "following.h"

namespace kx::test::barseries {

using TRects = std::vector<TRect>;

/// Counts full scans of the heights.
struct TCounting : TKxBarSeries {
    using TKxBarSeries::TKxBarSeries;
    void GetNewYStartStop() override {
        ++Scans;
        TKxBarSeries::GetNewYStartStop();
    }
    int Scans = 0;
};

struct TBarForm : TGraphForm {
    explicit TBarForm(bool Horizontal = false) : Horizontal(Horizontal) {}
    TKxLiveVector* Vector(const TReals& Values = {}) {
        auto* vector = new TKxLiveVector(Form);
        vector->AddValues(Values);
        return vector;
    }
    template <class T = TKxBarSeries>
    T* Bars(TKxCustomRealVector* Edges, TKxCustomRealVector* Values) {
        auto* bars = new T(Form);
        bars->SetBarHorizontal(Horizontal);
        bars->SetXData(Horizontal ? Values : Edges);
        bars->SetYData(Horizontal ? Edges : Values);
        return bars;
    }
    /// The rectangle of pixels between two edges and two values, all included.
    TRect Between(double E0, double V0, double E1, double V1) const {
        const TPoint a = Horizontal ? OnForm(V0, E0) : OnForm(E0, V0),
                     b = Horizontal ? OnForm(V1, E1) : OnForm(E1, V1);
        return {std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X) + 1, std::max(a.Y, b.Y) + 1};
    }
    /// Along the edges, then along the values.
    std::array<double, 4> Extents(TKxSeries& Series) {
        const auto e = ExtentsOf(Series);
        return Horizontal ? std::array{e[2], e[3], e[0], e[1]} : e;
    }
    TRects Outlines() {
        TRects rects;
        for (const auto& call : CallsOf<TRecording::TRectangle>(Draw())) rects.push_back(call.Rect);
        return rects;
    }
    bool Horizontal;
};

TEST(BarSeries, StandsBetweenEdgesAndOnZeroInEveryDirection) {
    for (const bool horizontal : {false, true})
        for (const bool twisted : {false, true})
            for (const bool descending : {false, true}) {
                TBarForm f(horizontal);
                f.Fix(-100, 100, -100, 100);
                f.X->SetTwisted(twisted);
                auto* edges = f.Vector(descending ? TReals{60, 30, 10} : TReals{10, 30, 60});
                f.Bars(edges, f.Vector({40, -80, 7}));
                const TRects found = f.Outlines();
                const auto e = edges->Values();
                const TRects expected{f.Between(e[0], 0, e[1], 40), f.Between(e[1], 0, e[2], -80)};
                ASSERT_EQ(found.size(), 2u) << "the third value has no bin";
                EXPECT_TRUE(std::is_permutation(found.begin(), found.end(), expected.begin()))
                    << horizontal << twisted << descending;
            }
}

TEST(BarSeries, ReachesFromZeroToTheDepthOfBoxes) {
    for (const bool horizontal : {false, true}) {
        TBarForm f(horizontal);
        auto* bars = f.Bars(f.Vector({100, 110, 130}), f.Vector({5, 7, 9}));
        f.Draw();
        EXPECT_EQ(bars->GetPointsCount(), 2);
        EXPECT_EQ(f.Extents(*bars), (std::array{100.0, 130.0, 0.0, 7.0}));
        EXPECT_EQ(horizontal ? bars->GetXMinIndex() : bars->GetYMinIndex(), -1) << "zero is no bar's end";
        bars->SetShowAs3D(true);
        bars->Set3DDepthPercent(120);
        bars->SetBarsGapPercent(20);
        EXPECT_DOUBLE_EQ(bars->GetDX(2), 20 * (0.5 - 0.1));
        EXPECT_DOUBLE_EQ(bars->GetDY(1), 10 * (0.3 - 0.1));
        EXPECT_EQ(bars->GetDX(0) + bars->GetDX(3), 0);
        f.Draw();
        const auto [e0, e1, l0, l1] = f.Extents(*bars);
        EXPECT_EQ(e0, 100);
        EXPECT_DOUBLE_EQ(e1, horizontal ? 134 : 138);
        EXPECT_EQ(l0, 0);
        EXPECT_DOUBLE_EQ(l1, horizontal ? 11 : 9);
    }
}

TEST(BarSeries, HasNoBarOfValuesThatAreNoNumbers) {
    TBarForm f;
    f.Fix(0, 100, 0, 100);
    f.Bars(f.Vector({0, 10, 20, CNaN, 30, 40}), f.Vector({20, CInf, 30, 30, CNaN}));
    f.Bars(f.Vector({0, 10, 20}), f.Vector({CNaN, 30}))->SetStackOverlays(true);
    EXPECT_TRUE(SettleTree(*f.Form));
    EXPECT_EQ(f.Outlines(), (TRects{f.Between(0, 0, 10, 20), f.Between(10, 0, 20, 30)}));
}

TEST(BarSeries, BeginsAtTheStartOfALogarithmicAxis) {
    TBarForm f;
    auto* bars = f.Bars(f.Vector({0, 1, 2, 3, 4}), f.Vector({20, -3, 3000, CNaN}));
    f.Y->SetScaling(AxLog);
    const TRects found = f.Outlines();
    EXPECT_EQ(bars->GetYRange().GetStart(), 20);
    EXPECT_EQ(f.Y->GetStart(), 10);
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(std::tuple(found[0], found[1]), std::tuple(f.Between(0, 10, 1, 20), f.Between(1, 10, 2, 10)));
    EXPECT_EQ(found[2], f.Between(2, 10, 3, 3000));
    f.Y->SetScaling(AxNormal);
    f.Draw();
    EXPECT_EQ(bars->GetYRange().GetStart(), -3);
}

TEST(BarSeries, SharesEachBinWithTheSmallestGapWhenShifted) {
    TBarForm f;
    f.Fix(0, 100, 0, 100);
    auto* edges = f.Vector({0, 50, 100});
    TKxBarSeries* bars[3];
    for (auto*& b : bars) b = f.Bars(edges, f.Vector({40, 80}));
    bars[0]->SetShiftOverlays(true);
    bars[2]->SetShiftOverlays(true);
    bars[0]->SetBarsGapPercent(60);
    bars[2]->SetBarsGapPercent(20);
    const TRects found = f.Outlines();
    ASSERT_EQ(found.size(), 6u);
    const int left = f.OnForm(0, 0).X, right = f.OnForm(50, 0).X, gap = RoundToInt((right - left) / 10.0);
    const int middle = left + gap + RoundToInt((right - left - 2 * gap) / 2.0);
    EXPECT_EQ(std::tuple(found[0].Left, found[0].Right, found[4].Left, found[4].Right),
              std::tuple(left + gap, middle + 1, middle, right - gap + 1));
    EXPECT_EQ(found[2].Width(), right - left + 1) << "not in the group";
    bars[2]->SetStackOverlays(true);
    EXPECT_FALSE(bars[2]->GetShiftOverlays());
    bars[2]->SetShiftOverlays(true);
    EXPECT_FALSE(bars[2]->GetStackOverlays());
}

TEST(BarSeries, BeginsWhereThoseBelowEndWhenStacked) {
    for (const bool horizontal : {false, true}) {
        TBarForm f(horizontal);
        f.Fix(0, 100, 0, 100);
        auto* edges = f.Vector({0, 50, 100});
        TKxLiveVector* values[] = {f.Vector({10, 20}), f.Vector({5}), f.Vector({20, 30})};
        TKxBarSeries* bars[3];
        for (int k = 0; k < 3; ++k) {
            bars[k] = f.Bars(edges, values[k]);
            bars[k]->SetStackOverlays(true);
        }
        TRects found = f.Outlines();
        EXPECT_EQ(found, (TRects{f.Between(0, 0, 50, 10), f.Between(50, 0, 100, 20), f.Between(0, 10, 50, 15),
                                 f.Between(0, 15, 50, 35), f.Between(50, 20, 100, 50)}));
        EXPECT_EQ(horizontal ? bars[2]->GetX(1) : bars[2]->GetY(1), 50);
        values[0]->SetValue(0, 30);
        values[1]->Add(-4);
        found = f.Outlines();
        EXPECT_EQ(found.back(), f.Between(50, 16, 100, 46));
        EXPECT_EQ(found[4], f.Between(0, 35, 50, 55));
        EXPECT_EQ(f.Extents(*bars[2])[3], 55);
        values[0]->Clear();
        EXPECT_EQ(f.Outlines().back(), f.Between(50, -4, 100, 26).Intersected(f.Between(50, 0, 100, 26)));
        delete values[1];
        EXPECT_EQ(f.Outlines().back(), f.Between(50, 0, 100, 30)) << "nothing below: the base line";
        EXPECT_EQ(f.Extents(*bars[2])[3], 30);
        bars[2]->SetComponentIndex(0);
        bars[2]->Modified();
        f.Draw();
        EXPECT_TRUE(bars[2]->GetStackList().empty()) << "the lowest now";
    }
}

TEST(BarSeries, GrowsAwayFromZeroInStacksOfMixedSignsOnRequest) {
    TBarForm f;
    f.Fix(0, 100, -100, 100);
    auto* edges = f.Vector({0, 50, 100});
    TKxLiveVector* values[] = {f.Vector({30, -20}), f.Vector({-10, -5}), f.Vector({20, 40}),
                               f.Vector({-25, CNaN})};
    TKxBarSeries* bars[4];
    for (int k = 0; k < 4; ++k) {
        bars[k] = f.Bars(edges, values[k]);
        bars[k]->SetStackOverlays(true);
        bars[k]->SetStackSignsApart(true);
    }
    const auto between = [&](double E, double V0, double V1) { return f.Between(E, V0, E + 50, V1); };
    const TRects found = f.Outlines();
    EXPECT_EQ(found,
              (TRects{between(0, 0, 30), between(50, 0, -20), between(0, 0, -10), between(50, -20, -25),
                      between(0, 30, 50), between(50, 0, 40), between(0, -10, -35)}));
    EXPECT_EQ(ExtentsOf(*bars[2]), (std::array{0.0, 100.0, 0.0, 50.0}));
    EXPECT_EQ(ExtentsOf(*bars[3]), (std::array{0.0, 100.0, -35.0, 0.0}));
    values[1]->SetValue(0, 7); // changes the side
    EXPECT_EQ(f.Outlines().back(), between(0, 0, -25));
    EXPECT_EQ(bars[2]->GetYRange().GetStop(), 57);
    bars[3]->SetStackSignsApart(false);
    EXPECT_EQ(f.Outlines().back(), between(0, 57, 32));
}

TEST(BarSeries, HoldsWhatAFullScanFindsAfterFollowingValueByValue) {
    std::mt19937 random(7);
    for (int variant = 0; variant < 32; ++variant) {
        SCOPED_TRACE(variant);
        TBarForm f(variant & 1);
        const bool shared = variant & 2;
        std::vector<TKxSeries*> series;
        std::vector<TKxLiveVector*> vectors;
        for (int k = 0; k < 3; ++k) {
            if (k == 0 || !shared) vectors.push_back(f.Vector());
            auto* edges = vectors[shared ? 0 : std::size_t(2 * k)];
            vectors.push_back(f.Vector());
            auto* bars = f.Bars(edges, vectors.back());
            bars->SetShowAs3D(variant & 4);
            bars->SetStackOverlays(variant & 8);
            bars->SetStackSignsApart(variant & 16);
            series.push_back(bars);
        }
        ExpectFollowed(f, vectors, series, random);
    }
}

TEST(BarSeries, ScansNothingBeforeTheNextFrameWhenAStackGrows) {
    TBarForm f;
    auto* edges = f.Vector({0});
    TKxLiveVector* values[] = {f.Vector(), f.Vector()};
    TCounting* bars[] = {f.Bars<TCounting>(edges, values[0]), f.Bars<TCounting>(edges, values[1])};
    bars[1]->SetStackOverlays(true);
    f.Draw();
    const int before = bars[0]->Scans + bars[1]->Scans;
    for (int i = 1; i <= 500; ++i) {
        edges->Add(i);
        for (auto* v : values) v->Add(i);
    }
    EXPECT_EQ(bars[0]->Scans + bars[1]->Scans, before);
    f.Draw();
    EXPECT_LE(bars[0]->Scans + bars[1]->Scans, before + 4);
    EXPECT_EQ(bars[1]->GetYRange().GetStop(), 1000);
    TKxRealVector more(f.Form); // tells nobody
    bars[0]->SetYData(&more);
    for (const double v : {1.0, 3000.0}) {
        more.Add(v);
        bars[0]->Modified();
        f.Draw();
    }
    EXPECT_EQ(bars[0]->GetYRange().GetStop(), 3000);
}

TEST(BarSeries, IsFilledAndOutlinedAsItsStylesSay) {
    TBarForm f;
    f.Fix(0, 100, 0, 100);
    auto* bars = f.Bars(f.Vector({20, 40}), f.Vector({50}));
    const auto of = [&](bool Line, bool Area) {
        bars->GetLineStyle().SetVisible(Line);
        bars->GetAreaStyle().SetVisible(Area);
        return f.Draw();
    };
    const TRect outline = (f.Draw(), f.Between(20, 0, 40, 50));
    auto rectangles = CallsOf<TRecording::TRectangle>(of(true, true));
    ASSERT_EQ(rectangles.size(), 1u);
    EXPECT_EQ(std::tuple(rectangles[0].Fill.Color, rectangles[0].Fill.Style), std::tuple(clNavy, bsSolid));
    EXPECT_EQ(rectangles[0].Stroke.Color, clBlue);
    rectangles = CallsOf<TRecording::TRectangle>(of(true, false));
    ASSERT_EQ(rectangles.size(), 1u);
    EXPECT_EQ(rectangles[0].Fill.Style, bsClear);
    const auto fills = CallsOf<TRecording::TFillRect>(of(false, true));
    EXPECT_EQ(fills.back().Rect, (TRect{outline.Left, outline.Top, outline.Right - 1, outline.Bottom - 1}));
    EXPECT_EQ(fills.back().Fill.Color, clNavy);
    const auto bare = CallsOf<TRecording::TFillRect>(of(false, false)).size();
    EXPECT_EQ(bare + 1, fills.size());
    bars->GetAreaStyle().SetDrawXOred(true);
    of(true, true);
    const auto xored = CallsOf<TRecording::TPolygon>(f.Draw(true));
    ASSERT_EQ(xored.size(), 1u);
    EXPECT_EQ(xored[0].Fill.Mode, pmXor);
    EXPECT_EQ(xored[0].Fill.Color, clNavy ^ ColorToRGB(f.Graph->GetDataGround()));
    EXPECT_EQ(CallsOf<TRecording::TRectangle>(f.Draw(true)).at(0).Stroke.Mode, pmCopy);
}

TEST(BarSeries, PaintsBoxesOfSeveralSeriesBinByBin) {
    TBarForm f;
    f.Fix(0, 100, 0, 100);
    auto* edges = f.Vector({0, 50, 100});
    for (const TColor color : {clWhite, clGreen}) {
        auto* bars = f.Bars(edges, f.Vector({20, 40}));
        bars->GetAreaStyle().SetColor(color);
        bars->SetStackOverlays(true);
        bars->SetShowAs3D(true);
    }
    const auto picture = f.Draw();
    std::vector<TColor> fronts;
    for (const auto& front : CallsOf<TRecording::TRectangle>(picture)) fronts.push_back(front.Fill.Color);
    EXPECT_EQ(fronts, (std::vector{clWhite, clGreen, clWhite, clGreen}));
    const auto faces = CallsOf<TRecording::TPolygon>(picture);
    ASSERT_EQ(faces.size(), 8u);
    const TRect first = f.Between(0, 0, 50, 20);
    const int width = first.Width() - 1, dx = RoundToInt(width * 50 / 240.0), dy = RoundToInt(width / 8.0);
    EXPECT_EQ(faces[0].Points[2], (TPoint{first.Right - 1 + dx, first.Top - dy - 1}));
    EXPECT_EQ(std::tuple(faces[0].Fill.Color, faces[1].Fill.Color, faces[0].Stroke.Color),
              std::tuple(RGB(69, 69, 69), RGB(150, 150, 150), clBlue));
    f.X->SetTwisted(true);
    EXPECT_LT(f.Outlines()[0].Left, f.Outlines()[2].Left) << "from the left in any case";
}

TEST(BarSeries, IsCutAtTheDrawingWorldUnlessTheClipDoesIt) {
    TBarForm f;
    f.Fix(20, 80, 20, 80);
    f.Bars(f.Vector({0, 10, 30, 50, 200}), f.Vector({50, 50, 90, 10}));
    f.Draw();
    const TRect world = f.LaidOut().MovedBy(f.World() - f.Graph->GetDrawingWorld().GetBoundsRect().TopLeft());
    EXPECT_EQ(f.Outlines(), (TRects{f.Between(10, 0, 30, 50).Intersected(world),
                                    f.Between(30, 0, 50, 90).Intersected(world)}));
    f.X->ZoomIn(20, 80);
    EXPECT_EQ(f.Outlines()[1].Intersected(world), f.Outlines()[1]) << "one axis";
    f.Y->ZoomIn(20, 80);
    EXPECT_EQ(f.Outlines(), (TRects{f.Between(10, 0, 30, 50), f.Between(30, 0, 50, 90)}));
}

TEST(BarSeries, CoversWithDenseBarsWhatEachOfThemWould) {
    std::mt19937 random(3);
    for (const bool horizontal : {false, true}) {
        TBarForm f(horizontal);
        auto *edges = f.Vector({0}), *values = f.Vector();
        for (int i = 1; i <= 4000; ++i) {
            edges->Add(i);
            values->Add(int(random() % 2000) - 1000);
        }
        auto* bars = f.Bars(edges, values);
        bars->GetLineStyle().SetVisible(false);
        bars->GetAreaStyle().SetVisible(true);
        bars->GetAreaStyle().SetColor(clFuchsia);
        std::set<std::pair<int, int>> found, expected;
        const auto paint = [](auto& Pixels, const TRect& Rect) {
            for (int x = Rect.Left; x < Rect.Right; ++x)
                for (int y = Rect.Top; y < Rect.Bottom; ++y) Pixels.emplace(x, y);
        };
        std::size_t calls = 0;
        for (const auto& fill : CallsOf<TRecording::TFillRect>(f.Draw())) {
            if (fill.Fill.Color != clFuchsia) continue;
            paint(found, fill.Rect);
            ++calls;
        }
        for (int i = 0; i < 4000; ++i) {
            const TRect outline = f.Between(i, 0, i + 1, values->GetValue(i));
            paint(expected, BarArea(outline, horizontal));
        }
        EXPECT_EQ(found, expected);
        EXPECT_LT(calls, 1000u);
    }
}

TEST(BarSeries, FindsABarByItsEndButNeverTheLastOne) {
    for (const bool horizontal : {false, true}) {
        TBarForm f(horizontal);
        f.Fix(0, 100, 0, 100);
        auto* bars = f.Bars(f.Vector({10, 40, 70, 90}), f.Vector({50, 50, 50}));
        f.Draw();
        const struct {
            double Edge, Value;
            int Off, Found;
        } cases[] = {{25, 50, 0, 0}, {25, 50, 3, 0}, {25, 50, 4, -1}, {10, 50, -3, 0},
                     {40, 50, 0, 1}, {70, 50, 0, 1}, {80, 50, 0, -1}, {5, 50, 0, -1}};
        for (const auto& c : cases) {
            const TPoint p = horizontal ? f.At(c.Value, c.Edge) : f.At(c.Edge, c.Value);
            EXPECT_EQ(bars->FindPoint(p.X + horizontal * c.Off, p.Y + !horizontal * c.Off, 3), c.Found)
                << c.Edge << " + " << c.Off;
        }
    }
}

TEST(BarSeries, FillsInSampleEdgesInTheDesigner) {
    TBarForm f;
    f.Form->SetDesigning(true);
    auto *edges = f.Vector(), *values = f.Vector({1, 2});
    f.Bars(edges, values);
    EXPECT_EQ(std::tuple(edges->GetCount(), edges->GetValue(10)), std::tuple(11, 100));
    EXPECT_EQ(values->GetCount(), 2);
}

TEST(BarSeries, ShowsOneBarInsideThePlaceOfASample) {
    TBarForm f;
    auto* bars = f.Bars(f.XV, f.YV);
    const TRect place{5, 7, 35, 19};
    for (const bool boxes : {false, true}) {
        bars->SetShowAs3D(boxes);
        const TRecording sample = SampleOf(*bars, place);
        const auto rectangles = CallsOf<TRecording::TRectangle>(sample);
        ASSERT_EQ(rectangles.size(), 1u);
        EXPECT_EQ(rectangles[0].Rect == place, !boxes);
        const auto faces = CallsOf<TRecording::TPolygon>(sample);
        EXPECT_EQ(faces.size(), boxes ? 2u : 0u);
        for (const auto& face : faces)
            for (const TPoint p : face.Points) EXPECT_TRUE(place.Contains(p)) << p.X << ", " << p.Y;
    }
}

} // namespace kx::test::barseries
