#pragma once
// What input methods of Qt say and ask, in the words of the platform. Qt counts UTF-16 units, the platform
// characters.

#include <kxgraph/platform/host/input.h>

#include <QInputMethodEvent>
#include <QString>
#include <QVariant>

namespace kx::qt {

/// How many units so many characters of Text are; all of them where it has no more.
int UnitsOf(const QString& Text, int Characters);

/// Input: what the control that has the focus has told.
TComposition CompositionOf(const QInputMethodEvent& Event, const THostTextInput& Input);
/// The answer to Query; no value where Input has none.
QVariant AnswerOf(const THostTextInput& Input, Qt::InputMethodQuery Query);

} // namespace kx::qt
