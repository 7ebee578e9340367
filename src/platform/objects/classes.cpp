#include <kxgraph/platform/objects/classes.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <vector>

namespace kx {

namespace {

std::vector<TComponentClass>& Classes() {
    static std::vector<TComponentClass> classes;
    return classes;
}

} // namespace

void RegisterClass(const TComponentClass& Class) {
    if (!FindClass(Class.Name)) Classes().push_back(Class);
}

std::span<const TComponentClass> RegisteredClasses() { return Classes(); }

std::vector<std::string_view> PalettePages() {
    std::vector<std::string_view> pages;
    for (const auto& type : Classes())
        if (!type.Page.empty() && std::ranges::find(pages, type.Page) == pages.end())
            pages.push_back(type.Page);
    return pages;
}

const TComponentClass* FindClass(std::string_view Name) {
    const auto& all = Classes();
    const auto found =
        std::ranges::find_if(all, [&](const auto& Class) { return SameText(Class.Name, Name); });
    return found == all.end() ? nullptr : &*found;
}

} // namespace kx
