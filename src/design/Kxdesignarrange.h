#pragma once
// Places and sizes of the controls of a form: moved, resized, aligned, spread, and drawn to the grid and to
// the edges of others. Rectangles are in pixels of the control that all of them stand in.

#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/platform/drawing/geometry.h>

#include <span>
#include <vector>

namespace kx {

/// What controls are aligned by; the last selected one stays where it is.
enum class TKxDesignEdge { Left, Center, Right, Top, Middle, Bottom };
enum class TKxDesignSpread { Horizontally, Vertically };
enum class TKxDesignSize { Width, Height, Both };

// As values.

std::vector<TRect> AlignedTo(const TRect& Model, std::vector<TRect> Rects, TKxDesignEdge Edge);
/// With equal gaps between the outermost two, which stay.
std::vector<TRect> Spread(std::vector<TRect> Rects, TKxDesignSpread Direction);

/// What a rectangle is drawn to while the mouse moves it.
struct TKxDesignSnap {
    int Grid = 8;  ///< pixels; below 2: none
    int Reach = 5; ///< the edges of others that are no farther draw it before the grid does; 0: none do
    std::vector<TRect> Others = {};
};
/// The edges of a rectangle that move; with all four it is moved whole.
struct TKxDesignEdges {
    bool Left = false, Top = false, Right = false, Bottom = false;
    bool AreAll() const { return Left && Top && Right && Bottom; }
};
/// Rect drawn to what is near; with the lines that it has been drawn to, as rectangles of one pixel.
struct TKxDesignSnapped {
    TRect Rect;
    std::vector<TRect> Guides;
};
TKxDesignSnapped Snapped(const TRect& Rect, TKxDesignEdges Moving, const TKxDesignSnap& Snap);

// Of the selection.

/// Whether the bounds of a control are its own: not those of an axis, which its graph lays out, nor of one
/// that is aligned to its parent.
bool CanPlace(const TControl& Control);
/// The selected controls that can be placed and stand in one parent, that of the last selected one.
std::vector<TControl*> PlaceableSelection(const TKxDesignDocument& Document);

/// One step; several with the same Key are one.
void MoveSelected(TKxDesignDocument& Document, TPoint By, const std::string& Key = {});
/// The right and the lower edge, to a pixel at least. Of the form, too.
void ResizeSelected(TKxDesignDocument& Document, TSize By, const std::string& Key = {});
/// Gives Controls the bounds; does nothing when they have them.
void SetControlBounds(TKxDesignDocument& Document, const TKxDesignStep& Step,
                      std::span<TControl* const> Controls, std::span<const TRect> Bounds);
void AlignSelected(TKxDesignDocument& Document, TKxDesignEdge Edge);
void SpreadSelected(TKxDesignDocument& Document, TKxDesignSpread Direction);
void SameSizeSelected(TKxDesignDocument& Document, TKxDesignSize What);

} // namespace kx
