#pragma once
// The rows of drawing, for any plot: 800 x 600 pixels, off screen, lines of one pixel, no antialiasing. A
// plot T has
//   T()                                        axes without a range
//   void AddLine(X, Y), AddCircles(X, Y), AddErrorBars(X, Y, Errors), AddBars(X, Y)
//   void SetView(x0, x1, y0, y1)               both axes fixed
//   void FollowData()                          both axes as long as the data
//   void SetLogarithmic()                      the Y axis
//   void Append(x, y)                          to the first line
//   void Paint()                               a frame: all that follows from the changes, and the pixels
//   static void AppendAlone(Count)             to what holds the points of a line, without a plot
//   static constexpr bool CGaps                whether a NaN interrupts a line
//   void Save(FileName)                        the pixels, to be looked at

#include "workloads.h"

#include <memory>

namespace peers {

template <class T>
class TDrawing {
public:
    explicit TDrawing(const TRows& Rows) : FRows(Rows) {}

    void All() {
        Memory();
        for (int exponent = 4; exponent <= 7; ++exponent) Views(exponent);
        Live();
        Append();
        Kinds();
        Load();
    }

private:
    using TPlot = std::unique_ptr<T>;

    static std::string Power(int Exponent) { return "1e" + std::to_string(Exponent); }

    void Look(T& Plot, const std::string& Name) {
        if (const char* directory = std::getenv("KX_PEERS_PICTURES"))
            Plot.Save(directory + ("/" + std::regex_replace(Name, std::regex("[^0-9A-Za-z]+"), "_")) +
                      ".png");
    }
    /// Frames, each after a change; Spread for those that a user sees one after the other.
    template <class F>
    void Frames(T& Plot, const std::string& Name, F Change, bool Spread = false) {
        if (!FRows.Wants(Name)) return;
        int frame = 0;
        const auto next = [&] {
            Change(frame++);
            Plot.Paint();
        };
        next();
        Spread ? FRows.Spread(Name, next) : FRows.Time(Name, next);
        Look(Plot, Name);
    }

    // First of all: what other rows have freed would serve again.
    void Memory() {
        const std::string name = "memory of 1e7 [B/point]";
        if (!FRows.Wants(name)) return;
        const std::size_t count = 10000000;
        const double before = ResidentBytes();
        T plot;
        {
            const TPoints points = WaveOf(count);
            plot.AddLine(points.X, points.Y);
        }
        plot.SetView(0, double(count), -1.5, 1.5);
        plot.Paint();
        FRows.Tell(name, (ResidentBytes() - before) / double(count));
    }

    void Views(int Exponent) {
        const std::string name = "redraw " + Power(Exponent) + ", ";
        const double n = std::pow(10, Exponent);
        const char* const kinds[] = {"unchanged", "new range", "a thousandth", "panning", "wheel"};
        if (std::none_of(kinds, kinds + 5, [&](const char* kind) { return FRows.Wants(name + kind); }))
            return;
        T plot;
        const TPoints points = WaveOf(std::size_t(n));
        plot.AddLine(points.X, points.Y);
        plot.SetView(0, n, -1.5, 1.5);
        Frames(plot, name + kinds[0], [](int) {});
        Frames(plot, name + kinds[1], [&](int i) { Shift(plot, n, i); });
        Frames(plot, name + kinds[2], [&](int i) {
            const double start = n * (0.3 + 0.0001 * (i % 1000));
            plot.SetView(start, start + n / 1000, -1.5, 1.5);
        });
        const auto show = [&](double From, double Part) {
            plot.SetView(n * From, n * (From + Part), -1.5, 1.5);
        };
        Frames(
            plot, name + kinds[3], [&](int i) { show(0.2 + 0.001 * (i % 500), 0.1); }, true);
        Frames(
            plot, name + kinds[4],
            [&](int i) {
                const int turn = i % 80 < 40 ? i % 40 : 40 - i % 40;
                const double part = std::pow(0.8, turn);
                show(0.4 * (1 - part), part);
            },
            true);
    }
    static void Shift(T& Plot, double Span, int Frame) {
        const double part = 0.003 * (Frame % 100);
        Plot.SetView(-part * Span, Span, -1.5 - part, 1.5);
    }

