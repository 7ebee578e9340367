// kxplot: draws a data file. What it does is read, planned, made as a form, fitted and written.

#include "kxplot/batch/batch.h"
#include "kxplot/database/database.h"
#include "kxplot/fit/fit.h"
#include "kxplot/fit/formfits.h"
#include "kxplot/follow/follow.h"
#include "kxplot/form/assignments.h"
#include "kxplot/form/notices.h"
#include "kxplot/form/picture.h"
#include "kxplot/form/properties.h"
#include "kxplot/form/savedform.h"
#include "kxplot/messages.h"
#include "kxplot/options/commandline.h"
#include "kxplot/options/paragraph.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/plan/expressions.h"
#include "kxplot/plan/joined.h"
#include "kxplot/plan/planner.h"
#include "kxplot/plan/remedies.h"
#include "kxplot/plan/sources.h"
#include "kxplot/shortmemory.h"
#include "kxplot/show/livepicture.h"
#include "kxplot/show/show.h"
#include "kxplot/write/framefaults.h"
#include "kxplot/write/outputs.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/describe.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/table/Kxtable.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace kxplot;

/// What the picture of --properties shows where there is no table.
constexpr const char* CSample = "x,y\n1,1\n2,3\n3,2\n4,5\n5,4\n6,6\n7,8\n8,7\n";

constexpr int CFailure = 1, CUsage = 2, CInterrupted = 130; // the last as shells have it

/// Of a table; that of one that was followed was read meanwhile.
std::string TextOf(const std::string& File, const std::string* Followed) {
    if (File.empty()) return CSample;
    return Followed ? *Followed : kx::ReadFile(File);
}

/// What Use makes of a table; what is wrong with it is told with the option that helps.
template <class F>
auto WithTable(const std::string& File, const TOptions& Options, const std::string* Followed, F Use) {
    const std::string text = TextOf(File, Followed);
    try {
        kx::TKxTable table(text,
                           File.empty()  ? "sample"
                           : File == "-" ? "standard input"
                                         : File,
                           FormatOf(Options));
        AddExpressions(table, Options);
        return Use(table);
    } catch (const kx::ETableError& error) {
        throw WithRemedy(error);
    }
}

/// What Use makes of the table that a database gives.
template <class F>
auto WithQuery(const TOptions& Options, F Use) {
    kx::TKxTable table = ReadDatabase(Options.Data.Database);
    AddExpressions(table, Options);
    return Use(table);
}

/// Hands each table to Use.
template <class F>
void WithTables(const TOptions& Options, const std::string* Followed, F Use) {
    std::vector<std::string> files = Options.Data.Files();
    const bool hasQuery = Options.Data.Database.IsGiven();
    if (hasQuery) WithQuery(Options, Use);
    if (files.empty() && !hasQuery && Options.Functions.Functions.empty()) files = {""};
    for (const auto& file : files) WithTable(file, Options, Followed, Use);
}

/// Whether a saved form names the tables that its data stand in: those that are files, and stay as they are.
bool NamesSources(const TOptions& Options) {
    const TFormRequest& form = Options.Outputs.Form;
    return !form.Save.empty() && !form.Inline && !Options.Data.Database.IsGiven() && !Options.Follow.Wanted;
}

/// Reads the tables and plans the picture.
TPlan Planned(const TOptions& Given, const std::string* Followed = nullptr) {
    const TOptions options = WithDifference(Given);
    std::vector<TPlan> plans;
    WithTables(options, Followed,
               [&](const kx::TKxTable& Table) { plans.push_back(MakePlan(Table, options)); });
    if (NamesSources(options)) {
        const std::vector<std::string> files = options.Data.Files();
        for (std::size_t k = 0; k < files.size(); ++k)
            FindSources(plans[k], files[k], options.Outputs.Form.Save);
    }
    TPlan plan = plans.empty() ? PlanOfFunctions(options) : Combined(std::move(plans), options);
    AddFunctions(plan, options);
    return plan;
}

