#pragma once
// The picture: a graph on a form that is never shown, made as planned.

#include "kxplot/form/notes.h"
#include "kxplot/form/parts.h"

#include <kxgraph/platform/drawing/recording.h>

#include <memory>
#include <string>
#include <vector>

namespace kxplot {

/// Components with stable names (Form1, Graph1, XAxis, YAxis, Series1, ..., Fit1, ..., Legend1, Label1, ...).
class TPicture {
public:
    /// Builds the picture in kxplot's own look.
    explicit TPicture(TPlan Plan);
    TPicture(const TPicture&) = delete;
    TPicture& operator=(const TPicture&) = delete;

    TParts& GetParts() { return FParts; }

    /// The appearance from a file; automatic ends follow the data afterwards. Raises kx::EFileError.
    void LoadOutfit(const std::string& FileName);
    /// The appearance as the text of such a file.
    std::string GetOutfit();
    /// What was asked for beside the data. Raises TUsageError.
    void Apply();
    /// Once all fits are done, what depends on their results: labels, one for each that was asked for, and
    /// the legend.
    void Finish(const std::vector<TLabelSource>& Labels);
    /// Makes the finished picture as large as the form is now.
    void TakeSizeOfForm();
    /// Whether names and results of analyses are to be seen.
    void ShowNotes(bool Shown) { FNotes->Show(Shown); }
    /// A drawing of the picture as it is.
    const kx::TMetafile& Record();

private:
    void MakeGraph();
    void ApplyLook();
    void ApplyGround(const TGround& Ground);
    void Place();

    TParts FParts;
    std::unique_ptr<TNotes> FNotes;
    kx::TMetafile FRecord;
};

} // namespace kxplot
