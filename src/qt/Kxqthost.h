#pragma once
// Hosts that measure with real fonts.

#include <kxgraph/platform/host/fontfamilies.h>
#include <kxgraph/platform/host/headlesshost.h>

namespace kx::qt {

/// How large texts are in Qt's fonts. Needs a QGuiApplication.
TSize MeasureWithQt(const TFontFace& Face, std::string_view Text);
double ExactWidthWithQt(const TFontFace& Face, std::string_view Text);
/// The families that are installed, but for those that are no one's to choose.
std::vector<std::string> FamiliesOfQt();

/// What hosts have in common that measure with Qt's fonts. With the first one large arrays get large pages.
class TQtMeasuring {
protected:
    TQtMeasuring();
    virtual ~TQtMeasuring() = default;
};

/// A host of kind T, measured with Qt's fonts.
template <class T>
class TQtMeasured : public T, public TQtMeasuring, public TFontFamilies {
public:
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override {
        return MeasureWithQt(Face, Text);
    }
    double ExactTextWidth(const TFontFace& Face, std::string_view Text) const override {
        return ExactWidthWithQt(Face, Text);
    }
    std::vector<std::string> FontFamilies() const override { return FamiliesOfQt(); }
};

/// The host for pictures: it opens no windows of its own, but has those, the timers and the clipboard of the
/// headless host, so that frames can be painted.
using TQtHost = TQtMeasured<THeadlessHost>;

/// Raises Exception "... call kx::qt::Install() first" while the application is on another host: Qt's fonts
/// need its application, and what another host has measured does not fit them.
void DemandInstalled();

} // namespace kx::qt
