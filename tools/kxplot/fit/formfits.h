#pragma once
// The fits of a form that was read from a file.

#include "kxplot/form/parts.h"

#include <string>
#include <vector>

namespace kxplot {

struct TFormFindings {
    bool Interrupted = false;
    std::vector<std::string> Failures; ///< why what is computed does not show
};

/// Settles the form and does its fits, each once.
TFormFindings FitForm(TParts& Parts);

} // namespace kxplot
