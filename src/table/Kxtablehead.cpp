#include <kxgraph/table/Kxtablehead.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablecells.h>
#include <kxgraph/table/Kxtablenumber.h>
#include <kxgraph/table/Kxtabletext.h>
#include <kxgraph/table/Kxtablewords.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kx {

namespace {

using TRow = TKxSampleRow;

/// Whether a line holds numbers alone, whatever parts them.
bool IsNumbersAlone(std::string_view Line) {
    std::string blanks(Line);
    std::ranges::replace_if(
        blanks,
        [](char C) { return C == ',' || C == ';' || C == '\t' || C == '\r' || C == '\n' || C == '"'; }, ' ');
    TKxRowReader parts(blanks, 0, 1, TKxSeparator::Blanks, "");
    if (!parts.NextRow()) return false;
    for (std::string_view part; parts.NextCell(part);)
        if (!ParseNumber(part, false)) return false;
    return true;
}

/// Looks for the table between separators of one kind.
class TFinder {
public:
    TFinder(const TKxTableLines& Lines, TKxSeparator Separator, const TKxTableFormat& Format);

    std::optional<TKxTableShape> Find();

private:
    static constexpr std::size_t CMostRows = 1000;

    TKxCellKind KindOf(const TKxSampleCell& Cell) const { return FCells.Kind(Cell.Text, Cell.Quoted); }
    std::string_view LineOf(const TRow& Row) const {
        const std::string_view line = FLines.Text.substr(Row.At, Row.NextAt - Row.At);
        return Trimmed(line.substr(0, line.find_first_of("\r\n")));
    }
    bool HasNumbers() const { return std::ranges::find(FKinds, TKxCellKind::Number) != FKinds.end(); }
    bool IsMixed() const;
    void FindTail();
    void FindBody();
    bool Contradicts(const TRow& Row) const;
    bool IsHeader(const TRow& Row) const;
    bool IsShortHeader(const TRow& Row) const;
    bool IsUnits(const TRow& Row) const;
    bool MayBeData(const TRow& Row) const;
    void TakeHeader(const TRow& Row);
    void TakeUnits(const TRow& Row);
    std::size_t FindHeader();

