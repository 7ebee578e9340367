#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/text/text.h>

#include <array>

namespace kx {

namespace {

constexpr std::array<std::string_view, 7> CPenStyles{"solid",      "dash",  "dot",        "dashdot",
                                                     "dashdotdot", "clear", "insideframe"};
constexpr std::array<std::string_view, 8> CBrushStyles{"solid",     "clear",     "horizontal", "vertical",
                                                       "fdiagonal", "bdiagonal", "cross",      "diagcross"};
constexpr std::array<std::string_view, 3> CPitches{"", " variable", " fixed"};

/// Text in quotes, on one line whatever is in it.
std::string Quoted(std::string_view Text) {
    std::string quoted = "\"";
    for (std::size_t i = 0; i < Text.size();) {
        const auto length = static_cast<std::size_t>(DecodeAt(Text, i).Length);
        if (Text[i] == '"' || Text[i] == '\\')
            quoted.append({'\\', Text[i]});
        else
            quoted += Escaped(Text.substr(i, length));
        i += length;
    }
    return quoted + '"';
}

std::string StyleLetters(TFontStyles Style) {
    std::string letters;
    if (Style & fsBold) letters += 'b';
    if (Style & fsItalic) letters += 'i';
    if (Style & fsUnderline) letters += 'u';
    if (Style & fsStrikeOut) letters += 's';
    return letters.empty() ? "-" : letters;
}

/// Writes recorded calls, one line each; the picture of a stamp follows its line, indented.
class TLister {
public:
    TLister(std::string& Text, std::string Indent) : FText(Text), FIndent(std::move(Indent)) {}

    void List(const TRecording& Recording) {
        for (const TRecording::TCall& call : Recording.Calls) {
            FText += FIndent;
            std::visit(*this, call);
        }
    }

    void operator()(const TRecording::TPolyline& C) { Begin("polyline").Add(C.Points).Add(C.Stroke).End(); }
    void operator()(const TRecording::TPolygon& C) {
        Begin("polygon").Add(C.Points).Add(C.Stroke).Add(C.Fill).End();
    }
    void operator()(const TRecording::TEllipse& C) {
        Begin("ellipse").Add(C.Rect).Add(C.Stroke).Add(C.Fill).End();
    }
    void operator()(const TRecording::TRectangle& C) {
        Begin("rectangle").Add(C.Rect).Add(C.Stroke).Add(C.Fill).End();
    }
    void operator()(const TRecording::TFillRect& C) { Begin("fill").Add(C.Rect).Add(C.Fill).End(); }
    void operator()(const TRecording::TText& C) {
        Begin("text").Add(C.Pos).Word(Quoted(C.Text)).Word(ColorToHtml(C.Color)).Add(C.Face).End();
    }
    void operator()(const TRecording::TClip& C) {
        if (C.Clip)
            Begin("clip").Add(*C.Clip).End();
        else
            Begin("clip").Word("none").End();
    }
    void operator()(const TRecording::TStamps& C) {
        Begin("stamps").Add(C.Places).End();
        TLister(FText, FIndent + "  ").List(*C.One);
    }

private:
    TLister& Begin(std::string_view Call) {
        FText += Call;
        return *this;
    }
    void End() { FText += '\n'; }
    TLister& Word(std::string_view Word) {
        FText += ' ';
        FText += Word;
        return *this;
    }
    TLister& Add(TPoint P) { return Word('(' + std::to_string(P.X) + ',' + std::to_string(P.Y) + ')'); }
    TLister& Add(const std::vector<TPoint>& Points) {
        for (const TPoint p : Points) Add(p);
        return *this;
    }
    TLister& Add(const TRect& R) {
        Add(R.TopLeft());
        FText += '-';
        FText += '(' + std::to_string(R.Right) + ',' + std::to_string(R.Bottom) + ')';
        return *this;
    }
    TLister& Add(const TStroke& S) {
        if (S.Style == psClear) return Word("pen clear");
        Word("pen").Word(ColorToHtml(S.Color)).Word(std::to_string(S.Width)).Word(CPenStyles.at(S.Style));
        return Add(S.Mode);
    }
    TLister& Add(const TFill& F) {
        if (F.Style == bsClear) return Word("brush clear");
        return Word("brush").Word(ColorToHtml(F.Color)).Word(CBrushStyles.at(F.Style)).Add(F.Mode);
    }
    TLister& Add(TPenMode Mode) { return Mode == pmXor ? Word("xor") : *this; }
    TLister& Add(const TFontFace& F) {
        Word("font").Word(Quoted(F.Name)).Word(std::to_string(F.Height)).Word(StyleLetters(F.Style));
        Word(std::to_string(F.Angle));
        FText += CPitches.at(F.Pitch);
        return *this;
    }

    std::string& FText;
    std::string FIndent;
};

} // namespace

std::string TRecording::ToText() const {
    std::string text;
    TLister(text, "").List(*this);
    return text;
}

} // namespace kx
