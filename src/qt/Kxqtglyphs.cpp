#include <kxgraph/qt/Kxqtglyphs.h>

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>

#include <utility>

namespace kx::qt {

namespace {

TShape ShapeOf(const QString& Text, const QFont& Font) {
    TShape shape;
    shape.Width = QFontMetricsF(Font).horizontalAdvance(Text);
    QTextLayout layout(Text, Font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid()) return shape;
    const QPointF baseline(0, line.y() + line.ascent());
    for (const QGlyphRun& glyphs : layout.glyphRuns()) {
        const auto indexes = glyphs.glyphIndexes();
        TShape::TRun run{glyphs.rawFont(), {indexes.begin(), indexes.end()}, {}};
        for (const QPointF& place : glyphs.positions()) run.Places.push_back(place - baseline);
        shape.Runs.push_back(std::move(run));
    }
    return shape;
}

} // namespace

const TShape& TShapes::Of(std::string_view Text) {
    constexpr std::size_t CMost = 4096; // they are few unless someone shows ever new texts
    if (const auto known = FShapes.find(Text); known != FShapes.end()) return known->second;
    if (FShapes.size() >= CMost) FShapes.clear();
    return FShapes.emplace(Text, ShapeOf(FReader(Text), FFont)).first->second;
}

void TGlyphLine::Add(const TShape& Shape, double X) {
    for (const TShape::TRun& run : Shape.Runs) {
        if (FRuns.empty() || FRuns.back().Font != run.Font) FRuns.push_back({run.Font, {}, {}});
        TShape::TRun& last = FRuns.back();
        last.Glyphs.insert(last.Glyphs.end(), run.Glyphs.begin(), run.Glyphs.end());
        for (const QPointF& place : run.Places) last.Places.push_back(place + QPointF(X, 0));
    }
}

void TGlyphLine::Paint(QPainter& Painter, QPointF Baseline) const {
    for (const TShape::TRun& run : FRuns) {
        QGlyphRun glyphs;
        glyphs.setRawFont(run.Font);
        glyphs.setRawData(run.Glyphs.data(), run.Places.data(), int(run.Glyphs.size()));
        Painter.drawGlyphRun(Baseline, glyphs);
    }
}

} // namespace kx::qt
