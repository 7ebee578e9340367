#include <kxgraph/editing/Kxcolorpicker.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/platform/widgets/edit.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

constexpr int CColumns = 12;
constexpr TColor CNamed[CColumns] = {clRed,    clYellow, clLime,  clAqua, clBlue, clFuchsia,
                                     clMaroon, clOlive,  clGreen, clTeal, clNavy, clPurple};
constexpr TColor CHues[CColumns] = {RGB(214, 39, 40), RGB(255, 127, 14), RGB(242, 196, 15), RGB(154, 185, 35),
                                    RGB(44, 160, 44), RGB(20, 150, 120), RGB(23, 190, 207), RGB(31, 119, 180),
                                    RGB(64, 84, 190), RGB(130, 90, 190), RGB(227, 90, 180), RGB(140, 86, 75)};
/// Towards white (positive) or black.
constexpr double CShades[] = {0.7, 0.4, 0, -0.25, -0.5};
constexpr int CRows = 2 + int(std::size(CShades)), CRecentRow = CRows;
constexpr int CMargin = 5, CGap = 5, CSquare = 16;

TColor PaletteColor(int Row, int Column) {
    if (Row == 0) return Blended(clBlack, clWhite, double(Column) / (CColumns - 1));
    if (Row == 1) return CNamed[Column];
    const double shade = CShades[Row - 2];
    return Blended(CHues[Column], shade < 0 ? clBlack : clWhite, std::abs(shade));
}

std::vector<TColor>& Recent() {
    static std::vector<TColor> colors;
    return colors;
}

void AddRecent(TColor Color) {
    std::vector<TColor>& colors = Recent();
    std::erase(colors, Color);
    colors.insert(colors.begin(), Color);
    if (colors.size() > CColumns) colors.pop_back();
}

bool IsHex(std::string_view Text) {
    return Text.size() == 6 && Text.find_first_not_of("0123456789abcdefABCDEF") == Text.npos;
}

} // namespace

std::optional<TColor> ColorOfTyped(std::string_view Text) {
    const std::string text(Trimmed(Text));
    if (text.starts_with('#')) return ColorFromText(text);
    if (IsHex(text)) return ColorFromText("#" + text);
    const bool isName = !text.empty() && text.find_first_of("$-0123456789") == text.npos;
    if (!isName) return std::nullopt;
    const auto named = ColorFromText(text);
    return named ? named : ColorFromText("cl" + text);
}

std::string TypedColor(TColor Color) {
    const std::string name = ColorToText(Color);
    return name.starts_with("cl") ? name : UpperCase(ColorToHtml(Color));
}

/// The field for a colour.
class TKxColorPicker::TField : public TCustomEdit {
public:
    explicit TField(TKxColorPicker& Picker) : TCustomEdit(nullptr), FPicker(Picker) {
        SetTextHint("#RRGGBB");
        SetParent(&Picker);
    }
    bool IsWrong() const { return FWrong; }
    void Show(TColor Color) {
        const TScopedValue showing(FShowing, true);
        FWrong = false;
        SetText(TypedColor(Color));
    }

protected:
    void Changed() override {
        if (!FShowing) {
            const auto color = ColorOfTyped(GetText());
            FWrong = !color;
            Invalidate();
            if (color) return FPicker.Take(*color, true);
        }
        TCustomEdit::Changed();
    }
    TDrawState GetDrawState() const override {
        return TCustomEdit::GetDrawState() | (FWrong ? unsigned(odInvalid) : 0u);
    }
    bool KeyDown(const TKeyStroke& Stroke) override {
        if (Stroke.Key != kcReturn) return TCustomEdit::KeyDown(Stroke);
        Finish();
        return true;
    }
    void Exit() override {
        Finish();
        TCustomEdit::Exit();
    }

private:
    /// What was typed counts as picked.
    void Finish() {
        const auto color = ColorOfTyped(GetText());
        if (!color) return;
        if (!SameText(GetText(), TypedColor(*color))) AddRecent(*color);
        Show(*color);
        FPicker.Invalidate();
    }

    TKxColorPicker& FPicker;
    bool FWrong = false, FShowing = false;
};

TKxColorPicker::TKxColorPicker(TComponent* Owner)
    : TInputControl(Owner), FField(std::make_unique<TField>(*this)) {
    FField->Show(FValue);
    TKxColorPicker::SetBounds(0, 0, CColumns * CSquare + 2 * CMargin,
                              (CRows + 1) * CSquare + 2 * CMargin + 2 * CGap + CFieldHeight);
}

TKxColorPicker::~TKxColorPicker() = default;

std::string TKxColorPicker::GetTyped() const { return FField->GetText(); }

bool TKxColorPicker::IsWrong() const { return FField->IsWrong(); }

const std::vector<TColor>& TKxColorPicker::RecentColors() { return Recent(); }

void TKxColorPicker::SetValue(TColor Color) {
    if (Color != FValue || IsWrong()) Take(Color, false);
}

void TKxColorPicker::Take(TColor Color, bool Typed) {
    const bool changed = FValue != Color;
    FValue = Color;
    if (!Typed) FField->Show(Color);
    Invalidate();
    if (changed) OnChange(this);
}

std::optional<TColor> TKxColorPicker::ColorAt(int Row, int Column) const {
    if (Row < 0 || Row > CRecentRow || Column < 0 || Column >= CColumns) return std::nullopt;
    if (Row < CRecentRow) return PaletteColor(Row, Column);
    const auto index = static_cast<std::size_t>(Column);
    return index < Recent().size() ? std::optional(Recent()[index]) : std::nullopt;
}

