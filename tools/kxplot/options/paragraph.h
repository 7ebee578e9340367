#pragma once
// Words in lines.

#include <string>

namespace kxplot {

/// Appends words to a text in lines no wider than asked for; a longer word stands alone.
class TParagraph {
public:
    /// The first line goes on at column At, all others begin at column Indent.
    TParagraph(std::string& Text, int At, int Indent, int Width)
        : FText(Text), FAt(At), FIndent(Indent), FWidth(Width) {}
    /// The words of one paragraph, which ends the line.
    void Add(const std::string& Words);

private:
    void AddWord(const std::string& Word);

    std::string& FText;
    int FAt, FIndent, FWidth;
    bool FIsAfterWord = false;
};

/// How wide the lines of standard output may be: as wide as the terminal, 100 characters at most; 80 where
/// it is none.
int WidthOfOutput();

} // namespace kxplot
