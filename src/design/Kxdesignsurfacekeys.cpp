// The keys of a designer.

#include <kxgraph/design/Kxdesignsurface.h>

#include <kxgraph/design/Kxdesignclipboard.h>
#include <kxgraph/design/Kxdesigncommands.h>

#include <algorithm>

namespace kx {

bool TKxDesignSurface::DesignKey(const TKeyStroke& Stroke, bool Down) {
    if (!Down) return false;
    if (Stroke.Shift & ssCtrl && Command(Stroke)) return true;
    switch (Stroke.Key) {
    case kcLeft:
    case kcRight:
    case kcUp:
    case kcDown: return Arrow(Stroke);
    case kcDelete: return DeleteSelected(FDocument), true;
    case kcTab: return SelectNext(!(Stroke.Shift & ssShift));
    case kcReturn:
        if (TComponent* primary = FDocument.GetPrimary()) Edit(primary, {});
        return true;
    case kcF1 + 1:
        if (TComponent* primary = FDocument.GetPrimary()) Edit(primary, CaptionProperty(*primary));
        return true;
    case kcEscape:
        if (FMode != TMode::None)
            StopDrag(), Changed();
        else if (!FCreating.empty())
            SetCreating({});
        else
            SelectParent(FDocument);
        return true;
    default: return false;
    }
}

bool TKxDesignSurface::Command(const TKeyStroke& Stroke) {
    switch (Stroke.Key) {
    case 'A': SelectAll(FDocument); break;
    case 'C': CopySelected(FDocument); break;
    case 'X': CutSelected(FDocument); break;
    case 'V':
        if (CanPaste()) Paste(FDocument);
        break;
    case 'D': DuplicateSelected(FDocument); break;
    case 'Z': Stroke.Shift& ssShift ? FDocument.Redo() : FDocument.Undo(); break;
    case 'Y': FDocument.Redo(); break;
    default: return false;
    }
    return true;
}

// A key that is held down, or pressed again, goes on with one step.
bool TKxDesignSurface::Arrow(const TKeyStroke& Stroke) {
    const int step = Stroke.Shift & ssCtrl ? std::max(FGrid, 1) : 1;
    const int x = Stroke.Key == kcLeft ? -step : Stroke.Key == kcRight ? step : 0;
    const int y = Stroke.Key == kcUp ? -step : Stroke.Key == kcDown ? step : 0;
    if (Stroke.Shift & ssShift)
        ResizeSelected(FDocument, {x, y}, "resize by keys");
    else
        MoveSelected(FDocument, {x, y}, "move by keys");
    return true;
}

/// The next component in the order of the form, round about.
bool TKxDesignSurface::SelectNext(bool Forward) {
    const int count = FForm->GetComponentCount();
    if (count == 0) return true;
    const TComponent* primary = FDocument.GetPrimary();
    const int at = primary && primary != FForm ? primary->GetComponentIndex() : Forward ? -1 : 0;
    FDocument.Select(FForm->GetComponent((at + (Forward ? 1 : count - 1)) % count));
    return true;
}

} // namespace kx
