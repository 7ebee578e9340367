#include <kxgraph/platform/widgets/itemmarks.h>

#include <algorithm>
#include <cstddef>

namespace kx {

bool TItemMarks::Has(int Index) const {
    const auto index = static_cast<std::size_t>(Index);
    return Index >= 0 && index < FMarks.size() && FMarks[index];
}

void TItemMarks::Set(int Index, bool Marked) {
    if (Index < 0 || Has(Index) == Marked) return;
    const auto index = static_cast<std::size_t>(Index);
    if (index >= FMarks.size()) FMarks.resize(index + 1);
    FMarks[index] = Marked;
}

void TItemMarks::Limit(int Count) {
    const auto count = static_cast<std::size_t>(std::max(Count, 0));
    if (FMarks.size() > count) FMarks.resize(count);
}

std::vector<int> TItemMarks::GetAll() const {
    std::vector<int> marked;
    for (std::size_t i = 0; i < FMarks.size(); ++i)
        if (FMarks[i]) marked.push_back(static_cast<int>(i));
    return marked;
}

} // namespace kx
