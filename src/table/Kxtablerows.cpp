#include <kxgraph/table/Kxtablerows.h>

namespace kx {

TKxRowReader::TKxRowReader(std::string_view Text, std::size_t At, long Line, TKxSeparator Separator)
    : FPos(Text.data() + At), FEnd(Text.data() + Text.size()), FBegin(Text.data()), FLine(Line),
      FByBlanks(Separator == TKxSeparator::Blanks) {
    const auto set = [this](char C, TKind Kind) { FKinds[static_cast<unsigned char>(C)] = Kind; };
    for (const char c : {' ', '\t'}) set(c, FByBlanks ? Separates : Blank);
    for (const char c : {'\r', '\n'}) set(c, EndsLine);
    if (Separator == TKxSeparator::Comma) set(',', Separates);
    if (Separator == TKxSeparator::Semicolon) set(';', Separates);
    if (Separator == TKxSeparator::Tab) set('\t', Separates); // no blank then
}

bool TKxRowReader::SkipEmptyAndComments() {
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

void TKxRowReader::EndRow() {
    while (!AtLineEnd()) ++FPos;
    EndLine();
    FRowEnded = true;
}

bool TKxRowReader::NextRow() {
    if (!FRowEnded) EndRow();
    if (!SkipEmptyAndComments()) return false;
    FRowLine = FLine;
    FRowEnded = false;
    return true;
}

std::string_view TKxRowReader::QuotedCell() {
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

} // namespace kx
