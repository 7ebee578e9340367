#pragma once
// The picture as a form file, and the form of such a file as a picture.

#include "kxplot/form/parts.h"

#include <string>

namespace kxplot {

/// The text of the finished picture. Raises kx::EFormError.
std::string FormText(const TParts& Parts, const std::string& FileName);

/// The text of a form that was read, as it stands, for a file of that name: its tables are found again from
/// there. Empty: for one in the working directory.
std::string OpenedFormText(const TParts& Parts, const std::string& FileName);

/// The form of a file, with the graph that is drawn; events of other programs are left alone. Raises
/// kx::EFormError, kx::EFileError, and kx::EFormError for a file without a graph.
TParts OpenedForm(const std::string& FileName);

} // namespace kxplot
