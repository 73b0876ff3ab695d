// Miscellaneous values that the module's forms keep in the database, by section and name. Each is
// stored with a client and a year; the one set last is read.
#pragma once

#include <string>

#include "suite/unit_of_work.h"

namespace quillet::suite::misc_values {

std::string get(UnitOfWork& unit, const std::string& section, const std::string& name,
                const std::string& fallback);
void set(UnitOfWork& unit, const std::string& section, const std::string& name,
         const std::string& value, const std::string& client, const std::string& year);

}  // namespace quillet::suite::misc_values
