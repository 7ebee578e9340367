#pragma once
// Menus of the platform as menus of Qt.

#include <kxgraph/platform/host/hostmenu.h>

#include <QPoint>
#include <QWidget>

namespace kx::qt {

/// Shows Menu at a point of Parent, which owns it until it is closed, and returns.
void PopUp(const THostMenu& Menu, QWidget& Parent, const QPoint& Pos);

} // namespace kx::qt
