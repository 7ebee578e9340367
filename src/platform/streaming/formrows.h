#pragma once
// Which properties form files hold: the published ones, and what outfits keep beside them.

#include <kxgraph/platform/objects/persistent.h>

#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kx {

/// The rows of a class in the order in which they are written: of each class, the base first, what outfits
/// alone keep, then what is published. A row that outfits keep with another getter (of the unzoomed view,
/// say) has that one, and what is loaded past its setter there is here, too.
class TFormRows {
public:
    explicit TFormRows(const TPropertyTable& Table);

    std::span<const TProperty> All() const { return FRows; }
    /// Ignoring case; null when there is none.
    const TProperty* Find(std::string_view Name) const;
    std::vector<std::string_view> Names() const;

private:
    void Add(const TPropertyTable& Table, const TPropertyTable& Whole);
    void AddPublished(const TProperty& Row, const TPropertyTable& Whole);

    std::vector<TProperty> FRows;
};

/// Made once for each table.
class TFormRowCache {
public:
    const TFormRows& Of(const TPropertyTable& Table) {
        return FRows.try_emplace(&Table, Table).first->second;
    }

private:
    std::unordered_map<const TPropertyTable*, TFormRows> FRows;
};

} // namespace kx
