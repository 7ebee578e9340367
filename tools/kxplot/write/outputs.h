#pragma once
// The files that a run writes.

#include "kxplot/fit/fit.h"
#include "kxplot/form/picture.h"
#include "kxplot/options/options.h"
#include "kxplot/write/framefaults.h"

#include <string>
#include <vector>

namespace kxplot {

/// Looks before anything is read. Raises TUsageError for an output that is a table, the file of
/// --outfit (but --save-outfit may be), or another output, by name or through a link; kx::EFileError for one
/// that must not be written.
void CheckOutputs(const TOutputRequest& Outputs, const std::vector<std::string>& Tables,
                  const std::string& Outfit);

/// Writes pictures, outfit and results: all of them or, where one cannot be made or written, none. Raises
/// kx::EFileError, and TFrameError for a picture that does not settle. Pictures that raise exceptions while
/// they are painted do so to Faults.
void WriteOutputs(TPicture& Picture, const TFindings& Found, const TOutputRequest& Outputs,
                  const TFrameFaults& Faults);

/// The same of a form that was read from a file: pictures, as large as it is, and the form.
void WritePictures(const TParts& Parts, TOutputRequest Outputs, const TFrameFaults& Faults);

} // namespace kxplot