    // Every frame brings a thousand points, and keeps up with them.
    void Live() {
        constexpr std::size_t count = 1000000, step = 1000;
        const auto live = [&](const std::string& Name, auto Show) {
            if (!FRows.Wants(Name)) return;
            T plot;
            const TPoints points = WaveOf(count);
            plot.AddLine(points.X, points.Y);
            std::size_t last = count;
            TRandom random;
            Show(plot, double(last));
            Frames(
                plot, Name,
                [&](int) {
                    for (std::size_t i = 0; i < step; ++i, ++last)
                        plot.Append(double(last), Wave(last, count, random));
                    Show(plot, double(last));
                },
                true);
        };
        live("live 1e6, fixed range", [first = true](T& Plot, double) mutable {
            if (first) Plot.SetView(0, 2.0 * count, -1.5, 1.5);
            first = false;
        });
        live("live 1e6, automatic range", [](T& Plot, double) { Plot.FollowData(); });
        live("live 1e6, moving range",
             [](T& Plot, double Last) { Plot.SetView(Last - count / 10.0, Last, -1.5, 1.5); });
    }

    void Append() {
        constexpr std::size_t count = 1000000;
        FRows.Time("append 1e6, alone", [] { T::AppendAlone(count); });
        FRows.Time(
            "append 1e6, with a series",
            [] {
                auto plot = std::make_unique<T>();
                plot->AddLine({0}, {0});
                plot->FollowData();
                plot->Paint();
                return plot;
            },
            [](TPlot& Plot) {
                for (std::size_t i = 1; i <= count; ++i) Plot->Append(double(i), double(i % 1000));
            });
    }

    void Kinds() {
        Kind("1000 lines of 100, new range", [](T& Plot) {
            for (int k = 0; k < 1000; ++k) {
                TPoints points = WaveOf(100);
                for (double& x : points.X) x = x * 900 + 10 * k;
                Plot.AddLine(points.X, points.Y);
            }
        });
        Kind("random x 1e5, new range", [](T& Plot) {
            TPoints points = WaveOf(100000);
            TRandom random;
            for (double& x : points.X) x = 100000 * random();
            Plot.AddLine(points.X, points.Y);
        });
        if (T::CGaps)
            Kind("gaps 1e5, new range", [](T& Plot) {
                TPoints points = WaveOf(100000);
                for (std::size_t i = 9; i < points.Y.size(); i += 10)
                    points.Y[i] = std::numeric_limits<double>::quiet_NaN();
                Plot.AddLine(points.X, points.Y);
            });
        Kind("circles 1e5, new range", [](T& Plot) {
            TPoints points = WaveOf(100000);
            TRandom random;
            for (double& y : points.Y) y += random() - 0.5;
            Plot.AddCircles(points.X, points.Y);
        });
        Kind("error bars 1e4, new range", [](T& Plot) {
            TPoints points = WaveOf(10000);
            for (double& x : points.X) x *= 10;
            Plot.AddErrorBars(points.X, points.Y, TValues(10000, 0.05));
        });
        Kind("bars 1e3, new range", [](T& Plot) {
            TPoints points = WaveOf(1000);
            for (double& x : points.X) x *= 100;
            Plot.AddBars(points.X, points.Y);
        });
        Logarithmic();
    }
    /// What Fill adds, x from 0 to 1e5.
    template <class F>
    void Kind(const std::string& Name, F Fill) {
        if (!FRows.Wants(Name)) return;
        T plot;
        Fill(plot);
        Frames(plot, Name, [&](int i) { Shift(plot, 1e5, i); });
    }
    void Logarithmic() {
        const std::string name = "logarithmic 1e5, new range";
        if (!FRows.Wants(name)) return;
        T plot;
        TPoints points = WaveOf(100000);
        for (double& y : points.Y) y = std::pow(10, 3 * y);
        plot.AddLine(points.X, points.Y);
        plot.SetLogarithmic();
        Frames(plot, name, [&](int i) { plot.SetView(-300.0 * (i % 100), 1e5, 1e-4, 1e4); });
    }

    void Load() {
        const std::string name = "load 1e7 and first frame";
        if (!FRows.Wants(name)) return;
        const TPoints points = WaveOf(10000000);
        FRows.Time(
            name, [] { return std::make_unique<T>(); },
            [&](TPlot& Plot) {
                Plot->AddLine(points.X, points.Y);
                Plot->FollowData();
                Plot->Paint();
            });
    }

    const TRows& FRows;
};

} // namespace peers
