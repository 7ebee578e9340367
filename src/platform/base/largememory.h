#pragma once
// What is told of large pieces of memory.

#include <cstddef>

namespace kx {

/// Takes the begin and the size in bytes of a piece of memory that std::malloc or std::realloc has returned.
using TLargeMemory = void (*)(void* Begin, std::size_t Size) noexcept;

/// Take is called for each piece of 16 MiB or more that a dynamic array gets or grows to, before it is
/// filled; with a null pointer, as at first, nobody is. A host sets it where the system takes advice: a view
/// of very many points looks at a few of them, far apart, and finding as many small pages takes longer than
/// reading the points.
void SetLargeMemory(TLargeMemory Take) noexcept;

/// For those who get memory.
void TellOfMemory(void* Begin, std::size_t Size) noexcept;

} // namespace kx
