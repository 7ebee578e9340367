#include <kxgraph/platform/streaming/formfile.h>

#include <kxgraph/platform/streaming/formreader.h>
#include <kxgraph/platform/streaming/formwriter.h>
#include <kxgraph/platform/text/files.h>

namespace kx {

std::string FormToText(TComponent& Root, const std::string& FileName) {
    return TFormWriter(Root, FileName).Write();
}

void SaveForm(TComponent& Root, const std::string& FileName) {
    ReplaceFile(FileName, FormToText(Root, FileName));
}

std::unique_ptr<TComponent> FormFromText(std::string_view Text, const std::string& FileName,
                                         const TFormReading& Reading) {
    const TFormText text(Text, FileName);
    const TFormObject tree = ParseForm(text);
    return TFormReader(text, Reading).Read(tree);
}

std::vector<TComponent*> UpdateForm(TComponent& Root, std::string_view Text, const std::string& FileName,
                                    const TFormReading& Reading) {
    const TFormText text(Text, FileName);
    const std::vector<TFormObject> objects = ParseFormObjects(text);
    return TFormReader(text, Reading).Update(Root, objects);
}

std::unique_ptr<TComponent> LoadForm(const std::string& FileName, const TFormReading& Reading) {
    return FormFromText(ReadTextFile(FileName).Text, FileName, Reading);
}

} // namespace kx
