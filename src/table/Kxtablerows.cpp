#include <kxgraph/table/Kxtablerows.h>

namespace kx {

TKxRowReader::TKxRowReader(std::string_view Text, std::size_t At, long Line, TKxSeparator Separator,
                           std::string_view Comments)
    : FPos(Text.data() + At), FEnd(Text.data() + Text.size()), FBegin(Text.data()), FRowBegin(FPos),
      FLine(Line), FByBlanks(Separator == TKxSeparator::Blanks) {
    const auto set = [this](char C, TKind Kind) { FKinds[static_cast<unsigned char>(C)] = Kind; };
    for (const char c : {' ', '\t'}) set(c, FByBlanks ? Separates : Blank);
    for (const char c : {'\r', '\n'}) set(c, EndsLine);
    if (Separator == TKxSeparator::Comma) set(',', Separates);
    if (Separator == TKxSeparator::Semicolon) set(';', Separates);
    if (Separator == TKxSeparator::Tab) set('\t', Separates); // no blank then
    for (const char c : Comments) FBeginsNoRow[static_cast<unsigned char>(c)] = true;
    FBeginsNoRow[static_cast<unsigned char>('&')] = true;
}

bool TKxRowReader::IsCommentOrGap() {
    if (*FPos != '&') return true;
    const char* pos = FPos + 1;
    while (pos != FEnd && (*pos == ' ' || *pos == '\t')) ++pos;
    const bool isLone = pos == FEnd || KindAt(pos) == EndsLine;
    FAfterGap |= isLone;
    return isLone;
}

bool TKxRowReader::SkipEmptyAndComments() {
    FAfterGap = false;
    while (FPos != FEnd) {
        const char* begin = FPos;
        SkipBlanks();
        if (AtLineEnd()) {
            FAfterGap = true;
        } else if (FBeginsNoRow[static_cast<unsigned char>(*FPos)] && IsCommentOrGap()) {
            while (!AtLineEnd()) ++FPos;
        } else {
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
    FRowBegin = FPos;
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
