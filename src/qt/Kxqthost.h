#pragma once
// The host that measures with real fonts. It opens no windows of its own: windows, timers and clipboard are
// those of the headless host, so that frames can be painted into pictures.

#include <kxgraph/platform/host/headlesshost.h>

namespace kx::qt {

/// Needs a QGuiApplication.
class TQtHost : public THeadlessHost {
public:
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
    double ExactTextWidth(const TFontFace& Face, std::string_view Text) const override;
};

/// Raises Exception "... call kx::qt::Install() first" while the application is on another host: Qt's fonts
/// need its application, and what another host has measured does not fit them.
void DemandInstalled();

} // namespace kx::qt
