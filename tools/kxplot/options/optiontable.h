#pragma once
// The options as a table that help, man page, completions and messages walk.

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace kxplot {

struct TOptionRow {
    std::vector<std::string> Names; ///< with their dashes, the short one first; one without for an argument
    std::string Type; ///< "FILE", or the words that are allowed ("left|right"); empty for a flag
    std::string Help; ///< a sentence or a few

    bool IsArgument() const { return Names.front()[0] != '-'; }
    /// "-o, --output FILE".
    std::string Usage() const;
    /// The words of a Type that lists them.
    std::vector<std::string> Words() const;
};

struct TOptionGroup {
    std::string Title;
    std::vector<TOptionRow> Rows;
};

/// In the order in which App has them; those of one group stand together.
using TOptionTable = std::vector<TOptionGroup>;
TOptionTable TableOf(const CLI::App& App);

/// A command line and what it does.
struct TExample {
    const char *Line, *Does;
};
const std::vector<TExample>& Examples();

} // namespace kxplot
