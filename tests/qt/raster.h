#pragma once
// A small image with a device on it, for tests that look at pixels.

#include "support/testing.h"

#include <kxgraph/qt/Kxqtdevice.h>

#include <QImage>
#include <QPainter>

namespace kx::test {

using TPoints = std::vector<TPoint>;
using TPaint = std::function<void(qt::TPainterDevice&)>;

struct TRasterOptions {
    TSize Size{40, 40};
    double Scale = 1;
    bool Antialias = false;
    bool Reduction = true;
};

/// Paint on a white image.
inline QImage Painted(const TRasterOptions& Options, const TPaint& Paint) {
    QImage image(int(Options.Size.Width * Options.Scale), int(Options.Size.Height * Options.Scale),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    qt::TPainterDevice device(painter, Options.Size, Options.Scale, Options.Antialias);
    device.SetReduction(Options.Reduction);
    Paint(device);
    return image;
}

inline QImage Painted(const TPaint& Paint) { return Painted(TRasterOptions{}, Paint); }

inline bool IsSet(const QImage& Image, int X, int Y) { return (Image.pixel(X, Y) & 0xFFFFFF) != 0xFFFFFF; }

/// All pixels that are not white.
inline std::vector<TPoint> PixelsOf(const QImage& Image) {
    std::vector<TPoint> pixels;
    for (int y = 0; y < Image.height(); ++y)
        for (int x = 0; x < Image.width(); ++x)
            if (IsSet(Image, x, y)) pixels.push_back({x, y});
    return pixels;
}

/// The smallest rectangle around the pixels that are not white.
inline TRect BoundsOf(const QImage& Image) {
    TRect bounds;
    for (const TPoint p : PixelsOf(Image)) bounds = bounds.United({p.X, p.Y, p.X + 1, p.Y + 1});
    return bounds;
}

/// Black '#', white '.', any other colour 'o'; one line a row.
inline std::string Rows(const QImage& Image) {
    std::string rows;
    for (int y = 0; y < Image.height(); ++y) {
        for (int x = 0; x < Image.width(); ++x)
            rows += !IsSet(Image, x, y) ? '.' : (Image.pixel(x, y) & 0xFFFFFF) == 0 ? '#' : 'o';
        rows += '\n';
    }
    return rows;
}

inline constexpr TStroke CThin{}, CNoStroke{clBlack, 0, psClear};
inline constexpr TFill CRed{clRed}, CNoFill{clRed, bsClear};

} // namespace kx::test
