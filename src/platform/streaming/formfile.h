#pragma once
// Forms as text files (extension .kxf): a component with all that it owns, readable, and drawn as it was.
//
//     object Form1: TForm
//       Left = 0
//       object Graph1: TKx2DGraph
//         ShowTitle = True
//         Caption = "Cooling"
//         FrameLine.Visible = False
//       end
//       object Time: TKxLiveVector
//         PersistentValues = True
//         Values = (0 0.5 1 1.5)
//       end
//     end
//
// A control stands in its parent; what is no control stands in the form, which owns all. Properties that have
// their defaults are not written. What a component owns itself is not either. docs/form-file.md tells the
// rest.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formreading.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

inline constexpr std::string_view CFormExtension = ".kxf";

/// The text of Root, whose class, and those of what it owns, are registered: of a class that is not, but is
/// derived from one, it is that one. FileName is the file that it is going to be, for components that refer
/// to others beside it. Raises EFormError for what a file cannot hold: a reference to a component that is not
/// of the form or has no name, a component of a class that there is not.
std::string FormToText(TComponent& Root, const std::string& FileName = {});
/// The same as a file, which is replaced whole. Raises EFileError, too; the file is then as it was.
void SaveForm(TComponent& Root, const std::string& FileName);

/// Makes the form that Text describes. All or nothing: raises EFormError
/// "<file>:<line>:<column>: <what is wrong>" and has then made nothing. FileName stands in messages, and is
/// what the form's own files lie beside. The classes are those that are registered.
std::unique_ptr<TComponent> FormFromText(std::string_view Text, const std::string& FileName = {},
                                         const TFormReading& Reading = {});
/// Reads objects, which stand in Text without a form about them, into the form Root, which is there. What
/// bears the name of a component of Root, or of Root, is that one: its properties are set, by their setters,
/// and it is put where the object stands. All else is made, as FormFromText does it. Returns what was made,
/// in the order of Text. When it raises EFormError, nothing was made; properties may have been set.
std::vector<TComponent*> UpdateForm(TComponent& Root, std::string_view Text, const std::string& FileName = {},
                                    const TFormReading& Reading = {});
/// A form from a file, as FormFromText; raises EFileError, too.
std::unique_ptr<TComponent> LoadForm(const std::string& FileName, const TFormReading& Reading = {});

} // namespace kx
