#pragma once
// A form as the C++ program that builds it, for those who begin with the designer and go on by hand.

#include <kxgraph/platform/objects/component.h>

#include <string>

namespace kx {

/// What the program consists of.
enum class TKxCppExtent {
    Function, ///< the includes and a function that makes the form: `std::unique_ptr<kx::TForm> MakeForm1()`
    Program   ///< and a main that shows it in a window (library kxgraph_widgets)
};

/// The text of a program that makes components of the same classes and names, in the same order and parents,
/// with the same properties, references, values and coefficients. It uses the setters of the classes; where
/// they do more than a form file does, it sets again what they have changed. What is no C++ of the library is
/// told in comments: handlers that the program has to connect, classes of others, which are made by their
/// registered names.
/// The class of Root, and those of what it owns, are registered. Raises EFormError as FormToText does.
std::string FormToCpp(TComponent& Root, TKxCppExtent Extent = TKxCppExtent::Program);

} // namespace kx
