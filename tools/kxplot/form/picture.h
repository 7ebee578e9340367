#pragma once
// The picture: a graph on a form that is never shown, made as planned.

#include "kxplot/form/notes.h"
#include "kxplot/form/parts.h"

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

private:
    void MakeGraph();
    void ApplyLook();
    void ApplyGround(const TGround& Ground);

    TParts FParts;
    std::unique_ptr<TNotes> FNotes;
};

} // namespace kxplot
