#pragma once
// A view of a form as it stands in a window that is being designed.

#include <kxgraph/qtwidgets/Kxformview.h>

#include <QDir>

#include <optional>

namespace kx::qt {

/// In a window of Qt Designer it shows its form, but takes no input: that is Designer's. Elsewhere, in a
/// preview or where a program loads the window, it is a FormView, and says so by its meta-object.
class TDesignedView : public FormView {
public:
    /// WithDesigner: the program is Qt Designer. It has none of the handlers that form files name.
    TDesignedView(QWidget* Parent, bool WithDesigner) : FormView(Parent), FWithDesigner(WithDesigner) {}

protected:
    /// Relative names begin where the file of the designed window lies.
    QString FindFile(const QString& FileName) const override;
    TFormReading Reading() const override { return {.KeepsUnknownEvents = FWithDesigner}; }
    bool event(QEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;

private:
    /// Of the window that is designed; nothing where there is none.
    std::optional<QDir> DesignedIn() const;

    bool FWithDesigner;
};

} // namespace kx::qt
