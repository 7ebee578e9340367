// A person builds a figure with mouse and keys alone. KX_DESIGN_SHOTS names a directory for pictures of the
// window.

#include "kxdesign/formarea.h"
#include "kxdesign/guarded.h"
#include "kxdesign/inplacecaption.h"
#include "kxdesign/inspectorpanel.h"
#include "kxdesign/mainwindow.h"
#include "kxdesign/objecttree.h"
#include "kxdesign/palette.h"
#include "support/testing.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/design/Kxdesignhit.h>
#include <kxgraph/graph/Kxgraph2d.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>

#include <set>

namespace kxdesign {
namespace {

using namespace kx;

/// The user in front of the window.
class TUser {
public:
    explicit TUser(TMainWindow& Window) : FWindow(Window) {
        FWindow.show();
        Look();
    }

    /// Waits until all is shown.
    void Look() {
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < 60;) TApplication::Instance().ProcessMessages();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void DropFile(const std::string& Name) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Name))});
        QDragEnterEvent enter({400, 300}, Qt::CopyAction, &data, Qt::LeftButton,
                              {}); // nothing drops without it
        QApplication::sendEvent(&FWindow, &enter);
        QDropEvent event({400, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&FWindow, &event);
        Look();
    }
    void Mouse(QEvent::Type Type, TPoint At, Qt::MouseButtons Buttons) {
        QWidget& view = FWindow.GetArea().GetView();
        const QPointF pos(At.X, At.Y);
        QMouseEvent event(Type, pos, view.mapToGlobal(pos), Qt::LeftButton, Buttons, {});
        QApplication::sendEvent(&view, &event);
    }
    void Drag(TPoint From, TPoint To) {
        Mouse(QEvent::MouseButtonPress, From, Qt::LeftButton);
        Mouse(QEvent::MouseMove, To, Qt::LeftButton);
        Mouse(QEvent::MouseButtonRelease, To, {});
        Look();
    }
    void Click(TPoint At) { Drag(At, At); }
    void DoubleClick(TPoint At) {
        Click(At);
        Mouse(QEvent::MouseButtonDblClick, At, Qt::LeftButton);
        Mouse(QEvent::MouseButtonRelease, At, {});
        Look();
    }
    void Place(const char* ClassName, TPoint From, TPoint To) {
        FWindow.GetPalette().Choose(ClassName);
        Drag(From, To);
    }
    void Select(const char* Name) {
        FWindow.GetTree().clearSelection();
        FWindow.GetTree().ItemOf(Name)->setSelected(true);
        Look();
    }
    void Key(QWidget& Widget, int Key, Qt::KeyboardModifiers Shift, const QString& Text = {}) {
        QKeyEvent event(QEvent::KeyPress, Key, Shift, Text);
        QApplication::sendEvent(&Widget, &event);
    }
    /// What is there is replaced; signs of the markup are typed as the keys that switch the looks.
    void TypeCaption(TCaptionField& Field, const char* Caption) {
        Key(Field, Qt::Key_Delete, {});
        for (const char* letter = Caption; *letter; ++letter) {
            if (*letter != '\\')
                Key(Field, 0, {}, QString(QLatin1Char(*letter)));
            else if (*++letter == 'i')
                Key(Field, Qt::Key_I, Qt::ControlModifier);
            else
                Key(Field, *letter == '-' ? Qt::Key_Down : Qt::Key_Up, Qt::ControlModifier);
        }
        Key(Field, Qt::Key_Return, {});
    }
    /// Types into the editor of a property that is open, or is opened by its name.
    void Type(const char* Text) {
        QWidget* viewport = FWindow.GetInspector().GetTree().viewport();
        auto* caption = viewport->findChild<TCaptionField*>();
        if (TCaptionField* inplace = FWindow.GetInplace().GetField()) caption = inplace;
        if (caption) {
            TypeCaption(*caption, Text);
        } else if (auto* box = viewport->findChild<QComboBox*>()) {
            const int index = box->findData(Text);
            ASSERT_GE(index, 0) << Text;
            box->setCurrentIndex(index);
            Q_EMIT box->activated(index);
        } else {
            auto* line = viewport->findChild<QLineEdit*>();
            ASSERT_TRUE(line) << Text;
            line->selectAll();
            for (const char* letter = Text; *letter; ++letter)
                Key(*line, 0, {}, QString(QLatin1Char(*letter)));
            Key(*line, Qt::Key_Return, {});
        }
        Look();
    }
    void Set(const char* Property, const char* Text) {
        FWindow.GetInspector().EditProperty(Property);
        Type(Text);
    }
    void Do(const char* Action) {
        FWindow.ActionNamed(Action)->trigger();
        Look();
    }
    /// With what stands over the window: lists that have dropped down, dialogs.
    void Shoot(const char* Name) {
        const char* directory = std::getenv("KX_DESIGN_SHOTS");
        if (!directory) return;
        QPixmap picture = FWindow.grab();
        QPainter painter(&picture);
        for (QWidget* other : QApplication::topLevelWidgets())
            if (other != &FWindow && other->isVisible())
                painter.drawPixmap(FWindow.mapFromGlobal(other->mapToGlobal(QPoint())), other->grab());
        picture.save(QString(directory) + "/" + Name + ".png");
    }
    /// The editor that stands over the rows, a list of it dropped down; a dialog; null where nothing opens.
    QWidget* Open(const char* Property) {
        FWindow.GetInspector().EditProperty(Property);
        Look();
        for (QWidget* other : QApplication::topLevelWidgets())
            if (auto* dialog = dynamic_cast<QDialog*>(other); dialog && dialog->isVisible()) return dialog;
        for (QObject* child : FWindow.GetInspector().GetTree().viewport()->children())
            if (auto* editor = dynamic_cast<QWidget*>(child); editor && editor->isVisible()) {
                if (auto* box = editor->findChild<QComboBox*>()) box->showPopup();
                if (auto* box = dynamic_cast<QComboBox*>(editor)) box->showPopup();
                Look();
                return editor;
            }
        return nullptr;
    }

