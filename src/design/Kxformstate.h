#pragma once
// A form at one moment, component by component, and what has changed from one moment to another. States share
// what is the same in them, and a change holds what differs alone: a history costs what was changed, however
// large the form is.

#include <kxgraph/platform/streaming/formwriter.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

/// A component as its form file has it, and the names of what stands in it, one a line, in order.
struct TKxPartState {
    TFormPart Part;
    std::string Children;
};

/// All components by their names; the form itself stands under the empty name.
struct TKxFormState {
    using TParts = std::map<std::string, std::shared_ptr<const TKxPartState>, std::less<>>;
    std::string RootName;
    TParts Parts;

    /// Null when there is none.
    const TKxPartState* Find(std::string_view Name) const;
    /// Whether both are the same form, text for text.
    friend bool operator==(const TKxFormState& A, const TKxFormState& B);
};

/// What Root is now. All components must have names. What Before has and what is the same is shared with it;
/// values of vectors that nobody has touched are not looked at. Raises EFormError, as FormToText does.
TKxFormState CaptureForm(TComponent& Root, TFormWriter& Writer, const TKxFormState& Before = {});

/// The lines of a text, without their ends.
std::vector<std::string_view> LinesOf(std::string_view Text);
/// Name, and all that stands in it, as objects of a form file.
std::string ObjectText(const TKxFormState& State, std::string_view Name);

/// What stands between the first and the last difference of two texts.
struct TKxTextChange {
    std::size_t At = 0;
    std::string Removed, Inserted;

    static TKxTextChange Between(std::string_view Before, std::string_view After);
    bool IsEmpty() const { return Removed.empty() && Inserted.empty(); }
    /// Text after the change, or, Back, before it.
    std::string Applied(std::string_view Text, bool Back) const;
};

/// What has become of one component. Before and After where it has come or gone, or is quite another one.
struct TKxPartChange {
    std::string Name;
    std::shared_ptr<const TKxPartState> Before, After;
    TKxTextChange Lines, Children;
    std::vector<TKxTextChange> Data; ///< one for each piece
};

struct TKxFormChange {
    std::string RootBefore, RootAfter;
    std::vector<TKxPartChange> Parts;

    static TKxFormChange Between(const TKxFormState& Before, const TKxFormState& After);
    bool IsEmpty() const { return Parts.empty() && RootBefore == RootAfter; }
    TKxFormState Applied(TKxFormState State, bool Back) const;
    /// The names of the components that are there after it, or, Back, before it.
    std::vector<std::string> Names(bool Back) const;
};

} // namespace kx
