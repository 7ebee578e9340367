#include "kxplot/run/listing.h"

#include "kxplot/form/picture.h"
#include "kxplot/form/properties.h"
#include "kxplot/messages.h"
#include "kxplot/options/paragraph.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/run/tables.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/describe.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/qt/Kxqtinstall.h>

#include <string_view>
#include <utility>
#include <vector>

namespace kxplot {

int ListProperties(const TOptions& Options) {
    TPlan plan = Planned(Options);
    kx::qt::Install(true);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    Print(PropertyList(*picture.GetParts().Form, *Options.Properties, WidthOfOutput()));
    return 0;
}

int Describe(const std::string& Name) {
    kx::RegisterClasses();
    if (Name.empty()) return Print("# Properties\n\n" + kx::DescribeClasses()), 0;
    const kx::TComponentClass* found = kx::FindClass(Name);
    if (!found) {
        std::vector<std::string_view> names;
        for (const auto& type : kx::RegisteredClasses()) names.push_back(type.Name);
        FailUsage("--describe", Name, "is no class of components" + kx::DidYouMean(Name, names));
    }
    return Print(kx::DescribeClass(*found)), 0;
}

} // namespace kxplot
