#include <kxgraph/analysis/Kxsplinesmoother.h>

#include <kxgraph/numeric/Kxlanes.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace kx {

namespace {

/// Beside what is divided by: a weight of 0 has no inverse, and needs none.
constexpr double CNearlyNone = 1e-300;

/// What is known about value g and slope s at a knot from the points up to it: two equations and their
/// weights, g + ValueS s = Value and s = Slope.
template <class V>
struct TKnowledge {
    V ValueWeight{}, ValueS{}, Value{};
    V SlopeWeight{}, Slope{};
};

/// The second derivatives at the two ends of a piece by value and slope at its right end:
/// P = Pr - Pq Q - Pg g - Ps s and Q = Qr - Qg g - Qs s.
template <class V>
struct TPiece {
    V Pq, Pg, Ps, Pr;
    V Qg, Qs, Qr;
};

inline bool ArePositive(double Weight) { return Weight > 0; }
inline bool ArePositive(TKxLanes Weights) { return HoldsForAll(Weights > TKxLanes{}); }

/// Nothing is known about a slope without weight; what stands there may be anything.
inline void ForgetSlope(TKnowledge<double>& Known) { Known.SlopeWeight = Known.Slope = 0; }
inline void ForgetSlope(TKnowledge<TKxLanes>& Known) {
    for (int i : {0, 1})
        if (!(Known.SlopeWeight[i] > 0)) Known.SlopeWeight[i] = Known.Slope[i] = 0;
}

/// The equation factor s = right
template <class V>
inline void AddSlope(TKnowledge<V>& Known, V Weight, V Factor, V Right) {
    const V pull = Weight * Factor;
    Known.SlopeWeight += pull * Factor;
    Known.Slope += pull / (Known.SlopeWeight + CNearlyNone) * (Right - Factor * Known.Slope);
}

/// The equation g + factor s = right
template <class V>
inline void AddValue(TKnowledge<V>& Known, V Weight, V Factor, V Right) {
    const V factor = Factor - Known.ValueS, right = Right - Known.Value;
    const V sum = Known.ValueWeight + Weight, share = Weight / (sum + CNearlyNone);
    AddSlope(Known, Known.ValueWeight * share, factor, right);
    Known.ValueWeight = sum;
    Known.ValueS += share * factor;
    Known.Value += share * right;
}

/// Moves to the next knot, Width h further on. Value and slope there replace those here by
/// s = S - h (P + Q) / 2, g = G - h S + h^2 (P / 6 + Q / 3); the integral over the piece adds the squares of
/// P + Q / 2 with weight h / 3 and of Q with weight h / 4. P is eliminated with the first of these, Q with
/// the second: each takes the pull of both equations upon itself.
template <class V>
inline TPiece<V> Move(TKnowledge<V>& Known, V Width) {
    const V half = Width * 0.5;
    const V s = Known.ValueS - Width, r = Known.Value; // beside G
    const V valueP = half * (Width * (1.0 / 3) - Known.ValueS), valueQ = half * 0.5 * (Width - Known.ValueS);

    const V bendP = Width * (1.0 / 3), pullP = Known.ValueWeight * valueP;
    const V sumP = bendP + pullP * valueP, allP = sumP + Known.SlopeWeight * half * half;
    const V inverseP = 1 / sumP, inverseAllP = 1 / allP;
    const V first = pullP * inverseP, second = Known.SlopeWeight * half * inverseAllP;
    TPiece<V> piece{0.5 + first * valueQ, first, first * s, first * r, {}, {}, {}};
    V slopeQ = half * (piece.Pq - 1), slopeG = half * piece.Pg, slopeS = 1 + half * piece.Ps,
      slopeR = Known.Slope + half * piece.Pr;
    piece.Pq -= second * slopeQ;
    piece.Pg -= second * slopeG;
    piece.Ps -= second * slopeS;
    piece.Pr -= second * slopeR;
    const V valueWeight = Known.ValueWeight * bendP * inverseP,
            slopeWeight = Known.SlopeWeight * sumP * inverseAllP;

    const V bendQ = half * 0.5, pullQ = valueWeight * valueQ, pullSlopeQ = slopeWeight * slopeQ;
    const V sumQ = bendQ + pullQ * valueQ, allQ = sumQ + pullSlopeQ * slopeQ;
    const V inverseQ = 1 / sumQ, inverseAllQ = 1 / allQ;
    piece.Qg = pullQ * inverseQ;
    piece.Qs = piece.Qg * s;
    piece.Qr = piece.Qg * r;
    slopeG -= slopeQ * piece.Qg;
    slopeS -= slopeQ * piece.Qs;
    slopeR -= slopeQ * piece.Qr;
    const V share = pullSlopeQ * inverseAllQ;
    piece.Qg += share * slopeG;
    piece.Qs += share * slopeS;
    piece.Qr += share * slopeR;

    // What is left of both equations; g is eliminated from the second one.
    const V weight = valueWeight * bendQ * inverseQ, other = slopeWeight * sumQ * inverseAllQ;
    const V pull = other * slopeG, sum = weight + pull * slopeG, inverse = 1 / (sum + CNearlyNone);
    slopeS -= slopeG * s;
    slopeR -= slopeG * r;
    Known.ValueWeight = sum;
    Known.ValueS = s + pull * inverse * slopeS;
    Known.Value = r + pull * inverse * slopeR;
    Known.SlopeWeight = other * weight * inverse * slopeS * slopeS;
    Known.Slope = slopeR / slopeS;
    if (!ArePositive(Known.SlopeWeight)) ForgetSlope(Known);
    return piece;
}

/// Value and slope at a knot.
template <class V>
struct TState {
    V G, S;
};

template <class V>
struct TDerivatives {
    V P, Q;
};

/// Goes back over a piece: State becomes that at its left end.
template <class V>
inline TDerivatives<V> MoveBack(TState<V>& State, const TPiece<V>& Piece, V Width) {
    const V q = Piece.Qr - Piece.Qg * State.G - Piece.Qs * State.S;
    const V p = (Piece.Pr - Piece.Pg * State.G - Piece.Ps * State.S) - Piece.Pq * q;
    State.G += Width * (Width * (p * (1.0 / 6) + q * (1.0 / 3)) - State.S);
    State.S -= Width * 0.5 * (p + q);
    return {p, q};
}

/// Weights in units where the mean distance of knots is 1. Those beyond what could change the curve are moved
/// to where they neither overflow nor vanish: above 1e120 the spline passes through the points, below 1e-50
/// it is straight.
class TScale {
public:
    TScale(std::span<const double> Weights, double Unit)
        : FLargest(*std::ranges::max_element(Weights)), FRoot(Unit * std::sqrt(Unit)),
          FIsStraight(FLargest * FRoot * FRoot < CStraight) {}
    double operator()(double Weight) const {
        constexpr double least = 1e-150, through = 1e120;
        if (Weight == 0) return 0;
        return std::clamp(FIsStraight ? Weight / FLargest * CStraight : Weight * FRoot * FRoot, least,
                          through);
    }

private:
    static constexpr double CStraight = 1e-50;
    double FLargest, FRoot;
    bool FIsStraight;
};

/// Two at a time: the knots from the first one on and those from the last one back meet in the middle. What
/// one of them waits for, the other one fills.
class TSmoother {
public:
    TSmoother(std::span<const double> X, std::span<const double> Weights, std::span<double> Y,
              std::span<double> Curvatures, std::span<double> Room, std::span<double> MoreRoom)
        : FX(X), FWeights(Weights), FY(Y), FCurvatures(Curvatures), FRoom(Room), FMoreRoom(MoreRoom),
          FLast(X.size() - 1), FPairs(FLast / 2), FUnit((X[FLast] - X[0]) / static_cast<double>(FLast)),
          FScale(Weights, FUnit), FRows(std::make_unique_for_overwrite<TRows[]>(FPairs)) {}

