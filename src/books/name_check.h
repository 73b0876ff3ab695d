// Whether a name of a master is free. A database may take names for the same that a person tells
// apart, and the other way round: so the rows it finds are looked at first, then those that a
// person would take for the same.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/names.h"
#include "ports/ports.h"

namespace quillet {

// How a master's rows are read.
struct NamedRows {
  Sql ofId;  // the select of one row, up to its id
  const char* idField;
  const char* nameField;
};

// What stands in the way of the name: of the rows that the select finds, or else of the rows
// `alike`, which were listed under the same name, one that is still stored so.
std::optional<NamedId> takenName(ServiceObject& host, const std::string& name, const Sql& select,
                                 const std::vector<long>& alike, const NamedRows& rows);

}  // namespace quillet
