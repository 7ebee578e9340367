#include "kxplot/rows.h"

namespace kxplot {

bool TRowReader::IsSeparator(char C) const {
    switch (FSeparator) {
    case TSeparator::Comma: return C == ',';
    case TSeparator::Semicolon: return C == ';';
    case TSeparator::Tab: return C == '\t';
    case TSeparator::Blanks: return C == ' ' || C == '\t';
    }
    return false;
}

void TRowReader::SkipBlanks() {
    // A tab may be the separator; it is no blank then.
    while (FPos != FEnd && (*FPos == ' ' || (*FPos == '\t' && FSeparator != TSeparator::Tab))) ++FPos;
}

void TRowReader::EndLine() {
    if (FPos == FEnd) return;
    if (*FPos == '\r') ++FPos;
    if (FPos != FEnd && *FPos == '\n') ++FPos;
    ++FLine;
}

bool TRowReader::SkipEmptyAndComments() {
    while (FPos != FEnd) {
        const char* begin = FPos;
        SkipBlanks();
        if (FPos != FEnd && *FPos == '#') {
            while (!AtLineEnd()) ++FPos;
        } else if (!AtLineEnd()) {
            if (FSeparator != TSeparator::Blanks) FPos = begin;
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
    ++FPos;
    while (FPos != FEnd) {
        if (*FPos == '"') {
            ++FPos;
            if (FPos == FEnd || *FPos != '"') break;
        } else if (*FPos == '\n') {
            ++FLine;
        }
        FBuffer += *FPos++;
    }
    // What follows the closing quote belongs to the cell as it stands.
    while (!AtLineEnd() && !IsSeparator(*FPos)) {
        if (*FPos != ' ') FBuffer += *FPos;
        ++FPos;
    }
    return FBuffer;
}

std::string_view TRowReader::PlainCell() {
    const char* begin = FPos;
    while (!AtLineEnd() && !IsSeparator(*FPos)) ++FPos;
    return {begin, static_cast<std::size_t>(FPos - begin)};
}

bool TRowReader::NextCell(std::string_view& Cell) {
    if (FRowEnded) return false;
    SkipBlanks();
    Cell = FPos != FEnd && *FPos == '"' ? QuotedCell() : PlainCell();
    if (FSeparator == TSeparator::Blanks) SkipBlanks();
    if (AtLineEnd()) {
        EndLine();
        FRowEnded = true;
    } else if (FSeparator != TSeparator::Blanks) {
        ++FPos; // the separator: another cell follows, if an empty one
    }
    return true;
}

} // namespace kxplot