    void Run() {
        MoveInward();
        Meet();
        MoveOutward();
    }

private:
    /// What there is no room for elsewhere: fresh memory takes longer than what is done with it.
    struct TRows {
        TKxLanes Ps, Pr, Qs, Qr;
    };

    double WidthOf(std::size_t Piece) const { return (FX[Piece + 1] - FX[Piece]) / FUnit; }
    TKxLanes WidthsOf(std::size_t Pair) const {
        return TKxLanes{FX[Pair + 1] - FX[Pair], FX[FLast - Pair] - FX[FLast - Pair - 1]} / FUnit;
    }
    bool HasPieceBetween() const { return FLast != 2 * FPairs; }
    double CurvatureOf(double Derivative) const { return Derivative / 2 / FUnit / FUnit; }

    // Of the knots of a pair, or the pieces behind them.
    void Put(std::span<double> Column, std::size_t Pair, TKxLanes Values) const {
        Column[Pair] = Values[0];
        Column[FLast - Pair] = Values[1];
    }
    TKxLanes Get(std::span<const double> Column, std::size_t Pair) const {
        return TKxLanes{Column[Pair], Column[FLast - Pair]};
    }
    void Keep(std::size_t Pair, const TPiece<TKxLanes>& Piece) {
        Put(FCurvatures, Pair, Piece.Pq);
        Put(FRoom, Pair, Piece.Pg);
        Put(FMoreRoom, Pair, Piece.Qg);
        FRows[Pair] = {Piece.Ps, Piece.Pr, Piece.Qs, Piece.Qr};
    }
    TPiece<TKxLanes> Kept(std::size_t Pair) const {
        const auto& [ps, pr, qs, qr] = FRows[Pair];
        return {Get(FCurvatures, Pair), Get(FRoom, Pair), ps, pr, Get(FMoreRoom, Pair), qs, qr};
    }

