// kxgraph's rows: those that its peers are measured beside.

#include "drawing.h"

#include <kxgraph/analysis/Kxakima.h>
#include <kxgraph/analysis/Kxdamped.h>
#include <kxgraph/analysis/Kxlinregr.h>
#include <kxgraph/analysis/Kxpolyregr.h>
#include <kxgraph/analysis/Kxsimplex.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QImage>
#include <QPainter>

#include <iterator>

namespace {

using namespace kx;
using peers::TPoints, peers::TRows, peers::TValues;

constexpr TSize CSize{800, 600};

class TPlot {
public:
    static constexpr bool CGaps = true;

    TPlot() {
        FForm.SetBounds(0, 0, CSize.Width, CSize.Height);
        FGraph.SetParent(&FForm);
        FGraph.SetBounds(0, 0, CSize.Width, CSize.Height);
        FX.SetParent(&FGraph);
        FY.SetParent(&FGraph);
        FGraph.SetPrimaryXAxis(&FX);
        FGraph.SetPrimaryYAxis(&FY);
    }
    void AddLine(const TValues& X, const TValues& Y) { Add<TKxLineSeries>(X, Y).SetBreakAtGaps(true); }
    void AddCircles(const TValues& X, const TValues& Y) { DressAsCircles(Add<TKxDataSeries>(X, Y)); }
    void AddErrorBars(const TValues& X, const TValues& Y, const TValues& Errors) {
        auto& series = Add<TKxDataWithErrorSeries>(X, Y);
        DressAsCircles(series);
        auto* errors = VectorOf(Errors);
        series.SetdYPlus(errors);
        series.SetdYMinus(errors);
    }
    void AddBars(const TValues& X, const TValues& Y) {
        Add<TKxBarSeries>(X, Y).GetAreaStyle().SetVisible(true);
    }
    void SetView(double X0, double X1, double Y0, double Y1) {
        Show(FX, X0, X1);
        Show(FY, Y0, Y1);
    }
    void FollowData() {
        for (TKxAxis* axis : {&FX, &FY}) {
            axis->SetStartEnd(AxAutoRange);
            axis->SetStopEnd(AxAutoRange);
        }
    }
    void SetLogarithmic() { FY.SetScaling(AxLog); }
    void Append(double X, double Y) {
        FFirstX->Add(X);
        FFirstY->Add(Y);
    }
    void Paint() {
        QPainter painter(&FImage);
        qt::TPainterDevice device(painter, CSize);
        PaintFrame(FForm, device);
    }
    static void AppendAlone(std::size_t Count) {
        TKxLiveVector x(nullptr), y(nullptr);
        for (std::size_t i = 0; i < Count; ++i) {
            x.Add(double(i));
            y.Add(double(i % 1000));
        }
        peers::Keep(y.GetValue(0));
    }
    void Save(const std::string& FileName) const { FImage.save(QString::fromStdString(FileName)); }

private:
    TKxLiveVector* VectorOf(const TValues& Values) {
        auto* vector = new TKxLiveVector(&FForm); // the form owns it
        vector->AddValues(Values);
        return vector;
    }
    template <class T>
    T& Add(const TValues& X, const TValues& Y) {
        auto* series = new T(&FForm);
        auto *x = VectorOf(X), *y = VectorOf(Y);
        if (!FFirstX) FFirstX = x, FFirstY = y;
        series->SetXAxis(&FX);
        series->SetYAxis(&FY);
        series->SetXData(x);
        series->SetYData(y);
        return *series;
    }
    static void DressAsCircles(TKxDataSeries& Series) {
        Series.GetLineStyle().SetVisible(false);
        Series.GetPointStyle().SetStyle(SyCircleFilled);
        Series.GetPointStyle().SetSize(7);
    }
    static void Show(TKxAxis& Axis, double Start, double Stop) {
        Axis.SetStartEnd(AxFixed);
        Axis.SetStopEnd(AxFixed);
        Axis.SetStart(Start);
        Axis.SetStop(Stop);
    }

