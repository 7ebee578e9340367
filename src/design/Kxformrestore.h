#pragma once
// Brings a form that stands into a state that it has had: components that have come since go, those that have
// gone come back, and what differs is set.

#include <kxgraph/design/Kxformstate.h>
#include <kxgraph/platform/controls/form.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

/// Setters have effects of their own, also on other components, and what a component once got it may keep.
/// So what has come of it is compared with what is wanted, text for text, and what still differs is set
/// again; a component that comes to it in no way is made anew.
class TKxFormRestorer {
public:
    /// FileName: what the form's own files lie beside.
    TKxFormRestorer(TForm& Root, TFormWriter& Writer, std::string FileName)
        : FRoot(Root), FWriter(Writer), FFileName(std::move(FileName)) {}
    /// Live: what the form is now, and what it is afterwards, settled. Whether that is Target. Raises nothing
    /// that a component raises.
    bool Restore(TKxFormState& Live, const TKxFormState& Target);
    /// Components that have got other names on the way: before, after.
    const std::vector<std::pair<std::string, std::string>>& GetRenamed() const { return FRenamed; }

private:
    bool Rename(const TKxFormState& Live, const TKxFormState& Target);
    void Attempt(const TKxFormState& Live, const TKxFormState& Target, bool Anew);
    TComponent* Find(std::string_view Name) const;
    std::string Patch(const TKxFormState& Live, const TKxFormState& Target, std::string_view Name,
                      std::string_view Parent);
    std::string DifferentLines(const TKxFormState& Live, const TKxPartState& Target, std::string_view Name);
    void PutInOrder(const TKxFormState& Target, std::string_view Name, int& Index);
    void Stack(const TKxPartState& Target);

    TForm& FRoot;
    TFormWriter& FWriter;
    std::string FFileName;
    std::map<std::string, std::string, std::less<>> FParents; // as the form is
    std::vector<std::pair<std::string, std::string>> FRenamed;
};

} // namespace kx
