#include "kxplot/form/assignments.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/text.h>

#include <string>
#include <string_view>

namespace kxplot {

using namespace kx;

void Assign(TForm& Form, const TAssignment& Assignment) {
    const auto point = Assignment.Path.find('.');
    const std::string name = Assignment.Path.substr(0, point), property = Assignment.Path.substr(point + 1);
    const auto find = [&](std::string_view Name) { return Form.FindComponent(Name); };
    TComponent* component = find(name);
    if (!component) throw TUsageError("--set: there is no component " + Quoted(name));
    try {
        SetPropertyText(*component, property, Assignment.Value, find);
    } catch (const Exception& error) {
        throw TUsageError("--set " + Abridged(name) + ": " + error.what());
    }
    // An end that is given is meant to stay.
    if (auto* axis = dynamic_cast<TKxAxis*>(component)) {
        if (SameText(property, "Start")) axis->SetStartEnd(AxFixed);
        if (SameText(property, "Stop")) axis->SetStopEnd(AxFixed);
    }
}

} // namespace kxplot
