#pragma once
// The form in the middle of the window, as large as it is, with bars to scroll by.

#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/qtwidgets/Kxformview.h>

#include <QScrollArea>

namespace kxdesign {

/// Has the size that the form has, at once.
class TDesignView : public kx::qt::FormView {
public:
    using FormView::FormView;
    void PlaceBy(const kx::TRect& Bounds) override;
    /// Shows Form without changing its bounds.
    void ShowForm(kx::TForm& Form);

protected:
    void resizeEvent(QResizeEvent* Event) override;
};

/// The document must outlive this.
class TFormArea : public QScrollArea, private kx::TKxDesignObserver {
public:
    explicit TFormArea(kx::TKxDesignDocument& Document, QWidget* Parent = nullptr);
    ~TFormArea() override;
    TDesignView& GetView() const { return *FView; }

private:
    void FormReplaced() override;

    kx::TKxDesignDocument& FDocument;
    TDesignView* FView;
};

} // namespace kxdesign
