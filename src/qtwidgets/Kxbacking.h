#pragma once
// The picture of a window in memory: painted where it is dirty, shown wherever the window asks.

#include <kxgraph/platform/host/host.h>

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QSize>

#include <functional>

namespace kx::qt {

/// An image with a pixel for each one of the screen. All places are logical pixels of the window; at a ratio
/// that is no whole number what stands at values stands at its exact place.
class TBacking {
public:
    bool Antialias = true;

    void Add(const QRect& Rect) { FDirty += Rect; }
    bool IsDirty() const { return !FDirty.isEmpty(); }
    /// Makes room for a window of that size. Answers whether that changes anything; all is dirty then.
    bool Fit(QSize Size, double Ratio);
    /// What is to be painted now: as few rectangles as are worth their while.
    QRegion TakeDirty();
    /// Has Client paint Region, one rectangle after another, as long as there is one.
    void Paint(const QRegion& Region, const std::function<THostClient*()>& Client);
    /// Puts the picture on a painter of the window: pixel for pixel where that has pixels of the same size.
    void Show(QPainter& Painter) const;

private:
    QImage FImage;
    QRegion FDirty;
    QSize FSize;
    double FRatio = 0;
};

} // namespace kx::qt
