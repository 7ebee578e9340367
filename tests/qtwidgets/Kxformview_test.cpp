#include <kxgraph/qtwidgets/Kxformview.h>

#include "qtwidgets/windows.h"
#include "support/graphfixture.h"

#include <kxgraph/annotation/Kxclasses.h>

#include <QClipboard>
#include <QHBoxLayout>
#include <QImage>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>

namespace kx::test::formview {

/// A Qt program: a view between two fields.
struct TProgram {
    TProgram() {
        auto* layout = new QHBoxLayout(&Window);
        layout->addWidget(&First);
        layout->addWidget(View.get());
        layout->addWidget(&Last);
    }
    void Show() {
        Window.resize(600, 300);
        Window.show();
        WaitFor(30);
    }
    QWidget Window;
    QLineEdit First, Last;
    std::unique_ptr<qt::FormView> View = std::make_unique<qt::FormView>();
};

TEST(FormView, ShowsAFormInALayoutInItsSize) {
    TProbeForm f;
    TProgram program;
    program.View->setForm(&f.Form);
    EXPECT_EQ(program.View->sizeHint(), QSize(300, 200));
    program.Show();
    EXPECT_EQ(program.View->form(), &f.Form);
    EXPECT_GT(f.Probe.Paints, 0);
    EXPECT_EQ(f.Form.GetBoundsRect(), (TRect{0, 0, program.View->width(), program.View->height()}));
    f.Form.SetBounds(5, 5, 350, 150);
    EXPECT_EQ(program.View->sizeHint(), QSize(350, 150));
    WaitFor(30);
    EXPECT_EQ(f.Form.GetWidth(), program.View->width()) << "the layout decides";
}

TEST(FormView, ReadsFormsThatAreResources) {
    RegisterClasses();
    qt::FormView view;
    for (const auto& [name, error] : {std::pair{":/figures/figure.kxf", ""},
                                      {"qrc:/figures/figure.kxf", ""},
                                      {"qrc:///figures/figure.kxf", ""},
                                      {"qrc:/nowhere.kxf", ":/nowhere.kxf: No such file or directory"}}) {
        view.setFormFile(name);
        EXPECT_EQ(view.formError().toStdString(), error);
        EXPECT_EQ(view.form() != nullptr, *error == 0) << name;
    }
}

TEST(FormView, AndItsFormGoInAnyOrder) {
    TProbeForm kept;
    {
        TProgram program;
        auto f = std::make_unique<TProbeForm>();
        program.View->setForm(&f->Form);
        program.Show();
        f.reset();
        EXPECT_EQ(program.View->form(), nullptr);
        WaitFor(30);
        program.View->setForm(&kept.Form);
        WaitFor(30);
        EXPECT_GT(kept.Probe.Paints, 0);
        qt::FormView other(kept.Form);
        EXPECT_EQ(program.View->form(), nullptr) << "a form is in one place";
        EXPECT_EQ(other.form(), &kept.Form);
    }
    EXPECT_FALSE(kept.Form.IsShown());
    kept.Show();
    EXPECT_EQ(OpenWindows().size(), 1u);
}

TEST(FormView, LeavesTheStateOfItsFormToAWindowOfItsOwn) {
    TProbeForm f;
    f.Form.SetWindowState(wsMaximized);
    qt::FormView view(f.Form);
    view.resize(200, 150);
    view.show();
    WaitFor(30);
    EXPECT_EQ(f.Form.GetBoundsRect(), (TRect{0, 0, 200, 150}));
    f.Form.SetBounds(5, 5, 350, 150);
    EXPECT_EQ(view.sizeHint(), QSize(350, 150)) << "it is no window that could be maximised";
    f.Form.SetWindowState(wsMinimized);
    EXPECT_TRUE(view.isVisible());
    f.Form.SetWindowState(wsMaximized);
    view.setForm(nullptr);
    view.hide();
    EXPECT_EQ(f.Form.GetWindowState(), wsMaximized);
    EXPECT_TRUE(f.Show().isMaximized());
}

TEST(FormView, TakesPartInTheOrderOfTab) {
    TProbeForm f;
    TProbe second(&f.Form);
    second.SetParent(&f.Form);
    second.SetTabStop(true);
    TProgram program;
    program.View->setForm(&f.Form);
    program.Show();
    program.Window.activateWindow();
    program.First.setFocus();
    WaitFor(20);
    const auto where = [&] {
        return program.First.hasFocus()    ? "first"
               : program.Last.hasFocus()   ? "last"
               : !program.View->hasFocus() ? "nowhere"
               : f.Probe.IsFocused()       ? "probe"
               : second.IsFocused()        ? "second"
                                           : "view";
    };
    std::string way;
    for (const bool forward : {true, true, true, false, false, false}) {
        QKeyEvent tab(QEvent::KeyPress, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                      forward ? Qt::NoModifier : Qt::ShiftModifier);
        QApplication::sendEvent(QApplication::focusWidget(), &tab);
        way += where() + std::string(" ");
    }
    EXPECT_EQ(way, "probe second last second probe first ");
    EXPECT_FALSE(f.Form.IsActive());
}

struct TShownGraph : TGraphForm {
    TShownGraph() {
        Graph->SetAlign(alClient);
        Graph->SetAutoZoom(true);
        for (int i = 0; i <= 100; ++i) Fill({{i / 10.0, std::sin(i / 7.0)}});
        AddSeries<TKxDataSeries>()->SetXAxis(X);
        View.setForm(Form);
        View.resize(420, 320);
        View.show();
        WaitFor(50);
    }
    void Mouse(QEvent::Type Type, TPoint World) {
        const TPoint at = Graph->GetDrawingWorld().ClientToRoot(World);
        const bool up = Type == QEvent::MouseButtonRelease;
        QMouseEvent event(Type, QPointF(at.X, at.Y), View.mapToGlobal(QPointF(at.X, at.Y)),
                          Type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          up ? Qt::MouseButtons() : Qt::LeftButton, {});
        QApplication::sendEvent(&View, &event);
    }
    qt::FormView View;
};

TEST(FormView, ZoomsAGraphByDragging) {
    TShownGraph g;
    const double before = g.X->GetStop() - g.X->GetStart();
    g.Mouse(QEvent::MouseButtonPress, {50, 40});
    g.Mouse(QEvent::MouseMove, {100, 90});
    WaitFor(30);
    g.Mouse(QEvent::MouseButtonRelease, {150, 120});
    WaitFor(30);
    EXPECT_LT(g.X->GetStop() - g.X->GetStart(), before / 2);
}

// At ratios that are no whole numbers, too: each pixel is that of a frame painted anew.
TEST(FormView, ShowsAfterPartialPaintsWhatAWholeOneShows) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        TShownGraph g;
        qt::TBacking parts, whole;
        for (auto* backing : {&parts, &whole}) backing->Fit({420, 320}, ratio);
        const auto client = [&] { return &g.Form->AsHostClient(); };
        const auto picture = [&](qt::TBacking& Backing) {
            QImage image(int(std::lround(420 * ratio)), int(std::lround(320 * ratio)), QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            Backing.Show(painter);
            return image;
        };
        parts.Paint(parts.TakeDirty(), client);
        const QImage before = picture(parts);
        g.Graph->SetDataColor(clYellow);
        g.XV->Add(10.1), g.YV->Add(3.0);
        client()->HostSettle();
        whole.Paint(whole.TakeDirty(), client);
        for (int left = 0; left < 420; left += 37)
            for (int top = 0; top < 320; top += 41) {
                parts.Add({left, top, 37, 41});
                parts.Paint(parts.TakeDirty(), client);
            }
        EXPECT_NE(before, picture(parts));
        EXPECT_EQ(picture(parts), picture(whole)) << ratio;
    }
}

