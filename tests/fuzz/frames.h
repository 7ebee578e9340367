#pragma once
// What a frame must do, for targets that draw.

#include "fuzz/fuzz.h"
#include "support/errors.h"

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/drawing/recording.h>

namespace kx::fuzz {

inline std::string Drawn(TForm& Form) {
    TRecorder recorder(Form.GetBoundsRect().Size());
    PaintFrame(Form, recorder);
    return recorder.Recording.ToText();
}

/// The classes of the controls that still want to settle.
inline std::string Asking(const TControl& Control) {
    std::string names = Control.NeedsSettling() ? " " + Control.ClassName() : "";
    if (const auto* tree = dynamic_cast<const TWinControl*>(&Control))
        for (const TControl* child : tree->GetControls()) names += Asking(*child);
    return names;
}

/// A frame settles, unless something was raised, and a second one without a change in between is the same.
inline void DemandFrame(TForm& Form, test::TFaults& Quiet) {
    Quiet.Text.clear();
    const bool settled = SettleTree(Form);
    KX_DEMAND(settled || !Quiet.Text.empty(), "for" + Asking(Form));
    const std::string once = Drawn(Form);
    if (Quiet.Text.empty()) KX_DEMAND(Drawn(Form) == once, +once);
}

} // namespace kx::fuzz