    void AddPoints(std::size_t Pair) {
        const std::size_t other = FLast - Pair;
        // The point where both meet counts once.
        const TKxLanes weights{FScale(FWeights[Pair]), other == Pair ? 0 : FScale(FWeights[other])};
        AddValue(FKnown, weights, TKxLanes{}, Get(FY, Pair));
    }
    void MoveInward() {
        AddPoints(0);
        for (std::size_t i = 0; i < FPairs; ++i) {
            Keep(i, Move(FKnown, WidthsOf(i)));
            AddPoints(i + 1);
        }
    }
    TKnowledge<double> KnownFrom(int Side) const {
        return {FKnown.ValueWeight[Side], FKnown.ValueS[Side], FKnown.Value[Side], FKnown.SlopeWeight[Side],
                FKnown.Slope[Side]};
    }
    /// At the knot in the middle, or the right one of two. From the right slopes are the other way round.
    void Meet() {
        TKnowledge<double> known = KnownFrom(0);
        const TKnowledge<double> other = KnownFrom(1);
        TPiece<double> between{};
        if (HasPieceBetween()) between = Move(known, WidthOf(FPairs));
        AddValue(known, other.ValueWeight, -other.ValueS, other.Value);
        AddSlope(known, other.SlopeWeight, -1.0, other.Slope);

        TState<double> state{known.Value - known.ValueS * known.Slope, known.Slope};
        FStates = {AllLanes(state.G), TKxLanes{state.S, -state.S}};
        if (HasPieceBetween()) {
            const auto [p, q] = MoveBack(state, between, WidthOf(FPairs));
            FStates.G[0] = state.G;
            FStates.S[0] = state.S;
            FCurvatures[FPairs] = CurvatureOf(p);
            FCurvatures[FPairs + 1] = CurvatureOf(q);
        }
        Put(FY, FPairs, FStates.G);
    }
    void MoveOutward() {
        for (std::size_t i = FPairs; i-- > 0;) {
            const auto [p, q] = MoveBack(FStates, Kept(i), WidthsOf(i));
            Put(FY, i, FStates.G);
            Put(FCurvatures, i, TKxLanes{CurvatureOf(p[0]), CurvatureOf(p[1])});
            if (i + 1 == FPairs && !HasPieceBetween()) FCurvatures[FPairs] = CurvatureOf(q[0]);
        }
        FCurvatures[0] = FCurvatures[FLast] = 0;
    }

    std::span<const double> FX, FWeights;
    std::span<double> FY, FCurvatures, FRoom, FMoreRoom;
    std::size_t FLast, FPairs; ///< the last knot, and how many pieces each side has
    double FUnit;
    TScale FScale;
    TKnowledge<TKxLanes> FKnown;
    TState<TKxLanes> FStates;
    std::unique_ptr<TRows[]> FRows;
};

} // namespace

bool SmoothSpline(std::span<const double> X, std::span<const double> Weights, std::span<double> Y,
                  std::span<double> Curvatures, std::span<double> Room, std::span<double> MoreRoom) {
    if (std::ranges::count_if(Weights, [](double w) { return w > 0; }) < 2) return false;
    TSmoother(X, Weights, Y, Curvatures, Room, MoreRoom).Run();
    return true;
}

} // namespace kx
