#pragma once
// The command line as it is written down for the parser and for --help.

#include "kxplot/options/options.h"
#include "kxplot/options/tablearguments.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

namespace kxplot {

/// The options as CLI11 stores them, before they are checked.
struct TArguments {
    TOptions Options;
    TTableArguments Table;
    TFollowArguments Follow;
    std::optional<std::string> Size, Style, Ground;
    std::optional<double> Scale, Dpi;
    std::optional<std::string> From, To, Iterations, Repeat, Bins, Legend;
    std::vector<std::string> Assignments, Fits, Starts, Curves, Labels;
    TMethodArguments Method;
    TBandArguments Band;
    TMarkArguments Mark;
    TWindowArguments Window;
    bool Header = false, NoHeader = false, Antialias = false, NoAntialias = false;
    bool Derivative = false, Integral = false;
};

/// Enters all options; both must live as long as App parses.
void AddOptions(CLI::App& App, TArguments& Given);

} // namespace kxplot
