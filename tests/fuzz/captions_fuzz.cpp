// Captions: any text, measured, and laid out and painted as a label at any angle.

#include "fuzz/fuzz.h"

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/drawing/recording.h>

namespace kx::fuzz::captionstarget {

std::string WithoutBackslashes(std::string Text) {
    std::erase(Text, '\\');
    return Text;
}

/// Runs are what is shown, in order, each at a place of its own.
void DemandParsed(const std::string& Text) {
    const TKxParsedCaption parsed = ParseCaption(Text);
    std::string shown;
    int last = 0, count = 0; // of the runs: bytes of two that are foreign may make one character together
    for (const auto& run : parsed.Runs) {
        KX_DEMAND(!run.Text.empty() && run.Position > last && run.Position <= parsed.Length);
        last = run.Position + CharacterCount(run.Text) - 1;
        KX_DEMAND(last <= parsed.Length);
        count += CharacterCount(run.Text);
        shown += run.Text;
    }
    KX_DEMAND(WithoutBackslashes(shown) == parsed.Stripped, +Text);
    KX_DEMAND(parsed.Length == CharacterCount(Text));
    for (const auto& at : parsed.Switches) KX_DEMAND(at.Index >= 0 && at.Index <= count);
    KX_DEMAND(GetStrippedString(EscapeCaption(Text)) == WithoutBackslashes(Text), +Text);
}

/// Right edges grow with the characters up to the width, whose measure agrees with the parsed caption's.
void DemandMeasured(const std::string& Text, int Angle) {
    TRecorder recorder({300, 200});
    TCanvas canvas(&recorder);
    TKxCaptionRec rec;
    rec.Text = Text;
    rec.Canvas = &canvas;
    rec.Angle = Angle;
    rec.Paint = true;
    RichPaintTo(rec);
    KX_DEMAND(rec.Width == MeasureCaption(ParseCaption(Text), canvas));
    KX_DEMAND(rec.CharPos.Length() == CharacterCount(Text) + 1);
    KX_DEMAND(canvas.Font.GetOrientation() == 0);
    for (int i = 0; i < rec.CharPos.Length(); ++i)
        KX_DEMAND(rec.CharPos[i] >= 0 && rec.CharPos[i] <= rec.Width);
}

/// A label shows the same at an angle and a whole turn further, and repeats its frame.
void DemandLabel(const std::string& Text, int Angle, TAlignment Alignment) {
    TForm form(nullptr);
    TRect bounds[2];
    std::string frames[2];
    for (int turn = 0; turn < 2; ++turn) {
        TKxLabel label(&form);
        label.SetParent(&form);
        label.SetBounds(100, 100, 10, 10);
        label.SetAlignment(Alignment);
        label.SetCaption(Text);
        label.SetAngle(Angle + turn * 3600);
        KX_DEMAND((label.GetAngle() - Angle) % 3600 == 0);
        TRecorder once({640, 480}), twice({640, 480});
        KX_DEMAND(SettleTree(form));
        PaintFrame(form, once);
        PaintFrame(form, twice);
        KX_DEMAND(once.Recording.ToText() == twice.Recording.ToText());
        bounds[turn] = label.GetBoundsRect();
        frames[turn] = once.Recording.ToText();
        KX_DEMAND(bounds[turn].Width() >= 0 && bounds[turn].Height() >= 0);
        const bool showsText = label.GetTextWidth() > 0;
        KX_DEMAND(!showsText || !bounds[turn].IsEmpty(), +std::to_string(label.GetAngle()));
    }
    KX_DEMAND(bounds[0] == bounds[1] && frames[0] == frames[1], +frames[0] + "\n" + frames[1]);
}

KX_FUZZ(captions) {
    const int angle = Data.Flag() ? Data.Between(-4, 4) * 900 : Data.Between(-7200, 7200);
    const auto alignment = Data.OneOf({taLeftJustify, taCenter, taRightJustify});
    const std::string text = Data.Text(80);
    DemandParsed(text);
    DemandMeasured(text, angle);
    DemandLabel(text, angle, alignment);
}

} // namespace kx::fuzz::captionstarget
