// Compares the forms that C++ of forms makes with the forms that it was made of.
//     cppforms_check DIRECTORY

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/files.h>

#include <iostream>
#include <memory>
#include <string>

std::unique_ptr<kx::TForm> MakeEverything();
std::unique_ptr<kx::TForm> MakeCalibration();
std::unique_ptr<kx::TForm> MakeHistogram();

int main(int, char** Arguments) {
    kx::RegisterClasses();
    int faults = 0;
    for (const auto& make : {MakeEverything, MakeCalibration, MakeHistogram}) {
        const auto form = make();
        const std::string file = std::string(Arguments[1]) + "/" + form->GetName() + ".kxf";
        const std::string text = kx::FormToText(*form);
        if (text == kx::ReadFile(file)) continue;
        ++faults;
        std::cerr << file << " is not what its program makes:\n" << text;
    }
    return faults;
}
