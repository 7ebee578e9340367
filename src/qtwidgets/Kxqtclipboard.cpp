#include <kxgraph/qtwidgets/Kxqtclipboard.h>

#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <QByteArray>
#include <QImage>

#include <string>

namespace kx::qt {

namespace {

QByteArray Bytes(const std::string& Text) { return QByteArray(Text.data(), qsizetype(Text.size())); }

} // namespace

std::unique_ptr<QMimeData> MimeOf(const TMetafile& Picture) {
    const TSize size{Picture.GetWidth(), Picture.GetHeight()};
    const auto draw = [&](TCanvasDevice& Device) { Picture.Draw(Device); };
    const QByteArray png = Bytes(PngBytes({.Size = size, .Scale = 2, .Antialias = true}, draw));
    TSvgDevice svg(size);
    draw(svg);
    auto mime = std::make_unique<QMimeData>();
    mime->setData("image/png", png);
    mime->setImageData(QImage::fromData(png, "PNG"));
    mime->setData("image/svg+xml", Bytes(svg.Document()));
    mime->setData("application/pdf", Bytes(PdfBytes({.Size = size}, draw)));
    return mime;
}

} // namespace kx::qt
