#include <kxgraph/qt/Kxqtpalette.h>

#include <QList>

#include <cstring>
#include <span>
#include <unordered_map>

namespace kx::qt {

namespace {

constexpr std::size_t CMostColors = 256;

/// Numbers colours as they come.
class TPalette {
public:
    /// The number of Color, CMostColors when there is none left. Neighbours are mostly of one colour.
    std::size_t Number(QRgb Color) {
        if (!FNumbers.empty() && Color == FLast) return FLastNumber;
        const auto found = FNumbers.find(Color);
        if (found == FNumbers.end() && FNumbers.size() == CMostColors) return CMostColors;
        FLast = Color;
        FLastNumber = found != FNumbers.end() ? found->second : Added(Color);
        return FLastNumber;
    }
    const QList<QRgb>& Colors() const { return FColors; }

private:
    std::size_t Added(QRgb Color) {
        FColors.append(Color);
        return FNumbers.emplace(Color, FNumbers.size()).first->second;
    }
    std::unordered_map<QRgb, std::size_t> FNumbers;
    QList<QRgb> FColors;
    QRgb FLast = 0;
    std::size_t FLastNumber = 0;
};

QList<QRgb> Unpremultiplied(QList<QRgb> Colors) {
    for (QRgb& color : Colors) color = qUnpremultiply(color);
    return Colors;
}

} // namespace

std::optional<QImage> WithPalette(const QImage& Picture) {
    QImage result(Picture.size(), QImage::Format_Indexed8);
    if (result.isNull()) return std::nullopt;
    TPalette palette;
    const QRgb ignored = Picture.hasAlphaChannel() ? 0 : ~RGB_MASK; // of an opaque picture the last byte
    const auto width = std::size_t(Picture.width());
    for (int y = 0; y < Picture.height(); ++y) {
        const auto row = std::span(reinterpret_cast<const QRgb*>(Picture.constScanLine(y)), width);
        uchar* to = result.scanLine(y);
        if (y > 0 && std::memcmp(row.data(), Picture.constScanLine(y - 1), row.size_bytes()) == 0) {
            std::memcpy(to, result.constScanLine(y - 1), width);
            continue;
        }
        for (const QRgb color : row) {
            const std::size_t number = palette.Number(color | ignored);
            if (number == CMostColors) return std::nullopt;
            *to++ = uchar(number);
        }
    }
    result.setColorTable(Picture.hasAlphaChannel() ? Unpremultiplied(palette.Colors()) : palette.Colors());
    return result;
}

} // namespace kx::qt
