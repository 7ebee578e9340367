// What a fit tells of its results, publishes and keeps.

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/streaming/filer.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// "a", "b", ... as in the results of other fits.
AnsiString Numbered(const char* Key, int i) { return Key + ("(" + std::to_string(i + 1)) + ")"; }

} // namespace

void TKxFittedLine::CollectResults(TKxResults& Results) const {
    TKxCalculatedSeries::CollectResults(Results);
    Results.Set("VarianceCoVariance", FDoCovariance ? "Covariance" : "Variance");
    Results.Set("ChiSquare", FChiSquare);
    Results.Set("Order", GetOrder());
    Results.Set("Iterations", FIterations);
    for (int i = 0; i < GetOrder(); ++i) {
        Results.Set(Numbered("CoeffName", i), ColumnToCharHeader(i + 1));
        Results.Set(Numbered("Coeff", i), FCoefficients[i]);
    }
    Results.Set("Points", int(FTaken.X.size()));
    if (Freedom() > 0) Results.Set("ResidualVariance", FSumOfSquares / Freedom());
    if (FConverged) Results.Set("Converged", *FConverged);
    for (int i = 0; i < int(FCovariance.Count()); ++i)
        if (GetDeltaCoefficient(i) != CMaxReal)
            Results.Set(Numbered("DeltaCoeff", i), GetDeltaCoefficient(i));
    AddNamed(Results);
    if (IsDamped()) AddCovariances(Results);
}

void TKxFittedLine::AddCovariances(TKxResults& Results) const {
    for (std::size_t k = 1; k < FCovariance.Count(); ++k)
        for (std::size_t i = 0; i < k; ++i) {
            const AnsiString key = "Covariance(" + std::to_string(i + 1) + "," + std::to_string(k + 1) + ")";
            const double value = FCovariance.Between(i, k);
            if (value != CMaxReal) Results.Set(key, value);
        }
}

// Names of keys ignore case: of a and A the first one stands under its name.
void TKxFittedLine::AddNamed(TKxResults& Results) const {
    for (int i = 0; i < std::min(GetOrder(), int(FNames.size())); ++i) {
        const AnsiString& name = FNames[std::size_t(i)];
        if (Results.Find(name)) continue;
        Results.Set(name, FCoefficients[i]);
        if (GetDeltaCoefficient(i) != CMaxReal) Results.Set("Delta(" + name + ")", GetDeltaCoefficient(i));
    }
    if (std::isfinite(FDetermination) && !Results.Find("R2")) Results.Set("R2", FDetermination);
}

std::vector<double> TKxFittedLine::KeptCoefficients() const {
    return {FCoefficients.begin(), FCoefficients.end()};
}

void TKxFittedLine::LoadCoefficients(const std::vector<double>& Values) {
    std::copy(Values.begin(), Values.end(), FCoefficients.begin());
    FStart = Values;
}

void TKxFittedLine::DefineProperties(TFiler& Filer) {
    TKxCalculatedSeries::DefineProperties(Filer);
    Filer.DefineProperty(
        "Coefficients", [this](TReader& Reader) { ReadCoefficients(Reader); },
        [this](TWriter& Writer) { WriteCoefficients(Writer); }, [this] { return GetOrder() > 0; });
    Filer.DefineProperty(
        "CoefficientNames", [this](TReader& Reader) { ReadNames(Reader); },
        [this](TWriter& Writer) { WriteNames(Writer); }, [this] { return !FNames.empty(); });
}

void TKxFittedLine::WriteCoefficients(TWriter& Writer) const {
    Writer.WriteListBegin();
    for (const double start : FStart) Writer.WriteFloat(start);
    Writer.WriteListEnd();
}

// They may come without an Order.
void TKxFittedLine::ReadCoefficients(TReader& Reader) {
    std::vector<double> start;
    Reader.ReadListBegin();
    while (!Reader.EndOfList()) start.push_back(Reader.ReadFloat());
    if (GetOrder() == 0) SetOrder(int(start.size()));
    if (int(start.size()) != GetOrder())
        Reader.Refuse(std::to_string(GetOrder()) + " coefficients are expected, not " +
                      std::to_string(start.size()));
    Reader.ReadListEnd();
    LoadCoefficients(start);
}

void TKxFittedLine::WriteNames(TWriter& Writer) const {
    Writer.WriteListBegin();
    for (const AnsiString& name : FNames) Writer.WriteString(name);
    Writer.WriteListEnd();
}

void TKxFittedLine::ReadNames(TReader& Reader) {
    FNames.clear();
    Reader.ReadListBegin();
    while (!Reader.EndOfList()) FNames.push_back(Reader.ReadString());
    Reader.ReadListEnd();
}

void TKxFittedLine::Loaded() {
    if (!FFittingFunction && !FExpression.empty() && FFormulaBinder) FFormulaBinder(*this);
    TKxCalculatedSeries::Loaded();
}

const TPropertyTable& TKxFittedLine::Properties() {
    using T = TKxFittedLine;
    TProperty fitted = Kept<&T::KeptCoefficients, &T::LoadCoefficients>("Coefs");
    fitted.Stored = [](const TPersistent&) { return false; }; // form files have those to start from
    static const TPropertyTable table(
        "TKxFittedLine", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoCovariance, &T::SetDoCovariance>("DoCovariance", false,
                                                                "the covariance form of the goodness"),
            Published<&T::GetIterations, &T::SetIterations>("Iterations", 1000, "budget of iterations")
                .LoadedBy(Into<&T::FIterations>()),
            Published<&T::GetOrder, &T::SetOrder>("Order", 0, "number of coefficients"),
            Published<&T::GetCheckConvergence, &T::SetCheckConvergence>(
                "CheckConvergence", false, "does each fit once more to see if it has come to rest")
                .LoadedBy(Into<&T::FCheckConvergence>()),
            PublishedEvent<&T::GetFittingFunction,
                           static_cast<void (T::*)(TKxFittingFkt)>(&T::SetFittingFunction)>(
                "FittingFunction", "the model that is fitted"),
            Published<&T::GetExpression, &T::SetExpression>("Expression", "", "the formula as text")
                .WithKey("Formula"),
            PublishedEvent<&T::OnIteration>("OnIteration", "an iteration is done"),
            Published<&T::GetMethod, &T::SetMethod>("Method", fmSimplex, "how the smallest sum is looked for")
                .LoadedBy(Into<&T::FMethod>()),
            Published<&T::GetFixedCoefficients, &T::SetFixedCoefficients>(
                "FixedCoefficients", "", "list of coefficients that keep their values: b, c")
                .LoadedBy(Into<&T::FFixed>()),
            Published<&T::GetBounds, &T::SetBounds>("Bounds", "",
                                                    "where coefficients are held: a=0..1, c=..5")
                .LoadedBy(Into<&T::FBounds>()),
            PublishedEvent<&T::GetFittingDerivatives, &T::SetFittingDerivatives>(
                "FittingDerivatives", "derivatives of the model by the coefficients"),
        },
        // Coefficients that were saved with another number of them are of no use.
        {"Expression", ReadOnly<&T::GetOrder>("Order"), "Iterations", ReadOnly<&T::GetChiSquare>("ChiSquare"),
         "CheckConvergence", fitted, "Method", "FixedCoefficients", "Bounds"});
    return table;
}

} // namespace kx
