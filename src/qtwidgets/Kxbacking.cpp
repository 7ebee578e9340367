#include <kxgraph/qtwidgets/Kxbacking.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qt/Kxqtdevice.h>

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx::qt {

namespace {

/// The image's own size, rounded as its device rounds the edges of what it paints.
int DeviceLength(int Length, double Ratio) { return std::max(1, int(std::round(Length * Ratio))); }

// Of a pixel of the screen. Nobody sees finer ones in a frame that is gone with the next.
constexpr int CColumnsOnScreen = 8;

double AreaOf(const QRect& Rect) { return double(Rect.width()) * Rect.height(); }

/// Every rectangle is a walk through all controls: many, or such as fill their surroundings, are one.
bool IsWorthItsParts(const QRegion& Region) {
    constexpr int CMostParts = 8;
    constexpr double CFilling = 0.5;
    if (Region.rectCount() > CMostParts) return false;
    double area = 0;
    for (const QRect& rect : Region) area += AreaOf(rect);
    return area < CFilling * AreaOf(Region.boundingRect());
}

bool HasPixelsOf(const QTransform& Transform, double Ratio) {
    constexpr double CSame = 1e-6;
    return Transform.type() <= QTransform::TxScale && std::abs(Transform.m11() - Ratio) < CSame &&
           std::abs(Transform.m22() - Ratio) < CSame;
}

} // namespace

bool TBacking::Fit(QSize Size, double Ratio) {
    if (Size == FSize && Ratio == FRatio) return false;
    FSize = Size;
    FRatio = Ratio;
    FImage =
        QImage(DeviceLength(Size.width(), Ratio), DeviceLength(Size.height(), Ratio), QImage::Format_RGB32);
    FImage.fill(Qt::white);
    FDirty = QRect({}, Size);
    return true;
}

QRegion TBacking::TakeDirty() {
    const QRegion dirty = std::exchange(FDirty, {}).intersected(QRect({}, FSize));
    return IsWorthItsParts(dirty) ? dirty : QRegion(dirty.boundingRect());
}

void TBacking::Paint(const QRegion& Region, const std::function<THostClient*()>& Client) {
    if (FImage.isNull()) return;
    QPainter painter(&FImage);
    TPainterDevice device(painter, {FSize.width(), FSize.height()}, FRatio, Antialias);
    device.SetColumnsPerPixel(int(std::ceil(CColumnsOnScreen * FRatio)));
    for (const QRect& rect : Region) {
        THostClient* client = Client();
        if (!client) return;
        const TRect dirty{rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
        Guarded([&] { client->HostPaint(device, dirty); });
    }
}

void TBacking::Show(QPainter& Painter) const {
    const QTransform given = Painter.deviceTransform();
    if (!HasPixelsOf(given, FRatio)) return Painter.drawImage(QRectF(QPointF(), FSize), FImage);
    // Onto whole pixels, wherever between them the window begins.
    const QTransform whole = QTransform::fromTranslate(std::round(given.dx()), std::round(given.dy()));
    Painter.setWorldTransform(whole * given.inverted() * Painter.worldTransform());
    Painter.drawImage(QPoint(), FImage);
    // Where its edges lie between pixels the window may have one more than the picture.
    const int width = FImage.width(), height = FImage.height();
    Painter.drawImage(QPoint(width, 0), FImage, QRect(width - 1, 0, 1, height));
    Painter.drawImage(QPoint(0, height), FImage, QRect(0, height - 1, width, 1));
}

} // namespace kx::qt
