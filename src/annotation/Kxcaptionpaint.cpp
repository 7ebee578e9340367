// Measuring and painting captions, one character at a time: that makes the position of each of them exact,
// at every angle.

#include <kxgraph/annotation/Kxcaption.h>

#include <cmath>
#include <numbers>

namespace kx {

namespace {

/// Keeps a canvas's font and restores it at the end of the scope.
class TFontKeeper {
public:
    explicit TFontKeeper(TFont& Font) : FFont(Font) { Base.Assign(Font); }
    ~TFontKeeper() { FFont.Assign(Base); }
    TFontKeeper(const TFontKeeper&) = delete;
    TFontKeeper& operator=(const TFontKeeper&) = delete;

    TFont Base;

private:
    TFont& FFont;
};

void TakeLooks(const TKxCaptionLooks& Looks, const TFont& Base, int Angle, TFont& Font) {
    Font.Assign(Base);
    if (Looks.Symbol) Font.SetName("Symbol");
    Font.SetStyle(Base.GetStyle() ^ Looks.Toggled);
    if (Looks.Small) Font.SetSize(Base.GetSize() * 2 / 3);
    RotateFont(&Font, Angle);
}

/// Calls Shown(character, advance width, run, index in the run) for every shown character, the canvas's font
/// being the character's.
template <class F>
void ForEachCharacter(const TKxParsedCaption& Caption, TCanvas& Canvas, const TFont& Base, int Angle,
                      F Shown) {
    for (const TKxCaptionRun& run : Caption.Runs) {
        TakeLooks(run.Looks, Base, Angle, Canvas.Font);
        const std::string_view text = run.Text;
        int index = 0;
        for (std::size_t at = 0; at < text.size(); ++index) {
            const std::string_view character = text.substr(at, std::size_t(DecodeAt(text, at).Length));
            at += character.size();
            Shown(character, Canvas.TextWidth(character), run, index);
        }
    }
}

int Rounded(long double Value) { return RoundToInt(double(Value)); }

/// The pen that walks along the base line and puts each character down, raised or lowered as its looks say.
class TCaptionPen {
public:
    TCaptionPen(TPoint Start, int Angle, const TFont& Base)
        : FPos(Start), FDirection(DirectionOf(Angle)),
          FRaised(Up(int(std::nearbyint(std::abs(Base.GetSize() / 72.0 * 11))))),
          FLowered(Up(-int(std::nearbyint(std::abs(Base.GetSize() / 72.0 * 34))))) {}

    TPoint PlaceOf(const TKxCaptionLooks& Looks) const {
        return FPos + (Looks.Superscript ? FRaised : TPoint{}) + (Looks.Subscript ? FLowered : TPoint{});
    }
    void Advance(int Width) {
        FPos = FPos + TPoint{Rounded(Width * FDirection.Cos), -Rounded(Width * FDirection.Sin)};
    }

private:
    /// The way of Distance pixels towards the top of the characters.
    TPoint Up(int Distance) const {
        return {-Rounded(Distance * FDirection.Sin), -Rounded(Distance * FDirection.Cos)};
    }

