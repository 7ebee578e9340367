#pragma once
// The hand of a designer on a form: what mouse and keys do to it, and the handles that show it.

#include <kxgraph/design/Kxdesignarrange.h>
#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/design/Kxdesignhit.h>
#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/controls/designer.h>

#include <optional>
#include <string>
#include <vector>

namespace kx {

/// Mouse and keys of the document's form, whichever that is:
/// a press selects (Shift or Ctrl adds and takes away), on an empty place a rubber band does; a drag moves
/// what is selected, drawn to the edges of its neighbours and to the grid, with Alt freely; a handle resizes.
/// With a class chosen a press or a drag makes a component of it. Arrows move by a pixel, with Ctrl by the
/// grid, Shift and arrows resize, Tab selects the next component, Escape takes back a drag or selects the
/// parent, F2 edits the caption, Return what is natural, Delete, Ctrl+A, C, X, V, D, Z, Y (and Shift+Z).
class TKxDesignSurface : private TFormDesigner, private TKxDesignObserver {
public:
    /// The document must outlive this.
    explicit TKxDesignSurface(TKxDesignDocument& Document);
    TKxDesignSurface(const TKxDesignSurface&) = delete;
    TKxDesignSurface& operator=(const TKxDesignSurface&) = delete;
    ~TKxDesignSurface();

    /// The class that the next press makes a component of; empty: none, a press selects. Raises
    /// EComponentError for an unknown one.
    void SetCreating(const std::string& ClassName);
    const std::string& GetCreating() const { return FCreating; }
    /// Pixels; below 2: none. Default 8.
    int GetGrid() const { return FGrid; }
    void SetGrid(int Pixels) { FGrid = Pixels; }
    bool GetSnapsToEdges() const { return FSnapsToEdges; }
    void SetSnapsToEdges(bool Snaps) { FSnapsToEdges = Snaps; }
    /// What is dragged or drawn at the moment, in pixels of the form, for a status line.
    std::optional<TRect> GetDragged() const;

    /// A double click, Return or F2: somebody wants to change that property (empty: the component as a
    /// whole).
    TEvent<TComponent*, const std::string&> OnEdit;
    /// GetCreating, or GetDragged, is another one.
    TEvent<> OnState;
    /// The right button, at a place of the form, after what lies there was selected.
    TEvent<TPoint> OnMenu;

private:
    enum class TMode { None, Pressed, Move, Resize, Band, Create };

    void DesignMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) override;
    void DesignMouseLeft() override {}
    bool DesignKey(const TKeyStroke& Stroke, bool Down) override;
    void PaintDesign(TCanvas& Canvas) override;
    void FormReplaced() override;
    void FormChanged() override;
    void SelectionChanged() override;

    void Press(TMouseButton Button, TShiftState Shift, TPoint Pos);
    void SelectAt(TShiftState Shift, TPoint Pos);
    void Drag(TShiftState Shift, TPoint Pos);
    void DragBounds(TShiftState Shift, TPoint By);
    void Drop();
    void FinishBand();
    void FinishCreating();
    void StopDrag();
    void BeginBounds(TMode Mode, const std::vector<TControl*>& Controls);
    bool PressHandle(TPoint Pos);
    void ShowCursor(TPoint Pos);
    TRect BandRect() const;
    std::vector<TRect> NeighboursOf(const std::vector<TControl*>& Controls) const;
    bool Arrow(const TKeyStroke& Stroke);
    bool Command(const TKeyStroke& Stroke);
    bool SelectNext(bool Forward);
    void Edit(TComponent* Component, const std::string& Property);
    void PaintSelected(TCanvas& Canvas, const TComponent& Component, bool IsPrimary) const;
    void Changed();

    TKxDesignDocument& FDocument;
    TForm* FForm = nullptr;
    TMode FMode = TMode::None;
    TKxDesignEdges FEdges;
    TPoint FAnchor, FAt;
    TWinControl* FParent = nullptr;  // that a new component is put into
    std::vector<TControl*> FDragged; // with one parent
    std::vector<TRect> FFrom, FTo;   // their bounds, in their parent
    std::vector<TRect> FGuides;      // in their parent
    std::string FCreating;
    int FGrid = 8;
    bool FSnapsToEdges = true, FAddsToSelection = false;
};

} // namespace kx
