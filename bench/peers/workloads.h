#pragma once
// What kxgraph and its peers are measured by: names of rows, data, and the stopwatch. The standard library
// alone: Qt 5 and Qt 6 programs include it.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <regex>
#include <string>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace peers {

using TValues = std::vector<double>;

struct TPoints {
    TValues X, Y;
};

/// The same numbers in every program, whatever its library: linear congruences.
class TRandom {
public:
    /// From 0 to 1.
    double operator()() {
        FState = FState * 6364136223846793005u + 1442695040888963407u;
        return double(FState >> 11) * 0x1p-53;
    }

private:
    std::uint64_t FState = 1;
};

/// Five periods of a noisy sine of amplitude 1 at x = 0, 1, 2, ...
inline double Wave(std::size_t Index, std::size_t Count, TRandom& Random) {
    return std::sin(31.4159 * double(Index) / double(Count)) + 0.2 * Random() - 0.1;
}

inline TPoints WaveOf(std::size_t Count) {
    TRandom random;
    TPoints points{TValues(Count), TValues(Count)};
    for (std::size_t i = 0; i < Count; ++i) {
        points.X[i] = double(i);
        points.Y[i] = Wave(i, Count, random);
    }
    return points;
}

/// Prints the rows that were asked for: name, tab, seconds. The name of a row that is no time ends with its
/// unit.
class TRows {
public:
    TRows(int Count, char** Arguments) : FWanted(Count > 1 ? Arguments[1] : "") {}

    bool Wants(const std::string& Name) const { return std::regex_search(Name, FWanted); }
    void Tell(const std::string& Name, double Value) const {
        std::printf("%s\t%.9g\n", Name.c_str(), Value);
        std::fflush(stdout);
    }
    /// The least of several calls of Work, three at least.
    template <class F>
    void Time(const std::string& Name, F Work) const {
        Time(
            Name, [] { return 0; }, [&Work](int) { Work(); });
    }
    /// The same for work that needs something new each time; making and destroying it takes no part.
    template <class M, class F>
    void Time(const std::string& Name, M Make, F Work) const {
        if (Wants(Name)) Tell(Name, TimesOf(3, Make, Work).front());
    }
    /// How the times of many calls are spread: their median, and what one in a hundred exceeds.
    template <class F>
    void Spread(const std::string& Name, F Work) const {
        if (!Wants(Name)) return;
        const auto times = TimesOf(
            200, [] { return 0; }, [&Work](int) { Work(); });
        Tell(Name + ", median", times[times.size() / 2]);
        Tell(Name + ", 99 %", times[times.size() * 99 / 100]);
    }

private:
    using TClock = std::chrono::steady_clock;
    static constexpr double CPatience = 0.7; // seconds a row

    /// In order, as many as patience has, but no fewer than Least.
    template <class M, class F>
    static std::vector<double> TimesOf(std::size_t Least, M Make, F Work) {
        std::vector<double> times;
        for (double spent = 0; times.size() < Least || (times.size() < 1000 && spent < CPatience);) {
            auto subject = Make();
            const auto begin = TClock::now();
            Work(subject);
            times.push_back(std::chrono::duration<double>(TClock::now() - begin).count());
            spent += times.back();
        }
        std::sort(times.begin(), times.end());
        return times;
    }

    std::regex FWanted;
};

/// Bytes in memory.
inline double ResidentBytes() {
    malloc_trim(0);
    double all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * double(sysconf(_SC_PAGESIZE));
}

// Numbers in, numbers out.

constexpr const char *CLineFit = "fit: line, 1e6", *CPolynomialFit = "fit: degree 5, 1e6",
                     *CSimplexFit = "fit: decay by simplex, 1e4", *CAnyFit = "fit: decay by any method, 1e4",
                     *CAkimaBuild = "curve: Akima of 1e6",
                     *CAkimaValues = "curve: 1e6 values of Akima of 1e5",
                     *CFormula = "formula: two decays at 1e6", *CIniWrite = "ini: 1e5 keys written",
                     *CIniRead = "ini: 1e5 keys read";

/// For straight lines and polynomials: x from 0 to 20.
inline TPoints SineOf(std::size_t Count) {
    TPoints points = WaveOf(Count);
    for (double& x : points.X) x *= 20.0 / double(Count);
    return points;
}

/// For fits of a*exp(-b*x)+c from CDecayStart: x from 0 to 10.
constexpr double CDecayStart[] = {3, 0.5, 0.7};
constexpr std::size_t CDecayPoints = 10000;

inline TPoints DecayOf(std::size_t Count) {
    TPoints points{TValues(Count), TValues(Count)};
    for (std::size_t i = 0; i < Count; ++i) {
        points.X[i] = 10.0 * double(i) / double(Count);
        points.Y[i] = 2 * std::exp(-0.8 * points.X[i]) + 1 + 0.01 * std::sin(double(i));
    }
    return points;
}
inline double DecaySum(const TPoints& Points, const double* C) {
    double sum = 0;
    for (std::size_t i = 0; i < Points.X.size(); ++i) {
        const double rest = Points.Y[i] - (C[0] * std::exp(-C[1] * Points.X[i]) + C[2]);
        sum += rest * rest;
    }
    return sum;
}
/// A fit by simplex has come to its end below this: the least sum of squares, to nine digits.
inline double DecayGoal(const TPoints& Points) {
    const auto leastFor = [&](double B) { // over a and c, by the straight line of y over exp(-b*x)
        double e = 0, y = 0, ee = 0, ey = 0, yy = 0;
        const auto n = double(Points.X.size());
        for (std::size_t i = 0; i < Points.X.size(); ++i) {
            const double power = std::exp(-B * Points.X[i]), value = Points.Y[i];
            e += power, y += value, ee += power * power, ey += power * value, yy += value * value;
        }
        const double mixed = ey - e * y / n;
        return yy - y * y / n - mixed * mixed / (ee - e * e / n);
    };
    double low = 0.5, high = 1.2;
    for (int i = 0; i < 60; ++i) {
        const double left = (2 * low + high) / 3, right = (low + 2 * high) / 3;
        (leastFor(left) < leastFor(right) ? high : low) = leastFor(left) < leastFor(right) ? right : left;
    }
    return leastFor(low) * (1 + 1e-9);
}

/// For Akima's curve: uneven steps.
inline TPoints UnevenOf(std::size_t Count) {
    TPoints points = WaveOf(Count);
    TRandom random;
    double at = 0;
    for (double& x : points.X) x = at += 0.5 + random();
    return points;
}
/// Count ascending x between the first and the last of Points.
inline TValues BetweenOf(const TPoints& Points, std::size_t Count) {
    TValues x(Count);
    const double from = Points.X.front(), span = Points.X.back() - from;
    for (std::size_t i = 0; i < Count; ++i) x[i] = from + span * (double(i) + 0.5) / double(Count);
    return x;
}

constexpr const char* CFormulaText = "a*exp(-b*x)+c*exp(-d*x)";
constexpr double CFormulaCoefficients[] = {2, 0.8, 1, 0.1};

inline TValues FormulaX() { return BetweenOf({{0, 10}, {}}, 1000000); }

/// Sections of 50 keys; the value is the index.
constexpr int CIniKeys = 100000;

inline std::string IniSection(int Index) { return "Section" + std::to_string(Index / 50); }
inline std::string IniKey(int Index) { return "Key" + std::to_string(Index % 50); }

/// What was computed counts as used.
inline void Keep(double Value) {
    static volatile double sink = 0;
    sink = Value;
    if (std::isnan(sink)) std::abort(); // whoever computes something else is no peer
}

} // namespace peers
