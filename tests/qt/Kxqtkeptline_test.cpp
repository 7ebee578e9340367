// Series that keep what they draw of their points against the same series placed point by point.

#include "raster.h"

#include "support/graphfixture.h"

#include <kxgraph/numeric/Kxextremes.h>

#include <cmath>

namespace kx::test::qtkeptline {

constexpr double CNaN = std::numeric_limits<double>::quiet_NaN(), CInf = HUGE_VAL;

class TByPoints : public TKxDataWithErrorSeries {
public:
    using TKxDataWithErrorSeries::TKxDataWithErrorSeries;

protected:
    bool GoesByValues() const override { return false; }
};

/// What is to be seen and asked after every step of a life that is drawn by lot.
struct TLook {
    QImage Picture;
    std::vector<double> Numbers;
};

using TShape = double (*)(int Index, unsigned Random, double Before);
double Walk(int, unsigned Random, double Before) { return Before + double(Random % 2001) - 1000; }
double Noise(int, unsigned Random, double) { return Random % 100000; }
double Spikes(int, unsigned Random, double) { return Random % 997 == 0 ? double(Random % 9) * 1e7 - 3e7 : 5; }
double Rising(int Index, unsigned, double) { return Index / 7; }
double Falling(int Index, unsigned, double) { return -0.01 * Index; }
double ToAndFro(int Index, unsigned, double) { return std::abs(Index % 4000 - 2000); }
double WithGaps(int Index, unsigned Random, double Before) {
    return Random % 700 == 0   ? CNaN
           : Random % 701 == 0 ? CInf
                               : Walk(Index, Random, std::isfinite(Before) ? Before : 0);
}
double ManyGaps(int Index, unsigned Random, double) {
    return Random % 5 == 0 ? CNaN : std::sin(Index * 1e-3) * 1e4 + Random % 3000;
}
double Positive(int Index, unsigned Random, double) { return std::exp(Index * 1e-3 + Random % 7); }
double NearlyPositive(int, unsigned Random, double) { return int(Random % 1000) - 3; }
double Alternating(int Index, unsigned, double) { return Index % 2 * (10 + Index * 1e-9); }
double Level(int, unsigned, double) { return 42; }

struct TScene {
    TShape X, Y;
    const char* Properties;
};
const TScene CScenes[] = {
    {Rising, Walk, ""},
    {Rising, Noise, "S.LineStyle.Width=3"},
    {Rising, Spikes, "S.AreaStyle.Visible=1"},
    {Falling, Walk, "XAxis1.Twisted=1"},
    {Falling, Noise, "S.AreaStyle.Visible=1; S.AreaStyle.DrawXOred=1"},
    {ToAndFro, Walk, ""},
    {Noise, Noise, "S.LineStyle.Width=2"},
    {Rising, WithGaps, ""},
    {Rising, WithGaps, "S.BreakAtGaps=1"},
    {WithGaps, Walk, ""},
    {Rising, ManyGaps, "S.BreakAtGaps=1"},
    {Falling, ManyGaps, "S.BreakAtGaps=1; S.LineStyle.Width=4; S.AreaStyle.Visible=1"},
    {Positive, Positive, "XAxis1.Scaling=AxLog; YAxis1.Scaling=AxLogEE"},
    {Rising, NearlyPositive, "YAxis1.Scaling=AxLog"},
    {Rising, NearlyPositive, "YAxis1.Scaling=AxLog; XAxis1.Scaling=AxLog; S.BreakAtGaps=1"},
    {Rising, Level, ""},
    {Rising, Alternating, ""},
    {Level, Walk, ""},
    {Rising, Walk, "S.LineStyle.Style=psDash"},
    {Rising, Walk, "S.PointStyle.Visible=1; S.PointStyle.Style=SyCircle; S.LineStyle.Visible=0"},
};

template <class T>
std::vector<TLook> LivesOf(const TScene& Scene, unsigned Seed, int Steps) {
    std::mt19937 random(Seed);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    TGraphForm f;
    auto* series = f.AddSeries<T>();
    series->SetName("S");
    series->GetPointStyle().SetVisible(false);
    f.Set(Scene.Properties);
    int made = 0;
    double x = 0, y = 0;
    const auto append = [&](int Count) {
        for (; Count > 0; --Count, ++made) {
            x = Scene.X(made, unsigned(random()), x);
            y = Scene.Y(made, unsigned(random()), y);
            f.Fill({{x, y}});
        }
    };
    append(any(0, 20000));
    std::vector<TLook> looks;
    for (int step = 0; step < Steps; ++step) {
        const int count = f.YV->GetCount(), at = any(0, std::max(0, count - 1));
        const auto zoom = [&](TKxAxis* Axis) {
            const double a = any(-200, 1200) / 1000.0, b = a + std::pow(10, -any(0, 4)),
                         start = Axis->GetStart(), span = Axis->GetStop() - start;
            Axis->ZoomIn(start + a * span, start + b * span);
        };
        switch (any(0, 11)) {
        case 0: append(any(0, 3000)); break;
        case 1: f.YV->SetValue(at, Scene.Y(at, unsigned(random()), 0)); break;
        case 2: f.YV->SetValue(at, CNaN); break;
        case 3: f.XV->Delete(at), f.YV->Delete(at); break;
        case 4: f.XV->Insert(at, x), f.YV->Insert(at, y); break;
        case 5:
            if (!any(0, 5)) f.XV->Clear(), f.YV->Clear(), append(any(0, 3000));
            break;
        case 6:
        case 7: zoom(f.X), zoom(f.Y); break;
        case 8: zoom(f.X); break;
        case 9: f.X->RedoRanges(), f.Y->RedoRanges(); break;
        case 10: f.Graph->SetBounds(10, 10, any(60, 400), any(60, 300)); break;
        default: series->GetLineStyle().SetColor(any(0, 0xFFFFFF));
        }
        TLook look;
        look.Picture = Painted({{420, 320}}, [&](auto& Device) { PaintFrame(*f.Form, Device); });
        const auto extents = ExtentsOf(*series);
        look.Numbers.assign(extents.begin(), extents.end());
        for (const int number :
             {series->GetXMinIndex(), series->GetXMaxIndex(), series->GetYMinIndex(), series->GetYMaxIndex(),
              series->FindPoint(any(0, 400), any(0, 300), any(0, 50))})
            look.Numbers.push_back(number);
        if (!any(0, 20))
            for (const TPoint p : series->GetPoints().Values())
                look.Numbers.insert(look.Numbers.end(), {double(p.X), double(p.Y)});
        looks.push_back(std::move(look));
    }
    return looks;
}

TEST(QtKeptLine, ChangesNoPixelNoExtentAndNoAnswer) {
    unsigned seed = 0;
    for (const TScene& scene : CScenes) {
        constexpr int CSteps = 40;
        ++seed;
        const auto kept = LivesOf<TKxDataWithErrorSeries>(scene, seed, CSteps);
        const auto placed = LivesOf<TByPoints>(scene, seed, CSteps);
        for (std::size_t step = 0; step < kept.size(); ++step) {
            ASSERT_EQ(kept[step].Picture, placed[step].Picture)
                << scene.Properties << " of scene " << seed << ", step " << step;
            ASSERT_EQ(kept[step].Numbers, placed[step].Numbers)
                << scene.Properties << " of scene " << seed << ", step " << step;
        }
    }
}

TEST(QtKeptLine, AFrameTouchesWhatChanged) {
    TGraphForm f;
    auto* series = f.AddSeries<TKxDataSeries>();
    series->GetPointStyle().SetVisible(false);
    constexpr int CCount = 1000000;
    std::mt19937 random(1);
    for (int i = 0; i < CCount; ++i) f.Fill({{double(i), double(random() % 1000)}});
    f.Draw();
    const auto frame = [&] {
        const auto before = PointsTouched;
        f.Draw();
        return PointsTouched - before;
    };
    EXPECT_EQ(frame(), 0u);
    series->GetLineStyle().SetColor(clGreen);
    EXPECT_EQ(frame(), 0u);
    f.X->SetCaption("a label that moves others");
    EXPECT_EQ(frame(), 0u);
    f.X->ZoomIn(500000, 501000);
    EXPECT_LE(frame(), 10000u);
    f.X->ZoomBack();
    f.Fill({{double(CCount), 2000}});
    EXPECT_LE(frame(), 150000u); // 64 blocks of 64 a column
    f.YV->SetValue(CCount, 0);   // the maximum has gone
    EXPECT_LE(frame(), 150000u);
    f.Fill({{CCount + 0.5, 5}}); // the axes stay
    EXPECT_LE(frame(), 1000u);
}

/// Many points that show no labels: the layout stays, whatever the view.
struct TPanned : TGraphForm {
    explicit TPanned(double Step) {
        Set("XAxis1.ShowScaleLabels=0; YAxis1.ShowScaleLabels=0; Graph1.Panning=1");
        std::mt19937 random(7);
        for (int i = 0; i < 200000; ++i) Fill({{i * Step, double(random() % 2000) + i * 0.01}});
        AddSeries<TKxDataSeries>()->GetPointStyle().SetVisible(false);
        Form->Show();
        Draw();
        X->ZoomIn(20000 * Step, 170000 * Step);
        Draw();
    }
    void Mouse(TMouseKind Kind, TPoint At) {
        Form->AsHostClient().HostMouse(Kind, mbMiddle, ssMiddle, Graph->GetDrawingWorld().ClientToRoot(At));
    }
    std::array<double, 4> View() const { return {X->GetStart(), X->GetStop(), Y->GetStart(), Y->GetStop()}; }
    QImage Picture(bool Antialias, int Columns = CColumnsPerPixel) {
        return Painted({.Size = {420, 320}, .Antialias = Antialias}, [&](auto& Device) {
            Device.SetColumnsPerPixel(Columns);
            PaintFrame(*Form, Device);
        });
    }
};

/// The greatest difference of a channel.
int Difference(const QImage& A, const QImage& B) {
    int most = 0;
    for (int i = 0; i < int(A.sizeInBytes()); ++i)
        most = std::max(most, std::abs(A.constBits()[i] - B.constBits()[i]));
    return most;
}

struct TSeen {
    std::array<double, 4> View;
    QImage Picture;
};

/// What is seen on a way of the mouse; no frame touches many points.
std::vector<TSeen> SeenOnTheWay(double Step, bool Antialias) {
    TPanned panned(Step);
    panned.Picture(Antialias);
    std::vector<TSeen> seen;
    TPoint at{100, 100};
    panned.Mouse(TMouseKind::Down, at);
    for (const TPoint by : {TPoint{7, 0}, {-20, 3}, {-1, -40}, {0, 11}, {30, 0}}) {
        at = at + by;
        panned.Mouse(TMouseKind::Move, at);
        panned.Form->AsHostClient().HostSettle();
        const auto before = PointsTouched;
        const QImage picture = panned.Picture(Antialias);
        EXPECT_LE(PointsTouched - before, 30000u) << Step << " " << by.X;
        seen.push_back({panned.View(), picture});
    }
    return seen;
}

// With whole numbers some points stand on the very border of two pixels.
TEST(QtKeptLine, APanGathersTheColumnsThatComeIn) {
    for (const double step : {0.37, 1.0}) {
        for (const bool antialias : {false, true}) {
            for (const auto& [view, picture] : SeenOnTheWay(step, antialias)) {
                TPanned fresh(step);
                const auto gesture = NewZoomGesture();
                fresh.X->ZoomAlong(view[0], view[1], gesture);
                fresh.Y->ZoomAlong(view[2], view[3], gesture);
                EXPECT_LE(Difference(picture, fresh.Picture(antialias)), antialias ? 40 : 0) << step;
            }
        }
    }
}

double RootMeanSquare(const QImage& A, const QImage& B) {
    double sum = 0;
    for (int i = 0; i < int(A.sizeInBytes()); ++i) {
        const double by = A.constBits()[i] - B.constBits()[i];
        sum += by * by;
    }
    return std::sqrt(sum / double(A.sizeInBytes()));
}

// A window has fewer columns than a file, and a half or a quarter of them where they are crowded: some pixels
// at the edge of noise show it, the picture does not.
TEST(QtKeptLine, FewColumnsLookMuchAsManyDo) {
    TPanned panned(0.37);
    for (const int width : {420, 150}) {
        panned.Graph->SetBounds(0, 0, width, 320);
        for (const double share : {1.0, 0.5, 0.2, 0.08, 0.04, 0.01}) {
            panned.X->ZoomIn(1000, 1000 + 70000 * share);
            EXPECT_LE(RootMeanSquare(panned.Picture(true, 8), panned.Picture(true)), 6) << share;
        }
    }
}

} // namespace kx::test::qtkeptline
