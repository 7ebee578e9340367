#include <kxgraph/analysis/Kxsimplex.h>

#include <kxgraph/platform/base/exceptions.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kx {

namespace {

constexpr double CSpread = 2.05;
constexpr double CReflection = -1, CExpansion = 2, CContraction = 0.5;

} // namespace

void TKxSimplex::CheckSettings(int Order, int Iterations) {
    if (Order < 1) throw EMathError("Simplex Fit: no order set!");
    if (Iterations < 1) throw EMathError("Simplex Fit: no iterations set!");
}

double TKxSimplex::Evaluate(const TVertex& Vertex) const {
    constexpr double worst = std::numeric_limits<double>::infinity();
    if (!std::ranges::all_of(Vertex, [](double c) { return std::isfinite(c); })) return worst;
    const double value = FFunction(Vertex);
    return std::isfinite(value) ? value : worst;
}

void TKxSimplex::Start(std::span<const double> Vertex, int Iterations) {
    CheckSettings(static_cast<int>(Vertex.size()), Iterations);
    const std::size_t n = Vertex.size();
    FVertices.assign(n + 1, TVertex(Vertex.begin(), Vertex.end()));
    for (std::size_t i = 0; i < n; ++i) FVertices[i][i] *= CSpread;
    FValues.resize(n + 1);
    std::ranges::transform(FVertices, FValues.begin(), [this](const TVertex& v) { return Evaluate(v); });
    FCentroid.resize(n);
    FRemaining = Iterations;
    Rank();
}

void TKxSimplex::Rank() {
    FBest = FWorst = 0;
    for (std::size_t i = 0; i < FValues.size(); ++i) {
        if (FValues[i] >= FValues[FWorst])
            FWorst = i;
        else if (FValues[i] <= FValues[FBest])
            FBest = i;
    }
    FSecondWorst = FBest;
    for (std::size_t i = 0; i < FValues.size(); ++i)
        if (i != FWorst && FValues[i] >= FValues[FSecondWorst]) FSecondWorst = i;
}

void TKxSimplex::CalculateCentroid() {
    std::ranges::fill(FCentroid, 0.0);
    for (std::size_t i = 0; i < FVertices.size(); ++i)
        if (i != FWorst)
            for (std::size_t k = 0; k < FCentroid.size(); ++k) FCentroid[k] += FVertices[i][k];
    for (double& m : FCentroid) m /= static_cast<double>(FCentroid.size());
}

void TKxSimplex::MoveWorst(double Factor) {
    TVertex& vertex = FVertices[FWorst];
    for (std::size_t k = 0; k < vertex.size(); ++k)
        vertex[k] = FCentroid[k] - Factor * (FCentroid[k] - vertex[k]);
    FValues[FWorst] = Evaluate(vertex);
}

void TKxSimplex::Expand() {
    FSaved = FVertices[FWorst];
    const double saved = FValues[FWorst];
    MoveWorst(CExpansion);
    if (FValues[FWorst] < saved) return;
    FVertices[FWorst].swap(FSaved);
    FValues[FWorst] = saved;
}

// Kept: the shrink follows a contraction that helped, not one that failed. Results, and where the search
// comes to rest, depend on it.
void TKxSimplex::Contract() {
    MoveWorst(CContraction);
    if (FValues[FSecondWorst] >= FValues[FWorst]) Shrink();
}

void TKxSimplex::Shrink() {
    const TVertex& best = FVertices[FBest];
    for (std::size_t i = 0; i < FVertices.size(); ++i) {
        if (i == FBest) continue;
        TVertex& vertex = FVertices[i];
        for (std::size_t k = 0; k < vertex.size(); ++k) vertex[k] = (vertex[k] + best[k]) / 2;
        FValues[i] = Evaluate(vertex);
    }
}

bool TKxSimplex::Iterate() {
    CalculateCentroid();
    MoveWorst(CReflection);
    if (FValues[FWorst] < FValues[FBest])
        Expand();
    else if (FValues[FWorst] > FValues[FSecondWorst])
        Contract();
    Rank();
    --FRemaining;
    return FRemaining >= 0 && BestValue() != 0;
}

void TKxSimplex::Run(std::span<const double> Vertex, int Iterations, const TProgress& Progress) {
    Start(Vertex, Iterations);
    bool due = true;
    while (due) {
        due = Iterate();
        if (Progress && !Progress(*this)) return;
    }
}

} // namespace kx
