#pragma once
// Parts of kxplot that are loaded when they are asked for, so that a picture starts without them.

#include <string>

namespace kxplot {

/// The function called Function, with C linkage, of the module Name ("kxplot-window"), which is loaded and
/// stays. It lies in the directory of the program, or in ../lib/kxplot from there. A module takes the library
/// from the program: there is one application object, one list of classes. Raises kx::Exception that names
/// the file and what is wrong with it; What ("--show") is who asks.
void* PluginFunction(const char* What, const std::string& Name, const char* Function);

/// What the module's entry, a function without parameters, returns.
template <class T>
const T& Plugin(const char* What, const std::string& Name, const char* Entry) {
    using TEntry = const T* (*)();
    return *reinterpret_cast<TEntry>(PluginFunction(What, Name, Entry))();
}

} // namespace kxplot
