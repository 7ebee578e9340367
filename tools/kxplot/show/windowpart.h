#pragma once
// What kxplot and its window know of one another. The window is a module of its own, which is loaded when it
// is asked for (plugins/plugin.h): programs without windows need no widgets.

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/drawing/recording.h>

#include <functional>
#include <optional>
#include <string>

namespace kxplot {

/// A picture and what its window may ask for. Functions raise what saving raises.
struct TShownPicture {
    kx::TForm& Form;
    std::string Title;
    bool Antialias = true;
    bool HasFits = false;
    std::optional<double> Seconds; ///< after which the window closes by itself
    /// The window has another size, which the form has already.
    std::function<void()> Resized;
    std::function<void(const std::string& FileName)> SavePicture;
    std::function<void(const std::string& FileName)> SaveOutfit = {}; ///< empty: there is none
    std::function<const kx::TMetafile&()> Record = {};
    std::function<void(bool Shown)> ShowFits = {};
    /// Brings what has come since the last call into the picture; false closes the window. Empty where
    /// nothing comes.
    std::function<bool()> Poll = {};
};

struct TWindowPart {
    /// In the place of kx::qt::Install, before anything is measured. Raises kx::Exception where there is no
    /// display.
    void (*Install)();
    /// Returns when the window has been closed.
    void (*Show)(const TShownPicture& Picture);
};

inline constexpr const char* CWindowModule = "kxplot-window";
/// The entry; another name whenever TShownPicture or TWindowPart is another.
inline constexpr const char* CWindowEntry = "KxplotWindow2";

} // namespace kxplot
