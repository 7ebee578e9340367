#pragma once
// The canvas that components draw on: keeps pen, brush, font, position, origin and clip, applies the pixel
// rules and hands finished calls to a device.

#include <kxgraph/platform/drawing/device.h>
#include <kxgraph/platform/drawing/graphics.h>

#include <optional>
#include <string_view>

namespace kx {

/// Pen, brush, font and mode, and drawing with them on a device that it does not own. Without a device
/// drawing does nothing and text is measured on the screen.
///
/// Pixel rules: LineTo and Polyline leave out their last pixel. Rectangle and Ellipse cover l..r-1 and
/// t..b-1, FillRect likewise. On a smooth device all of them take exact places, too, where a line ends in its
/// last point. A pen of width 0 is one device pixel wide. pmXor exists on raster devices only
/// (CanXor).
class TCanvas {
public:
    explicit TCanvas(TCanvasDevice* Device = nullptr);

    TPen Pen;
    TBrush Brush;
    TFont Font;
    bool Crisp = false; ///< of lines and outlines, see TStroke

    TCanvasDevice* GetDevice() const { return FDevice; }
    /// Draws on another device from now on; null detaches. Origin becomes (0, 0), the base clip is none.
    void SetDevice(TCanvasDevice* Device);

    void MoveTo(int X, int Y) { FPosition = {X, Y}; }
    void LineTo(int X, int Y);
    TPoint GetPenPos() const { return FPosition; }
    void Polyline(TPointSpan Points);
    void Polygon(TPointSpan Points);
    /// Rectangle and Ellipse take their edges in either order.
    void Rectangle(int Left, int Top, int Right, int Bottom) { Rectangle({Left, Top, Right, Bottom}); }
    void Rectangle(const TRealRect& Rect);
    void Ellipse(int Left, int Top, int Right, int Bottom) { Ellipse({Left, Top, Right, Bottom}); }
    void Ellipse(const TRealRect& Rect);
    /// Fills with the brush, without outline and always in copy mode.
    void FillRect(const TRealRect& Rect);
    /// A dotted frame of one pixel inside Rect, in XOR mode where the device can: drawing it again removes
    /// it.
    void DrawFocusRect(const TRect& Rect);
    /// Text with its first cell's top left at (X, Y), in the font and its orientation. Under the font named
    /// "Symbol" each character shows the Unicode character that the symbol encoding has in its place.
    void TextOut(int X, int Y, std::string_view Text) { TextOut(TRealPoint(X, Y), Text); }
    void TextOut(TRealPoint Pos, std::string_view Text);
    int TextWidth(std::string_view Text) const { return TextExtent(Text).Width; }
    int TextHeight(std::string_view Text) const { return TextExtent(Text).Height; }
    /// Measured with the screen's metrics when the canvas has no device.
    TSize TextExtent(std::string_view Text) const;
    /// The advance width with fractions of a pixel, as smooth devices show it.
    double ExactTextWidth(std::string_view Text) const;
    bool CanXor() const { return FDevice && FDevice->CanXor(); }
    /// Whether exact places show as such; without a device they do not.
    bool IsSmooth() const { return FDevice && FDevice->IsSmooth(); }
    int ColumnsPerPixel() const { return FDevice ? FDevice->ColumnsPerPixel() : CColumnsPerPixel; }
    /// Draws One with its origin at each place (canvas coordinates), in order.
    void Stamps(TPointSpan Places, const TRecording& One);
    /// Repeats a recording with its origin at the canvas's and inside the clip.
    void Replay(const TRecording& Picture);

    /// Coordinates of all calls are relative to the origin; set in device coordinates.
    TPoint GetOrigin() const { return FOrigin; }
    void SetOrigin(TPoint Origin) { FOrigin = Origin; }
    /// The clip in canvas coordinates; without one, the base clip or the device's extent.
    TRect GetClipRect() const;
    /// Narrows drawing to Clip (canvas coordinates) inside the base clip; no value lifts it to the base clip.
    void SetClip(const std::optional<TRect>& Clip);
    /// The outermost clip (device coordinates), which SetClip cannot widen; a frame's dirty rectangle.
    void SetBaseClip(const std::optional<TRect>& Clip);

    /// Restores origin, base clip and clip when it goes out of scope; exceptions included.
    class TSaved {
    public:
        explicit TSaved(TCanvas& Canvas);
        ~TSaved();
        TSaved(const TSaved&) = delete;
        TSaved& operator=(const TSaved&) = delete;

    private:
        TCanvas& FCanvas;
        TPoint FOrigin;
        std::optional<TRect> FBaseClip, FClip;
    };

private:
    TStroke Stroke() const;
    TFill Fill() const;
    TFontFace Face() const;
    std::optional<TRect> EffectiveClip() const;
    void ChangeClips(const std::optional<TRect>& BaseClip, const std::optional<TRect>& Clip);

    TCanvasDevice* FDevice = nullptr;
    TPoint FPosition, FOrigin;
    std::optional<TRect> FBaseClip, FClip; // device coordinates
    TPointMover FMover;                    // for calls under an origin
};

/// The Unicode text of Text under the symbol encoding: a -> alpha, D -> capital delta, ... Characters without
/// a symbol stay.
std::string SymbolText(std::string_view Text);

} // namespace kx
