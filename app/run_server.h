// The commands for whoever keeps a database server.
#pragma once

#include "app/options.h"

namespace quillet::app {

// Each returns the exit status.
int runServerInit(const Options& options);
int runServerAccount(const Options& options);
int runCopy(const Options& options);

}  // namespace quillet::app
