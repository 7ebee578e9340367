#pragma once
// The components that there are, on their pages.

#include <kxgraph/design/Kxpalette.h>

#include <QTabWidget>

#include <functional>
#include <string>

class QListWidgetItem;

namespace kxdesign {

class TPalette : public QTabWidget {
public:
    explicit TPalette(QWidget* Parent = nullptr);

    /// A class was chosen for the next press on the form; empty: none. A double click makes one at once.
    std::function<void(const std::string&)> OnChoose, OnMake;
    /// Shows what is chosen, without calling.
    void ShowChosen(const std::string& ClassName);
    /// Chooses a class as its user does.
    void Choose(const std::string& ClassName);

private:
    void AddPage(const kx::TKxPalettePage& Page);
};

} // namespace kxdesign
