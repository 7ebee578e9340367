#pragma once
// What an object keeps in an INI store: the rows that the tables of its classes list
// (TPropertyTable::GetKept), the base class's first, a value in a line each. Saving and loading walk the same
// rows.
//
// A number, a bool, an enumeration (as its ordinal), a colour or a text stands under its key, a reference as
// the path of names from the form down; what a sub-object keeps stands under its key, a point and the
// sub-object's keys.

#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/objects/persistent.h>

#include <string_view>

namespace kx {

/// Writes what Object keeps into Section, with Prefix before each key.
void SaveRows(const TPersistent& Object, std::string_view Section, TKxIniList& Ini,
              std::string_view Prefix = {});

/// Reads it. Values are set for keys that are missing, too: what the row says, or what the object has at that
/// moment. The latter also for what is no value of an enumeration, or too large for the property's type. A
/// reference is set only when it changes, and a list of reals only when as many are there as the object has.
void LoadRows(TPersistent& Object, std::string_view Section, const TKxIniList& Ini,
              std::string_view Prefix = {});

} // namespace kx
