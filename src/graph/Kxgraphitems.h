#pragma once
// What a graph needs to know of its neighbours from above: series, and companions such as legends. Shells
// without data, so that the graph names no concrete class.

#include <kxgraph/graph/Kxside.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/series/Kxdraw.h>

#include <string>
#include <vector>

namespace kx {

class TKxAxis;

/// A point of a series as it is drawn.
struct TKxDrawnPoint {
    int Index = -1; ///< -1: there is none
    TPoint At;      ///< in the drawing world
    double X = 0, Y = 0;
};

/// The stretch of X values that a calculation heeds, as markers move it. An automatic end follows the data;
/// setting an end switches that off.
class TKxStartStop {
public:
    virtual double GetCalculationStart() const = 0;
    virtual void SetCalculationStart(double X) = 0;
    virtual double GetCalculationStop() const = 0;
    virtual void SetCalculationStop(double X) = 0;
    virtual bool GetAutoStart() const = 0;
    virtual void SetAutoStart(bool Auto) = 0;
    virtual bool GetAutoStop() const = 0;
    virtual void SetAutoStop(bool Auto) = 0;

protected:
    ~TKxStartStop() = default;
};

/// A series as its graph sees it. A component of the form; registered with the drawing world of the graph
/// that its X axis stands on.
class TKxGraphSeries : public TComponent, public TKxStyleOwner {
public:
    using TComponent::TComponent;

    /// Whether a frame may not be painted before CalculatePoints ran.
    virtual bool NeedsCalculation() const = 0;
    /// Brings extents and screen points up to date; does nothing where axes or vectors are missing.
    virtual void CalculatePoints() = 0;
    /// CalculatePoints of every series that is computed from this one.
    virtual void CalculateChildPoints() = 0;
    /// Draws the data as they are now, and what was computed from them last, until something changes again.
    virtual void KeepShown() = 0;
    /// Paints what lies beneath all series of the graph, such as bands about what is computed from this one.
    /// On the same canvas, before any of them draws itself.
    virtual void DrawBeneath(TCanvas&) {}
    /// Paints line, points, and then the series that are computed from this one. The canvas has the drawing
    /// world's origin and clip.
    virtual void Draw(TCanvas& Canvas) = 0;
    /// Null where the series is bound to none.
    virtual TKxAxis* GetXAxis() const { return nullptr; }
    virtual TKxAxis* GetYAxis() const { return nullptr; }
    /// Whether it is drawn. One that is not keeps its place in legends and in the extents of its axes.
    virtual bool GetVisible() const { return true; }
    virtual void SetVisible(bool) {}
    /// Of the points that stand in the drawing world the nearest to At (pixels of it), no farther than Reach.
    virtual TKxDrawnPoint PointNear(TPoint /*At*/, int /*Reach*/) const { return {}; }
    /// How many points there are, whether they have a place or not.
    virtual int GetPointsCount() const { return 0; }
    /// The point of that index; none where there is none or it has no place.
    virtual TKxDrawnPoint PointAt(int /*Index*/) const { return {}; }
    /// What markers move; null for a series that calculates nothing.
    virtual TKxStartStop* GetStartStop() { return nullptr; }
    /// Whether the series is computed from another one; such a series is entered in its parent's list of
    /// children, never in the graph's list.
    virtual bool IsCalculated() const = 0;
    virtual void SaveOutfit(const std::string& Section, TKxIniList& Ini) = 0;
    virtual void LoadOutfit(const std::string& Section, TKxIniList& Ini) = 0;
    /// The store that results are written into; owned by the series.
    virtual TKxIniList& GetResults() = 0;

    // What a legend shows.
    /// Rich caption.
    virtual const AnsiString& GetCaption() const = 0;
    virtual bool GetIncludeInLegend() const = 0;
    /// Paints in Rect what the series looks like: line with a symbol, swatch, arrow. In the styles that it is
    /// drawn with; nothing of what it hides. Leaves pen, brush and clip as it likes.
    virtual void DrawSample(TCanvas& Canvas, const TRect& Rect) = 0;
    /// The series computed from this one, in drawing order.
    virtual std::vector<TKxGraphSeries*> GetChildSeries() const = 0;
};

/// What a companion asks for: so many pixels between one side of the graph and what stands there.
struct TKxCompanionRoom {
    TKxSide Side = AxFreeFloating; ///< free floating: it needs no room
    int Extent = 0;
};

/// What a layout pass leaves for a companion, in pixels of the graph.
struct TKxCompanionPlace {
    TRect Room;   ///< its room, as long as the graph's side (without the title); empty when it needs none
    TRect World;  ///< the drawing world
    TRect Inside; ///< the drawing world without the ticks that point into it
};

/// A companion control of a graph, such as a legend, that is told when the list of items changes. It may take
/// part in the layout and be kept with the graph.
class TKxGraphCompanion {
public:
    virtual void ItemsModified() = 0;
    /// Asked in every round of the layout pass. Area is the graph without its title, AtMost what a side can
    /// still give across (Width: left and right, Height: top and bottom); more is cut down to it. The answer
    /// must not depend on where the companion stands.
    virtual TKxCompanionRoom GetRoom(TSize /*Area*/, TSize /*AtMost*/) { return {}; }
    /// Told after every round; the last one counts.
    virtual void TakePlace(const TKxCompanionPlace&) {}
    virtual void SaveOutfit(const std::string& /*Section*/, TKxIniList& /*Ini*/) {}
    virtual void LoadOutfit(const std::string& /*Section*/, TKxIniList& /*Ini*/) {}

protected:
    ~TKxGraphCompanion() = default;
};

} // namespace kx
