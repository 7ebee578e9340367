#pragma once
// The form as a picture.

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/drawing/recording.h>

#include <string>

namespace kxdesign {

/// Makes Picture what is drawn of a form: a graph that is alone on it on its own, as kxplot draws it, else
/// all that it shows.
void TakePicture(kx::TForm& Form, kx::TMetafile& Picture);
/// PNG at twice the size of the screen, SVG or PDF, by the extension; raises EFileError, and Exception for
/// another extension.
void ExportForm(kx::TForm& Form, const std::string& FileName);

} // namespace kxdesign
