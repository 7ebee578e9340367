#pragma once
// Captions that are edited where they show.

#include <kxgraph/platform/controls/control.h>

#include <optional>
#include <string_view>

namespace kx {

/// Where a caption is painted, turned or not, in pixels of the form, and in what font.
struct TKxCaptionPlace {
    TRect Shown;
    const TFont* Font = nullptr; ///< of the component or a part of it
};

/// Of a property of a component; nothing where it is no rich caption, cannot be changed, or shows nowhere.
/// That of an axis or a title without a text is where its text would be.
std::optional<TKxCaptionPlace> CaptionPlaceOf(const TComponent& Component, std::string_view Property);

/// Where a field that is Wanted large goes to edit a caption that is Shown there: its text over that of the
/// caption; over the middle of a turned one, since nobody types upwards. Inside Room where that is possible.
TRect CaptionFieldRect(const TRect& Shown, TSize Wanted, const TRect& Room);

} // namespace kx
