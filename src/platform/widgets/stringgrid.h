#pragma once
// A grid that holds its texts itself.

#include <kxgraph/platform/widgets/grid.h>

#include <cstdint>
#include <string>
#include <unordered_map>

namespace kx {

/// Keeps the cells that are not empty, headers among them.
class TStringGrid : public TCustomGrid {
public:
    using TCustomGrid::TCustomGrid;

    std::string GetCell(int Col, int Row) const { return CellText(Col, Row); }
    void SetCell(int Col, int Row, const std::string& Text);
    /// All of them, as text with tabs from the first row on; empty rows and cells at the end are left out.
    std::string GetCells() const;
    void SetCells(const std::string& Text);
    bool GetRightAligned() const { return FRightAligned; }
    void SetRightAligned(bool RightAligned);

    std::string CellText(int Col, int Row) const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TStringGrid>(); }
    bool StoreCell(int Col, int Row, const std::string& Text) override;
    TAlignment CellAlignment(int, int) const override {
        return FRightAligned ? taRightJustify : taLeftJustify;
    }

private:
    static std::uint64_t KeyOf(int Col, int Row) {
        return std::uint64_t(unsigned(Row)) << 32 | unsigned(Col);
    }
    std::unordered_map<std::uint64_t, std::string> FCells;
    bool FRightAligned = false;
};

} // namespace kx