TEST(FormView, CopiesAGraphInAllFormats) {
    TShownGraph g;
    g.Graph->CopyToClipboard();
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    const std::pair<const char*, const char*> beginnings[] = {
        {"image/png", "\x89PNG"}, {"image/svg+xml", "<?xml"}, {"application/pdf", "%PDF"}};
    for (const auto& [format, beginning] : beginnings)
        EXPECT_TRUE(mime->data(format).startsWith(beginning)) << format;
    EXPECT_EQ(qvariant_cast<QImage>(mime->imageData()).width(), 2 * g.Graph->GetWidth());
}

/// Takes text after a clef, which is two units of UTF-16.
struct TComposing : TProbe {
    using TProbe::TProbe;
    bool Compose(const TComposition& Composition) override {
        Heard = Composition;
        return true;
    }
    THostTextInput TextInput() const override {
        return {.Takes = true,
                .Left = 7,
                .Top = 3,
                .Height = 12,
                .Text = "\U0001D11Eab",
                .Caret = 2,
                .Anchor = 1};
    }
    TComposition Heard;
};

TEST(FormView, TellsInputMethodsWhereTextGoesAndHearsWhatTheyCompose) {
    TProbeForm f;
    TComposing field(&f.Form);
    field.SetParent(&f.Form);
    field.SetBounds(30, 40, 50, 20);
    qt::FormView view(f.Form);
    EXPECT_FALSE(view.testAttribute(Qt::WA_InputMethodEnabled)) << "the probe takes no text";
    field.SetFocus();
    EXPECT_TRUE(view.testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(37, 43, 1, 12));
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorPosition).toInt(), 3);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImAnchorPosition).toInt(), 2);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCurrentSelection).toString(), "a");
    QInputMethodEvent event(QString::fromUtf8("\U0001D11E\u304B"),
                            {{QInputMethodEvent::Cursor, 2, 1, QVariant()}});
    event.setCommitString("x", -3, 3);
    QApplication::sendEvent(&view, &event);
    const TComposition& heard = field.Heard;
    EXPECT_EQ(std::tuple(heard.Text, heard.Caret, heard.Commit), std::tuple("\U0001D11E\u304B", 1, "x"));
    EXPECT_EQ(std::tuple(heard.ReplaceFrom, heard.ReplaceLength), std::tuple(-2, 2));
}

} // namespace kx::test::formview
