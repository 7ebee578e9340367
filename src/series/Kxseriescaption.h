#pragma once
// The caption of a series: what is shown, what the user wants, and what the series would say by itself.

#include <kxgraph/platform/text/text.h>

namespace kx {

/// Three rich texts and which of two is shown.
struct TKxSeriesCaption {
    AnsiString Shown, User, Auto;
    bool DoUser = false; ///< the user's is

    // Each answers with what is to be shown from now on.

    /// Kept: a caption that one source shows becomes the text of the other one, as outfits rely on it.
    const AnsiString& SetShown(const AnsiString& Caption) {
        (DoUser ? Auto : User) = Caption;
        return Shown = Caption;
    }
    const AnsiString& SetDoUser(bool Do) {
        DoUser = Do;
        return Do ? Shown = User : Shown;
    }
    const AnsiString& SetUser(const AnsiString& Caption) {
        User = Caption;
        return DoUser ? Shown = User : Shown;
    }
    /// Of a file, which may hold the user's, before this, where it differs.
    const AnsiString& LoadShown(const AnsiString& Caption) {
        if (DoUser || User.empty()) (DoUser ? Auto : User) = Caption;
        return Shown = Caption;
    }
    /// Whether the user's is nowhere else.
    bool HasUserApart() const { return DoUser || User != Shown; }
    /// Whether what is shown follows from the others.
    bool IsShownOfOthers(bool IsComputed) const {
        return DoUser ? Shown == User : IsComputed && Shown == Auto;
    }
    const AnsiString& SetAuto(const AnsiString& Caption) {
        Auto = Caption;
        return DoUser ? Shown : Shown = Auto;
    }
};

} // namespace kx
