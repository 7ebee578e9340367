#pragma once
// Inner part of grids: the field in which a cell is edited.

#include <kxgraph/platform/widgets/grid.h>

namespace kx {

/// Belongs to its grid and to no form; it goes when it loses the focus.
class TCustomGrid::TCellEdit : public TCustomEdit {
public:
    explicit TCellEdit(TCustomGrid& Grid) : TCustomEdit(nullptr), FGrid(Grid) { SetAutoSelect(false); }
    using TCustomEdit::Compose;

protected:
    void Exit() override;

private:
    TCustomGrid& FGrid;
};

} // namespace kx
