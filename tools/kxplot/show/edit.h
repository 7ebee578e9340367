#pragma once
// The picture in the hands of kxdesign.

#include <string>

namespace kxplot {

/// Goes on as kxdesign, with the form of a file, or, where that is empty, with a new one that Text describes.
/// Returns never; raises kx::Exception where there is no kxdesign.
[[noreturn]] void GoOnEditing(const std::string& FormFile, const std::string& Text);

} // namespace kxplot
