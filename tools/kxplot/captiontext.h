#pragma once
// Captions as texts that are cut, quoted and put together.

#include <kxgraph/annotation/Kxcaption.h>

#include <string>

namespace kxplot {

/// A caption as plain text in one line.
std::string PlainText(const kx::TKxCaption& Caption);
/// A caption with all its markup ended, so that more can follow.
kx::TKxCaption Closed(const kx::TKxCaption& Caption);

} // namespace kxplot
