#pragma once
// The downhill simplex: looks for the least value of a function of n numbers with nothing but its values.

#include <cstddef>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace kx {

/// Moves a simplex of n + 1 vertices downhill after J. A. Nelder and R. Mead, Computer Journal 7 (1965) 308,
/// with a step order of its own, see Iterate. There is no test for convergence: the search takes the number
/// of iterations that it was given and ends early only at the value 0 or when it is told to.
///
/// A simplex can flatten before it reaches a minimum, and then changes nothing more. Starting again from the
/// best vertex opens it anew; whoever wants to be sure repeats until nothing is gained.
///
/// A value that is not finite counts as the worst there is (infinity), so a function may return NaN where it
/// is not defined. The same goes for a vertex with a coordinate that is not finite; the function never sees
/// one.
class TKxSimplex {
public:
    using TFunction = std::function<double(std::span<const double>)>;
    /// Is called after each iteration; returns whether to go on.
    using TProgress = std::function<bool(const TKxSimplex&)>;

    explicit TKxSimplex(TFunction Function) : FFunction(std::move(Function)) {}

    /// Raises EMathError "Simplex Fit: no order set!" for an Order, and "Simplex Fit: no iterations set!" for
    /// an Iterations, below 1.
    static void CheckSettings(int Order, int Iterations);

    /// Spans the simplex: the last vertex is Vertex, vertex i the same with coordinate i times 2.05. So a
    /// coordinate of 0 is 0 in all vertices and stays so. Evaluates and ranks. Vertex may be Best(). Raises
    /// as CheckSettings does.
    void Start(std::span<const double> Vertex, int Iterations);

    /// One iteration: the worst vertex is reflected in the centroid of the others. If it has become the best,
    /// it is moved out to twice the distance, and back unless that is better still. Otherwise, if it is above
    /// the second-worst, it is halved: put midway between the centroid and where it was reflected to, and if
    /// there it is no longer above the second-worst, all vertices shrink to half their distance from the
    /// best. Returns whether another iteration is due.
    ///
    /// Of equal vertices the later one is the worst, and the later one the best, but never the same.
    bool Iterate();

    /// Start, then Iterate while another is due (at most Iterations + 1 times) and Progress, when given,
    /// returns true. An exception of the function or of Progress leaves the best vertex as it was.
    void Run(std::span<const double> Vertex, int Iterations, const TProgress& Progress = {});

    /// The best vertex so far and its value; infinity when no vertex had a finite one. Valid after Start.
    std::span<const double> Best() const { return FVertices[FBest]; }
    double BestValue() const { return FValues[FBest]; }
    /// Iterations left, less one; -1 when they are used up.
    int Remaining() const { return FRemaining; }

private:
    using TVertex = std::vector<double>;

    double Evaluate(const TVertex& Vertex) const;
    void Rank();
    void CalculateCentroid();
    /// Replaces the worst vertex v by m + Factor * (v - m), m the centroid.
    void MoveWorst(double Factor);
    void Expand();
    void Contract();
    void Shrink();

    TFunction FFunction;
    std::vector<TVertex> FVertices;
    std::vector<double> FValues;
    TVertex FCentroid;
    TVertex FSaved; ///< the reflected vertex while the expanded one is tried
    std::size_t FBest = 0;
    std::size_t FWorst = 0;
    std::size_t FSecondWorst = 0;
    int FRemaining = -1;
};

} // namespace kx
