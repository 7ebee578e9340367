#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/text/text.h>

#include <string>

namespace kx {

namespace {

// The symbol encoding from U+0020 and from U+00A0 on; a character without a symbol stands for itself.
// Extenders of radical signs and arrows are given as the nearest line of the same direction.
constexpr char32_t CFirstLow = 0x20, CFirstHigh = 0xA0;
constexpr std::u16string_view CLow = u" !∀#∃%&∋()∗+,−./"
                                     u"0123456789:;<=>?"
                                     u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟ"
                                     u"ΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                     u"‾αβχδεφγηιϕκλμνο"
                                     u"πθρστυϖωξψζ{|}∼";
constexpr std::u16string_view CHigh = u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓"
                                      u"°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
                                      u"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉"
                                      u"∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                      u"◊⟨®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪"
                                      u"ð⟩∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭";
static_assert(CLow.size() == 0x7F - CFirstLow && CHigh.size() == 0xFF - CFirstHigh);

char32_t SymbolOf(char32_t Character) {
    if (Character >= CFirstHigh && Character - CFirstHigh < CHigh.size())
        return CHigh[Character - CFirstHigh];
    if (Character >= CFirstLow && Character - CFirstLow < CLow.size()) return CLow[Character - CFirstLow];
    return Character;
}

} // namespace

std::string SymbolText(std::string_view Text) {
    std::string symbols;
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint character = DecodeAt(Text, i);
        AppendUtf8(symbols, SymbolOf(character.Value));
        i += static_cast<std::size_t>(character.Length);
    }
    return symbols;
}

} // namespace kx
