#include "kxplot/batch/batch.h"

#include "kxplot/batch/progress.h"
#include "kxplot/batch/worker.h"
#include "kxplot/messages.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <glob.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace kxplot {

namespace {

/// The files that Pattern means, in the order of their names.
std::vector<std::string> Matching(const std::string& Pattern) {
    glob_t found{};
    std::vector<std::string> names;
    if (glob(Pattern.c_str(), GLOB_MARK, nullptr, &found) == 0)
        for (std::size_t i = 0; i < found.gl_pathc; ++i)
            if (!std::string_view(found.gl_pathv[i]).ends_with('/')) names.push_back(found.gl_pathv[i]);
    globfree(&found);
    if (names.empty() && kx::FileExists(Pattern)) return {Pattern}; // brackets of a name as it is
    return names;
}

std::vector<std::string> Tables(const std::vector<std::string>& Patterns) {
    std::vector<std::string> tables;
    for (const auto& pattern : Patterns) {
        const auto names = Matching(pattern);
        if (names.empty()) FailUsage("--batch", pattern, "names no file");
        tables.insert(tables.end(), names.begin(), names.end());
    }
    return tables;
}

std::string Stem(const std::string& FileName) {
    const std::string name = FileName.substr(FileName.rfind('/') + 1);
    return name.substr(0, name.size() - kx::ExtractFileExt(name).size());
}

std::string Filled(std::string Text, const std::string& Table) {
    const std::string_view mark = "{name}";
    const std::string stem = Stem(Table);
    for (std::size_t at = Text.find(mark); at != Text.npos; at = Text.find(mark, at + stem.size()))
        Text.replace(at, mark.size(), stem);
    return Text;
}

/// What is asked for one of the tables.
TOptions OptionsFor(const std::string& Table, TOptions Options) {
    Options.Data.File = Table;
    auto& outputs = Options.Outputs;
    if (outputs.Pictures.empty()) outputs.Pictures = {kx::ChangeFileExt(Table, ".png")};
    for (auto& name : outputs.Pictures) name = Filled(name, Table);
    for (auto* name : {&outputs.Results, &outputs.SaveOutfit, &outputs.CurveData, &outputs.Form.Save})
        *name = Filled(*name, Table);
    return Options;
}

void CheckEachHasItsOwn(const std::vector<TOptions>& All) {
    std::set<std::string> names;
    for (const TOptions& options : All) {
        const auto& outputs = options.Outputs;
        std::vector<std::string> own = outputs.Pictures;
        for (const auto& name : {outputs.Results, outputs.SaveOutfit, outputs.CurveData, outputs.Form.Save})
            if (!name.empty() && name != "-") own.push_back(name);
        for (const auto& name : own)
            if (!names.insert(name).second)
                throw TUsageError(
                    "--batch: " + kx::Abridged(name) +
                    " would be written for several tables; {name} in it stands for the table's");
    }
}

} // namespace

int DrawBatch(const TOptions& Options, const std::function<int(const TOptions&)>& Draw) {
    std::vector<TOptions> all;
    for (const auto& table : Tables(Options.Batch)) all.push_back(OptionsFor(table, Options));
    CheckEachHasItsOwn(all);
    TProgress progress(all.size());
    int worst = 0;
    std::size_t failed = 0, next = 0;
    std::vector<TWorker> workers;
    const std::size_t most = std::max(1u, std::thread::hardware_concurrency());
    while (next < all.size() || !workers.empty()) {
        while (next < all.size() && workers.size() < most) {
            workers.emplace_back([&, next] { return Draw(all[next]); });
            ++next;
        }
        const std::size_t done = AwaitOne(workers);
        const auto [status, said] = workers[done].Finish();
        workers.erase(workers.begin() + std::ptrdiff_t(done));
        failed += status != 0;
        worst = std::max(worst, status);
        progress.Step(said);
    }
    progress.End();
    if (failed > 0) Tell(std::to_string(failed) + " of " + std::to_string(all.size()) + " tables failed");
    return worst;
}

} // namespace kxplot
