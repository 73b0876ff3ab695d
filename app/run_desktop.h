// quillet: opens the desktop program.
#pragma once

#include "app/options.h"

namespace quillet::app {

// The exit status. Throws std::runtime_error when the practice cannot be opened; the message was
// shown in a message box by then.
int runDesktop(const Options& options);

}  // namespace quillet::app
