#pragma once
// Actions of a window, which may raise.

#include <QString>
#include <QWidget>

#include <exception>
#include <string>

namespace kxdesign {

inline QString Shown(const std::string& Text) {
    return QString::fromUtf8(Text.data(), qsizetype(Text.size()));
}
inline std::string Told(const QString& Text) { return Text.toStdString(); }

/// Shows a message over Parent and returns; it is closed by its user.
void ShowFault(QWidget* Parent, const std::string& Message);

/// Runs Action; what it raises is shown. Answers whether it raised nothing.
template <class F>
bool Try(QWidget* Parent, F Action) {
    try {
        Action();
        return true;
    } catch (const std::exception& error) {
        ShowFault(Parent, error.what());
        return false;
    }
}

} // namespace kxdesign
