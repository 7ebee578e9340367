// Columns that are computed from those of the file.

#include <kxgraph/table/Kxtable.h>

#include <kxgraph/table/Kxtablewords.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

/// Row by row.
std::vector<double> Computed(const TKxRowFunction& Function,
                             const std::vector<const std::vector<double>*>& From) {
    std::vector<double> row(From.size()), result(From.front()->size());
    for (std::size_t i = 0; i < result.size(); ++i) {
        for (std::size_t k = 0; k < row.size(); ++k) row[k] = (*From[k])[i];
        result[i] = Function(row);
    }
    return result;
}

} // namespace

int TKxTable::AddColumn(std::string Header, std::vector<int> From, TKxRowFunction Function) {
    FComputed.push_back({std::move(Header), std::move(From), std::move(Function)});
    return GetColumnCount() + static_cast<int>(FComputed.size()) - 1;
}

const TKxTable::TComputed* TKxTable::Computed(int Column) const {
    return Column < GetColumnCount() ? nullptr
                                     : &FComputed[static_cast<std::size_t>(Column - GetColumnCount())];
}

TKxColumnKind TKxTable::GetKind(int Column) const {
    return Computed(Column) ? TKxColumnKind::Numbers : FShape.Kinds[static_cast<std::size_t>(Column)];
}

std::string TKxTable::GetHeader(int Column) const {
    if (const TComputed* computed = Computed(Column)) return computed->Header;
    return HasHeader() ? FShape.Headers[static_cast<std::size_t>(Column)] : std::string();
}

std::string TKxTable::GetUnit(int Column) const {
    if (Computed(Column) || FShape.Units.empty()) return {};
    const std::string& unit = FShape.Units[static_cast<std::size_t>(Column)];
    return StandsForNoUnit(unit) ? std::string() : unit;
}

int TKxTable::FindComputed(const std::string& Header) const {
    const auto found = std::ranges::find(FComputed, Header, &TComputed::Header);
    return found == FComputed.end() ? -1 : GetColumnCount() + static_cast<int>(found - FComputed.begin());
}

std::vector<std::vector<double>> TKxTable::ReadColumns(const std::vector<int>& Columns,
                                                       std::vector<std::size_t>* Gaps) const {
    std::vector<int> read; // from the file
    for (const int column : Columns) {
        if (const TComputed* computed = Computed(column))
            read.insert(read.end(), computed->From.begin(), computed->From.end());
        else
            read.push_back(column);
    }
    std::ranges::sort(read);
    read.erase(std::unique(read.begin(), read.end()), read.end());
    std::vector<std::vector<double>> values = ReadFileColumns(read, Gaps);
    const auto of = [&](int Column) {
        return &values[static_cast<std::size_t>(std::ranges::lower_bound(read, Column) - read.begin())];
    };
    std::vector<std::vector<double>> result(Columns.size());
    for (std::size_t i = 0; i < Columns.size(); ++i) {
        const TComputed* computed = Computed(Columns[i]);
        if (!computed) continue;
        std::vector<const std::vector<double>*> from;
        for (const int column : computed->From) from.push_back(of(column));
        result[i] = kx::Computed(computed->Function, from);
    }
    for (std::size_t i = 0; i < Columns.size(); ++i)
        if (!Computed(Columns[i])) result[i] = std::move(*of(Columns[i]));
    return result;
}

} // namespace kx
