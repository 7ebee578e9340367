#pragma once
// The window around a picture: menu and tool bar.

#include "kxplot/show/windowpart.h"

#include <kxgraph/qtwidgets/Kxformview.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QString>
#include <QToolBar>

#include <functional>

namespace kxplot {

class TMainWindow : public QMainWindow {
public:
    /// Picture must outlive the window.
    explicit TMainWindow(const TShownPicture& Picture);

private:
    class TView;
    QAction* Add(QMenu& Menu, QToolBar* Bar, const QString& Text, const QKeySequence& Keys,
                 std::function<void()> Act);
    void MakeMenus();
    void MakeFitsAction(QMenu& Menu, QToolBar& Bar);
    void SaveAs(const QString& Title, const QString& Filters, const QString& Suffix,
                const std::function<void(const std::string&)>& Write);
    void SavePicture(const char* Suffix);
    /// Runs what a menu asks for; what it raises is shown.
    void Try(const std::function<void()>& Act);

    const TShownPicture& FPicture;
    TView* FView;
};

} // namespace kxplot
