// kxplot: draws a data file. What it does is read, planned, made as a form, fitted and written.

#include "kxplot/batch/batch.h"
#include "kxplot/messages.h"
#include "kxplot/options/commandline.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/run/draw.h"
#include "kxplot/run/listing.h"
#include "kxplot/run/status.h"
#include "kxplot/run/tables.h"
#include "kxplot/shortmemory.h"
#include "kxplot/write/framefaults.h"

#include <cstdlib>
#include <exception>
#include <new>

namespace {

using namespace kxplot;

int Complain(const std::exception& Error, int Status) {
    Tell(ReasonOf(Error));
    return Status;
}

/// The exit status of Action, which may throw.
template <class F>
int Guarded(F Action) {
    try {
        return Action();
    } catch (const TUsageError& error) {
        return Complain(error, CUsage);
    } catch (const std::exception& error) {
        return Complain(error, CFailure);
    }
}

int Run(const TOptions& Options) {
    if (Options.Outputs.Form.Describe) return Describe(*Options.Outputs.Form.Describe);
    if (IsFormFile(Options.Data.File)) return DrawForm(Options);
    if (Options.Properties) return ListProperties(Options);
    if (Options.Data.Table.Explain) return Explain(Options);
    if (Options.Follow.Wanted) return DrawFollowed(Options);
    if (Options.Batch.empty()) return Draw(Options);
    return DrawBatch(Options, [](const TOptions& One) {
        return Guarded([&] { return IsFormFile(One.Data.File) ? DrawForm(One) : Draw(One); });
    });
}

/// For what is thrown where nothing may be, as libraries do when memory runs out.
[[noreturn]] void EndThrown() {
    try {
        if (const auto thrown = std::current_exception()) std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
    } catch (const std::exception& error) {
        std::_Exit(Complain(error, CFailure));
    }
    EndOutOfMemory();
}

} // namespace

int main(int Count, char** Arguments) {
    std::set_terminate(EndThrown);
    return Guarded([&] {
        const auto options = ParseOptions(Count, Arguments);
        return options ? Run(*options) : 0;
    });
}
