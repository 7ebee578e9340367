#include "analysis/Kxlinearregressionline.h"

#include "numeric/Kxarithm.h"

#include <cmath>
#include <limits>
#include <vector>

namespace kx {

namespace {

bool IsLogarithmic(const TKxAxis* Axis) { return Axis && Axis->GetScaling() != AxNormal; }

/// The columns that a fit reads: the parent's own, or copies where something has to be changed in them.
struct TColumns {
    std::span<const double> X, Y, W;
};

/// Leaves out, as a whole, points with a value that is not finite.
void RemoveGaps(const TColumns& From, bool Weighted, std::vector<double> (&To)[3]) {
    const auto all = Weighted ? std::min(From.W.size(), From.X.size()) : From.X.size();
    const auto count = std::min(all, From.Y.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (!std::isfinite(From.X[i]) || !std::isfinite(From.Y[i])) continue;
        if (Weighted && !std::isfinite(From.W[i])) continue;
        To[0].push_back(From.X[i]);
        To[1].push_back(From.Y[i]);
        if (Weighted) To[2].push_back(From.W[i]);
    }
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

void TKxLinearRegressionLine::CalculateFunction() {
    const auto* parent = GetParentSeries();
    if (!parent->GetXData() || !parent->GetYData()) throw EMathError("Not enough data!");
    const auto* weight = GetWeight();
    TColumns columns{parent->GetXData()->Values(), parent->GetYData()->Values(), {}};
    if (weight) columns.W = weight->Values();
    double start = GetCalculationStart(), stop = GetCalculationStop();
    std::vector<double> copies[3];
    if (IsLogX() || IsLogY()) {
        RemoveGaps(columns, weight != nullptr, copies);
        if (IsLogY()) TakeLogarithms(copies[1]);
        if (IsLogX()) {
            TakeLogarithms(copies[0]);
            start = LogOf(start);
            stop = LogOf(stop);
        }
        columns = {copies[0], copies[1], copies[2]};
    }
    const double offset = FFit.Offset;
    try {
        if (FDoFixedOffset && weight)
            OfsRegWithWeight(start, stop, columns.X, columns.Y, columns.W, FFit);
        else if (FDoFixedOffset)
            OfsReg(start, stop, columns.X, columns.Y, FFit);
        else if (weight)
            LinRegWithWeight(start, stop, columns.X, columns.Y, columns.W, FFit);
        else
            LinReg(start, stop, columns.X, columns.Y, FFit);
    } catch (...) {
        FFit = {};
        if (FDoFixedOffset) FFit.Offset = offset;
        throw;
    }
    PlaceEnds();
}

bool TKxLinearRegressionLine::HasLine() const { return FFit.Slope != CMaxReal && FFit.Offset != CMaxReal; }

double TKxLinearRegressionLine::GetY(double X) const {
    if (!HasLine()) return std::numeric_limits<double>::quiet_NaN();
    const double y = FFit.Offset + FFit.Slope * (IsLogX() ? std::log10(X) : X);
    return IsLogY() ? Exp10(y) : y;
}

void TKxLinearRegressionLine::PlaceEnds() {
    if (!HasLine()) return SetCurve({}, {});
    const double x[] = {GetDisplayStart(), GetDisplayStop()};
    const double y[] = {GetY(x[0]), GetY(x[1])};
    SetCurve(x, y);
}

void TKxLinearRegressionLine::CalculateLine() {
    if (!GetXAxis() || DisplayX().GetCount() == 0 || !ExtendDisplay()) return;
    PlaceEnds();
    CurveChanged();
}

AnsiString TKxLinearRegressionLine::GetFormula() const {
    return AnsiString(IsLogY() ? "lg(Y)=a+b(" : "Y=a+b(") + (IsLogX() ? "lg(X))" : "X)");
}

void TKxLinearRegressionLine::WriteResults(TKxIniList& List, const AnsiString& Section) const {
    TKxCalculatedSeries::WriteResults(List, Section);
    const auto real = [&](const char* Key, double Value) { List.WriteReal(Section, Key, Value); };
    const auto percent = [&](const char* Key, double Delta, double Value) {
        if (Value != 0) real(Key, std::abs(Delta / Value * 100));
    };
    const auto onX = [this](double Value) { return IsLogX() ? Exp10(Value) : Value; };
    const auto onY = [this](double Value) { return IsLogY() ? Exp10(Value) : Value; };
    List.WriteBool(Section, "DoFixedOffset", FDoFixedOffset);
    real("AverageX", onX(FFit.AverageX));
    real("VarianceX", onX(FFit.VarianceX)); // Kept: the power of ten of the variance of the logarithms
    real("AverageY", onY(FFit.AverageY));
    real("VarianceY", onY(FFit.VarianceY));
    real("R", FFit.R);
    real("ChiSquare", FFit.ChiSquare);
    real("Offset", FFit.Offset);
    real("DeltaOffset", FFit.DeltaOffset);
    percent("DeltaOffset%", FFit.DeltaOffset, FFit.Offset);
    real("Slope", FFit.Slope);
    real("DeltaSlope", FFit.DeltaSlope);
    percent("DeltaSlope%", FFit.DeltaSlope, FFit.Slope);
    List.WriteInteger(Section, "Points", FFit.Points);
    real("R2", FFit.Determination);
    const int free = FFit.Points - (FDoFixedOffset ? 1 : 2);
    if (free > 0) real("AdjR2", 1 - (1 - FFit.Determination) * (FFit.Points - 1) / free);
}

void TKxLinearRegressionLine::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxCalculatedSeries::WriteToIni(Ini, Section);
    Ini.WriteBool(Section, "DoFixedOffset", FDoFixedOffset);
    Ini.WriteReal(Section, "Offset", FFit.Offset);
}

void TKxLinearRegressionLine::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxCalculatedSeries::ReadFromIni(Ini, Section);
    FDoFixedOffset = Ini.ReadBool(Section, "DoFixedOffset", FDoFixedOffset);
    FFit.Offset = Ini.ReadReal(Section, "Offset", FFit.Offset);
}

const TPropertyTable& TKxLinearRegressionLine::Properties() {
    using T = TKxLinearRegressionLine;
    static const TPropertyTable table(
        "TKxLinearRegressionLine", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoFixedOffset, &T::SetDoFixedOffset>("DoFixedOffset", false,
                                                                  "the line keeps the given offset"),
            Published<&T::GetOffset, &T::SetFixedOffset>("Offset", 0.0, "the fixed offset"),
        });
    return table;
}

} // namespace kx
