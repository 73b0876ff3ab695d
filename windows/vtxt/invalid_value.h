// What a property throws that is set to something that it cannot be.
#pragma once

#include "data/errors.h"

namespace quillet::windows {

inline RunTimeError invalidValue() { return {380, "Invalid property value", "VTxt"}; }

}  // namespace quillet::windows