    TForm FForm{&TApplication::Instance()};
    TKx2DGraph FGraph{&FForm};
    TKxAxis FX{&FForm}, FY{&FForm};
    TKxLiveVector *FFirstX = nullptr, *FFirstY = nullptr;
    QImage FImage{CSize.Width, CSize.Height, QImage::Format_RGB32};
};

void FitBySimplex(const TPoints& Points, double Goal) {
    TKxSimplex simplex([&](std::span<const double> C) { return peers::DecaySum(Points, C.data()); });
    simplex.Run(peers::CDecayStart, 10000,
                [Goal](const TKxSimplex& Simplex) { return Simplex.BestValue() > Goal; });
    if (simplex.BestValue() > Goal) std::fprintf(stderr, "kxgraph_peer: the simplex did not converge\n");
}

void FitByDerivatives(const TPoints& Points, double Goal) {
    TKxDampedProblem problem;
    problem.Y = Points.Y;
    problem.Model = [&](std::span<const double> C, std::span<double> Values) {
        for (std::size_t i = 0; i < Values.size(); ++i)
            Values[i] = C[0] * std::exp(-C[1] * Points.X[i]) + C[2];
    };
    problem.Derivatives = [&](std::span<const double> C, std::span<const std::span<double>> Columns) {
        for (std::size_t i = 0; i < Points.X.size(); ++i) {
            const double power = std::exp(-C[1] * Points.X[i]);
            Columns[0][i] = power;
            Columns[1][i] = -C[0] * Points.X[i] * power;
            Columns[2][i] = 1;
        }
    };
    TKxDamped fit(std::move(problem));
    fit.Run(peers::CDecayStart, 100, [Goal](const TKxDamped& Fit) { return Fit.BestValue() > Goal; });
    if (fit.BestValue() > Goal) std::fprintf(stderr, "kxgraph_peer: the fit did not converge\n");
}

void Fits(const TRows& Rows) {
    const TPoints sine = peers::SineOf(1000000), decay = peers::DecayOf(peers::CDecayPoints);
    Rows.Time(peers::CLineFit, [&] {
        TKxLinearRegessionResults results;
        LinReg(0, 20, sine.X, sine.Y, results);
        peers::Keep(results.Slope);
    });
    Rows.Time(peers::CPolynomialFit, [&] {
        TKxPolynomRegessionResults results;
        results.Order = 5;
        PolynomRegression(sine.X, sine.Y, 0, 20, results);
        peers::Keep(results.ChiSquare);
    });
    const double goal = peers::DecayGoal(decay);
    Rows.Time(peers::CSimplexFit, [&] { FitBySimplex(decay, goal); });
    Rows.Time(peers::CAnyFit, [&] { FitByDerivatives(decay, goal); });
}

void Curves(const TRows& Rows) {
    const TPoints million = peers::UnevenOf(1000000), knots = peers::UnevenOf(100000);
    const auto vectorOf = [](TKxRealVector& Vector, const TValues& Values) { Vector.AddValues(Values); };
    TKxRealVector x(nullptr), y(nullptr), knotX(nullptr), knotY(nullptr);
    vectorOf(x, million.X);
    vectorOf(y, million.Y);
    vectorOf(knotX, knots.X);
    vectorOf(knotY, knots.Y);
    TKxAkima akima;
    Rows.Time(peers::CAkimaBuild, [&] { akima.RecalculateCoeffs(-1e300, 1e300, &x, &y, nullptr); });
    akima.RecalculateCoeffs(-1e300, 1e300, &knotX, &knotY, nullptr);
    const TValues at = peers::BetweenOf(knots, 1000000);
    TValues values(at.size());
    Rows.Time(peers::CAkimaValues, [&] {
        for (std::size_t i = 0; i < at.size(); ++i) values[i] = akima.Interpolate(at[i]);
        peers::Keep(values[values.size() / 2]);
    });
}

void Formulas(const TRows& Rows) {
    TKxFormula formula(peers::CFormulaText);
    formula.SetCoefficientNames({"a", "b", "c", "d"});
    const TValues x = peers::FormulaX();
    TValues y(x.size());
    Rows.Time(peers::CFormula, [&] { formula.Evaluate(x, peers::CFormulaCoefficients, y); });
}

void Stores(const TRows& Rows) {
    std::string text;
    const auto write = [&] {
        TKxIniList ini;
        for (int i = 0; i < peers::CIniKeys; ++i) ini.WriteInteger(peers::IniSection(i), peers::IniKey(i), i);
        text = ini.GetText();
    };
    Rows.Time(peers::CIniWrite, write);
    write();
    Rows.Time(peers::CIniRead, [&] {
        TKxIniList ini;
        ini.SetText(text);
        double sum = 0;
        for (int i = 0; i < peers::CIniKeys; ++i)
            sum += ini.ReadInteger(peers::IniSection(i), peers::IniKey(i), 0);
        peers::Keep(sum);
    });
}

} // namespace

int main(int Count, char** Arguments) {
    qt::Install(true);
    const TRows rows(Count, Arguments);
    peers::TDrawing<TPlot>(rows).All();
    Fits(rows);
    Curves(rows);
    Formulas(rows);
    Stores(rows);
}
