#include "kxplot/fit/resultsjson.h"

#include <kxgraph/platform/text/text.h>

#include <charconv>
#include <cmath>
#include <sstream>
#include <string_view>

namespace kxplot {

namespace {

std::string Text(std::string_view Value) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : kx::ToValidUtf8(Value)) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            text.append(1, '\\').append(1, c);
        else if (code < 0x20)
            text.append("\\u00").append(1, digits[code / 16]).append(1, digits[code % 16]);
        else
            text += c;
    }
    return text + '"';
}

/// A number as JSON writes it; nothing for any other text.
std::string Number(std::string_view Value) {
    double number = 0;
    const auto [end, error] = std::from_chars(Value.data(), Value.data() + Value.size(), number);
    if (error != std::errc() || end != Value.data() + Value.size() || !std::isfinite(number)) return {};
    char digits[32];
    return {digits, std::to_chars(digits, std::end(digits), number).ptr};
}

std::string Shown(std::string_view Value) {
    const std::string number = Number(Value);
    return number.empty() ? Text(Value) : number;
}

} // namespace

std::string ResultsAsJson(const std::string& Ini) {
    std::istringstream lines(Ini);
    std::string json;
    bool hasValues = false; // the section that is open
    const auto endSection = [&] {
        if (!json.empty()) json += hasValues ? "\n  }" : "}";
        hasValues = false;
    };
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            endSection();
            json += (json.empty() ? "\n  " : ",\n  ") +
                    Text(std::string_view(line).substr(1, line.size() - 2)) + ": {";
        } else if (equals != line.npos && !json.empty()) {
            const std::string_view view(line);
            json += (hasValues ? ",\n    " : "\n    ") + Text(view.substr(0, equals)) + ": " +
                    Shown(view.substr(equals + 1));
            hasValues = true;
        }
    }
    endSection();
    return "{" + json + (json.empty() ? "}\n" : "\n}\n");
}

} // namespace kxplot