TRect TKxColorPicker::SquareRect(int Row, int Column) const {
    const int room = GetHeight() - 2 * CMargin - 2 * CGap - CFieldHeight;
    const int side = std::max(std::min((GetWidth() - 2 * CMargin) / CColumns, room / (CRows + 1)), 4);
    return TRect::Bounds(CMargin + Column * side, CMargin + Row * side + (Row == CRecentRow ? CGap : 0), side,
                         side);
}

TRect TKxColorPicker::SampleRect() const {
    const int top = GetHeight() - CMargin - CFieldHeight;
    return TRect::Bounds(CMargin, top, 2 * CFieldHeight, CFieldHeight);
}

void TKxColorPicker::SetBounds(int Left, int Top, int Width, int Height) {
    TInputControl::SetBounds(Left, Top, Width, Height);
    const TRect sample = SampleRect();
    FField->SetBounds(sample.Right + CGap, sample.Top, GetWidth() - sample.Right - CGap - CMargin,
                      CFieldHeight);
}

void TKxColorPicker::CMFontChanged() {
    TInputControl::CMFontChanged();
    FField->SetFont(GetFont());
}

void TKxColorPicker::Pick(TSquare Square) {
    const auto color = ColorAt(Square.Row, Square.Column);
    if (!color) return;
    FAt = Square;
    if (Square.Row < CRecentRow) AddRecent(*color); // the others stay where they are
    Take(*color, false);
}

bool TKxColorPicker::MoveTo(int Row, int Column) {
    if (ColorAt(Row, Column)) FAt = {Row, Column};
    Invalidate();
    return true;
}

bool TKxColorPicker::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TKxColorPicker> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || !IsFocused() || (Stroke.Shift & (ssCtrl | ssAlt))) return false;
    switch (Stroke.Key) {
    case kcLeft: return MoveTo(FAt.Row, FAt.Column - 1);
    case kcRight: return MoveTo(FAt.Row, FAt.Column + 1);
    case kcUp: return MoveTo(FAt.Row - 1, FAt.Column);
    case kcDown: return MoveTo(FAt.Row + 1, FAt.Column);
    case kcHome: return MoveTo(FAt.Row, 0);
    case kcEnd: return MoveTo(FAt.Row, FAt.Row < CRecentRow ? CColumns - 1 : int(Recent().size()) - 1);
    case kcReturn:
    case kcSpace: return Pick(FAt), true;
    default: return false;
    }
}

void TKxColorPicker::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TKxColorPicker> self(this);
    if (Button == mbLeft && IsOperable())
        for (int i = 0; i < (CRecentRow + 1) * CColumns; ++i)
            if (SquareRect(i / CColumns, i % CColumns).Contains({X, Y})) {
                Pick({i / CColumns, i % CColumns});
                break;
            }
    if (self) TInputControl::MouseDown(Button, Shift, X, Y);
}

void TKxColorPicker::Paint() {
    TCanvas& canvas = GetCanvas();
    PaintField(canvas, GetClientRect(), GetColor(), GetDrawState() & ~unsigned(odHot));
    for (int i = 0; i < (CRecentRow + 1) * CColumns; ++i) PaintSquare({i / CColumns, i % CColumns});
    const TRect sample = SampleRect();
    canvas.Brush.SetColor(FValue);
    canvas.FillRect(sample);
    PaintOutline(canvas, sample, clBtnShadow);
}

/// The picked colour has a frame that shows on any colour; where the arrow keys have gone is a dotted one.
void TKxColorPicker::PaintSquare(TSquare Square) {
    const auto color = ColorAt(Square.Row, Square.Column);
    if (!color) return;
    TCanvas& canvas = GetCanvas();
    const TRect all = SquareRect(Square.Row, Square.Column);
    const TRect rect{all.Left + 1, all.Top + 1, all.Right - 1, all.Bottom - 1};
    canvas.Brush.SetColor(IsUsable() ? *color : Blended(*color, clWhite, 0.6));
    canvas.FillRect(rect);
    PaintOutline(canvas, rect, Blended(*color, clBlack, 0.2));
    if (ColorToRGB(*color) == ColorToRGB(FValue) && IsUsable()) {
        PaintOutline(canvas, all, clBlack);
        PaintOutline(canvas, rect, clWhite);
    }
    if (FAt == Square && HasKeys()) PaintOutline(canvas, all, clHighlight);
}

TAccessiblePart TKxColorPicker::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::List;
    part.Value = TypedColor(FValue);
    for (int i = 0; i < (CRecentRow + 1) * CColumns; ++i)
        if (const auto color = ColorAt(i / CColumns, i % CColumns))
            part.Parts.push_back({.Role = TAccessibleRole::ListItem,
                                  .Name = TypedColor(*color),
                                  .Value = {},
                                  .Description = {},
                                  .Bounds = SquareRect(i / CColumns, i % CColumns),
                                  .Checked = *color == FValue});
    return part;
}

const TPropertyTable& TKxColorPicker::Properties() {
    using C = TKxColorPicker;
    static const TPropertyTable table(
        "TKxColorPicker", &TInputControl::Properties(),
        {PublishedColor<&C::GetValue, &C::SetValue>("Value", clBlack, "The picked colour"),
         PublishedEvent<&C::OnChange>("OnChange", "Value has changed")});
    return table;
}

} // namespace kx