private:
    TMainWindow& FWindow;
};

template <class T>
T& Only(TKxDesignDocument& Document) {
    T* found = nullptr;
    for (TComponent* component : Document.GetForm().GetComponents())
        if (auto* one = dynamic_cast<T*>(component)) found = one;
    return *found;
}

TEST(Kxdesign, BuildsACalibrationFigureFromATable) {
    const test::TTemporaryDirectory directory;
    const std::string table = directory / "calibration.csv", form = directory / "calibration.kxf";
    ReplaceFile(table,
                "c,A,dA\n0,0.02,0.03\n1,0.26,0.03\n2,0.49,0.04\n3,0.77,0.04\n4,0.98,0.05\n5,1.27,0.05\n");
    TMainWindow window;
    TKxDesignDocument& document = window.GetDocument();
    window.AskFile = [&](bool, const QString&, const QString&) { return QString::fromStdString(form); };
    window.AskSave = [] { return TAnswer::Cancel; };
    TUser user(window);
    user.Do("Save As");
    user.DropFile(table);
    user.Shoot("imported");
    auto& graph = Only<TKx2DGraph>(document);
    const TPoint corner = graph.GetDrawingWorld().ClientToRoot({30, 20});

    user.Place("TKxLinearRegressionLine", corner, corner);
    user.Place("TKxFitBand", corner, corner);
    user.Place("TKxLegend", corner, corner);
    for (const char* key : {"Slope", "Offset"}) {
        user.Select("LinearRegressionLine1");
        const TPoint at = corner + TPoint{10, key[0] == 'S' ? 120 : 150};
        user.Place("TKxResultLabel", at, at);
        user.Set("Identifier", key);
        user.Set("Prefix", key[0] == 'S' ? "\\iA\\i\\-1\\- = " : "\\iA\\i\\-0\\- = ");
    }
    user.Shoot("labels");
    const TRect axis = ShownRect(*graph.GetPrimaryXAxis());
    user.DoubleClick({(axis.Left + axis.Right) / 2, axis.Bottom - 12});
    user.Type("c\\-0\\- / mM");
    user.Select("YAxis");
    user.Set("Caption", "A\\-500 nm\\-");
    user.Shoot("done");

    EXPECT_EQ(graph.GetPrimaryXAxis()->GetCaption(), "c\\-0\\-  / mM"); // a sign swallows one blank
    EXPECT_TRUE(document.IsModified());
    user.Do("Save");
    EXPECT_FALSE(document.IsModified());
    const std::string built = ReadFile(form);
    for (const char* part : {"object C: TKxFileVector\n", "FileName = \"calibration.csv\"\n",
                             "Column = \"c\"\n", "object DataWithErrorSeries1: TKxDataWithErrorSeries\n",
                             "dYPlus = DA\n", "dYMinus = DA\n", "XData = C\n", "YData = A\n",
                             "ParentSeries = DataWithErrorSeries1\n", "Fit = LinearRegressionLine1\n",
                             "object Legend1: TKxLegend\n", "Graph = Graph1\n", "Identifier = \"Slope\"\n",
                             "Identifier = \"Offset\"\n", "Prefix = \"\\\\iA\\\\i\\\\-1\\\\-  = \"\n",
                             "Caption = \"c\\\\-0\\\\-  / mM\"\n", "Caption = \"A\\\\-500 nm\\\\-\"\n"})
        EXPECT_NE(built.find(part), std::string::npos) << part << "in\n" << built;
    TKxDesignDocument again;
    again.Open(form);
    EXPECT_EQ(again.GetText(), built);

    while (document.CanUndo()) user.Do("Undo");
    EXPECT_EQ(document.GetForm().GetComponentCount(), 0);
    while (document.CanRedo()) user.Do("Redo");
    EXPECT_EQ(document.GetText(), built);
    EXPECT_EQ(document.GetRebuilds(), 0);
}

