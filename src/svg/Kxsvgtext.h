#pragma once
// Text for SVG: captions arrive letter by letter and leave as one element that can be searched and edited.

#include <kxgraph/platform/drawing/device.h>
#include <kxgraph/svg/Kxsvgmarkup.h>

#include <optional>
#include <string>
#include <vector>

namespace kx::svg {

/// A run of text, or letters in one style on one line, gathered from calls in writing order. Where letters
/// came one by one, their positions are kept, so that they stand where they were drawn whatever font the
/// viewer has.
///
/// The baseline lies 0.905 of the em square below the top of the cell, to the nearest pixel, as in Arial and
/// the fonts made to its measures; a positive font height (a cell) counts as 1.117 em squares.
class TSvgText {
public:
    bool IsEmpty() const { return FPieces.empty(); }
    void Clear() { FPieces.clear(); }
    const std::optional<TRect>& GetClip() const { return FClip; }

    /// Begins a line with its first piece; the direction of the line follows from Face.
    void Begin(TRealPoint Pos, const TFontFace& Face, TColor Color, const std::optional<TRect>& Clip);
    /// Whether a piece at Pos goes on with this line: the same style and clip, on the same baseline (within a
    /// pixel and a half along slanted lines, where positions are rounded), where the last piece ended or up
    /// to a quarter of the em square beside that. Nothing goes on with a run of letters: they are set as the
    /// viewer's font has them.
    bool ContinuesAt(TRealPoint Pos, const TFontFace& Face, TColor Color,
                     const std::optional<TRect>& Clip) const;
    /// Appends a piece drawn at Pos, whose advance width is Width.
    void Append(TRealPoint Pos, std::string_view Text, int Width);

    /// The parts of the element for a body.
    std::string Head() const;
    std::string Style() const;
    std::string Tail() const;

private:
    struct TPiece {
        double Along;
        std::string Text;
    };
    struct TOffset {
        double Along, Across;
    };
    TOffset OffsetOf(TRealPoint Pos) const;
    double EmSquare() const;
    std::string Positions() const;

    TRealPoint FStart;
    TFontFace FFace;
    TColor FColor = clBlack;
    std::optional<TRect> FClip;
    std::vector<TPiece> FPieces;
    double FEnd = 0;
    bool FIsRun = false; // the last piece is more than a letter
};

} // namespace kx::svg
