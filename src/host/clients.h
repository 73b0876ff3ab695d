// The suite's client register as the module reads it.
#pragma once

#include <string>

#include "host/context.h"

namespace quillet {

// The client's name: a company's from the register, a person's first, middle and last name joined
// with single blanks. "" for an unknown code.
std::string clientName(Context& context, const std::string& code);

}  // namespace quillet
