#pragma once
// Small pictures at very many exact places: the painter takes microseconds for each, this takes its pixels.

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/qt/Kxqtraster.h>

#include <QPointF>

#include <array>
#include <functional>
#include <vector>

namespace kx::qt {

/// One picture, painted once for each sixteenth of a device pixel that it is wanted at.
class TSmoothStamp {
public:
    /// Paints the picture on an empty image with its origin at Origin, device pixels.
    using TPaint = std::function<void(QImage& Picture, QPointF Origin)>;
    /// Reach is how far it goes from its origin, at most, in device pixels.
    TSmoothStamp(int Reach, TPaint Paint) : FReach(Reach), FPaint(std::move(Paint)) {}

    /// Mixes it into Image with its origin at Place (device pixels), inside Clip, which lies in the image.
    void Mix(const TPixels& Image, QPointF Place, const TRect& Clip);

private:
    static constexpr int CPhases = 16; // of a pixel: no place is further off than a thirty-second
    const QImage& At(int PhaseX, int PhaseY);

    int FReach;
    TPaint FPaint;
    std::array<QImage, std::size_t{CPhases} * CPhases> FPictures; // null until wanted
};

} // namespace kx::qt
