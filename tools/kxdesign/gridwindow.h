#pragma once
// Values of vectors, and coefficients of fits, as grids in windows of their own.

#include <kxgraph/design/Kxpropertyplace.h>

#include <QWidget>

namespace kxdesign {

/// Show a window over Parent that applies its grid when it is accepted, and return.
void EditValues(QWidget* Parent, const kx::TKxPropertyPlace& Place);
void EditCoefficients(QWidget* Parent, const kx::TKxPropertyPlace& Place);

} // namespace kxdesign
