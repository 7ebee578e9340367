#include <kxgraph/table/Kxtablelook.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablecells.h>
#include <kxgraph/table/Kxtablecolumnlook.h>
#include <kxgraph/table/Kxtableerror.h>
#include <kxgraph/table/Kxtablehead.h>
#include <kxgraph/table/Kxtablenumber.h>
#include <kxgraph/table/Kxtableseparator.h>
#include <kxgraph/table/Kxtabletext.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kx {

namespace {

constexpr std::string_view CCommentSigns = "#%!@;";
constexpr std::size_t CSampleRows = 50;

/// The lines behind the first Count ones.
TKxTableLines LinesBehind(std::string_view Text, int Count) {
    TKxTableLines lines{Text, 0, 1, std::string(CCommentSigns)};
    for (; Count > 0 && lines.At < Text.size(); --Count, ++lines.Line) {
        const std::size_t end = Text.find_first_of("\r\n", lines.At);
        if (end == std::string_view::npos)
            lines.At = Text.size();
        else
            lines.At = end + (Text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return lines;
}

class TLook {
public:
    TLook(std::string_view Text, const std::string& Name, const TKxTableFormat& Format)
        : FName(Name), FFormat(Format), FLines(LinesBehind(Text, Format.Skip.value_or(0))) {}

    TKxTableShape Shape();

private:
    TKxRowReader Body() const {
        return TKxRowReader(FLines.Text, FShape.BodyAt, FShape.BodyLine, FShape.Separator, FShape.Comments);
    }
    void ReadFromFirstLine();
    bool ReadHead();
    bool LooksLikeHeader(const std::vector<TKxSampleCell>& Row) const;
    bool LookAtColumns(std::size_t Count);
    bool KeepsCommentSigns();
    bool CanBeRead() const;
    void TakeFound(TKxTableShape Found);
    void LookForGaps();

    const std::string& FName;
    const TKxTableFormat& FFormat;
    TKxTableLines FLines;
    TKxTableShape FShape;
};

TKxTableShape TLook::Shape() {
    ReadFromFirstLine();
    if (!KeepsCommentSigns()) ReadFromFirstLine();
    if (FFormat.Header != TKxHeaderRow::Absent && !CanBeRead()) {
        auto found = FindTable(FLines, FFormat);
        const bool mayMove = !FFormat.Skip; // else the caller has said where the table begins
        if (found && (mayMove || found->FirstLine == FShape.FirstLine)) TakeFound(std::move(*found));
    }
    if (FShape.Headers.empty() && FFormat.Header == TKxHeaderRow::Guess) FindHeaderInComments(FLines, FShape);
    LookForGaps();
    return std::move(FShape);
}

void TLook::ReadFromFirstLine() {
    const TKxCellSigns signs = FindCellSigns(FLines, FFormat);
    FShape = {};
    FShape.Separator = signs.Separator;
    FShape.DecimalComma = signs.DecimalComma;
    FShape.Comments = FLines.CommentsBeside(signs.Separator);
    if (ReadHead()) return;
    const bool isEmpty = FShape.Kinds.empty();
    if (FLines.Comments == "#") FailTable(FName, 0, isEmpty ? "is empty" : "has a header but no rows");
    FLines.Comments = "#"; // what looks like comments must be the rows
    ReadFromFirstLine();
}

// What is no header is the first row. Returns whether there is a row.
bool TLook::ReadHead() {
    TKxRowReader rows = FLines.Rows(FShape.Separator);
    const auto first = SampleRows(rows, 1);
    if (first.empty()) return false;
    if (rows.HasOpenQuote()) FailTable(FName, first[0].Line, "a quote is not closed");
    FShape.FirstLine = first[0].Line;
    const std::size_t count = first[0].Cells.size();
    if (FFormat.Header != TKxHeaderRow::Absent) {
        FShape.BodyAt = first[0].NextAt;
        FShape.BodyLine = first[0].NextLine;
        const bool hasRows = LookAtColumns(count);
        if (FFormat.Header == TKxHeaderRow::Present || LooksLikeHeader(first[0].Cells)) {
            for (const auto& cell : first[0].Cells) FShape.Headers.push_back(TableTextToUtf8(cell.Text));
            FShape.HeaderLine = first[0].Line;
            return hasRows;
        }
    }
    FShape.BodyAt = first[0].At;
    FShape.BodyLine = first[0].Line;
    LookAtColumns(count);
    return true;
}

bool TLook::LooksLikeHeader(const std::vector<TKxSampleCell>& Row) const {
    const TKxCells cells(FShape.DecimalComma, FFormat.Missing);
    for (std::size_t i = 0; i < Row.size(); ++i) {
        const TKxCellKind kind = cells.Kind(Row[i].Text, Row[i].Quoted);
        if (kind == TKxCellKind::Nothing || kind == TKxCellKind::Number) continue;
        const TKxColumnKind below = FShape.Kinds[i];
        if (below != TKxColumnKind::Texts && !(kind == TKxCellKind::Date && below == TKxColumnKind::Dates))
            return true;
    }
    return false;
}

// Returns whether there is any row.
bool TLook::LookAtColumns(std::size_t Count) {
    TKxRowReader body = Body();
    const TKxCells cells(FShape.DecimalComma, FFormat.Missing);
    std::vector<TKxColumnLook> looks(Count);
    std::size_t undecided = Count, rows = 0;
    for (; undecided > 0 && body.NextRow(); ++rows) {
        std::string_view cell;
        for (std::size_t i = 0; body.NextCell(cell) && i < Count; ++i) {
            if (looks[i].IsDecided()) continue;
            looks[i].Add(cells.Kind(cell, body.WasQuoted()));
            undecided -= looks[i].IsDecided();
        }
    }
    FShape.Kinds.clear();
    for (const auto& look : looks) FShape.Kinds.push_back(look.Kind());
    return rows > 0;
}

// Texts may begin with what else begins comments, "@home": where a line of as many cells does, and no other
// line of that sign is a comment, it is a row. In a column of texts such a sign is one of the text anyway.
bool TLook::KeepsCommentSigns() {
    const bool blanks = FShape.Separator == TKxSeparator::Blanks;
    const bool isText = FShape.Kinds.front() == TKxColumnKind::Texts;
    if (FShape.Kinds.size() < 2 || (blanks && !isText)) return true;
    constexpr std::size_t looked = 1 << 16;
    const std::string_view head = FLines.Text.substr(FLines.At, looked);
    std::string kept("#"), seen;
    std::string rows;
    TKxRowReader lines(head, 0, 1, FShape.Separator, "");
    std::string_view cell;
    while (lines.NextRow()) {
        lines.NextCell(cell);
        const std::string_view first = Trimmed(cell);
        if (first.empty() || FShape.Comments.find(first.front()) == std::string::npos) continue;
        const char sign = first.front();
        const std::string_view word = first.substr(1);
        const bool isWord = !word.empty() && word.front() != ' ' && !ParseNumber(word, FShape.DecimalComma);
        std::size_t count = 1;
        bool numbers = false;
        for (; lines.NextCell(cell); ++count) numbers |= ParseNumber(cell, FShape.DecimalComma).has_value();
        const bool isRow = sign != ';' && isWord && count == FShape.Kinds.size() && (numbers || !blanks);
        (isRow ? rows : seen) += sign;
    }
    for (const char sign : FLines.Comments) {
        const bool isSeen = seen.find(sign) != std::string::npos,
                   isRow = rows.find(sign) != std::string::npos;
        if (sign != '#' && (isSeen || (!isRow && !isText))) kept += sign;
    }
    return kept == std::exchange(FLines.Comments, kept);
}

/// Whether the first rows are what their columns promise.
bool TLook::CanBeRead() const {
    if (std::ranges::find(FShape.Kinds, TKxColumnKind::Numbers) == FShape.Kinds.end()) return false;
    const TKxCells cells(FShape.DecimalComma, FFormat.Missing);
    TKxRowReader body = Body();
    for (const TKxSampleRow& row : SampleRows(body, CSampleRows)) {
        if (row.Cells.size() != FShape.Kinds.size()) return false;
        for (std::size_t i = 0; i < row.Cells.size(); ++i) {
            const TKxCellKind kind = cells.Kind(row.Cells[i].Text, row.Cells[i].Quoted);
            if (kind == TKxCellKind::Nothing || FShape.Kinds[i] == TKxColumnKind::Texts) continue;
            if ((kind == TKxCellKind::Number) != (FShape.Kinds[i] == TKxColumnKind::Numbers)) return false;
        }
    }
    return true;
}

void TLook::TakeFound(TKxTableShape Found) {
    Found.HasPreamble = Found.FirstLine > FShape.FirstLine;
    FShape = std::move(Found);
    FShape.Comments = FLines.CommentsBeside(FShape.Separator);
    LookAtColumns(FShape.Kinds.size());
}

void TLook::LookForGaps() {
    TKxRowReader body = Body();
    const auto rows = SampleRows(body, CSampleRows);
    FShape.IsDoubleSpaced =
        rows.size() > 1 &&
        std::all_of(rows.begin() + 1, rows.end(), [](const TKxSampleRow& Row) { return Row.AfterGap; });
}

} // namespace

TKxTableShape LookAtTable(std::string_view Text, const std::string& Name, const TKxTableFormat& Format) {
    return TLook(Text, Name, Format).Shape();
}

} // namespace kx
