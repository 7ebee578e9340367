#pragma once
// PNG files of images.

#include <QImage>

#include <string>

namespace kx::qt {

/// The file of an image of Format_RGB32, Format_ARGB32_Premultiplied or Format_Indexed8 with its resolution;
/// Title (UTF-8) stands in its description, unless it is empty. Plots are flat: rows are written without
/// prediction, which costs most of the time that a general writer takes. Raises std::bad_alloc.
std::string EncodePng(const QImage& Image, const std::string& Title);

} // namespace kx::qt
