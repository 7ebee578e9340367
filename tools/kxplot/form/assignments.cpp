#include "kxplot/form/assignments.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/text.h>

#include <array>
#include <charconv>
#include <string>
#include <string_view>

namespace kxplot {

using namespace kx;

namespace {

/// An end of an axis of dates may be given as one.
std::string TextOf(const TComponent& Component, const std::string& Property, const std::string& Value) {
    const auto* axis = dynamic_cast<const TKxAxis*>(&Component);
    const bool isEnd = SameText(Property, "Start") || SameText(Property, "Stop");
    if (!axis || !isEnd || axis->GetLabelKind() != lkDates) return Value;
    const auto place = ParsePlace(Value);
    if (!place) return Value;
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), *place).ptr};
}

} // namespace

void Assign(TForm& Form, const TAssignment& Assignment) {
    const auto point = Assignment.Path.find('.');
    const std::string name = Assignment.Path.substr(0, point), property = Assignment.Path.substr(point + 1);
    const auto find = [&](std::string_view Name) { return Form.FindComponent(Name); };
    TComponent* component = find(name);
    if (!component) throw TUsageError("--set: there is no component " + Quoted(name));
    try {
        SetPropertyText(*component, property, TextOf(*component, property, Assignment.Value), find);
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