/// A table with a series of it, a line, a fit of a formula and a label: something to edit of every kind.
struct TFilledWindow {
    TFilledWindow() {
        ReplaceFile(Directory / "t.csv", "t,U\n0,1\n1,3\n2,5.2\n3,6.9\n");
        User.DropFile(Directory / "t.csv");
        const TPoint corner = Only<TKx2DGraph>(Window.GetDocument()).GetDrawingWorld().ClientToRoot({30, 20});
        for (const char* type : {"TKxLinearRegressionLine", "TKxFittedLine", "TKxResultLabel", "TKxLabel",
                                 "TListBox", "TStringGrid", "TKxRealVector"}) {
            User.Place(type, corner, corner);
            User.Look();
        }
    }
    const test::TTemporaryDirectory Directory;
    TMainWindow Window;
    TUser User{Window};
};

/// How many of the entries that Editor offers have a picture that no other one has.
std::size_t PicturesOf(const QWidget& Editor) {
    std::set<QByteArray> pictures;
    const auto* box = dynamic_cast<const QComboBox*>(&Editor);
    for (int i = 0; box && i < box->count(); ++i) {
        const QImage picture = box->itemIcon(i).pixmap(box->iconSize()).toImage();
        const auto* bits = reinterpret_cast<const char*>(picture.constBits());
        if (!picture.isNull()) pictures.emplace(bits, picture.sizeInBytes());
    }
    return pictures.size();
}

TEST(Kxdesign, OpensAnEditorForEveryKindOfProperty) {
    TFilledWindow f;
    f.Window.AskSave = [] { return TAnswer::Discard; };
    struct TCase {
        const char *Component, *Property, *File;
        std::size_t Pictures = 0;
    };
    for (const TCase& c : {TCase{"XAxis", "Position", "enumeration"},
                           {"XAxis", "Font.Style", "set"},
                           {"Graph1", "Color", "color"},
                           {"Graph1", "TitleFont", "font"},
                           {"Graph1", "TitleFont.Name", "fontfamily"},
                           {"DataSeries1", "LineStyle.Style", "pen", 6},
                           {"DataSeries1", "AreaStyle.Style", "brush", 8},
                           {"DataSeries1", "YAxis", "reference"},
                           {"ResultLabel1", "Identifier", "result"},
                           {"Label1", "Caption", "caption"},
                           {"RealVector1", "Values", "values"},
                           {"FittedLine1", "Coefficients", "coefficients"},
                           {"Graph1", "OnClick", "event"},
                           {"ListBox1", "Items", "lines"},
                           {"DataSeries1", "PointStyle.Style", "symbol", 16}}) {
        SCOPED_TRACE(c.File);
        ASSERT_TRUE(f.Window.GetDocument().Find(c.Component));
        f.User.Select(c.Component);
        QWidget* editor = f.User.Open(c.Property);
        ASSERT_TRUE(editor);
        f.User.Shoot(c.File);
        QWidget* rows = f.Window.GetInspector().GetTree().viewport();
        EXPECT_EQ(PicturesOf(*editor), c.Pictures);
        EXPECT_TRUE(editor->parentWidget() != rows || rows->rect().contains(editor->geometry()));
        if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        if (auto* dialog = dynamic_cast<QDialog*>(editor)) dialog->reject();
        f.User.Look();
    }
}

