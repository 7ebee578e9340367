#pragma once
// Colours: $00BBGGRR, or a system colour that the screen resolves.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kx {

/// Blue, green and red in the three lower bytes, red lowest; negative values are system colours.
using TColor = std::int32_t;

inline constexpr TColor clBlack = 0x000000, clMaroon = 0x000080, clGreen = 0x008000, clOlive = 0x008080,
                        clNavy = 0x800000, clPurple = 0x800080, clTeal = 0x808000, clGray = 0x808080,
                        clSilver = 0xC0C0C0, clRed = 0x0000FF, clLime = 0x00FF00, clYellow = 0x00FFFF,
                        clBlue = 0xFF0000, clFuchsia = 0xFF00FF, clAqua = 0xFFFF00, clWhite = 0xFFFFFF;

constexpr TColor SystemColor(int Index) { return static_cast<TColor>(0x80000000u | unsigned(Index)); }
inline constexpr TColor clWindow = SystemColor(5), clWindowText = SystemColor(8),
                        clHighlight = SystemColor(13), clHighlightText = SystemColor(14),
                        clBtnFace = SystemColor(15), clBtnShadow = SystemColor(16),
                        clGrayText = SystemColor(17), clBtnText = SystemColor(18),
                        clBtnHighlight = SystemColor(20);

constexpr TColor RGB(int Red, int Green, int Blue) { return Red | (Green << 8) | (Blue << 16); }
constexpr int RedOf(TColor Color) { return Color & 0xFF; }
constexpr int GreenOf(TColor Color) { return (Color >> 8) & 0xFF; }
constexpr int BlueOf(TColor Color) { return (Color >> 16) & 0xFF; }

/// The RGB value of a colour; system colours have fixed, light values. An unknown system colour is black.
TColor ColorToRGB(TColor Color);

/// The name of a colour ("clRed"), or "$00BBGGRR".
std::string ColorToText(TColor Color);
/// A name, $BBGGRR, #RRGGBB or a decimal number; nothing for any other text.
std::optional<TColor> ColorFromText(std::string_view Text);
/// "#rrggbb" of the resolved colour.
std::string ColorToHtml(TColor Color);

} // namespace kx
