#pragma once
// A form file as a tree: what stands in it, before anything is made of it.

#include <kxgraph/platform/streaming/formtext.h>

#include <cstddef>
#include <vector>

namespace kx {

/// Objects, and lists within lists, stand in one another no deeper.
inline constexpr int CDeepestNesting = 1000;

/// Indices of tokens: the path of names, and the value First..Last - 1.
struct TFormProperty {
    std::size_t Name, First, Last;
};

struct TFormObject {
    static constexpr std::size_t CNoName = std::size_t(-1);
    std::size_t Name = CNoName, Class = 0; ///< tokens
    std::vector<TFormProperty> Properties;
    std::vector<TFormObject> Objects;
};

/// The objects of Text, which follow one another, without a form about them. Raises EFormError.
std::vector<TFormObject> ParseFormObjects(const TFormText& Text);

/// The one object that Text holds, with all that stands in it. Raises EFormError.
TFormObject ParseForm(const TFormText& Text);

} // namespace kx
