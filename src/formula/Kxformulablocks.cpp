#include <kxgraph/formula/Kxformulablocks.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include <muParser.h>

namespace kx {

namespace {

using TStep = TKxFormulaBlocks::TStep;
using TArgument = TKxFormulaBlocks::TArgument;
using TKernel = TKxFormulaBlocks::TKernel;

constexpr std::size_t CBlock = 256; // points; a column of them and its neighbours stay in the first cache

template <class F>
void Unary(const TStep&, const TArgument* Arguments, double* Result, std::size_t Count) {
    const double* a = Arguments[0].Values;
    for (std::size_t i = 0; i < Count; ++i) Result[i] = F()(a[i]);
}

template <class F>
void Binary(const TStep&, const TArgument* Arguments, double* Result, std::size_t Count) {
    const double *a = Arguments[0].Values, *b = Arguments[1].Values;
    if (Arguments[0].Stride == 0) {
        const double all = *a;
        for (std::size_t i = 0; i < Count; ++i) Result[i] = F()(all, b[i]);
    } else if (Arguments[1].Stride == 0) {
        const double all = *b;
        for (std::size_t i = 0; i < Count; ++i) Result[i] = F()(a[i], all);
    } else {
        for (std::size_t i = 0; i < Count; ++i) Result[i] = F()(a[i], b[i]);
    }
}

/// The second and the third are the same for all points.
void ProductAndSum(const TStep&, const TArgument* Arguments, double* Result, std::size_t Count) {
    const double* a = Arguments[0].Values;
    const double factor = *Arguments[1].Values, term = *Arguments[2].Values;
    for (std::size_t i = 0; i < Count; ++i) Result[i] = a[i] * factor + term;
}

/// Of a condition and both that it chooses from.
void Choice(const TStep&, const TArgument* Arguments, double* Result, std::size_t Count) {
    const auto [condition, conditionStride] = Arguments[0];
    const auto [yes, yesStride] = Arguments[1];
    const auto [no, noStride] = Arguments[2];
    for (std::size_t i = 0; i < Count; ++i)
        Result[i] = condition[i * conditionStride] == 0 ? no[i * noStride] : yes[i * yesStride];
}

void CallOfOne(const TStep& Step, const TArgument* Arguments, double* Result, std::size_t Count) {
    const auto function = reinterpret_cast<mu::fun_type1>(Step.Function);
    const double* a = Arguments[0].Values;
    for (std::size_t i = 0; i < Count; ++i) Result[i] = function(a[i]);
}

void CallOfTwo(const TStep& Step, const TArgument* Arguments, double* Result, std::size_t Count) {
    const auto function = reinterpret_cast<mu::fun_type2>(Step.Function);
    const auto [a, strideA] = Arguments[0];
    const auto [b, strideB] = Arguments[1];
    for (std::size_t i = 0; i < Count; ++i) Result[i] = function(a[i * strideA], b[i * strideB]);
}

void CallOfMany(const TStep& Step, const TArgument* Arguments, double* Result, std::size_t Count) {
    const auto function = reinterpret_cast<mu::multfun_type>(Step.Function);
    std::vector<double> values(Step.Operands.size());
    for (std::size_t i = 0; i < Count; ++i) {
        for (std::size_t k = 0; k < values.size(); ++k)
            values[k] = Arguments[k].Values[i * Arguments[k].Stride];
        Result[i] = function(values.data(), int(values.size()));
    }
}

struct TPower {
    double operator()(double A, double B) const { return std::pow(A, B); }
};
template <int N>
struct TPowerOf {
    double operator()(double A) const {
        double power = A * A;
        for (int i = 2; i < N; ++i) power *= A;
        return power;
    }
};

/// In the order of muParser's codes, from cmLE on.
constexpr TKernel COperators[] = {
    Binary<std::less_equal<>>,
    Binary<std::greater_equal<>>,
    Binary<std::not_equal_to<>>,
    Binary<std::equal_to<>>,
    Binary<std::less<>>,
    Binary<std::greater<>>,
    Binary<std::plus<>>,
    Binary<std::minus<>>,
    Binary<std::multiplies<>>,
    Binary<std::divides<>>,
    Binary<TPower>,
    Binary<std::logical_and<>>,
    Binary<std::logical_or<>>,
};
static_assert(mu::cmLE == 0 && mu::cmADD == 6 && std::size(COperators) == mu::cmLOR + 1);

} // namespace

/// Follows the stack of the code, with places in place of values.
class TKxFormulaBlocks::TCompiler {
public:
    TCompiler(TKxFormulaBlocks& Blocks, const double* X) : FBlocks(Blocks), FX(X) {}

