#include "kxplot/options/help.h"

#include "kxplot/options/paragraph.h"

#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

namespace {

constexpr int CMargin = 2, CHelpColumn = 22, CNarrow = 40;

void AddRow(std::string& Text, const TOptionRow& Row, int Width) {
    Text.append(CMargin, ' ');
    const std::string usage = Row.Usage();
    Text += usage;
    int at = CMargin + kx::CharacterCount(usage);
    if (at + 2 > CHelpColumn) {
        Text += '\n';
        at = 0;
    }
    TParagraph(Text, at, CHelpColumn, Width).Add(Row.Help);
}

} // namespace

std::string HelpText(const std::string& Description, const TOptionTable& Table, int Width) {
    const int width = std::max(Width, CNarrow);
    std::string text = "Usage: kxplot [OPTIONS] DATA\n";
    TParagraph(text, 0, 0, width).Add(Description);
    for (const TOptionGroup& group : Table) {
        text += "\n" + group.Title + ":\n";
        for (const TOptionRow& row : group.Rows) AddRow(text, row, width);
    }
    text += "\nExamples:\n";
    for (const TExample& example : Examples()) {
        text.append(CMargin, ' ').append(example.Line).append("\n");
        TParagraph(text, 0, 3 * CMargin, width).Add(example.Does);
    }
    return text;
}

} // namespace kxplot
