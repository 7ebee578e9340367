#include "kxplot/options/optiontable.h"

#include <algorithm>
#include <cctype>

namespace kxplot {

namespace {

TOptionRow RowOf(const CLI::Option& Option) {
    TOptionRow row;
    for (const auto& name : Option.get_snames()) row.Names.push_back("-" + name);
    for (const auto& name : Option.get_lnames()) row.Names.push_back("--" + name);
    if (row.Names.empty()) row.Names.push_back(Option.get_name(true));
    if (Option.get_items_expected_max() > 0) row.Type = Option.get_type_name();
    row.Help = Option.get_description();
    return row;
}

} // namespace

std::string TOptionRow::Usage() const {
    if (IsArgument()) return Names.front();
    std::string text;
    for (const auto& name : Names) text += (text.empty() ? "" : ", ") + name;
    return Type.empty() ? text : text + " " + Type;
}

std::vector<std::string> TOptionRow::Words() const {
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin <= Type.size();) {
        const std::size_t end = std::min(Type.find('|', begin), Type.size());
        const std::string word = Type.substr(begin, end - begin);
        const auto isPlain = [](unsigned char C) { return std::islower(C) || std::isdigit(C) || C == '-'; };
        if (!word.empty() && std::all_of(word.begin(), word.end(), isPlain)) words.push_back(word);
        begin = end + 1;
    }
    return words;
}

TOptionTable TableOf(const CLI::App& App) {
    TOptionTable table;
    for (const CLI::Option* option : App.get_options()) {
        const std::string& title = option->get_group();
        auto group = std::find_if(table.begin(), table.end(),
                                  [&](const TOptionGroup& Group) { return Group.Title == title; });
        if (group == table.end()) group = table.insert(table.end(), {title, {}});
        group->Rows.push_back(RowOf(*option));
    }
    return table;
}

const std::vector<TExample>& Examples() {
    static const std::vector<TExample> examples{
        {"kxplot data.csv", "draws every numeric column against the first one, into data.png"},
        {"kxplot data.csv -x t -y u --dy sigma -o u.pdf --size 85mmx60mm",
         "one column with error bars, as a figure of a journal's column"},
        {"kxplot data.csv --fit line --label Slope:3+- --results fit.ini",
         "a straight line through the points, its slope in the picture, all that it found in a file"},
        {"kxplot decay.csv --fit 'a*exp(-b*x)+c' --start a=1,b=0.5,c=0 --log-y",
         "a formula of your own, its coefficients found from a start near them"},
        {"kxplot data.csv --hist 30", "how often each value occurs"},
        {"kxplot data.csv --curve akima --derivative",
         "a smooth curve through the points and how steep it is"},
        {"kxplot --db sqlite:lab.db --query 'select t, u from run'", "the records of a database"},
        {"ssh lab cat log.txt | kxplot - --style line -o log.svg", "what another program writes"},
    };
    return examples;
}

} // namespace kxplot
