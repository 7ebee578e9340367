#pragma once
// Which properties form files hold: the published ones, and what outfits keep beside them.

#include <kxgraph/platform/objects/persistent.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace kx {

/// The rows of a class in the order in which they are written: of each class, the base first, what outfits
/// alone keep, then what is published. A row that outfits keep with another getter (of the unzoomed view,
/// say) has that one, and what is loaded past its setter there is here, too.
class TFormRows {
public:
    explicit TFormRows(const TPropertyTable& Table);
    /// Made once for each table, which is that of a class and therefore stays.
    static const TFormRows& Of(const TPropertyTable& Table);

    std::span<const TProperty> All() const { return FRows; }
    /// Whether that row of All is published, and not what outfits alone keep.
    bool IsPublished(std::size_t Index) const { return FPublished[Index]; }
    /// Ignoring case; null when there is none.
    const TProperty* Find(std::string_view Name) const;
    std::vector<std::string_view> Names() const;

private:
    void Add(const TPropertyTable& Table, const TPropertyTable& Whole);
    void AddPublished(const TProperty& Row, const TPropertyTable& Whole);

    std::vector<TProperty> FRows;
    std::vector<bool> FPublished; // of each
};

} // namespace kx
