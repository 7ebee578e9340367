#pragma once
// The code that muParser has made of a formula, turned into steps that run over a block of points each: what
// does not depend on x is done once for all points, the rest in loops without a stack. Every operation is the
// one that muParser does for a single point, in its order and by its own functions, so that the values are
// the same bit for bit. For Kxformula alone.

#include <cstddef>
#include <span>
#include <vector>

namespace mu {
class ParserByteCode;
}

namespace kx {

class TKxFormulaBlocks {
public:
    TKxFormulaBlocks() = default;
    /// X is where Code has its variable. All other variables keep their values during an evaluation and have
    /// to outlive this.
    TKxFormulaBlocks(const mu::ParserByteCode& Code, const double* X);

    /// Whether all of the code is understood; else there is nothing to evaluate.
    bool IsComplete() const { return FComplete; }
    /// Y[i] at X[i]; they may be the same places.
    void Evaluate(std::span<const double> X, std::span<double> Y);

    // What the steps are made of.

    enum TPlace { plX, plColumn, plScalar };
    struct TOperand {
        TPlace Place;
        std::size_t Index;
    };
    /// The values of an operand at the points of a block; Stride is 0 where all have the one.
    struct TArgument {
        const double* Values;
        std::size_t Stride;
    };
    struct TStep;
    using TKernel = void (*)(const TStep& Step, const TArgument* Arguments, double* Result,
                             std::size_t Count);
    using TFunction = void (*)();
    struct TStep {
        TKernel Run;
        TFunction Function; ///< what the kernel calls, or none
        std::vector<TOperand> Operands;
        TOperand Result;
    };

private:
    class TCompiler;
    struct TLoad {
        const double* Source;
        std::size_t Scalar;
    };

    void Run(const TStep& Step, const double* X, double* Result, std::size_t Count);
    void RunOnce();
    void EvaluateBlock(const double* X, double* Y, std::size_t Count);

    std::vector<TStep> FOnce;  ///< what does not depend on x
    std::vector<TStep> FSteps; ///< the rest; the last one gives the value of the formula
    std::vector<TLoad> FLoads;
    std::vector<double> FScalars, FColumns;
    std::vector<TArgument> FArguments; ///< of the step that runs
    TOperand FResult{plScalar, 0};
    bool FComplete = false;
};

} // namespace kx
