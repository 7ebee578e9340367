#include "kxplot/options/completions.h"

#include <algorithm>
#include <string_view>

namespace kxplot {

namespace {

std::string Joined(const std::vector<std::string>& Words, const char* Between) {
    std::string text;
    for (const auto& word : Words) text += (text.empty() ? "" : Between) + word;
    return text;
}

template <class F>
void ForOptions(const TOptionTable& Table, F Do) {
    for (const TOptionGroup& group : Table)
        for (const TOptionRow& row : group.Rows)
            if (!row.IsArgument()) Do(row);
}

bool TakesFile(const TOptionRow& Row) { return Row.Type.find("FILE") != std::string::npos; }

std::string ForBash(const TOptionTable& Table) {
    std::string names, cases;
    ForOptions(Table, [&](const TOptionRow& Row) {
        names += (names.empty() ? "" : " ") + Joined(Row.Names, " ");
        if (Row.Type.empty() || TakesFile(Row)) return;
        cases += "    " + Joined(Row.Names, "|") + ") COMPREPLY=($(compgen -W '" + Joined(Row.Words(), " ") +
                 "' -- \"$word\")); return ;;\n";
    });
    return "_kxplot() {\n    local word=${COMP_WORDS[COMP_CWORD]}\n    case ${COMP_WORDS[COMP_CWORD-1]} "
           "in\n" +
           cases + "    esac\n    case $word in\n    -*) COMPREPLY=($(compgen -W '" + names +
           "' -- \"$word\")) ;;\n    *) COMPREPLY=($(compgen -f -- \"$word\")) ;;\n    esac\n}\n"
           "complete -o filenames -F _kxplot kxplot\n";
}

/// Text between single quotes; what a shell has between colons and brackets stays text.
std::string Quoted(std::string_view Text, std::string_view Special) {
    std::string quoted;
    for (const char c : Text) {
        if (c == '\'')
            quoted += "'\\''";
        else if (Special.find(c) != Special.npos)
            quoted.append(1, '\\').append(1, c);
        else
            quoted += c;
    }
    return quoted;
}

/// The first sentence, or what stands before the first parenthesis.
std::string Brief(const std::string& Help) {
    return Help.substr(0, std::min({Help.find(". "), Help.find(" ("), Help.find(':'), Help.find(';')}));
}

std::string ForZsh(const TOptionTable& Table) {
    std::string text = "#compdef kxplot\n_arguments -s \\\n";
    ForOptions(Table, [&](const TOptionRow& Row) {
        for (const auto& name : Row.Names) {
            text += "    '*" + name + "[" + Quoted(Brief(Row.Help), "[]:") + "]";
            if (TakesFile(Row))
                text += ":file:_files";
            else if (!Row.Type.empty())
                text += ":value:(" + Joined(Row.Words(), " ") + ")";
            text += "' \\\n";
        }
    });
    return text + "    '*:data:_files'\n";
}

std::string ForFish(const TOptionTable& Table) {
    std::string text;
    ForOptions(Table, [&](const TOptionRow& Row) {
        text += "complete -c kxplot";
        for (const auto& name : Row.Names)
            text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
        if (!Row.Type.empty()) text += TakesFile(Row) ? " -r -F" : " -x";
        if (!Row.Words().empty()) text += " -a '" + Joined(Row.Words(), " ") + "'";
        text += " -d '" + Quoted(Brief(Row.Help), "\\") + "'\n";
    });
    return text;
}

} // namespace

std::string CompletionsFor(const std::string& Shell, const TOptionTable& Table) {
    if (Shell == "bash") return ForBash(Table);
    if (Shell == "zsh") return ForZsh(Table);
    if (Shell == "fish") return ForFish(Table);
    return {};
}

} // namespace kxplot