TEST(Kxdesign, EditsListsOfTextsAsOneStep) {
    TFilledWindow f;
    f.Window.AskSave = [] { return TAnswer::Discard; };
    struct TCase {
        const char *Component, *Property, *Typed, *Text, *Shown;
    };
    for (const TCase& c : {TCase{"ListBox1", "Items", "one\r\ntwo\n", "one\ntwo", "one; two"},
                           {"XAxis", "Categories", "Fe\nFe; hot\n", "Fe; \"Fe; hot\"", "Fe; \"Fe; hot\""},
                           {"StringGrid1", "Cells", "a\tb\nc", "a\tb\nc", "a\tb; c"}}) {
        SCOPED_TRACE(c.Property);
        f.User.Select(c.Component);
        const auto row = [&]() -> TKxInspectorRow& {
            return *f.Window.GetInspector().GetInspector().Find(c.Property);
        };
        const std::string before = row().Text;
        for (const bool types : {false, true}) {
            QWidget* dialog = f.User.Open(c.Property);
            auto* edit = dialog->findChild<QPlainTextEdit*>();
            ASSERT_TRUE(edit);
            if (types) {
                QApplication::clipboard()->setText(c.Typed);
                edit->selectAll();
                edit->paste();
                f.User.Shoot(c.Property);
            }
            dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            f.User.Look();
            EXPECT_TRUE(types || row().Text == before) << row().Text;
        }
        EXPECT_EQ(row().Text.substr(0, row().Text.find_last_not_of('\n') + 1), c.Text);
        EXPECT_EQ(Told(f.Window.GetInspector().ItemOf(c.Property)->text(1)), c.Shown);
        f.User.Do("Undo");
        EXPECT_EQ(row().Text, before);
    }
}

TEST(Kxdesign, AsksBeforeUnsavedWorkGoes) {
    TMainWindow window;
    int asked = 0;
    TAnswer answer = TAnswer::Cancel;
    window.AskSave = [&] { return ++asked, answer; };
    window.AskFile = [](bool, const QString&, const QString&) { return QString(); };
    TUser user(window);
    EXPECT_TRUE(window.close());
    window.show();
    user.Place("TKxLabel", {50, 50}, {50, 50});
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_FALSE(window.close());
    answer = TAnswer::Save; // and no name is given
    EXPECT_FALSE(window.close());
    answer = TAnswer::Discard;
    user.Do("New");
    EXPECT_EQ(window.GetDocument().GetForm().GetComponentCount(), 0);
    EXPECT_EQ(asked, 3);
}

TEST(Kxdesign, TakesUpWhatAKilledProgramHasLeft) {
    const test::TTemporaryDirectory directory;
    ReplaceFile(directory / "left-1-1.kxf",
                "// form of \"/data/left.kxf\"\nobject Form1: TForm\n  object A: TKxLabel\n  end\nend\n");
    TMainWindow window(directory / "");
    std::string original;
    window.AskRecover = [&](const TKxDesignRecovery& Recovery) { return original = Recovery.Original, true; };
    window.AskSave = [] { return TAnswer::Discard; };
    window.OfferRecovery();
    EXPECT_EQ(original, "/data/left.kxf");
    EXPECT_TRUE(window.GetDocument().Find("A"));
    EXPECT_TRUE(window.GetDocument().IsModified());
    EXPECT_EQ(FindRecoveries(directory / "").size(), 0U);
    EXPECT_FALSE(IsMissing(directory / "") || FileExists(directory / "left-1-1.kxf"));
}

} // namespace
} // namespace kxdesign
