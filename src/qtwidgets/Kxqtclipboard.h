#pragma once
// Pictures for the desktop's clipboard.

#include <kxgraph/platform/drawing/recording.h>

#include <QMimeData>

#include <memory>

namespace kx::qt {

/// The picture in all the formats that programs take: PNG at twice the size of the screen, SVG, PDF, and the
/// image that Qt's own programs take.
std::unique_ptr<QMimeData> MimeOf(const TMetafile& Picture);

} // namespace kx::qt
