// quillet script: plays a Lua script, without a display or on the real windows.
#pragma once

#include "app/options.h"

namespace quillet::app {

// The exit status. Throws std::runtime_error when the practice cannot be opened.
int runScript(const Options& options);

}  // namespace quillet::app
