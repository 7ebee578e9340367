#include "kxplot/rows.h"

namespace kxplot {

TRowReader::TRowReader(std::string_view Text, std::size_t At, long Line, TSeparator Separator)
    : FPos(Text.data() + At), FEnd(Text.data() + Text.size()), FBegin(Text.data()), FLine(Line),
      FByBlanks(Separator == TSeparator::Blanks) {
    const auto set = [this](char C, TKind Kind) { FKinds[static_cast<unsigned char>(C)] = Kind; };
    for (const char c : {' ', '\t'}) set(c, FByBlanks ? Separates : Blank);
    for (const char c : {'\r', '\n'}) set(c, EndsLine);
    if (Separator == TSeparator::Comma) set(',', Separates);
    if (Separator == TSeparator::Semicolon) set(';', Separates);
    if (Separator == TSeparator::Tab) set('\t', Separates); // no blank then
}

bool TRowReader::SkipEmptyAndComments() {
    while (FPos != FEnd) {
        const char* begin = FPos;
        SkipBlanks();
        if (FPos != FEnd && *FPos == '#') {
            while (!AtLineEnd()) ++FPos;
        } else if (!AtLineEnd()) {
            if (!FByBlanks) FPos = begin;
            return true;
        }
        EndLine();
    }
    return false;
}

void TRowReader::EndRow() {
    while (!AtLineEnd()) ++FPos;
    EndLine();
    FRowEnded = true;
}

bool TRowReader::NextRow() {
    if (!FRowEnded) EndRow();
    if (!SkipEmptyAndComments()) return false;
    FRowLine = FLine;
    FRowEnded = false;
    return true;
}

std::string_view TRowReader::QuotedCell() {
    FBuffer.clear();
    FOpenQuote = true;
    ++FPos;
    while (FPos != FEnd) {
        if (*FPos == '"') {
            ++FPos;
            FOpenQuote = FPos != FEnd && *FPos == '"';
            if (!FOpenQuote) break;
        } else if (*FPos == '\n') {
            ++FLine;
        }
        FBuffer += *FPos++;
    }
    // What follows the closing quote belongs to the cell as it stands.
    for (; FPos != FEnd && KindAt(FPos) < Separates; ++FPos)
        if (*FPos != ' ') FBuffer += *FPos;
    return FBuffer;
}

} // namespace kxplot
