#pragma once
// Which families of fonts there are to choose from.

#include <string>
#include <vector>

namespace kx {

/// A host that can tell. One that cannot measures every name alike.
class TFontFamilies {
public:
    /// Each once, in the order of the alphabet.
    virtual std::vector<std::string> FontFamilies() const = 0;

protected:
    ~TFontFamilies() = default;
};

/// Those of the application's host; of one that does not tell, a family of each kind.
std::vector<std::string> FontFamilies();

} // namespace kx
