// Whether the person's desktop is set to dark colours, as the desktop portal tells it.
#pragma once

#include <functional>

namespace quillet::desktop {

// False when there is no portal to ask.
bool systemPrefersDark();
// Calls back whenever the person changes it.
void onSystemSchemeChange(std::function<void(bool dark)> changed);

}  // namespace quillet::desktop
