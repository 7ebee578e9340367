#pragma once
// The labels of an axis, tick labels and exponent, as measured and placed values. What they read comes from
// Kxticks.

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/graph/Kxaxisline.h>
#include <kxgraph/graph/Kxaxislook.h>
#include <kxgraph/graph/Kxticks.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kx {

class TKxAxisLabels {
public:
    /// Texts, widths and places of all labels, line by line, the exponent label last.
    const std::vector<TKxCaptionRec>& Recs() const { return FRecs; }
    /// Across the axis: the room of all labels that were measured.
    int ExtentAcross(TKxSide Side) const { return Side.Across(Turned({FWidest, FMostLines * FHeight})); }
    /// How far the labels reach over the ends of the line, thinned out or not: otherwise the length of the
    /// axis, the labels left and the margins that they need could follow one another without end.
    int GetStartReach() const { return FStartReach; }
    int GetStopReach() const { return FStopReach; }

    /// No labels.
    void Clear();
    /// The labels of Ticks in Canvas's font.
    void Measure(const TKxTicks& Ticks, TCanvas& Canvas);
    /// What was measured in another font no longer counts.
    void ForgetWidths() { FWidths.clear(); }
    /// They are written upwards; to be placed anew. Those of one line only.
    void Turn() { FIsTurned = true; }
    /// Cuts off what takes more room across the axis, in the font that they were measured in; to be placed
    /// anew.
    void CutOff(TKxSide Side, int MostAcross, TCanvas& Canvas);
    /// Beside the ticks that they were measured of.
    void Place(const TKxTicks& Ticks, const TKxAxisLine& Line, const TKxAxisLook& Look);
    void MeasureReach(const TKxAxisLine& Line);
    /// Whether two of them are too close to be read; they must be placed.
    bool Touch(const TKxTicks& Ticks, TKxSide Side) const;
    /// Leaves out, of Ticks as well, every second (third, ...) label where labels would touch.
    void ThinOut(TKxTicks& Ticks, TKxSide Side);

    /// Paints all of them, in Canvas's font.
    void Paint(TCanvas& Canvas);

private:
    void Add(const std::string& Text, TCanvas& Canvas);
    TSize Turned(TSize Size) const { return FIsTurned ? TSize{Size.Height, Size.Width} : Size; }
    TSize SizeOf(const TKxCaptionRec& Rec) const { return Turned({Rec.Width, FHeight}); }
    TRect RectOf(const TKxCaptionRec& Rec) const;
    void Put(TKxCaptionRec& Rec, TPoint TopLeft) const;
    TPoint PlaceOfExponent(const TKxAxisLine& Line, const TKxAxisLook& Look) const;
    int MinGap(TKxSide Side) const { return Side.IsHorizontal() ? FHeight / 2 : 1; }
    TKxLabelExtent ExtentAlong(const TKxTickLabel& Label, std::size_t FirstRec, TKxSide Side) const;

    std::vector<TKxCaptionRec> FRecs;
    std::vector<std::pair<std::string, int>> FWidths; // of the labels measured last, in order
    int FWidest = 0, FHeight = 0, FMostLines = 0, FStartReach = 0, FStopReach = 0;
    bool FIsTurned = false;
};

} // namespace kx
