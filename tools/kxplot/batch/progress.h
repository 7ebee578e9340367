#pragma once
// How far a batch is.

#include <cstddef>
#include <string>

namespace kxplot {

/// A bar on standard error, where that is a terminal; nothing elsewhere.
class TProgress {
public:
    explicit TProgress(std::size_t Total);
    /// One more is done, and what it Said goes to standard error, above the bar.
    void Step(const std::string& Said);
    /// Takes the bar away.
    void End();

private:
    void Show() const;

    std::size_t FTotal, FDone = 0;
    bool FIsShown;
};

} // namespace kxplot
