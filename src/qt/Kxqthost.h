#pragma once
// The host that measures with real fonts. It opens no windows of its own: windows, timers and clipboard are
// those of the headless host, so that frames can be painted into pictures.

#include "platform/headlesshost.h"

namespace kx::qt {

/// Needs a QGuiApplication.
class TQtHost : public THeadlessHost {
public:
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
};

} // namespace kx::qt
