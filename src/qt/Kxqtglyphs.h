#pragma once
// Texts as the glyphs that show them. To shape a text takes the painter far longer than to paint it, and the
// numbers along an axis consist of the same few characters frame after frame.

#include <QFont>
#include <QPainter>
#include <QPointF>
#include <QRawFont>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kx::qt {

/// The glyphs of a piece of text, relative to the left end of its baseline.
struct TShape {
    struct TRun {
        QRawFont Font;
        std::vector<quint32> Glyphs;
        std::vector<QPointF> Places;
    };
    std::vector<TRun> Runs; ///< one unless other fonts stand in
    double Width = 0;
};

/// Shapes pieces of text in one font, each when it is first asked for. Must go before the application object.
class TShapes {
public:
    /// Reader tells the characters to show of a text in UTF-8.
    using TReader = std::function<QString(std::string_view)>;
    TShapes(const QFont& Font, TReader Reader) : FFont(Font), FReader(std::move(Reader)) {}

    const QFont& Font() const { return FFont; }
    /// Stays until the next call.
    const TShape& Of(std::string_view Text);

private:
    struct THash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    QFont FFont;
    TReader FReader;
    std::unordered_map<std::string, TShape, THash, std::equal_to<>> FShapes;
};

/// Pieces along a line that are painted together.
class TGlyphLine {
public:
    /// X is that of the left end of the piece.
    void Add(const TShape& Shape, double X);
    /// With the pen's colour; Baseline is where X is 0.
    void Paint(QPainter& Painter, QPointF Baseline) const;

private:
    std::vector<TShape::TRun> FRuns;
};

} // namespace kx::qt