    const TKxTableLines& FLines;
    TKxSeparator FSeparator;
    std::vector<TRow> FRows;
    bool FDecimalComma;
    TKxCells FCells;
    std::size_t FColumns = 0;
    std::size_t FTail = 0, FBody = 0; ///< where rows of as many cells begin, and where those of the table do
    std::vector<TKxCellKind> FKinds;  ///< of its columns
    TKxTableShape FShape;
};

std::vector<TRow> Sampled(const TKxTableLines& Lines, TKxSeparator Separator, std::size_t Most) {
    TKxRowReader reader = Lines.Rows(Separator);
    return SampleRows(reader, Most);
}

TFinder::TFinder(const TKxTableLines& Lines, TKxSeparator Separator, const TKxTableFormat& Format)
    : FLines(Lines), FSeparator(Separator), FRows(Sampled(Lines, Separator, CMostRows)),
      FDecimalComma(HasDecimalComma(Separator, FRows, Format)), FCells(FDecimalComma, Format.Missing) {}

bool TFinder::IsMixed() const {
    if (FSeparator == TKxSeparator::Blanks || FSeparator == TKxSeparator::Semicolon) return false;
    return std::ranges::any_of(FRows.back().Cells,
                               [](const TKxSampleCell& Cell) { return IsSeveralNumbers(Cell.Text); });
}

void TFinder::FindTail() {
    FColumns = FRows.back().Cells.size();
    for (FTail = FRows.size(); FTail > 0 && FRows[FTail - 1].Cells.size() == FColumns;) --FTail;
}

bool TFinder::Contradicts(const TRow& Row) const {
    for (std::size_t i = 0; i < FColumns; ++i) {
        const TKxCellKind kind = KindOf(Row.Cells[i]), known = FKinds[i];
        if (kind == TKxCellKind::Nothing || known == TKxCellKind::Nothing || known == TKxCellKind::Text)
            continue;
        if (kind != known) return true;
    }
    return false;
}

void TFinder::FindBody() {
    FKinds.assign(FColumns, TKxCellKind::Nothing);
    for (FBody = FRows.size(); FBody > FTail && !Contradicts(FRows[FBody - 1]); --FBody)
        for (std::size_t i = 0; i < FColumns; ++i)
            if (FKinds[i] == TKxCellKind::Nothing) FKinds[i] = KindOf(FRows[FBody - 1].Cells[i]);
}

bool TFinder::IsHeader(const TRow& Row) const {
    if (Row.Cells.size() != FColumns) return false;
    for (std::size_t i = 0; i < FColumns; ++i)
        if (KindOf(Row.Cells[i]) == TKxCellKind::Number) return false;
    return true;
}

// Its words may as well be a sentence of the preamble where names of rows are numbers or nothing is quoted.
bool TFinder::IsShortHeader(const TRow& Row) const {
    if (FColumns < 2 || Row.Cells.size() != FColumns - 1) return false;
    std::vector<std::string> words;
    for (const auto& cell : Row.Cells) {
        if (KindOf(cell) != TKxCellKind::Text) return false;
        words.push_back(cell.Text);
    }
    if (Row.Cells.front().Quoted) return true;
    if (words.size() == 1 && words[0].find(' ') != std::string::npos) return false;
    return FSeparator != TKxSeparator::Blanks || FKinds[0] == TKxCellKind::Text || !IsSentence(words);
}

bool TFinder::IsUnits(const TRow& Row) const {
    std::vector<std::string> texts;
    for (const auto& cell : Row.Cells) texts.push_back(TableTextToUtf8(cell.Text));
    return AreUnits(texts);
}

bool TFinder::MayBeData(const TRow& Row) const {
    if (IsNumbersAlone(LineOf(Row))) return true;
    if (Row.Cells.size() != FColumns) return false;
    bool numbers = false;
    for (std::size_t i = 0; i < FColumns; ++i) {
        if (FKinds[i] != TKxCellKind::Number) continue;
        const TKxCellKind kind = KindOf(Row.Cells[i]);
        if (kind != TKxCellKind::Number && kind != TKxCellKind::Nothing) return false;
        numbers |= kind == TKxCellKind::Number;
    }
    return numbers;
}

void TFinder::TakeHeader(const TRow& Row) {
    FShape.IsHeaderShort = Row.Cells.size() < FColumns;
    if (FShape.IsHeaderShort) FShape.Headers.emplace_back();
    for (const auto& cell : Row.Cells) FShape.Headers.push_back(TableTextToUtf8(cell.Text));
    FShape.HeaderLine = Row.Line;
}

void TFinder::TakeUnits(const TRow& Row) {
    for (const auto& cell : Row.Cells) FShape.Units.push_back(TableTextToUtf8(cell.Text));
    FShape.UnitsLine = Row.Line;
}

/// Returns the index of the table's first row.
std::size_t TFinder::FindHeader() {
    if (FBody == 0) return 0;
    const TRow& above = FRows[FBody - 1];
    if (FColumns == 1 && above.Cells.size() > 1) { // a header of several words
        FShape.Headers.push_back(TableTextToUtf8(LineOf(above)));
        FShape.HeaderLine = above.Line;
        return FBody - 1;
    }
    if (FBody > 1 && FBody > FTail && IsUnits(above)) {
        const TRow& next = FRows[FBody - 2];
        if (IsHeader(next) || IsShortHeader(next)) {
            TakeHeader(next);
            TakeUnits(above);
            return FBody - 2;
        }
    }
    if (!IsHeader(above) && !IsShortHeader(above)) return FBody;
    TakeHeader(above);
    return FBody - 1;
}

std::optional<TKxTableShape> TFinder::Find() {
    if (FRows.size() < 2 || IsMixed()) return std::nullopt;
    FindTail();
    if (FColumns < 2 && FSeparator != TKxSeparator::Blanks) return std::nullopt;
    FindBody();
    if (!HasNumbers()) return std::nullopt;
    const std::size_t first = FindHeader();
    if (first == FBody && FBody > FTail) return std::nullopt; // a text among numbers
    if (first > 0 && FShape.Headers.empty() && FRows.size() - FBody < 2) return std::nullopt;
    if (std::any_of(FRows.begin(), FRows.begin() + std::ptrdiff_t(FBody),
                    [&](const TRow& Row) { return MayBeData(Row); }))
        return std::nullopt;
    FShape.Separator = FSeparator;
    FShape.DecimalComma = FDecimalComma;
    FShape.Kinds.resize(FColumns);
    FShape.FirstLine = FRows[first].Line;
    FShape.BodyAt = FRows[FBody].At;
    FShape.BodyLine = FRows[FBody].Line;
    return std::move(FShape);
}

} // namespace

std::optional<TKxTableShape> FindTable(const TKxTableLines& Lines, const TKxTableFormat& Format) {
    for (const TKxSeparator separator : CSeparators)
        if (auto shape = TFinder(Lines, separator, Format).Find()) return shape;
    return std::nullopt;
}

} // namespace kx
