#include "kxdesign/pictures.h"

#include <kxgraph/qt/Kxqtdevice.h>

#include <QPainter>

#include <cmath>

namespace kxdesign {

using namespace kx;

QImage Drawn(TSize Size, double Scale, const std::function<void(TCanvas&)>& Draw) {
    QImage picture(int(std::ceil(Size.Width * Scale)), int(std::ceil(Size.Height * Scale)),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    kx::qt::TPainterDevice device(painter, Size, Scale, true);
    TCanvas canvas(&device);
    Draw(canvas);
    painter.end();
    picture.setDevicePixelRatio(Scale);
    return picture;
}

} // namespace kxdesign
