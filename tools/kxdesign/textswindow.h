#pragma once
// Lists of texts, a line each, in a window of their own.

#include <kxgraph/design/Kxpropertyplace.h>

#include <QWidget>

namespace kxdesign {

/// Shows a window over Parent that sets the property when it is accepted, and returns.
void EditTexts(QWidget* Parent, const kx::TKxPropertyPlace& Place);

} // namespace kxdesign
