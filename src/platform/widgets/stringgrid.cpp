#include <kxgraph/platform/widgets/stringgrid.h>

#include <kxgraph/platform/objects/textlists.h>
#include <kxgraph/platform/widgets/tabtext.h>

#include <algorithm>
#include <map>

namespace kx {

std::string TStringGrid::CellText(int Col, int Row) const {
    const auto found = FCells.find(KeyOf(Col, Row));
    return found == FCells.end() ? std::string() : found->second;
}

bool TStringGrid::StoreCell(int Col, int Row, const std::string& Text) {
    if (CellText(Col, Row) == Text) return false;
    SetCell(Col, Row, Text);
    return true;
}

void TStringGrid::SetCell(int Col, int Row, const std::string& Text) {
    if (Col < 0 || Row < 0) return;
    if (Text.empty())
        FCells.erase(KeyOf(Col, Row));
    else
        FCells[KeyOf(Col, Row)] = Text;
    CellsChanged();
}

void TStringGrid::SetRightAligned(bool RightAligned) {
    FRightAligned = RightAligned;
    CellsChanged();
}

std::string TStringGrid::GetCells() const {
    std::map<std::uint64_t, std::string> ordered(FCells.begin(), FCells.end());
    std::vector<std::vector<std::string>> rows;
    for (const auto& [key, text] : ordered) {
        const auto row = static_cast<std::size_t>(key >> 32),
                   col = static_cast<std::size_t>(key & 0xFFFFFFFFu);
        rows.resize(std::max(rows.size(), row + 1));
        rows[row].resize(std::max(rows[row].size(), col + 1));
        rows[row][col] = text;
    }
    return TabTextOf(rows);
}

void TStringGrid::SetCells(const std::string& Text) {
    FCells.clear();
    const auto rows = ReadTabText(Text);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < rows[row].size(); ++col)
            SetCell(static_cast<int>(col), static_cast<int>(row), rows[row][col]);
    CellsChanged();
}

const TPropertyTable& TStringGrid::Properties() {
    using C = TStringGrid;
    static const TPropertyTable table(
        "TStringGrid", &TCustomGrid::Properties(),
        {PublishedTexts<&C::GetCells, &C::SetCells>(CCellsType, "Cells",
                                                    "The texts, headers among them, with tabs between them"),
         Published<&C::GetRightAligned, &C::SetRightAligned>(
             "RightAligned", false, "Whether texts are kept to the right, as numbers are")});
    return table;
}

} // namespace kx
