#include "kxplot/fit/formfits.h"

#include "kxplot/methods/formulaline.h"
#include "kxplot/plan/captiontext.h"

#include <kxgraph/platform/controls/frame.h>

namespace kxplot {

using namespace kx;

namespace {

template <class T, class F>
void ForAll(const TForm& Form, F Do) {
    for (TComponent* component : Form.GetComponents())
        if (auto* one = dynamic_cast<T*>(component)) Do(*one);
}

} // namespace

TFormFindings FitForm(TParts& Parts) {
    TForm& form = *Parts.Form;
    TFormFindings found;
    SettleTree(form);
    TFitWatch watch;
    ForAll<TFormulaLine>(form, [&](TFormulaLine& Line) {
        if (Line.GetParentSeries()) Line.Run(1, watch, Line.GetName());
    });
    found.Interrupted = watch.WasInterrupted();
    ForAll<TKxFitBand>(form, [](TKxFitBand& Band) { Band.Calculate(); });
    ForAll<TKx2DGraph>(form, [](TKx2DGraph& Graph) { Graph.Modified(); });
    SettleTree(form);
    ForAll<TKxCalculatedSeries>(form, [&](const TKxCalculatedSeries& Line) {
        if (!Line.GetError().empty()) found.Failures.push_back(PlainText(Line.GetError()));
    });
    return found;
}

} // namespace kxplot
