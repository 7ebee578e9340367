#include "kxplot/plan/sources.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/table/Kxtable.h>

#include <cstddef>
#include <cstring>
#include <filesystem>
#include <variant>
#include <vector>

namespace kxplot {

using namespace kx;

namespace {

/// The columns of a table that a vector can name.
class TColumnsOfFile {
public:
    explicit TColumnsOfFile(const std::string& File) {
        const std::string text = ReadFile(File);
        const TKxTable table(text, File);
        std::vector<int> columns;
        for (int i = 0; i < table.GetColumnCount(); ++i) {
            if (!table.IsNumeric(i) && !table.IsDate(i)) continue;
            columns.push_back(i);
            const std::string header = table.GetHeader(i);
            FNames.push_back(!header.empty() && table.FindColumn(header) == i ? header
                                                                              : std::to_string(i + 1));
        }
        if (!columns.empty()) FValues = table.ReadColumns(columns);
    }

    /// Its name; empty where none has these values.
    std::string NameOf(const std::vector<double>& Values) const {
        const auto size = Values.size() * sizeof(double);
        for (std::size_t i = 0; i < FValues.size(); ++i)
            if (FValues[i].size() == Values.size() &&
                std::memcmp(FValues[i].data(), Values.data(), size) == 0)
                return FNames[i];
        return {};
    }

private:
    std::vector<std::string> FNames;
    std::vector<std::vector<double>> FValues;
};

template <class F>
void ForVectors(TSeriesPlan& Series, F Do) {
    const auto maybe = [&](std::optional<TVectorPlan>& Vector) {
        if (Vector) Do(*Vector);
    };
    maybe(Series.X);
    Do(Series.Y);
    if (auto* points = std::get_if<TPointsPlan>(&Series.Kind))
        for (auto* errors : {&points->DXPlus, &points->DXMinus, &points->DYPlus, &points->DYMinus})
            maybe(*errors);
    if (auto* arrows = std::get_if<TArrowsPlan>(&Series.Kind)) Do(arrows->DX), Do(arrows->DY);
}

template <class F>
void ForVectors(TPlan& Plan, F Do) {
    Do(Plan.X);
    if (Plan.Weight) Do(*Plan.Weight);
    for (TSeriesPlan& series : Plan.Series) ForVectors(series, Do);
}

std::string SeenFrom(const std::string& FormFile, const std::string& Table) {
    const auto folder = std::filesystem::absolute(FormFile).parent_path();
    return std::filesystem::absolute(Table).lexically_proximate(folder.lexically_normal()).string();
}

} // namespace

// A table that only options make readable has no columns that a form could name.
void FindSources(TPlan& Plan, const std::string& Table, const std::string& FormFile) {
    if (Table.empty() || Table == "-") return;
    try {
        const TColumnsOfFile columns(Table);
        const std::string file = SeenFrom(FormFile, Table);
        ForVectors(Plan, [&](TVectorPlan& Vector) {
            if (const std::string name = columns.NameOf(Vector.Values); !name.empty())
                Vector.Source = TColumnSource{file, name};
        });
    } catch (const ETableError&) {
        return;
    }
}

} // namespace kxplot
