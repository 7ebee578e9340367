#include "kxplot/run/tables.h"

#include "kxplot/database/database.h"
#include "kxplot/messages.h"
#include "kxplot/plan/expressions.h"
#include "kxplot/plan/joined.h"
#include "kxplot/plan/planner.h"
#include "kxplot/plan/remedies.h"
#include "kxplot/plan/sources.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/table/Kxtable.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace kxplot {

namespace {

/// What the picture of --properties shows where there is no table.
constexpr const char* CSample = "x,y\n1,1\n2,3\n3,2\n4,5\n5,4\n6,6\n7,8\n8,7\n";

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
    return (form.Edit || !form.Save.empty()) && !form.Inline && !Options.Data.Database.IsGiven() &&
           !Options.Follow.Wanted;
}

} // namespace

TPlan Planned(const TOptions& Given, const std::string* Followed) {
    const TOptions options = WithDifference(Given);
    std::vector<TPlan> plans;
    WithTables(options, Followed,
               [&](const kx::TKxTable& Table) { plans.push_back(MakePlan(Table, options)); });
    if (NamesSources(options)) {
        const std::string& saved = options.Outputs.Form.Save; // a new form is seen as one that lies here
        const std::vector<std::string> files = options.Data.Files();
        for (std::size_t k = 0; k < files.size(); ++k)
            FindSources(plans[k], files[k], saved.empty() ? "untitled.kxf" : saved);
    }
    TPlan plan = plans.empty() ? PlanOfFunctions(options) : Combined(std::move(plans), options);
    AddFunctions(plan, options);
    return plan;
}

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

} // namespace kxplot
