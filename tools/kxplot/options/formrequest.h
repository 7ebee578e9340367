#pragma once
// What is asked of form files.

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kxplot {

struct TFormRequest {
    std::string Save;                    ///< the picture as a form; empty: none
    bool Inline = false;                 ///< its data stand in it
    bool Edit = false;                   ///< it is given to kxdesign
    std::optional<std::string> Describe; ///< of which class the properties are told; empty: of all
};

/// Whether a file is a form rather than a table, by its extension.
bool IsFormFile(const std::string& FileName);

void AddFormOptions(CLI::App& App, TFormRequest& Given);

/// Once App has parsed. Raises TUsageError for --inline without --save-form, for a form beside tables, and
/// for what is given together with a form that only a table can be drawn with.
void CheckForm(const CLI::App& App, const TFormRequest& Given, const std::vector<std::string>& Files);

} // namespace kxplot
