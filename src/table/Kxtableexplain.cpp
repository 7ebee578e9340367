#include <kxgraph/table/Kxtable.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kx {

namespace {

const char* PartedBy(TKxSeparator Separator) {
    switch (Separator) {
    case TKxSeparator::Comma: return "commas";
    case TKxSeparator::Semicolon: return "semicolons";
    case TKxSeparator::Tab: return "tabs";
    default: return "blanks";
    }
}

std::string HeaderSentence(const TKxTableShape& Shape) {
    if (Shape.Headers.empty()) return "there is no header";
    std::string text = "line " + std::to_string(Shape.HeaderLine);
    text += Shape.IsHeaderComment ? ", a comment, is the header" : " is the header";
    if (Shape.IsHeaderShort) text += "; it has no cell for the first column, which names the rows";
    return text;
}

/// What the cells of a column are, and how they are meant.
std::string KindOf(TKxColumnKind Kind, const TKxColumnScan& Scan) {
    const TKxColumnWay way = Scan.Way();
    switch (Kind) {
    case TKxColumnKind::Empty: return "no values";
    case TKxColumnKind::Texts: return "texts";
    case TKxColumnKind::Dates:
        return way.DateOrder ? std::string("dates, the ").append(FirstOf(*way.DateOrder)).append(" first")
                             : "dates";
    case TKxColumnKind::Numbers: break;
    }
    if (way.Grouping == TKxGrouping::None) return "numbers";
    return std::string("numbers, thousands in groups by ") +
           (way.Grouping == TKxGrouping::ByComma ? "commas" : "points");
}

std::string GapsOf(const TKxColumnScan& Scan) {
    if (Scan.GetGaps() == 0) return "";
    return "; " + std::to_string(Scan.GetGaps()) + " of " + std::to_string(Scan.GetCells()) +
           " cells stand for no value";
}

} // namespace

void TKxTable::ExplainHead(std::vector<std::string>& Sentences) const {
    const std::string_view head = FText.Get().substr(0, FText.Get().find('\n', 1 << 16));
    if (FText.WasUtf16()) Sentences.push_back("the text is UTF-16");
    if (!IsTableTextUtf8(head)) Sentences.push_back("what is no UTF-8 is read as Latin-1");
    if (FFormat.Skip.value_or(0) > 0)
        Sentences.push_back("lines are left out up to " + std::to_string(*FFormat.Skip));
    if (FShape.HasPreamble)
        Sentences.push_back("the table begins in line " + std::to_string(FShape.FirstLine) +
                            "; a preamble stands above");
    if (GetColumnCount() > 1)
        Sentences.push_back(std::string("cells are parted by ") + PartedBy(FShape.Separator));
    if (FShape.DecimalComma) Sentences.push_back("numbers may have a decimal comma");
    Sentences.push_back(HeaderSentence(FShape));
    if (FShape.UnitsLine > 0)
        Sentences.push_back("line " + std::to_string(FShape.UnitsLine) + " holds units");
    if (FShape.IsDoubleSpaced)
        Sentences.push_back("every row is followed by an empty line; they part no blocks");
}

/// Without an end.
std::string TKxTable::ExplainColumn(int Column, const std::string& Kind) const {
    std::string text = "column " + std::to_string(Column + 1);
    if (!GetHeader(Column).empty()) text += ", " + ShownName(Column);
    if (!GetUnit(Column).empty()) text += " in " + Abridged(GetUnit(Column));
    return text.append(": ").append(Kind);
}

std::vector<std::string> TKxTable::ExplainGiven() const {
    std::size_t rows = 0;
    for (const auto& column : FGiven) rows = std::max({rows, column.Values.size(), column.Texts.size()});
    std::vector<std::string> sentences{"there are " + std::to_string(rows) + " rows of " +
                                       std::to_string(FGiven.size()) + " columns"};
    const TKxColumnScan none(FFormat, false);
    for (int i = 0; i < GetColumnCount(); ++i)
        sentences.push_back(ExplainColumn(i, KindOf(GetKind(i), none)));
    return sentences;
}

std::vector<std::string> TKxTable::Explain() const {
    if (IsGiven()) return ExplainGiven();
    std::vector<std::string> sentences;
    ExplainHead(sentences);
    std::vector<TKxColumnScan> scans(FShape.Kinds.size(), TKxColumnScan(FFormat, FShape.DecimalComma));
    TKxTableBody rows = Body();
    std::size_t count = 0;
    for (; rows.NextRow(); ++count) {
        std::string_view cell;
        for (std::size_t i = 0; rows.Cells().NextCell(cell); ++i)
            if (i < scans.size()) scans[i].Add(cell, rows.Cells().WasQuoted());
    }
    if (rows.GetBlocks() > 1)
        sentences.push_back("empty lines part " + std::to_string(rows.GetBlocks()) + " blocks");
    sentences.push_back("there are " + std::to_string(count) + " rows of " + std::to_string(scans.size()) +
                        " cells");
    for (int i = 0; i < GetColumnCount(); ++i) {
        const TKxColumnScan& scan = scans[std::size_t(i)];
        sentences.push_back(ExplainColumn(i, KindOf(GetKind(i), scan)).append(GapsOf(scan)));
    }
    return sentences;
}

} // namespace kx
