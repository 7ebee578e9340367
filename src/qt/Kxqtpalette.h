#pragma once
// Pictures of few colours.

#include <QImage>

#include <optional>

namespace kx::qt {

/// The same picture with a byte a pixel and a palette; nothing if it has more than 256 colours. Picture is of
/// Format_RGB32. What else it knows (resolution, texts) stays behind.
std::optional<QImage> WithPalette(const QImage& Picture);

} // namespace kx::qt