    bool Compile(const mu::ParserByteCode& Code) {
        const mu::SToken* token = Code.GetBase();
        for (; token->Cmd != mu::cmEND; ++token)
            if (!Add(*token)) return false;
        if (FStack.size() != 1) return false;
        FBlocks.FResult = FStack[0];
        FBlocks.FColumns.resize(FColumns * CBlock);
        return true;
    }

private:
    bool Add(const mu::SToken& Token) {
        switch (Token.Cmd) {
        case mu::cmVAR: return PushVariable(Token);
        case mu::cmVAL: return PushScalar(Token.Val.data2);
        case mu::cmVARPOW2: return PushVariable(Token) && Apply(Unary<TPowerOf<2>>, 1);
        case mu::cmVARPOW3: return PushVariable(Token) && Apply(Unary<TPowerOf<3>>, 1);
        case mu::cmVARPOW4: return PushVariable(Token) && Apply(Unary<TPowerOf<4>>, 1);
        case mu::cmVARMUL:
            return PushVariable(Token) && PushScalar(Token.Val.data) && PushScalar(Token.Val.data2) &&
                   Apply(ProductAndSum, 3);
        case mu::cmIF:
        case mu::cmELSE: return true; // no function has an effect: both ways are gone, and one is chosen
        case mu::cmENDIF: return Apply(Choice, 3);
        case mu::cmFUNC: return AddCall(Token);
        default: return Token.Cmd <= mu::cmLOR && Apply(COperators[Token.Cmd], 2);
        }
    }

    bool AddCall(const mu::SToken& Token) {
        const auto& [function, data] = Token.Fun.cb;
        const int count = Token.Fun.argc; // negative for functions that take any number
        if (data || count == 0 || count > 2) return false;
        if (count < 0) return Apply(CallOfMany, std::size_t(-count), function);
        return Apply(count == 1 ? CallOfOne : CallOfTwo, std::size_t(count), function);
    }

    bool PushVariable(const mu::SToken& Token) {
        if (Token.Val.ptr == FX) {
            FStack.push_back({plX, 0});
            return true;
        }
        FBlocks.FLoads.push_back({Token.Val.ptr, FBlocks.FScalars.size()});
        return PushScalar(0);
    }

    bool PushScalar(double Value) {
        FStack.push_back({plScalar, FBlocks.FScalars.size()});
        FBlocks.FScalars.push_back(Value);
        return true;
    }

    void PushColumn() {
        if (FFree.empty()) FFree.push_back(FColumns++);
        FStack.push_back({plColumn, FFree.back()});
        FFree.pop_back();
    }

    /// A step on the uppermost Count places of the stack, which its result replaces. That is a column of its
    /// own, so that compilers see that the loop may be done in vectors.
    bool Apply(TKernel Kernel, std::size_t Count, TFunction Function = nullptr) {
        if (FStack.size() < Count) return false;
        const std::vector<TOperand> operands(FStack.end() - std::ptrdiff_t(Count), FStack.end());
        FStack.resize(FStack.size() - Count);
        const bool isScalar =
            std::ranges::all_of(operands, [](const TOperand& o) { return o.Place == plScalar; });
        isScalar ? void(PushScalar(0)) : PushColumn();
        (isScalar ? FBlocks.FOnce : FBlocks.FSteps).push_back({Kernel, Function, operands, FStack.back()});
        for (const TOperand& operand : operands)
            if (operand.Place == plColumn) FFree.push_back(operand.Index);
        FBlocks.FArguments.resize(std::max(FBlocks.FArguments.size(), Count));
        return true;
    }

    TKxFormulaBlocks& FBlocks;
    const double* FX;
    std::vector<TOperand> FStack;
    std::vector<std::size_t> FFree; // columns
    std::size_t FColumns = 0;
};

TKxFormulaBlocks::TKxFormulaBlocks(const mu::ParserByteCode& Code, const double* X)
    : FComplete(TCompiler(*this, X).Compile(Code)) {}

void TKxFormulaBlocks::Run(const TStep& Step, const double* X, double* Result, std::size_t Count) {
    for (std::size_t i = 0; i < Step.Operands.size(); ++i) {
        const auto [place, index] = Step.Operands[i];
        FArguments[i] = place == plX        ? TArgument{X, 1}
                        : place == plColumn ? TArgument{&FColumns[index * CBlock], 1}
                                            : TArgument{&FScalars[index], 0};
    }
    Step.Run(Step, FArguments.data(), Result, Count);
}

void TKxFormulaBlocks::RunOnce() {
    for (const auto& [source, scalar] : FLoads) FScalars[scalar] = *source;
    for (const TStep& step : FOnce) Run(step, nullptr, &FScalars[step.Result.Index], 1);
}

void TKxFormulaBlocks::EvaluateBlock(const double* X, double* Y, std::size_t Count) {
    for (std::size_t i = 0; i + 1 < FSteps.size(); ++i)
        Run(FSteps[i], X, &FColumns[FSteps[i].Result.Index * CBlock], Count);
    Run(FSteps.back(), X, Y, Count);
}

void TKxFormulaBlocks::Evaluate(std::span<const double> X, std::span<double> Y) {
    RunOnce();
    if (FResult.Place == plX) std::copy_n(X.begin(), X.size(), Y.begin());
    if (FResult.Place == plScalar) std::fill_n(Y.begin(), X.size(), FScalars[FResult.Index]);
    if (FResult.Place == plColumn)
        for (std::size_t i = 0; i < X.size(); i += CBlock)
            EvaluateBlock(&X[i], &Y[i], std::min(CBlock, X.size() - i));
}

} // namespace kx
