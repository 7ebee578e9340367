// A measurement as it runs: an instrument on a thread of its own delivers two channels at 1 kHz, the graph
// follows, and a straight line through the last ten seconds of the first channel tells its drift in a label
// of the window.
//
//     acquisition [--seconds N] [--save FILE.png]

#include "windowoptions.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/host/post.h>
#include <kxgraph/qtwidgets/Kxformview.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QStatusBar>

#include <chrono>
#include <cmath>
#include <exception>
#include <iostream>
#include <random>
#include <thread>
#include <utility>
#include <vector>

using namespace kx;

namespace {

constexpr double CRate = 1000;     // values of a channel in a second
constexpr int CKept = 60000;       // values of a channel that stay: a minute
constexpr double CFitSeconds = 10; // that the line goes through

struct TSample {
    double Time, First, Second;
};

/// The instrument: measures on its own thread and gives what it has to Take, there, a hundred times in a
/// second.
class TInstrument {
public:
    template <class F>
    explicit TInstrument(F Take) : FThread([Take](std::stop_token Stop) { Measure(Stop, Take); }) {}

private:
    template <class F>
    static void Measure(const std::stop_token& Stop, const F& Take) {
        constexpr auto COnce = std::chrono::milliseconds(10);
        std::mt19937 random(1);
        std::normal_distribution<double> noise(0, 0.05);
        auto next = std::chrono::steady_clock::now();
        for (long count = 0; !Stop.stop_requested();) {
            std::vector<TSample> samples;
            for (const long end = count + long(CRate) / 100; count < end; ++count) {
                const double t = double(count) / CRate;
                samples.push_back({t, 1 + 0.02 * t + noise(random), 0.5 * std::sin(3 * t) + noise(random)});
            }
            Take(std::move(samples));
            std::this_thread::sleep_until(next += COnce);
        }
    }

    std::jthread FThread;
};

/// What is shown of it.
class TWindow : public QMainWindow {
public:
    TWindow() {
        setWindowTitle("Acquisition");
        FForm.SetBounds(0, 0, 700, 420);
        FGraph.SetParent(&FForm);
        FGraph.SetAlign(alClient);
        FGraph.SetColor(clWhite);
        FGraph.SetDataColor(clWhite);
        FGraph.SetMargin(10);
        FGraph.SetWheelZoom(true);
        FGraph.SetPanning(true); // with the middle button
        for (TKxLiveVector* vector : {&FTime, &FFirst, &FSecond}) vector->SetMaxCount(CKept);
        Place(FTimeAxis, "time / s");
        Place(FVoltageAxis, "voltage / V");
        FGraph.SetPrimaryXAxis(&FTimeAxis);
        FGraph.SetPrimaryYAxis(&FVoltageAxis);
        Draw(FFirstSeries, FFirst, clBlue);
        Draw(FSecondSeries, FSecond, clGreen);
        FLine.SetName("Line1");
        FLine.SetParentSeries(&FFirstSeries);
        FLine.GetLineStyle().SetColor(clRed);
        FLine.GetLineStyle().SetWidth(2);
        FLine.OnError = [](TComponent*, const Exception&) {}; // too few points at first
        FLine.OnCalculated = [this](TComponent*) { ShowDrift(); };
        setCentralWidget(new qt::FormView(FForm, this));
        statusBar()->addPermanentWidget(&FDrift);
    }

    /// On the thread of the window.
    void Take(const std::vector<TSample>& Samples) {
        for (const TSample& sample : Samples) {
            FTime.Add(sample.Time);
            FFirst.Add(sample.First);
            FSecond.Add(sample.Second);
        }
        FLine.SetCalculationStart(FTime.GetValue(FTime.GetCount() - 1) - CFitSeconds);
    }

private:
    void Place(TKxAxis& Axis, const char* Caption) {
        Axis.SetParent(&FGraph);
        Axis.SetCaption(Caption);
        Axis.SetShowCaption(true);
    }
    void Draw(TKxDataSeries& Series, TKxLiveVector& Values, TColor Color) {
        Series.SetXAxis(&FTimeAxis);
        Series.SetYAxis(&FVoltageAxis);
        Series.SetXData(&FTime);
        Series.SetYData(&Values);
        Series.GetLineStyle().SetColor(Color);
        Series.GetPointStyle().SetVisible(false);
    }
    void ShowDrift() {
        constexpr double CMillivolts = 1000;
        const double slope = FLine.GetResults().ReadReal("Line1", "Slope", 0);
        FDrift.setText(QString("drift %1 mV/s").arg(slope * CMillivolts, 0, 'f', 1));
    }

    TForm FForm{nullptr};
    TKx2DGraph FGraph{&FForm};
    TKxAxis FTimeAxis{&FForm}, FVoltageAxis{&FForm};
    TKxLiveVector FTime{&FForm}, FFirst{&FForm}, FSecond{&FForm};
    TKxDataSeries FFirstSeries{&FForm}, FSecondSeries{&FForm};
    TKxLinearRegressionLine FLine{&FForm};
    QLabel FDrift;
};

} // namespace

int main(int Count, char** Arguments) {
    try {
        QApplication application(Count, Arguments);
        const TWindowOptions options(Count, Arguments);
        qt::InstallWidgets();
        TWindow window;
        // The window may be closed before the last values have come: what is posted asks for it.
        const QPointer<TWindow> shown(&window);
        const TInstrument instrument([shown](std::vector<TSample> Samples) {
            Post([shown, samples = std::move(Samples)] {
                if (shown) shown->Take(samples);
            });
        });
        return options.Run(window);
    } catch (const std::exception& error) {
        std::cerr << "acquisition: " << error.what() << '\n';
        return 1;
    }
}
