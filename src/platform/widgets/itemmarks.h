#pragma once
// Which items of a list are chosen where it may be several.

#include <vector>

namespace kx {

/// Marks on items, by index. The anchor is the item that a range is marked from.
class TItemMarks {
public:
    bool Has(int Index) const;
    void Set(int Index, bool Marked);
    void Clear() { FMarks.clear(); }
    /// Items from Count on are no more.
    void Limit(int Count);
    /// In ascending order.
    std::vector<int> GetAll() const;

    int Anchor = 0;

private:
    std::vector<bool> FMarks; // as far as the last one that was marked
};

} // namespace kx
