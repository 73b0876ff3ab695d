// What a control is called where it is not seen: by a screen reader and in the log of acts.
#pragma once

#include <string>

namespace quillet {

class Control;

// The name that the arrangement gives it, else its label, its caption or its tool tip; "" when it
// has none of them.
std::string spokenName(const Control& control);

}  // namespace quillet
