#pragma once
// Pictures in files: PNG and PDF. A file is replaced as a whole or left as it was.

#include <kxgraph/platform/drawing/device.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

namespace kx::qt {

struct TPictureOptions {
    TSize Size;                             ///< logical pixels, 96 per inch
    double Scale = 1;                       ///< pixels of a PNG in one logical pixel
    bool Antialias = false;                 ///< of a PNG; see TPainterDevice
    std::optional<TColor> Ground = clWhite; ///< none: the picture is transparent
    std::string Title = {};                 ///< in the file's description, unless empty
    double Width = 0, Height = 0; ///< of the whole picture in logical pixels, where that is more than Size:
                                  ///< of a page in millimetres the parts of a pixel that are over

    double WholeWidth() const { return std::max<double>(Width, Size.Width); }
    double WholeHeight() const { return std::max<double>(Height, Size.Height); }
};

using TPaintPicture = std::function<void(TCanvasDevice&)>;

/// The bytes of a PNG file. Raises Exception before kx::qt::Install() was called, and when the picture is
/// empty or too large; what Paint raises passes.
std::string PngBytes(const TPictureOptions& Options, const TPaintPicture& Paint);
/// The bytes of a PDF file of one page, with text as text. The same picture gives the same bytes at any time.
std::string PdfBytes(const TPictureOptions& Options, const TPaintPicture& Paint);

/// Write the file. Raise EFileError ("name: reason") when the picture cannot be made or the file not written.
void WritePng(const std::string& FileName, const TPictureOptions& Options, const TPaintPicture& Paint);
void WritePdf(const std::string& FileName, const TPictureOptions& Options, const TPaintPicture& Paint);

} // namespace kx::qt
