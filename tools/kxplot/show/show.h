#pragma once
// The picture in a window.

#include "kxplot/fit/fit.h"
#include "kxplot/form/picture.h"
#include "kxplot/options/options.h"
#include "kxplot/show/windowpart.h"

namespace kxplot {

/// The window part where it is asked for, null where it is not. Loads it and puts the library on it. Raises
/// kx::Exception.
const TWindowPart* LoadWindow(const TWindowRequest& Request);

/// Shows the picture until its window is closed.
void Show(const TWindowPart& Window, TPicture& Picture, const TFindings& Found, const TOptions& Options);

} // namespace kxplot
