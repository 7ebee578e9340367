#pragma once
// Captions as texts that are cut, quoted and put together.

#include <kxgraph/annotation/Kxcaption.h>

#include <string>

namespace kxplot {

/// A caption as plain text in one line.
std::string PlainText(const kx::TKxCaption& Caption);
/// A caption "series: what it is" in plain text, cut before the last colon; without one all of it is head.
struct TCutCaption {
    std::string Head, Tail;
};
TCutCaption CutAtColon(const std::string& Plain);
/// A caption with all its markup ended, so that more can follow.
kx::TKxCaption Closed(const kx::TKxCaption& Caption);

} // namespace kxplot
