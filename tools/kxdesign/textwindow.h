#pragma once
// A text to read and to copy, in a window of its own.

#include <kxgraph/design/Kxdesigndocument.h>

#include <QString>
#include <QWidget>

#include <string>

namespace kxdesign {

/// Shows Text and returns; the window goes when it is closed.
void ShowText(QWidget* Parent, const QString& Title, const std::string& Text);
/// A program that makes the form.
std::string CppOf(const kx::TKxDesignDocument& Document);

} // namespace kxdesign
