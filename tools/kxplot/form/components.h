#pragma once
// The classes of components that kxplot's forms are made of.

namespace kxplot {

/// Enters the library's classes; a fitted line waits for its turn (TFormulaLine). May be called again.
void RegisterComponents();

} // namespace kxplot
