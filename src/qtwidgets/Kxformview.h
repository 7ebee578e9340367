#pragma once
// A form as a part of a Qt program: a widget for any layout.

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/streaming/formreading.h>
#include <kxgraph/qtwidgets/Kxclientwidget.h>

#include <QSize>
#include <QString>

#include <memory>

namespace kx::qt {

/// Shows a form: one of the program, which it does not own, or one that it reads from a form file. The
/// widget's size is the form's; a size that the form sets itself is what the layout is asked for. Widget and
/// form may be destroyed in any order; a form that is shown in another view, or in a window of its own,
/// leaves this one empty.
///
/// Before the first view the program calls InstallWidgets and, for form files, RegisterClasses
/// (annotation/Kxclasses.h); it registers the handlers that they name (platform/streaming/events.h).
class FormView : public TClientWidget {
    Q_OBJECT
    Q_PROPERTY(QString formFile READ formFile WRITE setFormFile NOTIFY formFileChanged)
    Q_PROPERTY(QString formError READ formError NOTIFY formFileChanged STORED false)

public:
    explicit FormView(QWidget* Parent = nullptr);
    explicit FormView(TForm& Form, QWidget* Parent = nullptr);
    ~FormView() override;

    /// Null: none. A form that was read from a file goes, and formFile is empty then.
    void setForm(TForm* Form);
    TForm* form() const { return FForm; }
    /// The form file that is shown, as it was set. A relative name is looked for in the working directory,
    /// then beside the program; it may be a resource (":/figure.kxf", "qrc:/figure.kxf"), which holds its
    /// data itself, since tables are no resources, or stand in a search path of QDir. The file is read when
    /// it is set, also to the name that it has. A file that cannot be shown leaves the view without a form,
    /// and it shows formError in its place. An empty name: no form.
    const QString& formFile() const { return FFormFile; }
    void setFormFile(const QString& FileName);
    /// What is wrong with the file; empty when nothing is.
    const QString& formError() const { return FFormError; }
    QSize sizeHint() const override { return FHint; }
    QSize minimumSizeHint() const override;

    void PlaceBy(const TRect& Bounds) override;
    void ShowBy(bool Visible) override;
    bool KeepsTab() const override { return false; }
    void Released() override;
    std::unique_ptr<THostWindow> PopupBy(THostClient& Client, const TRect& Beside) override;

Q_SIGNALS:
    void formFileChanged(const QString& FileName);

protected:
    /// Where a form file of that name is; FileName itself where it is nowhere.
    virtual QString FindFile(const QString& FileName) const;
    /// What reading a form file puts up with.
    virtual TFormReading Reading() const { return {}; }
    bool IsSeen() const override { return FShown && TClientWidget::IsSeen(); }
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;

private:
    void Take(TForm* Form);
    void Drop();
    std::unique_ptr<TForm> Read(const QString& FileName) const;
    void GiveSize();

    TForm* FForm = nullptr;
    TClientWindow* FWindow = nullptr;
    QSize FHint{640, 480};
    bool FShown = false;
    std::unique_ptr<TForm> FRead; // from the file
    QString FFormFile, FFormError;
};

} // namespace kx::qt
