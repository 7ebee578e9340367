#include <kxgraph/svg/Kxsvgmarkup.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kx::svg {

namespace {

bool IsShown(char32_t C) {
    if (C < 0x20 || (C >= 0x7F && C < 0xA0)) return false;
    return C != 0xFFFE && C != 0xFFFF;
}

} // namespace

std::string Number(TCoord Hundredths) {
    std::string text = Hundredths < 0 ? "-" : "";
    const TCoord size = std::abs(Hundredths), fraction = size % 100;
    text += std::to_string(size / 100);
    if (fraction == 0) return text;
    text += '.';
    text += static_cast<char>('0' + fraction / 10);
    if (fraction % 10 != 0) text += static_cast<char>('0' + fraction % 10);
    return text;
}

std::string Decimal(double Value) {
    constexpr double most = 1e15; // its hundredths are a TCoord
    return Number(std::isnan(Value) ? 0 : std::llround(std::clamp(Value, -most, most) * 100));
}

std::string ShownText(std::string_view Text) {
    std::string shown;
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint c = DecodeAt(Text, i);
        i += c.Length;
        if (IsShown(c.Value)) AppendUtf8(shown, c.Value);
    }
    return shown;
}

std::string EscapedXml(std::string_view Text) {
    std::string escaped;
    for (char c : ShownText(Text)) {
        switch (c) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '"': escaped += "&quot;"; break;
        default: escaped += c;
        }
    }
    return escaped;
}

std::string Attribute(std::string_view Name, std::string_view Value) {
    std::string text = " ";
    text.append(Name).append("=\"").append(Value).append("\"");
    return text;
}

void TPathData::MoveTo(TSvgPoint P) {
    FData += 'M';
    AppendPair(P.X, P.Y);
    FAt = P;
}

void TPathData::LineTo(TSvgPoint P) {
    const TCoord dx = P.X - FAt.X, dy = P.Y - FAt.Y;
    if (dy == 0) {
        FData.append("h").append(Number(dx));
    } else if (dx == 0) {
        FData.append("v").append(Number(dy));
    } else {
        FData += 'l';
        AppendPair(dx, dy);
    }
    FAt = P;
}

void TPathData::AppendPair(TCoord X, TCoord Y) {
    FData += Number(X);
    if (Y >= 0) FData += ' ';
    FData += Number(Y);
}

} // namespace kx::svg
