#include <kxgraph/qt/Kxqtpicture.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqthost.h>
#include <kxgraph/qt/Kxqtpalette.h>
#include <kxgraph/qt/Kxqtpng.h>
#include <kxgraph/qt/Kxqtvectors.h>

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>

#include <cmath>

namespace kx::qt {

namespace {

constexpr double CPointsPerPixel = 72.0 / TFont::CPixelsPerInch,
                 CPixelsPerMetre = TFont::CPixelsPerInch / 0.0254;
constexpr double CLargestImage = 32767; // the raster painter counts pixels in 16 bits

class EPictureError : public Exception {
    using Exception::Exception;
};

[[noreturn]] void RaiseSize(double Width, double Height, const char* Trouble) {
    throw EPictureError("a picture of " + std::to_string(std::llround(Width)) + " x " +
                        std::to_string(std::llround(Height)) + " pixels is " + Trouble);
}

QString Text(const std::string& Utf8) { return QString::fromStdString(ToValidUtf8(Utf8)); }

QImage ImageFor(const TPictureOptions& Options) {
    const double width = std::round(Options.WholeWidth() * Options.Scale),
                 height = std::round(Options.WholeHeight() * Options.Scale);
    if (!(width >= 1 && height >= 1)) RaiseSize(width, height, "empty");
    if (width > CLargestImage || height > CLargestImage) RaiseSize(width, height, "too large");
    QImage image(int(width), int(height),
                 Options.Ground ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) RaiseSize(width, height, "too large");
    image.fill(Options.Ground ? QColor(Qt::white) : QColor(Qt::transparent));
    return image;
}

void PaintPicture(QPaintDevice& Target, const TPictureOptions& Options, double Scale,
                  const TPaintPicture& Paint) {
    DemandInstalled();
    QPainter painter;
    if (!painter.begin(&Target)) throw EPictureError("the picture cannot be painted");
    if (Options.Ground) {
        const TColor ground = ColorToRGB(*Options.Ground);
        painter.fillRect(
            QRectF(0, 0, std::ceil(Options.WholeWidth() * Scale), std::ceil(Options.WholeHeight() * Scale)),
            QColor(RedOf(ground), GreenOf(ground), BlueOf(ground)));
    }
    TPainterDevice device(painter, Options.Size, Scale, Options.Antialias);
    Paint(device);
}

/// The time of writing would make equal pictures differ. Blanks keep every offset in the file valid.
void BlankCreationDate(QByteArray& Pdf) {
    const auto begin = Pdf.indexOf("/CreationDate (D:");
    const auto end = begin < 0 ? -1 : Pdf.indexOf(')', begin);
    if (end > begin) Pdf.replace(begin, end + 1 - begin, QByteArray(end + 1 - begin, ' '));
}

template <class F>
void WriteBytes(const std::string& FileName, F Bytes) {
    std::string bytes;
    try {
        bytes = Bytes();
    } catch (const EPictureError& error) {
        throw EFileError(Escaped(FileName) + ": " + error.what());
    }
    ReplaceFile(FileName, bytes);
}

} // namespace

std::string PngBytes(const TPictureOptions& Options, const TPaintPicture& Paint) {
    const TVectorsCleared afterwards;
    QImage image = ImageFor(Options);
    PaintPicture(image, Options, Options.Scale, Paint);
    if (const auto few = WithPalette(image)) image = *few; // written in a sixth of the time
    image.setDotsPerMeterX(int(std::lround(CPixelsPerMetre * Options.Scale)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    return EncodePng(image, ToValidUtf8(Options.Title));
}

std::string PdfBytes(const TPictureOptions& Options, const TPaintPicture& Paint) {
    const TVectorsCleared afterwards;
    const TSize size = Options.Size;
    if (size.Width < 1 || size.Height < 1) RaiseSize(size.Width, size.Height, "empty");
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(TFont::CPixelsPerInch);
        writer.setPageSize(QPageSize(QSizeF(Options.WholeWidth(), Options.WholeHeight()) * CPointsPerPixel,
                                     QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setTitle(Text(Options.Title));
        writer.setCreator("kxgraph");
        PaintPicture(writer, Options, 1, Paint);
    }
    QByteArray bytes = buffer.data();
    BlankCreationDate(bytes);
    return bytes.toStdString();
}

void WritePng(const std::string& FileName, const TPictureOptions& Options, const TPaintPicture& Paint) {
    WriteBytes(FileName, [&] { return PngBytes(Options, Paint); });
}

void WritePdf(const std::string& FileName, const TPictureOptions& Options, const TPaintPicture& Paint) {
    WriteBytes(FileName, [&] { return PdfBytes(Options, Paint); });
}

} // namespace kx::qt
