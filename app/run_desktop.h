// quillet: opens the desktop program.
#pragma once

#include <string>

#include "app/options.h"

namespace quillet::app {

// The exit status. Throws std::runtime_error when the practice cannot be opened; the message was
// shown in a message box by then. A person reads the first message once the window is there.
int runDesktop(const Options& options, const std::string& firstMessage = {});

}  // namespace quillet::app
