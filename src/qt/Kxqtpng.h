#pragma once
// PNG files of images.

#include <QImage>

#include <string>

namespace kx::qt {

/// The file of an image of Format_RGB32, Format_ARGB32_Premultiplied or Format_Indexed8 with its resolution;
/// Title (UTF-8) stands in its description, unless it is empty. Raises std::bad_alloc.
std::string EncodePng(const QImage& Image, const std::string& Title);

} // namespace kx::qt
