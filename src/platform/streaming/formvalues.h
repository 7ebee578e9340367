#pragma once
// The values of properties as form files have them.

#include <kxgraph/platform/objects/persistent.h>
#include <kxgraph/platform/streaming/formtext.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kx {

/// The shortest number that reads back bit for bit; "inf", "-inf", "nan", "-nan", and "nan$" with the bits of
/// any other that is no number.
std::string RealForm(double Value);
/// In quotes, with escapes for what is no printable UTF-8.
std::string QuotedForm(std::string_view Text);
/// Of all kinds but references, events and objects.
std::string ValueForm(const TProperty& Property, const TPropertyValue& Value);

// Of a token; raise EFormError for any other.
double RealOf(const TFormText& Text, std::size_t Token);
std::int64_t IntegerOf(const TFormText& Text, std::size_t Token);
bool BoolOf(const TFormText& Text, std::size_t Token);

/// Of all kinds but references, events and objects, from the tokens First..Last - 1. Raises EFormError that
/// says what was expected.
TPropertyValue ValueOf(const TFormText& Text, const TProperty& Property, std::size_t First, std::size_t Last);

} // namespace kx
