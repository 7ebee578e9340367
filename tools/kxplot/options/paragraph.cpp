#include "kxplot/options/paragraph.h"

#include <kxgraph/platform/text/text.h>

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace kxplot {

namespace {

constexpr int CWide = 100, CUsual = 80;

} // namespace

void TParagraph::Add(const std::string& Words) {
    for (std::size_t begin = 0; begin < Words.size();) {
        const std::size_t end = std::min(Words.find(' ', begin), Words.size());
        AddWord(Words.substr(begin, end - begin));
        begin = end + 1;
    }
    FText += '\n';
}

void TParagraph::AddWord(const std::string& Word) {
    const int length = kx::CharacterCount(Word);
    if (FIsAfterWord && FAt + 1 + length > FWidth) {
        FText += '\n';
        FAt = 0;
        FIsAfterWord = false;
    }
    if (FAt < FIndent) {
        FText.append(std::size_t(FIndent - FAt), ' ');
        FAt = FIndent;
    } else if (FIsAfterWord) {
        FText += ' ';
        ++FAt;
    }
    FText += Word;
    FAt += length;
    FIsAfterWord = true;
}

int WidthOfOutput() {
    winsize size{};
    if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return CUsual;
    return std::min<int>(size.ws_col, CWide);
}

} // namespace kxplot
