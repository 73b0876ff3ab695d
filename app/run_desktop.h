// quillet: the program as a person works with it.
#pragma once

#include "app/options.h"

namespace quillet::app {

// The exit status. Throws std::runtime_error when the practice cannot be opened; the message was
// then shown in a message box, too.
int runDesktop(const Options& options);

}  // namespace quillet::app
