#pragma once
// What reading a form puts up with.

namespace kx {

struct TFormReading {
    /// Events whose names the program has not registered stay empty; they are written with these names
    /// (keptevents.h).
    bool KeepsUnknownEvents = false;
};

} // namespace kx