/// Tells how the tables are read, also one that then cannot be drawn.
int Explain(const TOptions& Given) {
    const TOptions options = WithDifference(Given);
    if (options.Data.Files().empty() && !options.Data.Database.IsGiven()) return 0;
    WithTables(options, nullptr, [&](const kx::TKxTable& Table) {
        for (const auto& line : Table.Explain()) Print(line + "\n");
        std::vector<std::string> told;
        MakePlan(Table, options, &told);
        for (const auto& line : told) Print(line + "\n");
    });
    return 0;
}

void TellAll(const std::vector<std::string>& Lines) {
    for (const auto& line : Lines) Tell(line);
}

/// Returns the exit status.
int Draw(const TOptions& Options, const std::string* Followed = nullptr) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), Options.Look.Outfit);
    const TWindowPart* window = LoadWindow(Options.Window);
    TPlan plan = Planned(Options, Followed);
    if (!window) kx::qt::Install(true);
    std::optional<TFrameFaults> faults(std::in_place);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    const TFindings found = Fit(picture.GetParts());
    picture.Finish(found.Labels);
    const std::vector<std::string> notices = NoticesOf(picture.GetParts()); // nothing can fail any more after
    WriteOutputs(picture, found, Options.Outputs, *faults);                 // this but writing
    if (Options.Outputs.Results == "-") Print(found.Results);
    TellAll(notices);
    TellAll(found.Failures);
    TellAll(found.Remarks);
    faults.reset(); // what goes wrong in a window is told there
    if (window) Show(*window, picture, found, Options);
    if (found.Interrupted) return CInterrupted;
    return found.Failures.empty() ? 0 : CFailure;
}

/// Shows what the table has while it grows.
void ShowGrowing(const TWindowPart& Window, TFollowedTable& Table, const TOptions& Options) {
    TPlan plan = Table.GetWhole();
    AddFunctions(plan, Options);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    const TFindings found = Fit(picture.GetParts());
    picture.Finish(found.Labels);
    TLivePicture live(picture, Table, Options);
    Show(Window, picture, found, Options, [&] {
        live.Poll();
        return !TEndSignals::HaveCome();
    });
}

/// What is to be written is made in the end, of all that the table has got.
int Follow(TOptions Options) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), Options.Look.Outfit);
    std::string text;
    if (const TWindowPart* window = LoadWindow(Options.Window)) {
        const TEndSignals signals;
        TFollowedTable table(Options);
        if (WaitForTable(table)) ShowGrowing(*window, table, Options);
        text = table.GetText();
        Options.Window.Show = false;
        if (Options.Outputs.AreNone()) return 0;
    } else {
        text = FollowToTheEnd(Options);
    }
    return Draw(Options, &text);
}

/// The same of a form file.
int DrawForm(const TOptions& Options) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), {});
    const TWindowPart* window = LoadWindow(Options.Window);
    if (!window) kx::qt::Install(true);
    std::optional<TFrameFaults> faults(std::in_place);
    TParts parts = OpenedForm(Options.Data.File);
    kx::SettleTree(*parts.Form);
    for (const auto& assignment : Options.Look.Assignments) Assign(*parts.Form, assignment);
    const TFormFindings found = FitForm(parts);
    WritePictures(parts, Options.Outputs, *faults);
    TellAll(found.Failures);
    faults.reset();
    if (window) ShowForm(*window, parts, Options);
    if (found.Interrupted) return CInterrupted;
    return found.Failures.empty() ? 0 : CFailure;
}

int Describe(const std::string& Name) {
    kx::RegisterClasses();
    if (Name.empty()) return Print("# Properties\n\n" + kx::DescribeClasses()), 0;
    const kx::TComponentClass* found = kx::FindClass(Name);
    if (!found) {
        std::vector<std::string_view> names;
        for (const auto& type : kx::RegisteredClasses()) names.push_back(type.Name);
        FailUsage("--describe", Name, "is no class of components" + kx::DidYouMean(Name, names));
    }
    return Print(kx::DescribeClass(*found)), 0;
}

int ListProperties(const TOptions& Options) {
    TPlan plan = Planned(Options);
    kx::qt::Install(true);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    Print(PropertyList(*picture.GetParts().Form, *Options.Properties, WidthOfOutput()));
    return 0;
}

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
    if (Options.Follow.Wanted) return Follow(Options);
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
