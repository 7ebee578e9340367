#pragma once
// Options that ask kxplot about itself.

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace kxplot {

/// Thrown by the parser for an option that asks for a text instead of a picture.
struct TAnswer {
    std::string Text;
};

/// --help, --man, --completions and --version. They answer at once, whatever else is given.
void AddOptionsAboutKxplot(CLI::App& App);

/// What follows in a message about arguments that the parser does not know; empty when no option is near.
std::string SuggestionFor(const std::vector<std::string>& Unknown, const CLI::App& App);

} // namespace kxplot
