#pragma once
// A window that lives in a raster that keeps its picture as a window does; only what was asked for is
// painted. What a system needs to show it comes on top.

#include "graphform.h"

#include <kxgraph/qt/Kxqtdevice.h>
#include <kxgraph/qt/Kxqthost.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QImage>
#include <QPainter>
#include <QRegion>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace kx {

inline constexpr TSize CSize{800, 600};

/// A window that is a picture and knows what of it is to be painted.
struct TLiveWindow : THostWindow {
    explicit TLiveWindow(QRegion& Dirty) : FDirty(Dirty) {}
    void SetBounds(const TRect&) override {}
    void SetVisible(bool) override {}
    void SetCaption(const std::string&) override {}
    void SetState(TWindowState) override {}
    void Invalidate(const TRect& Rect) override {
        FDirty += QRect(Rect.Left, Rect.Top, Rect.Width(), Rect.Height());
    }
    void SetCapture(bool) override {}
    void SetCursor(TCursor) override {}
    QRegion& FDirty;
};

struct THostOfOne : qt::TQtHost {
    std::unique_ptr<THostWindow> OpenWindow(THostClient&) override {
        return std::make_unique<TLiveWindow>(Dirty);
    }
    QRegion Dirty{0, 0, CSize.Width, CSize.Height};
};

struct TLive : TGraphForm {
    TKxLiveVector X{&Form}, Y{&Form};
    TKxLineSeries Series{&Form};
    THostOfOne* Host = new THostOfOne;
    QImage Image{CSize.Width, CSize.Height, QImage::Format_RGB32};
    bool Smooth;

    TLive(int Count, bool Smooth) : Smooth(Smooth) {
        qt::Install(true);
        TApplication::Instance().SetHost(std::unique_ptr<THost>(Host));
        Form.SetBounds(0, 0, CSize.Width, CSize.Height);
        Graph.SetBounds(0, 0, CSize.Width, CSize.Height);
        Graph.SetWheelZoom(true);
        Graph.SetPanning(true);
        Graph.GetMajorGridX().SetVisible(true);
        Graph.GetMajorGridY().SetVisible(true);
        Series.SetXAxis(&XAxis);
        Series.SetYAxis(&YAxis);
        std::vector<double> x, y;
        for (int i = 0; i < Count; ++i) x.push_back(i), y.push_back(ValueAt(i));
        X.AddValues(x);
        Y.AddValues(y);
        Series.SetXData(&X);
        Series.SetYData(&Y);
        for (TKxAxis* axis : {&XAxis, &YAxis}) axis->SetStartEnd(AxFixed), axis->SetStopEnd(AxFixed);
        Show(0, Count * 1.2);
        YAxis.SetStart(-2), YAxis.SetStop(2);
        Form.Show();
        Frame();
    }
    static double ValueAt(int i) {
        return std::sin(i * 1e-4) + 0.5 * std::sin(i * 1.37) * std::cos(i * 0.011);
    }
    void Append() {
        const int index = X.GetCount();
        X.Add(index);
        Y.Add(ValueAt(index));
    }
    void Show(double Start, double Stop) { XAxis.SetStart(Start), XAxis.SetStop(Stop); }
    /// Returns how many pixels were painted.
    double Frame() {
        THostClient& client = Form.AsHostClient();
        client.HostSettle();
        const QRegion dirty = std::exchange(Host->Dirty, {});
        QPainter painter(&Image);
        qt::TPainterDevice device(painter, CSize, 1, Smooth);
        device.SetColumnsPerPixel(8); // as windows have it
        double pixels = 0;
        for (const QRect& rect : dirty) {
            const TRect part{rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
            client.HostPaint(device, part);
            pixels += double(part.Width()) * part.Height();
        }
        return pixels;
    }
};

/// Times each frame by itself and tells how they are spread.
class TFrameTimes {
public:
    template <class F>
    void Take(F Frame) {
        const auto begin = std::chrono::steady_clock::now();
        Frame();
        FTimes.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    /// Medians and others in microseconds.
    void Tell(benchmark::State& State) {
        std::ranges::sort(FTimes);
        const auto at = [&](double Part) {
            return FTimes[std::size_t(Part * double(FTimes.size() - 1))] * 1e6;
        };
        State.counters["us50"] = at(0.5);
        State.counters["us99"] = at(0.99);
        State.counters["usMax"] = at(1);
    }

private:
    std::vector<double> FTimes;
};

} // namespace kx
