#include <kxgraph/table/Kxtableerror.h>

#include <kxgraph/platform/text/text.h>

namespace kx {

void FailTable(std::string_view Name, long Line, const std::string& What, TKxTableRemedy Remedy) {
    std::string message = Escaped(Name);
    if (Line > 0) message.append(":").append(std::to_string(Line));
    throw ETableError(message.append(": ").append(What), Remedy);
}

std::string QuotedCell(std::string_view Cell) { return "'" + Abridged(Trimmed(Cell)) + "'"; }

} // namespace kx