    TPoint FPos;
    TKxDirection FDirection;
    TPoint FRaised, FLowered;
};

/// The width of a caption as smooth devices show it, or the runs themselves with Put called for each.
template <class F>
double WalkExactly(const TKxParsedCaption& Caption, TCanvas& Canvas, const TFont& Base, int Angle, F Put) {
    double along = 0;
    for (const TKxCaptionRun& run : Caption.Runs) {
        TakeLooks(run.Looks, Base, Angle, Canvas.Font);
        Put(run, along);
        along += Canvas.ExactTextWidth(run.Text);
    }
    return along;
}

/// Where the caption begins whose anchor is to stay.
TRealPoint ExactStart(const TKxCaptionAnchor& Anchor, TPoint Start, const TKxDirection& Direction,
                      double WidthOnScreen, double Width) {
    const double back = Anchor.Along * (WidthOnScreen - Width);
    return {Start.X + Anchor.Apart.X + back * double(Direction.Cos),
            Start.Y + Anchor.Apart.Y - back * double(Direction.Sin)};
}

void PaintExactly(const TKxParsedCaption& Caption, TCanvas& Canvas, const TFont& Base, TPoint Start,
                  int Angle, const TKxCaptionAnchor& Anchor, int WidthOnScreen) {
    const TKxDirection direction = DirectionOf(Angle);
    const double width = WalkExactly(Caption, Canvas, Base, Angle, [](auto&, double) {});
    const TRealPoint start = ExactStart(Anchor, Start, direction, WidthOnScreen, width);
    const TCaptionPen levels({}, Angle, Base);
    WalkExactly(Caption, Canvas, Base, Angle, [&](const TKxCaptionRun& Run, double Along) {
        const TPoint level = levels.PlaceOf(Run.Looks);
        Canvas.TextOut(TRealPoint{start.X + level.X + Along * double(direction.Cos),
                                  start.Y + level.Y - Along * double(direction.Sin)},
                       Run.Text);
    });
}

/// Moves the edges from the First one on, which stand Start and more from the left, so that the last of them
/// is where the run ends: single characters know nothing of kerning.
void FitEdges(std::vector<double>& Edges, std::size_t First, double Start, double Width) {
    if (First == Edges.size() || Edges.back() <= Start) return;
    const double factor = Width / (Edges.back() - Start);
    for (std::size_t i = First; i < Edges.size(); ++i) Edges[i] = Start + (Edges[i] - Start) * factor;
}

std::vector<double> ExactEdges(const TKxParsedCaption& Caption, TCanvas& Canvas, const TFont& Base) {
    std::vector<double> edges;
    WalkExactly(Caption, Canvas, Base, 0, [&](const TKxCaptionRun& Run, double Along) {
        const std::size_t first = edges.size();
        double edge = Along;
        for (std::size_t at = 0; at < Run.Text.size();) {
            const auto length = std::size_t(DecodeAt(Run.Text, at).Length);
            edge += Canvas.ExactTextWidth(std::string_view(Run.Text).substr(at, length));
            edges.push_back(edge);
            at += length;
        }
        FitEdges(edges, first, Along, Canvas.ExactTextWidth(Run.Text));
    });
    return edges;
}

void ClearArrays(TKxCaptionRec& Rec, int Length) {
    Rec.CharPos = TDynArray<std::int32_t>(Length);
    Rec.CharIndex = TDynArray<std::int32_t>(Length);
    for (TDynArray<bool>* at : {&Rec.SymbolFontAt, &Rec.BoldAt, &Rec.ItalicAt, &Rec.UnderlineAt,
                                &Rec.StrikeOutAt, &Rec.SuperscriptAt, &Rec.SubscriptAt})
        *at = TDynArray<bool>(Length);
}

void MarkSwitch(TKxCaptionRec& Rec, const TKxParsedCaption::TSwitchAt& At) {
    const auto toggle = [&At](TDynArray<bool>& Marks) { Marks[At.Index] = !Marks[At.Index]; };
    switch (At.Switch) {
    // Kept: set, not toggled; a caption edit finds an empty stretch of symbols by it.
    case TKxCaptionSwitch::Symbol: Rec.SymbolFontAt[At.Index] = true; break;
    case TKxCaptionSwitch::Bold: toggle(Rec.BoldAt); break;
    case TKxCaptionSwitch::Italic: toggle(Rec.ItalicAt); break;
    case TKxCaptionSwitch::Underline: toggle(Rec.UnderlineAt); break;
    case TKxCaptionSwitch::StrikeOut: toggle(Rec.StrikeOutAt); break;
    case TKxCaptionSwitch::Superscript: toggle(Rec.SuperscriptAt); break;
    case TKxCaptionSwitch::Subscript: toggle(Rec.SubscriptAt); break;
    }
}

} // namespace

TKxDirection DirectionOf(int Angle) {
    static constexpr TKxDirection quarters[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const int turn = (Angle % 3600 + 3600) % 3600;
    if (turn % 900 == 0) return quarters[turn / 900];
    const long double radians = turn * std::numbers::pi_v<long double> / 1800;
    return {std::cos(radians), std::sin(radians)};
}

void RotateFont(TFont* Font, int Angle) { Font->SetOrientation(Angle); }

int MeasureCaption(const TKxParsedCaption& Caption, TCanvas& Canvas) {
    const TFontKeeper font(Canvas.Font);
    int width = 0;
    ForEachCharacter(Caption, Canvas, font.Base, 0, [&](auto, int Width, auto&, int) { width += Width; });
    return width;
}

double ExactCaptionWidth(const TKxParsedCaption& Caption, TCanvas& Canvas) {
    const TFontKeeper font(Canvas.Font);
    return WalkExactly(Caption, Canvas, font.Base, 0, [](auto&, double) {});
}

std::vector<double> CaptionEdges(const TKxParsedCaption& Caption, TCanvas& Canvas, bool Exactly) {
    const TFontKeeper font(Canvas.Font);
    if (Exactly) return ExactEdges(Caption, Canvas, font.Base);
    std::vector<double> edges;
    int edge = 0;
    ForEachCharacter(Caption, Canvas, font.Base, 0,
                     [&](auto, int Width, auto&, int) { edges.push_back(edge += Width); });
    return edges;
}

TKxCaptionLevel CaptionLevel(const TKxCaptionLooks& Looks, TCanvas& Canvas) {
    const TFontKeeper font(Canvas.Font);
    const int top = TCaptionPen({}, 0, font.Base).PlaceOf(Looks).Y;
    TakeLooks(Looks, font.Base, 0, Canvas.Font);
    return {top, Canvas.TextHeight("X")};
}

void PaintCaption(const TKxParsedCaption& Caption, TCanvas& Canvas, int X, int Y, int Angle,
                  const TKxCaptionAnchor& Anchor) {
    const TFontKeeper font(Canvas.Font);
    if (Canvas.IsSmooth()) {
        int width = 0;
        ForEachCharacter(Caption, Canvas, font.Base, 0, [&](auto, int Width, auto&, int) { width += Width; });
        return PaintExactly(Caption, Canvas, font.Base, {X, Y}, Angle, Anchor, width);
    }
    TCaptionPen pen({X, Y}, Angle, font.Base);
    ForEachCharacter(Caption, Canvas, font.Base, Angle,
                     [&](std::string_view Character, int Width, const TKxCaptionRun& Run, int) {
                         const TPoint place = pen.PlaceOf(Run.Looks);
                         Canvas.TextOut(place.X, place.Y, Character);
                         pen.Advance(Width);
                     });
}

void RichPaintTo(TKxCaptionRec& Rec) {
    const TKxParsedCaption caption = ParseCaption(Rec.Text);
    ClearArrays(Rec, caption.Length + 1);
    for (const auto& at : caption.Switches) MarkSwitch(Rec, at);
    Rec.Stripped = caption.Stripped;
    Rec.Width = 0;

    TCanvas& canvas = *Rec.Canvas;
    const TFontKeeper font(canvas.Font);
    TCaptionPen pen({Rec.X, Rec.Y}, Rec.Angle, font.Base);
    int shown = 0;
    const bool exactly = Rec.Paint && canvas.IsSmooth(), paints = Rec.Paint && !exactly;
    const auto show = [&](std::string_view Character, int Width, const TKxCaptionRun& Run, int Index) {
        if (paints) {
            const bool selected = Rec.ShowSelection && Rec.SelStart <= shown && shown < Rec.SelEnd;
            canvas.Font.SetColor(selected ? clHighlightText : font.Base.GetColor());
            const TPoint place = pen.PlaceOf(Run.Looks);
            canvas.TextOut(place.X, place.Y, Character);
            pen.Advance(Width);
        }
        Rec.Width += Width;
        Rec.CharPos[shown] = Rec.Width;
        Rec.CharIndex[shown] = Run.Position + Index;
        ++shown;
    };
    ForEachCharacter(caption, canvas, font.Base, Rec.Angle, show);
    if (exactly) PaintExactly(caption, canvas, font.Base, {Rec.X, Rec.Y}, Rec.Angle, Rec.Anchor, Rec.Width);
}

} // namespace kx
