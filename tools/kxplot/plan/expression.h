#pragma once
// Columns that are computed from others.

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kxplot {

/// A formula over columns: 'y-2*x', 'log(`u / V`/3)'. A name is a header that is a plain name, or any header
/// in backticks; a header goes before a constant (pi, e) of its name. x that is no header is the column of x.
class TExpression {
public:
    /// The column of a header, or -1. With the name x, which stands for it where no header does, it may give
    /// the column of x.
    using TFind = std::function<int(const std::string& Name)>;

    /// Raises TUsageError for Option: a formula that cannot be understood, or a name that is no header.
    TExpression(const char* Option, const std::string& Text, const TFind& Find,
                std::span<const std::string> Headers);

    /// Whether Text can only be meant as a formula: a header or a number of a column has no operator.
    static bool IsMeant(std::string_view Text);

    const std::string& GetText() const { return FText; }
    /// The columns that it takes, each once.
    const std::vector<int>& GetColumns() const { return FColumns; }
    /// Of the values of GetColumns in a row that of the formula. A copy serves on.
    std::function<double(std::span<const double>)> RowFunction() const;

private:
    class TReader;

    std::string FText;
    std::string FFormula; ///< with plain names, "column1_" and so on
    std::vector<int> FColumns;
};

} // namespace kxplot
