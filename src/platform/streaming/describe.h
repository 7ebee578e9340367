#pragma once
// The published properties as a reference for people: types, defaults, help, in Markdown.

#include <kxgraph/platform/objects/classes.h>

#include <string>

namespace kx {

/// One registered class: its own properties, then those of its bases and of the objects that are parts of it.
std::string DescribeClass(const TComponentClass& Class);
/// All registered classes; what several have in common is told once.
std::string DescribeClasses();

} // namespace kx
