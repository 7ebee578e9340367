#pragma once
// A form that writes down what it hears, and the user in front of its window.

#include "support/testing.h"

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/qtwidgets/Kxclientwidget.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>

namespace kx::test {

/// Handles messages until Holds answers true; false after two seconds.
inline bool Wait(const std::function<bool()>& Holds) {
    QElapsedTimer timer;
    timer.start();
    for (; !Holds(); QThread::msleep(1)) {
        if (timer.elapsed() > 2000) return false;
        TApplication::Instance().ProcessMessages();
    }
    return true;
}

/// Handles messages for that long.
inline void WaitFor(int Milliseconds) {
    QElapsedTimer timer;
    timer.start();
    Wait([&] { return timer.elapsed() >= Milliseconds; });
}

/// Counts its paints and notes where they were.
struct TProbe : TCustomControl {
    using TCustomControl::TCustomControl;
    void Paint() override {
        ++Paints;
        Painted.push_back(GetCanvas().GetClipRect());
        GetCanvas().Brush.SetColor(clWhite);
        GetCanvas().FillRect(GetClientRect());
        if (WhenPainted) WhenPainted();
    }
    std::string Rects() {
        std::string text;
        for (const TRect& r : std::exchange(Painted, {}))
            text += std::to_string(r.Left) + "," + std::to_string(r.Top) + "-" + std::to_string(r.Right) +
                    "," + std::to_string(r.Bottom) + " ";
        return text;
    }
    int Paints = 0;
    std::vector<TRect> Painted;
    std::function<void()> WhenPainted;
};

/// The windows of all forms that are open.
inline std::vector<qt::TClientWidget*> OpenWindows() {
    std::vector<qt::TClientWidget*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<qt::TClientWidget*>(widget); window && window->isVisible())
            windows.push_back(window);
    return windows;
}

/// A form of 300 x 200 with a probe at 10, 20 of 200 x 100 that has the focus.
struct TProbeForm {
    TProbeForm() {
        Form.SetBounds(50, 60, 300, 200);
        Probe.SetBounds(10, 20, 200, 100);
        Probe.SetParent(&Form);
        Probe.SetTabStop(true);
        Probe.SetFocus();
    }
    /// Opens the form in a window of its own.
    qt::TClientWidget& Show() {
        Form.Show();
        Wait([this] { return Probe.Paints > 0; });
        WaitFor(30); // what the desktop has to say about the place
        Probe.Rects();
        Probe.Paints = 0;
        return *OpenWindows().back();
    }
    TForm Form{nullptr};
    TProbe Probe{&Form};
};

} // namespace kx::test
