#pragma once
// Whether series that follow their vectors value by value hold what a full scan finds.

#include "support/graphfixture.h"

namespace kx::test {

inline TReals PixelsOf(const TKxSeries& Series) {
    TReals pixels;
    for (const TPoint p : Series.GetPoints().Values())
        pixels.insert(pixels.end(), {double(p.X), double(p.Y)});
    return pixels;
}

/// Vectors are changed at random, four times before each of 40 frames. InPairs: the first two are then filled
/// up to one length, since a value without a partner counts until the next scan.
inline void ExpectFollowed(TGraphForm& Form, const std::vector<TKxLiveVector*>& Vectors,
                           const std::vector<TKxSeries*>& Series, std::mt19937& Random,
                           bool InPairs = false) {
    const auto below = [&](int N) { return int(Random() % unsigned(N)); };
    for (int step = 0; step < 40; ++step) {
        for (int change = 0; change < 4; ++change) {
            TKxLiveVector& vector = *Vectors[std::size_t(below(int(Vectors.size())))];
            const int kind = below(9), count = vector.GetCount();
            const double value = kind == 7 ? CNaN : below(100) - 30;
            if (kind == 0 && count > 0)
                vector.Delete(below(count));
            else if (kind < 3 && count > 0)
                vector.SetValue(below(count), value);
            else if (kind == 8 && count > 0)
                vector.Insert(below(count), value);
            else
                vector.Add(value);
        }
        while (InPairs && Vectors[0]->GetCount() != Vectors[1]->GetCount())
            Vectors[Vectors[0]->GetCount() > Vectors[1]->GetCount()]->Add(below(100));
        std::vector<std::array<double, 4>> extents;
        std::vector<TReals> pixels;
        for (const bool scanned : {false, true}) {
            if (scanned)
                for (TKxSeries* series : Series) series->RangesModified();
            Form.Draw();
            for (std::size_t k = 0; k < Series.size(); ++k) {
                if (!scanned)
                    extents.push_back(ExtentsOf(*Series[k])), pixels.push_back(PixelsOf(*Series[k]));
                ASSERT_EQ(extents[k], ExtentsOf(*Series[k])) << "step " << step << " series " << k;
                ASSERT_EQ(pixels[k], PixelsOf(*Series[k])) << "step " << step << " series " << k;
            }
        }
    }
}

} // namespace kx::test
