#include "qt/Kxqthost.h"

#include "platform/application.h"
#include "platform/exceptions.h"
#include "qt/Kxqtfont.h"

namespace kx::qt {

TSize TQtHost::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return TQtFont::Of(Face).Measure(Text);
}

void DemandInstalled() {
    if (!dynamic_cast<const TQtHost*>(&TApplication::Instance().GetHost()))
        throw Exception("Painting with Qt needs its fonts: call kx::qt::Install() first");
}

} // namespace kx::qt
