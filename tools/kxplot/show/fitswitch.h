#pragma once
// Fits that are hidden and shown again.

#include "kxplot/form/picture.h"

#include <functional>
#include <vector>

namespace kxplot {

/// Curves of analyses, their bands, labels and places in the legend. What was not to be seen stays so.
class TFitSwitch {
public:
    /// Refers to Picture.
    explicit TFitSwitch(TPicture& Picture);
    bool HasAny() const { return !FLines.empty(); }
    void Show(bool Shown);

private:
    TPicture& FPicture;
    std::vector<kx::TKxCalculatedSeries*> FLines;
    std::vector<std::function<void()>> FBack; // what shows all again
    bool FShown = true;
};

} // namespace kxplot
