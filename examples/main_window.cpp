// A graph inside a Qt program: a main window with menu and tool bar around a kx::qt::FormView.
//
//     main_window [--seconds N] [--save FILE.png]

#include "windowoptions.h"

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/qtwidgets/Kxformview.h>
#include <kxgraph/qtwidgets/Kxqtprinting.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QAction>
#include <QFileDialog>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include <cmath>
#include <exception>
#include <iostream>

using namespace kx;

namespace {

/// A damped oscillation and its envelope, on a form that the window shows.
struct TOscillation {
    TForm Form{nullptr};
    TKx2DGraph Graph{&Form};
    TKxAxis Time{&Form}, Amplitude{&Form};
    TKxLiveVector T{&Form}, Swing{&Form}, Envelope{&Form};
    TKxDataSeries Curve{&Form}, Bound{&Form};
    TPopupMenu Menu{&Form};

    TOscillation() {
        Form.SetBounds(0, 0, 640, 420);
        Graph.SetParent(&Form);
        Graph.SetAlign(alClient); // grows with the view
        Graph.SetColor(clWhite);
        Graph.SetDataColor(clWhite);
        Graph.SetMargin(10);
        Graph.SetAutoZoom(true); // a rectangle drawn with the mouse
        Graph.SetWheelZoom(true);
        Graph.SetReadout(true);
        Graph.SetPopupMenu(&Menu);
        const auto place = [this](TKxAxis& Axis, const char* Caption) {
            Axis.SetParent(&Graph);
            Axis.SetCaption(Caption);
            Axis.SetShowCaption(true);
        };
        place(Time, "time / s");
        place(Amplitude, "amplitude / mm");
        Graph.SetPrimaryXAxis(&Time);
        Graph.SetPrimaryYAxis(&Amplitude);
        for (int i = 0; i <= 2000; ++i) {
            const double t = i * 0.005, bound = 3 * std::exp(-0.3 * t);
            T.Add(t);
            Swing.Add(bound * std::cos(6 * t));
            Envelope.Add(bound);
        }
        const auto draw = [this](TKxDataSeries& Series, TKxLiveVector& Y, TColor Color, int Width) {
            Series.SetXAxis(&Time);
            Series.SetYAxis(&Amplitude);
            Series.SetXData(&T);
            Series.SetYData(&Y);
            Series.GetLineStyle().SetColor(Color);
            Series.GetLineStyle().SetWidth(Width);
            Series.GetPointStyle().SetVisible(false);
        };
        draw(Curve, Swing, clBlue, 2);
        draw(Bound, Envelope, clRed, 1);
        Menu.GetItems().Add("&Copy", [this](TMenuItem*) { Graph.CopyToClipboard(); });
        Menu.GetItems().Add("&Whole view", [this](TMenuItem*) { Graph.Unzoom(); });
    }
};

class TWindow : public QMainWindow {
public:
    TWindow() {
        setWindowTitle("A damped oscillation");
        setCentralWidget(new qt::FormView(FPicture.Form, this));
        QMenu& menu = *menuBar()->addMenu("&Graph");
        QToolBar& bar = *addToolBar("Graph");
        const auto add = [&](const char* Text, const QKeySequence& Keys, auto Act) {
            QAction* action = menu.addAction(Text);
            action->setShortcut(Keys);
            connect(action, &QAction::triggered, this, Act);
            bar.addAction(action);
        };
        add("&Copy", QKeySequence::Copy, [this] { FPicture.Graph.CopyToClipboard(); });
        add("&Save...", QKeySequence::Save, [this] { Save(); });
        add("&Print...", QKeySequence::Print, [this] {
            FPicture.Graph.PaintToMetafile();
            qt::PreviewPrint(this, FPicture.Graph.GetMetafile(), windowTitle());
        });
        add("&Whole view", Qt::Key_Home, [this] { FPicture.Graph.Unzoom(); });
    }

private:
    void Save() {
        const QString name = QFileDialog::getSaveFileName(this, "Save picture", "graph.pdf", "PDF (*.pdf)");
        if (name.isEmpty()) return;
        qt::WritePdf(name.toStdString(), {.Size = FPicture.Graph.GetBoundsRect().Size()},
                     [this](TCanvasDevice& Device) { FPicture.Graph.PaintTo(Device); });
    }

    TOscillation FPicture; // goes after the view: either order will do
};

} // namespace

int main(int Count, char** Arguments) {
    try {
        QApplication application(Count, Arguments);
        const TWindowOptions options(Count, Arguments);
        qt::InstallWidgets(); // takes the application that there is
        TWindow window;
        return options.Run(window);
    } catch (const std::exception& error) {
        std::cerr << "main_window: " << error.what() << '\n';
        return 1;
    }
}
