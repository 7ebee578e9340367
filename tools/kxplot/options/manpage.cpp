#include "kxplot/options/manpage.h"

#include <string_view>

namespace kxplot {

namespace {

/// Text as it stands in a page: no character of it formats.
std::string Plain(std::string_view Text) {
    std::string plain;
    for (const char c : Text) {
        if (c == '\\')
            plain += "\\e";
        else if (c == '-')
            plain += "\\-";
        else if (c == '\'')
            plain += "\\(aq";
        else
            plain += c;
    }
    return plain.starts_with('.') ? "\\&" + plain : plain;
}

std::string Bold(std::string_view Text) { return "\\fB" + Plain(Text) + "\\fR"; }

void AddRow(std::string& Page, const TOptionRow& Row) {
    Page += ".TP\n";
    for (const auto& name : Row.Names) Page += (&name == &Row.Names.front() ? "" : ", ") + Bold(name);
    if (!Row.Type.empty() && !Row.IsArgument()) Page += " \\fI" + Plain(Row.Type) + "\\fR";
    Page += "\n" + Plain(Row.Help) + "\n";
}

} // namespace

std::string ManPage(const std::string& Version, const std::string& Description, const TOptionTable& Table) {
    std::string page = ".TH KXPLOT 1 \"\" \"" + Version +
                       "\"\n.SH NAME\nkxplot \\- draws and analyses a data file\n" +
                       ".SH SYNOPSIS\n.B kxplot\n[\\fIOPTIONS\\fR] \\fIDATA\\fR\n.SH DESCRIPTION\n" +
                       Plain(Description) + "\n.SH OPTIONS\n";
    for (const TOptionGroup& group : Table) {
        page += ".SS " + Plain(group.Title) + "\n";
        for (const TOptionRow& row : group.Rows) AddRow(page, row);
    }
    page += ".SH EXAMPLES\n";
    for (const TExample& example : Examples())
        page += ".TP\n" + Bold(example.Line) + "\n" + Plain(example.Does) + "\n";
    return page +
           ".SH EXIT STATUS\n0 when everything was done, 1 when something failed (it is told on standard "
           "error; what "
           "is there is not changed), 2 for a command line or a table that cannot be understood, 130 after "
           "Ctrl+C.\n";
}

} // namespace kxplot
