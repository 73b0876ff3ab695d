// Names of ledgers, groups, heads and clients: how one that a person typed is written down, and
// which names are the same. Case does not count, nor do invisible characters, nor which blanks
// stand in a name and how many of them; everything else does.
//
// A database may take more for the same than that: small digits for large ones, or accents for
// none. So what it found for a name is compared with the name once more.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/recordset.h"

namespace quillet {

// Without invisible characters, each run of blanks made one, none at either end. The joiners of
// Indian scripts and of emoji, and what chooses the form of an emoji, stay where they act.
std::string cleanedName(std::string_view typed);

// The same text for the same names, and for no others; orders names as a person reads them.
std::string nameKey(std::string_view name);
// Of a name that is being typed: a blank at its end counts, as the next word is to begin there.
std::string beginningKey(std::string_view typed);
bool sameName(std::string_view a, std::string_view b);

struct NamedId {
  long id = 0;
  std::string name;
};
// Of the rows that were found for a name: the one written just so, else the first of the same name,
// else the first of all. Nothing when there is no row. Moves through the rows.
std::optional<NamedId> bestMatch(Recordset& rows, std::string_view idField,
                                 std::string_view nameField, std::string_view name);

}  // namespace quillet
