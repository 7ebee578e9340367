#include "qt/Kxqthost.h"

#include "qt/Kxqtfont.h"

namespace kx::qt {

TSize TQtHost::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return TQtFont::Of(Face).Measure(Text);
}

} // namespace kx::qt
