#include <kxgraph/table/Kxtablehead.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablenumber.h>
#include <kxgraph/table/Kxtabletext.h>
#include <kxgraph/table/Kxtablewords.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kx {

namespace {

struct TComment {
    long Line = 0;
    std::string_view Text;
};

/// The last two comments in front of the first row, the last one first.
std::vector<TComment> LastComments(const TKxTableLines& Lines, const TKxTableShape& Shape) {
    std::vector<TComment> comments;
    const std::string_view head = Lines.Text.substr(Lines.At, Shape.BodyAt - Lines.At);
    long line = Lines.Line;
    for (std::size_t begin = 0; begin < head.size(); ++line) {
        const std::size_t end = std::min(head.find_first_of("\r\n", begin), head.size());
        const std::string_view text = Trimmed(head.substr(begin, end - begin));
        if (!text.empty() && text.front() != '@' && Shape.Comments.find(text.front()) != std::string::npos)
            comments.insert(comments.begin(), {line, text});
        if (comments.size() > 2) comments.pop_back();
        begin = end + (head.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return comments;
}

std::vector<std::string> CellsOf(std::string_view Text, TKxSeparator Separator) {
    TKxRowReader reader(Text, 0, 1, Separator, "");
    std::vector<std::string> cells;
    if (!reader.NextRow()) return cells;
    for (std::string_view cell; reader.NextCell(cell);) cells.push_back(TableTextToUtf8(Trimmed(cell)));
    return cells;
}

/// The comment's cells, if it has as many as the table, parted like those or by signs that are seldom in
/// names.
std::vector<std::string> CellsOfComment(const TComment& Comment, const TKxTableShape& Shape) {
    const std::size_t sign = Comment.Text.find_first_not_of(Shape.Comments);
    if (sign == std::string_view::npos) return {};
    const std::string_view text = Comment.Text.substr(sign);
    for (const auto separator :
         {Shape.Separator, TKxSeparator::Tab, TKxSeparator::Comma, TKxSeparator::Semicolon}) {
        auto cells = CellsOf(text, separator);
        if (cells.size() == Shape.Kinds.size()) return cells;
    }
    return {};
}

bool AreNames(const std::vector<std::string>& Cells, const TKxTableShape& Shape) {
    if (Cells.empty() || std::set<std::string>(Cells.begin(), Cells.end()).size() < Cells.size())
        return false;
    const bool texts = std::ranges::none_of(Cells, [&](const std::string& Cell) {
        return Cell.empty() || ParseNumber(Cell, Shape.DecimalComma);
    });
    return texts && (Shape.Separator != TKxSeparator::Blanks || !IsSentence(Cells));
}

} // namespace

void FindHeaderInComments(const TKxTableLines& Lines, TKxTableShape& Shape) {
    const std::vector<TComment> comments = LastComments(Lines, Shape);
    std::vector<std::vector<std::string>> cells;
    cells.reserve(comments.size());
    for (const TComment& comment : comments) cells.push_back(CellsOfComment(comment, Shape));
    const std::size_t header = cells.size() > 1 && AreUnits(cells[0]) && AreNames(cells[1], Shape) ? 1 : 0;
    if (cells.size() <= header || !AreNames(cells[header], Shape)) return;
    if (header == 1) {
        Shape.Units = std::move(cells[0]);
        Shape.UnitsLine = comments[0].Line;
    }
    Shape.Headers = std::move(cells[header]);
    Shape.HeaderLine = comments[header].Line;
    Shape.IsHeaderComment = true;
}

} // namespace kx
