#include <kxgraph/qt/Kxqtsmoothstamp.h>

#include <cmath>

namespace kx::qt {

namespace {

/// Color over Ground, both premultiplied.
inline QRgb Over(QRgb Color, QRgb Ground) {
    const unsigned rest = 255 - unsigned(qAlpha(Color));
    const auto mixed = [rest](unsigned From, unsigned To) { return To + (From * rest + 127) / 255; };
    return (mixed(Ground >> 24, Color >> 24) << 24) | (mixed(Ground >> 16 & 255, Color >> 16 & 255) << 16) |
           (mixed(Ground >> 8 & 255, Color >> 8 & 255) << 8) | mixed(Ground & 255, Color & 255);
}

} // namespace

const QImage& TSmoothStamp::At(int PhaseX, int PhaseY) {
    // Not quite on whole pixels: there lines would end as whole pixels have them.
    constexpr double aside = 1.0 / 1024;
    QImage& picture = FPictures[std::size_t(PhaseY) * CPhases + std::size_t(PhaseX)];
    if (!picture.isNull()) return picture;
    const int size = 2 * FReach + 1;
    picture = QImage(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    FPaint(picture,
           QPointF(FReach + double(PhaseX) / CPhases + aside, FReach + double(PhaseY) / CPhases + aside));
    return picture;
}

void TSmoothStamp::Mix(const TPixels& Image, QPointF Place, const TRect& Clip) {
    const double most = FReach + 1.0;
    if (!(Place.x() > Clip.Left - most && Place.x() < Clip.Right + most && Place.y() > Clip.Top - most &&
          Place.y() < Clip.Bottom + most))
        return;
    const int x = int(std::lround(Place.x() * CPhases)), y = int(std::lround(Place.y() * CPhases));
    const int phaseX = ((x % CPhases) + CPhases) % CPhases, phaseY = ((y % CPhases) + CPhases) % CPhases;
    const TPoint corner{(x - phaseX) / CPhases - FReach, (y - phaseY) / CPhases - FReach};
    const QImage& picture = At(phaseX, phaseY);
    const TRect part = TRect::Bounds(corner.X, corner.Y, picture.width(), picture.height()).Intersected(Clip);
    for (int row = part.Top; row < part.Bottom; ++row) {
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(row - corner.Y)) - corner.X;
        QRgb* to = Image.At(0, row);
        for (int column = part.Left; column < part.Right; ++column)
            if (from[column] != 0) to[column] = Over(from[column], to[column]);
    }
}

} // namespace kx::qt
