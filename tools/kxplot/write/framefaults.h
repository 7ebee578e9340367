#pragma once
// What went wrong while a picture was settled and painted. The library goes on after an exception, so that a
// window shows what there is; a file must not.

#include <exception>
#include <stdexcept>
#include <string>

namespace kxplot {

/// A picture is incomplete: the reason, for standard error.
class TFrameError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The message of an exception, as users know it.
std::string ReasonOf(const std::exception& Error);

/// As long as it exists it hears of every exception that leaves a paint or a settling. There is one at a
/// time.
class TFrameFaults {
public:
    TFrameFaults();
    TFrameFaults(const TFrameFaults&) = delete;
    TFrameFaults& operator=(const TFrameFaults&) = delete;
    ~TFrameFaults();

    /// Raises TFrameError with the first reason, or std::bad_alloc, if there was anything.
    void Check() const;

private:
    void Hear(const std::exception& Error);

    bool FAny = false;
    std::string FReason; ///< empty when memory was short
};

} // namespace kxplot
