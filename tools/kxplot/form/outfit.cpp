#include "kxplot/form/outfit.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

namespace kxplot {

using namespace kx;

namespace {

/// Whether there is a section of that name, or of a part of what bears it.
bool HasSectionOf(const TKxIniList& Ini, const std::string& Name) {
    TStringList sections;
    Ini.ReadSections(sections);
    for (int i = 0; i < sections.GetCount(); ++i) {
        const std::string& section = sections.GetLine(i);
        if (SameText(section, Name) || StartsWithText(section, Name + ".")) return true;
    }
    return false;
}

} // namespace

void LoadOutfitFile(TKx2DGraph& Graph, const std::string& FileName, TKxIniList& Ini) {
    Ini.LoadFromFile(FileName);
    const std::string file = Escaped(FileName) + ": ", name = Graph.GetName();
    if (!HasSectionOf(Ini, name)) throw EFileError(file + "is no outfit: it has no section [" + name + "]");
    try {
        Graph.LoadOutfit(name, Ini);
    } catch (const EIniError& error) {
        throw EFileError(file + "[" + Abridged(error.GetSection()) + "] " + Abridged(error.GetIdent()) +
                         ": '" + Abridged(Ini.ReadString(error.GetSection(), error.GetIdent(), "")) +
                         "' does not hold the numbers that belong there");
    }
}

} // namespace kxplot
