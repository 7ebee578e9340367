#pragma once
// What of a form lies at a point: its controls, and what stands in a graph without being one.

#include <kxgraph/platform/controls/form.h>

#include <string>

namespace kx {

class TKxGraphSeries;

/// A component of the form, or the form itself, and the property that the very place shows; empty: none.
struct TKxDesignHit {
    TComponent* Component = nullptr;
    std::string Property;
};

/// The topmost visible one at Pos (pixels of the form), whether it is enabled or not; of series those that
/// are drawn there, the last one first.
TKxDesignHit HitTest(TForm& Form, TPoint Pos);

/// The topmost visible control of the form at Pos; the form itself where there is no other.
TControl& ControlAt(TForm& Form, TPoint Pos);

/// Where a component shows, in pixels of the form: a control's bounds, the points of a series; empty for what
/// shows nowhere.
TRect ShownRect(const TControl& Control);
std::vector<TPoint> ShownPoints(const TKxGraphSeries& Series);

/// The property that one who opens a component wants to change: "Caption" of a label, "Values" of a vector.
/// Empty where none stands out.
std::string NaturalProperty(const TComponent& Component);

/// The caption that a component shows on the form; else its natural property.
std::string CaptionProperty(const TComponent& Component);

} // namespace kx
