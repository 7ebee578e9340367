#include <kxgraph/qt/Kxqtfont.h>

#include <kxgraph/platform/text/text.h>

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetricsF>

#include <cmath>
#include <initializer_list>
#include <map>
#include <memory>
#include <utility>

namespace kx::qt {

namespace {

using TFontCache = std::unordered_map<std::string, std::unique_ptr<TQtFont>>;
std::unique_ptr<TFontCache> FontCache;
using TFamilies = std::map<std::pair<std::string, TFontPitch>, QString>;
TFamilies Families; // a look among the installed ones takes longer than the rest of a small picture
TFontFace LastFace;
TQtFont* LastFont = nullptr;

/// Fonts must not outlive the application object.
void DropFonts() {
    LastFont = nullptr;
    FontCache.reset();
    Families.clear();
}

bool NameHas(const std::string& Name, std::initializer_list<const char*> Parts) {
    const std::string upper = UpperCase(Name);
    for (const char* part : Parts)
        if (upper.find(part) != std::string::npos) return true;
    return false;
}

std::initializer_list<const char*> StandInsFor(const std::string& Name, TFontPitch Pitch) {
    static const auto mono = {"Liberation Mono", "DejaVu Sans Mono", "Courier New"};
    static const auto serif = {"Liberation Serif", "DejaVu Serif", "Times New Roman"};
    static const auto sans = {"Liberation Sans", "DejaVu Sans", "Arial"};
    if (Pitch == fpFixed || NameHas(Name, {"COURIER", "MONO", "CONSOLE", "CONSOLAS", "FIXED", "TYPEWRITER"}))
        return mono;
    if (NameHas(Name, {"SANS"})) return sans;
    if (NameHas(Name, {"TIMES", "SERIF", "ROMAN", "GEORGIA", "GARAMOND", "CAMBRIA", "PALATINO", "BOOK"}))
        return serif;
    return sans;
}

QString FamilyOf(const TFontFace& Face) {
    const std::pair key(Face.Name, Face.Pitch);
    if (const auto known = Families.find(key); known != Families.end()) return known->second;
    return Families.emplace(key, InstalledFamily(Face.Name, Face.Pitch)).first->second;
}

QFont FontOf(const TFontFace& Face) {
    QFont font(FamilyOf(Face));
    font.setBold((Face.Style & fsBold) != 0);
    font.setItalic((Face.Style & fsItalic) != 0);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

int AscentOf(const QFontMetricsF& Metrics) { return int(std::ceil(Metrics.ascent())); }
int CellHeightOf(const QFontMetricsF& Metrics) {
    return AscentOf(Metrics) + int(std::ceil(Metrics.descent()));
}

/// The largest em square whose cell is not higher than Height.
int EmOfCell(QFont Font, int Height) {
    for (int em = Height; em > 1; --em) {
        Font.setPixelSize(em);
        if (CellHeightOf(QFontMetricsF(Font)) <= Height) return em;
    }
    return 1;
}

QFont SizedFontOf(const TFontFace& Face) {
    constexpr int largest = 2000;
    QFont font = FontOf(Face);
    const int height = std::clamp(Face.Height, -largest, largest);
    font.setPixelSize(std::max(1, height > 0 ? EmOfCell(font, height) : -height));
    return font;
}

QFont Unhinted(QFont Font) {
    Font.setHintingPreference(QFont::PreferNoHinting);
    return Font;
}

} // namespace

QString InstalledFamily(const std::string& Name, TFontPitch Pitch) {
    QString asked = QString::fromStdString(ToValidUtf8(Name));
    if (QFontDatabase::hasFamily(asked)) return asked;
    for (const char* family : StandInsFor(Name, Pitch)) {
        QString name = QString::fromLatin1(family);
        if (QFontDatabase::hasFamily(name)) return name;
    }
    return asked;
}

TQtFont& TQtFont::Of(const TFontFace& Face) {
    TFontFace face = Face;
    face.Angle = 0;
    face.Style &= fsBold | fsItalic;
    if (LastFont && face == LastFace) return *LastFont;
    if (!FontCache) {
        FontCache = std::make_unique<TFontCache>();
        qAddPostRoutine(DropFonts);
    }
    const std::string key = face.Name + '\n' + std::to_string(face.Height) + ' ' +
                            std::to_string(face.Style) + ' ' + std::to_string(face.Pitch);
    auto& entry = (*FontCache)[key];
    if (!entry) entry = std::make_unique<TQtFont>(face);
    LastFace = face;
    LastFont = entry.get();
    return *entry;
}

TQtFont::TQtFont(const TFontFace& Face)
    : FFont(SizedFontOf(Face)), FScaled(ShapesIn(FFont)), FExact(ShapesIn(Unhinted(FFont))) {
    const QFontMetricsF metrics(FFont);
    FAscent = AscentOf(metrics);
    FCellHeight = CellHeightOf(metrics);
    const double thickness = std::max(1.0, std::round(metrics.lineWidth()));
    FUnderline = {FAscent + std::max(1.0, std::round(metrics.underlinePos())) + thickness / 2, thickness};
    FStrikeOut = {FAscent - std::round(metrics.strikeOutPos()) + thickness / 2, thickness};
    FAscii.fill(-1);
}

char32_t TQtFont::Shown(char32_t Character) const {
    static constexpr std::pair<char32_t, char32_t> variants[] = {
        {U'\u03D1', U'\u03B8'}, {U'\u03D2', U'\u03A5'}, {U'\u03D5', U'\u03C6'}, {U'\u03D6', U'\u03C0'}};
    for (const auto& [variant, letter] : variants)
        if (Character == variant) return QFontMetricsF(FFont).inFontUcs4(variant) ? variant : letter;
    return Character;
}

QString TQtFont::Shown(std::string_view Text) const {
    QString shown;
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint character = DecodeAt(Text, i);
        const char32_t one = Shown(character.Value);
        shown += QString::fromUcs4(&one, 1);
        i += std::size_t(character.Length);
    }
    return shown;
}

int TQtFont::Advance(char32_t Character) {
    const bool ascii = Character < FAscii.size();
    int& advance = ascii ? FAscii[Character] : FAdvances.try_emplace(Character, -1).first->second;
    if (advance < 0) {
        const QFontMetricsF metrics(FFont);
        const char32_t shown = Shown(Character);
        advance = QChar::isMark(Character)
                      ? 0
                      : int(std::lround(metrics.horizontalAdvance(QString::fromUcs4(&shown, 1))));
    }
    return advance;
}

TSize TQtFont::Measure(std::string_view Text) {
    TSize size{0, FCellHeight};
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint character = DecodeAt(Text, i);
        size.Width += Advance(character.Value);
        i += std::size_t(character.Length);
    }
    return size;
}

TShapes TQtFont::ShapesIn(const QFont& Font) const {
    return {Font, [this](std::string_view Text) { return Shown(Text); }};
}

// No font joins such characters to others, once there is no kerning.
bool TQtFont::IsNumber(std::string_view Text) {
    return Text.find_first_not_of("0123456789.,+-Ee ") == std::string_view::npos;
}

double TQtFont::ExactWidth(std::string_view Text) {
    return ForExactPieces(Text, [](const TShape&, double) {});
}

TShapes& TQtFont::At(double Scale) {
    if (Scale != FScale) {
        QFont font = FFont;
        font.setPixelSize(std::max(1, int(std::lround(FFont.pixelSize() * Scale))));
        FScaled = ShapesIn(font);
        FScale = Scale;
    }
    return FScaled;
}

} // namespace kx::qt
