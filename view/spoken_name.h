// What a screen reader calls a control.
#pragma once

#include <string>

namespace quillet {
class Control;
}

namespace quillet::view {

// The name that the arrangement gives it, else its label, its caption or its tool tip; "" when it
// has none of them.
std::string spokenName(const Control& control);

}  // namespace quillet::view
