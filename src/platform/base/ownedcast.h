#pragma once
// Ownership that follows a cast.

#include <memory>

namespace kx {

/// What From owns, as a T where it is one; otherwise null, and From keeps it.
template <class T, class U>
std::unique_ptr<T> OwnedCast(std::unique_ptr<U>& From) {
    auto* object = dynamic_cast<T*>(From.get());
    if (object) static_cast<void>(From.release());
    return std::unique_ptr<T>(object);
}

} // namespace kx
