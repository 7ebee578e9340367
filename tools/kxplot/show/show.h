#pragma once
// The picture in a window.

#include "kxplot/fit/fit.h"
#include "kxplot/form/picture.h"
#include "kxplot/options/options.h"
#include "kxplot/show/windowpart.h"

#include <functional>

namespace kxplot {

/// The window part where it is asked for, null where it is not. Loads it and puts the library on it. Raises
/// kx::Exception.
const TWindowPart* LoadWindow(const TWindowRequest& Request);

/// Shows the picture until its window is closed. Poll, if there is one, is called again and again; false
/// closes the window, too.
void Show(const TWindowPart& Window, TPicture& Picture, const TFindings& Found, const TOptions& Options,
          const std::function<bool()>& Poll = {});

/// The same of a form that was read.
void ShowForm(const TWindowPart& Window, const TParts& Parts, const TOptions& Options);

} // namespace kxplot
