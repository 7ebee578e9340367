#pragma once
// What reading a form may pass over.

namespace kx {

struct TFormReading {
    bool IgnoresUnknownEvents = false; ///< events whose names the program has not registered stay empty
};

} // namespace kx
