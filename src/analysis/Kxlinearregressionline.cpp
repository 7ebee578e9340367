#include <kxgraph/analysis/Kxlinearregressionline.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/objects/published.h>

#include <cmath>
#include <limits>
#include <vector>

namespace kx {

namespace {

constexpr double CNone = std::numeric_limits<double>::quiet_NaN(); ///< no value
constexpr double CInfinity = std::numeric_limits<double>::infinity();

bool IsLogarithmic(const TKxAxis* Axis) { return Axis && Axis->GetScaling() != AxNormal; }

/// Leaves out, as a whole, points with a value that is not finite.
TKxFitCopies WithoutGaps(const TKxFitPoints& From) {
    return TKxFitCopies(From.Within(-CInfinity, CInfinity));
}

/// Kept: a value that has no logarithm is left out alone, without its partner, so that later pairs shift;
/// results of older files rely on it. Data for a logarithmic axis are expected to be positive.
void TakeLogarithms(std::vector<double>& Values) {
    std::erase_if(Values, [](double Value) { return Value <= 0; });
    for (double& value : Values) value = std::log10(value);
}

double LogOf(double Limit) { return Limit > 0 ? std::log10(Limit) : Limit; }

} // namespace

bool TKxLinearRegressionLine::IsLogX() const { return IsLogarithmic(GetXAxis()); }
bool TKxLinearRegressionLine::IsLogY() const { return IsLogarithmic(GetYAxis()); }

void TKxLinearRegressionLine::SetFixedOffset(double Offset) {
    if (Offset == FFit.Offset) return;
    FDoFixedOffset = true;
    ChangeSetting(FFit.Offset, Offset);
}

/// Points, as they are drawn on the axes that are logarithmic.
TKxFitPoints TKxLinearRegressionLine::InDecades(TKxFitPoints Points, TKxFitCopies& Copies) const {
    if (!IsLogX() && !IsLogY()) return Points;
    Copies = WithoutGaps(Points);
    if (IsLogY()) TakeLogarithms(Copies.Y);
    if (IsLogX()) {
        TakeLogarithms(Copies.X);
        Points = Points.Within(LogOf(Points.Start), LogOf(Points.Stop));
    }
    const TKxFitPoints copied =
        Points.W ? TKxFitPoints::Of(Copies.X, Copies.Y, Copies.W) : TKxFitPoints::Of(Copies.X, Copies.Y);
    return copied.Within(Points.Start, Points.Stop);
}

void TKxLinearRegressionLine::CalculateFunction() {
    TKxFitCopies copies;
    const TKxFitPoints points = InDecades(GetFitPoints(), copies);
    const double offset = FFit.Offset;
    const TKxLinRegRules rules{FWeightMeaning, !FMarkers};
    try {
        if (FDoFixedOffset)
            OfsReg(points, FFit, rules);
        else
            LinReg(points, FFit, rules);
    } catch (...) {
        FFit = {};
        if (FDoFixedOffset) FFit.Offset = offset;
        throw;
    }
    PlaceEnds();
}

bool TKxLinearRegressionLine::HasLine() const { return FFit.Slope != CMaxReal && FFit.Offset != CMaxReal; }

double TKxLinearRegressionLine::GetY(double X) const {
    if (!HasLine()) return CNone;
    const double y = FFit.Offset + FFit.Slope * (IsLogX() ? std::log10(X) : X);
    return IsLogY() ? Exp10(y) : y;
}

std::vector<TKxBandValue> TKxLinearRegressionLine::GetBands(std::span<const double> X, double Level,
                                                            TKxBandKind Kind) const {
    std::vector<TKxBandValue> bands;
    bands.reserve(X.size());
    for (const double x : X) {
        TKxBandValue band = BandOf(ValueAt(FFit, IsLogX() ? std::log10(x) : x, FDoFixedOffset), Level, Kind);
        if (IsLogY()) band = {Exp10(band.Low), Exp10(band.High)};
        bands.push_back(band);
    }
    return bands;
}

void TKxLinearRegressionLine::PlaceEnds() {
    if (!HasLine()) return SetCurve({}, {});
    const double x[] = {GetDisplayStart(), GetDisplayStop()};
    const double y[] = {GetY(x[0]), GetY(x[1])};
    SetCurve(x, y);
}

void TKxLinearRegressionLine::CalculateLine() {
    if (!GetXAxis() || DisplayX().GetCount() == 0 || !FollowAxis()) return;
    PlaceEnds();
    CurveChanged();
}

AnsiString TKxLinearRegressionLine::GetFormula() const {
    return AnsiString(IsLogY() ? "lg(Y)=a+b(" : "Y=a+b(") + (IsLogX() ? "lg(X))" : "X)");
}

double TKxLinearRegressionLine::AdjustedDetermination() const {
    const int coefficients = FDoFixedOffset ? 1 : 2;
    const double free = FWeightMeaning == wmPrecisions ? FFit.Freedom : FFit.Points - coefficients;
    if (!(free > 0)) return CNone;
    return 1 - (1 - FFit.Determination) * (free + coefficients - 1) / free;
}

std::vector<TKxLinearRegressionLine::TValue> TKxLinearRegressionLine::Values() const {
    const auto onX = [this](double Value) { return IsLogX() ? Exp10(Value) : Value; };
    const auto onY = [this](double Value) { return IsLogY() ? Exp10(Value) : Value; };
    const auto percent = [](double Delta, double Value) {
        return Value == 0 ? CNone : std::abs(Delta / Value * 100);
    };
    const TKxLinearRegessionResults& f = FFit;
    const bool line = HasLine(), hasErrors = line && f.Freedom > 0, hasR = f.HasDetermination;
    const bool fixed = FDoFixedOffset, exact = f.Points == 2 || FWeightMeaning == wmPrecisions;
    return {
        {"AverageX", onX(f.AverageX), f.AverageX != CMaxReal},
        {"VarianceX", onX(f.VarianceX), true}, // Kept: the power of ten of the variance of the logarithms
        {"AverageY", onY(f.AverageY), f.AverageY != CMaxReal},
        {"VarianceY", onY(f.VarianceY), true},
        {"R", f.R, hasR || fixed},
        {"ChiSquare", f.ChiSquare, line && (fixed || exact || hasErrors)},
        {"Offset", f.Offset, line || fixed},
        {"DeltaOffset", f.DeltaOffset, hasErrors || fixed},
        {"DeltaOffset%", percent(f.DeltaOffset, f.Offset), hasErrors || fixed},
        {"Slope", f.Slope, line},
        {"DeltaSlope", f.DeltaSlope, hasErrors},
        {"DeltaSlope%", percent(f.DeltaSlope, f.Slope), hasErrors},
        {"Points", double(f.Points), true},
        {"R2", f.Determination, hasR},
        {"AdjR2", AdjustedDetermination(), hasR},
    };
}

void TKxLinearRegressionLine::CollectResults(TKxResults& Results) const {
    TKxCalculatedSeries::CollectResults(Results);
    Results.Set("DoFixedOffset", FDoFixedOffset);
    for (const auto& [key, value, known] : Values())
        if ((known || FMarkers) && !std::isnan(value)) Results.Set(key, value);
}

std::vector<AnsiString> TKxLinearRegressionLine::KeysWithoutValue() const {
    std::vector<AnsiString> keys;
    for (const auto& [key, value, known] : Values())
        if (std::isnan(value) || !(known || FMarkers)) keys.push_back(key);
    return keys;
}

const TPropertyTable& TKxLinearRegressionLine::Properties() {
    using T = TKxLinearRegressionLine;
    static const TPropertyTable table(
        "TKxLinearRegressionLine", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoFixedOffset, &T::SetDoFixedOffset>("DoFixedOffset", false,
                                                                  "the line keeps the given offset")
                .LoadedBy(Into<&T::FDoFixedOffset>()),
            Published<&T::GetOffset, &T::SetFixedOffset>( // else a result, which form files do not hold
                "Offset", 0.0, "the fixed offset",
                [](const TPersistent& Line) { return static_cast<const T&>(Line).GetDoFixedOffset(); })
                .LoadedBy(Into<&T::LoadOffset>()),
            Published<&T::GetWeightMeaning, &T::SetWeightMeaning>("WeightMeaning", wmCounts,
                                                                  "what weights say")
                .LoadedBy(Into<&T::FWeightMeaning>()),
            Published<&T::GetMarkers, &T::SetMarkers>("Markers", true,
                                                      "results that data leave open have markers")
                .LoadedBy(Into<&T::FMarkers>()),
        },
        {"DoFixedOffset", "Offset", "WeightMeaning", "Markers"});
    return table;
}

} // namespace kx
