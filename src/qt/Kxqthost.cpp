#include <kxgraph/qt/Kxqthost.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtfont.h>

namespace kx::qt {

TSize TQtHost::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return TQtFont::Of(Face).Measure(Text);
}

double TQtHost::ExactTextWidth(const TFontFace& Face, std::string_view Text) const {
    return TQtFont::Of(Face).ExactWidth(Text);
}

void DemandInstalled() {
    if (!dynamic_cast<const TQtHost*>(&TApplication::Instance().GetHost()))
        throw Exception("Painting with Qt needs its fonts: call kx::qt::Install() first");
}

} // namespace kx::qt
