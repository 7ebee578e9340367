#include <kxgraph/qt/Kxqthost.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtfont.h>
#include <kxgraph/qt/Kxqtpages.h>

#include <QFontDatabase>
#include <QStringList>

#include <typeinfo>

namespace kx::qt {

TSize MeasureWithQt(const TFontFace& Face, std::string_view Text) { return TQtFont::Of(Face).Measure(Text); }

double ExactWidthWithQt(const TFontFace& Face, std::string_view Text) {
    return TQtFont::Of(Face).ExactWidth(Text);
}

std::vector<std::string> FamiliesOfQt() {
    std::vector<std::string> families;
    for (const QString& family : QFontDatabase::families())
        if (!QFontDatabase::isPrivateFamily(family)) families.push_back(family.toStdString());
    return families;
}

TQtMeasuring::TQtMeasuring() { UseLargePages(); }

void DemandInstalled() {
    static const std::type_info* known = nullptr; // a cast takes as long as a short text
    const THost& host = TApplication::Instance().GetHost();
    if (known && typeid(host) == *known) return;
    if (dynamic_cast<const TQtMeasuring*>(&host))
        known = &typeid(host);
    else
        throw Exception("Painting with Qt needs its fonts: call kx::qt::Install() first");
}

} // namespace kx::qt
