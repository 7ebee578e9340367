#include "kxplot/run/draw.h"

#include "kxplot/fit/fit.h"
#include "kxplot/fit/formfits.h"
#include "kxplot/form/assignments.h"
#include "kxplot/form/notices.h"
#include "kxplot/form/picture.h"
#include "kxplot/form/savedform.h"
#include "kxplot/messages.h"
#include "kxplot/run/status.h"
#include "kxplot/run/tables.h"
#include "kxplot/show/edit.h"
#include "kxplot/show/show.h"
#include "kxplot/write/framefaults.h"
#include "kxplot/write/outputs.h"

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/qt/Kxqtinstall.h>

#include <optional>
#include <utility>
#include <vector>

namespace kxplot {

namespace {

void TellAll(const std::vector<std::string>& Lines) {
    for (const auto& line : Lines) Tell(line);
}

} // namespace

int Draw(const TOptions& Options, const std::string* Followed) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), Options.Look.Outfit);
    const TWindowPart* window = LoadWindow(Options.Window);
    TPlan plan = Planned(Options, Followed);
    if (!window) kx::qt::Install(true);
    std::optional<TFrameFaults> faults(std::in_place);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    const TFindings found = Fit(picture.GetParts());
    picture.Finish(found.Labels);
    const std::vector<std::string> notices = NoticesOf(picture.GetParts()); // nothing can fail any more after
    WriteOutputs(picture, found, Options.Outputs, *faults);                 // this but writing
    if (Options.Outputs.Results == "-") Print(found.Results);
    TellAll(notices);
    TellAll(found.Failures);
    TellAll(found.Remarks);
    faults.reset(); // what goes wrong in a window is told there
    if (window) Show(*window, picture, found, Options);
    if (const TFormRequest& form = Options.Outputs.Form; form.Edit)
        GoOnEditing(form.Save, form.Save.empty() ? FormText(picture.GetParts(), {}) : std::string());
    if (found.Interrupted) return CInterrupted;
    return found.Failures.empty() ? 0 : CFailure;
}

int DrawForm(const TOptions& Options) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), {});
    const TWindowPart* window = LoadWindow(Options.Window);
    if (!window) kx::qt::Install(true);
    std::optional<TFrameFaults> faults(std::in_place);
    TParts parts = OpenedForm(Options.Data.File);
    kx::SettleTree(*parts.Form);
    for (const auto& assignment : Options.Look.Assignments) Assign(*parts.Form, assignment);
    const TFormFindings found = FitForm(parts);
    WritePictures(parts, Options.Outputs, *faults);
    TellAll(found.Failures);
    faults.reset();
    if (window) ShowForm(*window, parts, Options);
    if (const TFormRequest& form = Options.Outputs.Form; form.Edit) {
        const bool isNew = form.Save.empty() && !Options.Look.Assignments.empty();
        const std::string& file = form.Save.empty() ? Options.Data.File : form.Save;
        GoOnEditing(isNew ? std::string() : file, isNew ? OpenedFormText(parts, {}) : std::string());
    }
    if (found.Interrupted) return CInterrupted;
    return found.Failures.empty() ? 0 : CFailure;
}

} // namespace kxplot
