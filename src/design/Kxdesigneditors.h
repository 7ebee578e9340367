#pragma once
// Which editor serves which type of property.

namespace kx {

/// Enters the library's editors, once; a program's own that are entered later go before them.
void RegisterPropertyEditors();

} // namespace kx
