#pragma once
// Whether a document is well-formed, for tests and fuzz targets: what is not raises std::runtime_error.

#include <algorithm>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kx::test {

inline void RequireXml(bool Holds, std::string_view Where) {
    if (!Holds) throw std::runtime_error("not well-formed: " + std::string(Where.substr(0, 200)));
}

/// Content or attribute value without its references.
inline std::string UnescapedXml(std::string_view Text) {
    static constexpr std::pair<std::string_view, char> references[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}};
    std::string plain;
    for (std::size_t i = 0; i < Text.size();) {
        const char c = Text[i];
        RequireXml(c != '<' && c != '>' && (std::uint8_t(c) >= 0x20 || c == '\n'), Text.substr(i));
        if (c != '&') {
            plain += Text[i++];
            continue;
        }
        const auto* found = std::ranges::find_if(
            references, [&](const auto& R) { return Text.substr(i).starts_with(R.first); });
        RequireXml(found != std::end(references), Text.substr(i));
        plain += found->second;
        i += found->first.size();
    }
    return plain;
}

/// Attributes of a tag: quoted, and each used once.
inline void RequireAttributes(std::string_view Tag) {
    std::set<std::string_view> names;
    for (std::size_t open = Tag.find('"'); open != Tag.npos; open = Tag.find('"', open)) {
        const std::size_t close = Tag.find('"', open + 1), name = Tag.find_last_of(" \n", open) + 1;
        RequireXml(name > 0 && open > name + 1 && Tag[open - 1] == '=' && close != Tag.npos, Tag);
        RequireXml(names.insert(Tag.substr(name, open - 1 - name)).second, Tag);
        UnescapedXml(Tag.substr(open + 1, close - open - 1));
        open = close + 1;
    }
}

/// Walks the tags, which must be closed in order. The content of text elements.
inline std::string TextOfXml(std::string_view Document) {
    std::vector<std::string> open;
    std::string content;
    for (std::size_t at = 0; at < Document.size();) {
        const std::size_t tag = std::min(Document.find('<', at), Document.size());
        const std::string text = UnescapedXml(Document.substr(at, tag - at));
        if (!open.empty() && open.back() == "text") content += text;
        if (tag == Document.size()) break;
        std::size_t end = tag + 1;
        for (bool quoted = false; end < Document.size() && (quoted || Document[end] != '>'); ++end)
            if (Document[end] == '"') quoted = !quoted;
        RequireXml(end < Document.size(), Document.substr(tag));
        const std::string_view inner = Document.substr(tag + 1, end - tag - 1);
        at = end + 1;
        if (inner.starts_with('?') || inner.starts_with('!')) continue;
        const bool closes = inner.starts_with('/');
        const std::string name(inner.substr(closes, inner.find_first_of(" \n/>", 1) - closes));
        RequireXml(!name.empty() && (!closes || (!open.empty() && open.back() == name)), inner);
        if (closes)
            open.pop_back();
        else if (!inner.ends_with('/'))
            open.push_back(name);
        RequireAttributes(inner);
    }
    RequireXml(open.empty(), "the end");
    return content;
}

} // namespace kx::test
