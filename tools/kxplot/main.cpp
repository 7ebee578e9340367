// kxplot: draws a data file.

#include "kxplot/framefaults.h"
#include "kxplot/messages.h"
#include "kxplot/options.h"
#include "kxplot/outputs.h"
#include "kxplot/plot.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/table/Kxtable.h>

#include <exception>
#include <iostream>
#include <string>

namespace {

using namespace kxplot;

constexpr int CFailure = 1, CUsage = 2, CInterrupted = 130; // the last as shells have it

/// Returns the exit status.
int Draw(const TOptions& Options) {
    CheckOutputs(Options);
    const std::string text = kx::ReadFile(Options.Data);
    const kx::TKxTable table(text, Options.Data == "-" ? "standard input" : Options.Data, Options.Header);
    kx::qt::Install(true);
    const TFrameFaults faults;
    TPlot plot(table, Options);
    if (!Options.Outfit.empty()) plot.LoadOutfit(Options.Outfit);
    plot.Apply(Options);
    WriteOutputs(plot, Options, faults);
    if (Options.Results == "-") Print(plot.GetResults());
    const auto& failures = plot.GetFailures();
    for (const auto& lines : {plot.GetNotices(), failures, plot.GetRemarks()})
        for (const auto& line : lines) Tell(line);
    if (plot.WasInterrupted()) return CInterrupted;
    return failures.empty() ? 0 : CFailure;
}

int Complain(const std::exception& Error, int Status) {
    Tell(ReasonOf(Error));
    return Status;
}

} // namespace

int main(int Count, char** Arguments) {
    try {
        const auto options = ParseOptions(Count, Arguments);
        return options ? Draw(*options) : 0;
    } catch (const TUsageError& error) {
        return Complain(error, CUsage);
    } catch (const std::exception& error) {
        return Complain(error, CFailure);
    }
}
