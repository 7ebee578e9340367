// Writes forms as C++: for each NAME a form file NAME.kxf and a source NAME.cpp with the function MakeNAME.
//     cppforms_write DIRECTORY FORM.kxf...

#include "support/othertext.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/design/Kxcppnames.h>
#include <kxgraph/design/Kxdesignchange.h>
#include <kxgraph/design/Kxformtocpp.h>
#include <kxgraph/design/Kxinspector.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace kx {
namespace {

void Write(TComponent& Form, const std::string& Directory) {
    const std::string stem = Directory + "/" + Form.GetName();
    std::ofstream(stem + ".kxf") << FormToText(Form);
    std::ofstream(stem + ".cpp") << FormToCpp(Form, TKxCppExtent::Function);
}

void ChangeRow(TKxInspector& Inspector, const TKxInspectorRow& Row) {
    for (const auto& part : Row.Parts) ChangeRow(Inspector, *part);
    const bool isOwn = Row.Path == "Name" || Row.Path == "FileName"; // a file would be read
    const std::string other = Row.IsReadOnly || isOwn ? std::string() : test::OtherText(Row);
    if (other.empty()) return;
    try {
        Inspector.SetText(std::string(Row.Path), other);
    } catch (const kx::Exception&) {
        return; // some exclude one another
    }
}

/// One component of each class, all its properties other ones than at first.
std::unique_ptr<TForm> Everything() {
    auto form = std::make_unique<TForm>(nullptr);
    form->SetName("Everything");
    std::vector<TComponent*> parts;
    for (const TComponentClass& type : RegisteredClasses()) {
        if (type.Name == "TForm") continue;
        if (CppHeaderOf(type.Name).empty()) throw kx::Exception(std::string(type.Name) + " has no header");
        parts.push_back(type.Make(form.get()));
        parts.back()->SetName("Part" + std::to_string(parts.size()));
        if (auto* control = dynamic_cast<TControl*>(parts.back())) control->SetParent(form.get());
    }
    TKxPlainDesignChange change;
    TKxInspector inspector(change);
    for (TComponent* part : parts) {
        inspector.Select(*form, std::vector<TComponent*>{part});
        for (const auto& row : inspector.GetRows()) ChangeRow(inspector, *row);
    }
    return form;
}

int Run(const std::vector<std::string>& Arguments) {
    RegisterClasses();
    Write(*Everything(), Arguments[1]);
    for (std::size_t i = 2; i < Arguments.size(); ++i) Write(*LoadForm(Arguments[i]), Arguments[1]);
    return 0;
}

} // namespace
} // namespace kx

int main(int Count, char** Arguments) {
    try {
        return kx::Run({Arguments, Arguments + Count});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
