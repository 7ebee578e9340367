#pragma once
// Guesses what a mistyped name was meant to be.

#include <span>
#include <string>
#include <string_view>

namespace kx {

/// The slips of a typist that lead from A to B: characters left out, put in, exchanged for others or with
/// their neighbour (optimal string alignment). Letters count without their case.
int SlipsBetween(std::string_view A, std::string_view B);

/// Of Known the name that Name comes closest to; none where more than a third of it would be slips, or where
/// it is one of Known.
std::string_view Closest(std::string_view Name, std::span<const std::string_view> Known);

/// What follows in a message about Name: "; did you mean 'Color'?", or nothing where no name of Known is
/// near.
std::string DidYouMean(std::string_view Name, std::span<const std::string_view> Known);

} // namespace kx
