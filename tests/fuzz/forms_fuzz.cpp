// Form files: whatever a file holds, it is refused with its place, or gives a form that draws, and that is
// written and read back alike.

#include "fuzz/frames.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/text.h>

#include <memory>
#include <sstream>

namespace kx::fuzz::formstarget {

/// Bounded by memory and time alone: large numbers of these would try the machine, not the reader.
bool IsCheap(const std::string& Text) {
    const std::string upper = UpperCase(Text);
    if (upper.find("FILENAME = \"") != upper.npos) return false; // files of this machine
    for (const char* name : {"CAPACITY", "ORDER", "INCREMENT", "ITERATIONS"}) {
        for (auto at = upper.find(name); at != upper.npos; at = upper.find(name, at + 1)) {
            const auto value = upper.find_first_of("0123456789", at), end = upper.find('\n', at);
            if (value >= std::min(end, upper.size())) continue;
            if (upper.find_first_not_of("0123456789", value) - value > 4) return false;
        }
    }
    return true;
}

/// A form with a component of each class.
std::string Original() {
    TForm form(nullptr);
    form.SetName("Form1");
    for (const auto& type : RegisteredClasses()) {
        if (type.Name == "TForm") continue;
        TComponent* part = type.Make(&form);
        part->SetName(std::string(type.Name) + "1");
        if (auto* control = dynamic_cast<TControl*>(part)) control->SetParent(&form);
    }
    return FormToText(form);
}

/// What is put into a text; the 20th to the 22nd are lines.
const std::vector<std::string>& Pieces() {
    static const std::vector<std::string> pieces = [] {
        std::vector<std::string> parts;
        std::istringstream all(
            "\n|object |end\n| = |True|nil|TKxAxis1|TKx2DGraph1|XAxis|YAxis|XData|YData|TKxLiveVector1|(1 2 "
            "nan inf -1e308 0)|[fsBold]|\"\\xFF\\n\"|1e-5|-0|AxLogEE|AxFixed|PrimaryXAxis = "
            "TKxAxis1\n|ParentSeries = TKxDataSeries1\n|Values = (1 2 3)\n|.|:|$FF|//");
        for (std::string part; std::getline(all, part, '|');) parts.push_back(part);
        return parts;
    }();
    return pieces;
}

std::string Changed(TData& Data) {
    static const std::string original = Original();
    std::string text = original;
    for (int changes = Data.Between(0, 12); changes > 0; --changes) {
        const std::size_t at = std::size_t(Data.Between(0, 65535)) % text.size();
        const std::size_t line = std::min(text.find('\n', at) + 1, text.size());
        switch (Data.Between(0, 4)) {
        case 0: text.erase(at, std::size_t(Data.Between(1, 200))); break;
        case 1: text.insert(at, Pieces()[std::size_t(Data.Between(0, int(Pieces().size()) - 1))]); break;
        case 2: text.insert(line, Pieces()[std::size_t(Data.Between(20, 22))]); break;
        case 3: text.insert(at, Data.Text(12)); break;
        case 4: text.insert(line, text.substr(at, std::size_t(Data.Between(1, 300)))); break;
        }
        if (text.empty()) break;
    }
    return text;
}

std::unique_ptr<TComponent> Read(const std::string& Text) {
    try {
        return FormFromText(Text, "f.kxf");
    } catch (const EFormError& error) {
        KX_DEMAND(std::string(error.what()).starts_with("f.kxf:"), +std::string(error.what()));
        return nullptr;
    }
}

KX_FUZZ(forms) {
    RegisterClasses();
    test::TFaults quiet;
    const std::string text = Data.Flag() ? Changed(Data) : Data.Rest();
    if (!IsCheap(text)) return;
    const auto form = Read(text);
    if (!form) return;
    std::string written;
    try {
        written = FormToText(*form);
    } catch (const EFormError&) { // a reference to what has no name
        return;
    }
    const auto again = Read(written);
    KX_DEMAND(again != nullptr, +written);
    KX_DEMAND(FormToText(*again) == written, +written + "\n--- becomes ---\n" + FormToText(*again));
    if (auto* window = dynamic_cast<TForm*>(form.get())) {
        window->SetBounds(0, 0, 320, 240);
        DemandFrame(*window, quiet);
    }
}

} // namespace kx::fuzz::formstarget
