// quillet check: examines the books, and mends them on request. quillet prune: ends the history
// before a day.
#pragma once

#include "app/options.h"

namespace quillet::app {

// The exit status: 0 when the books are sound, 1 when something is left that is not, 2 when they
// could not be examined or mended; the reason went to standard error by then.
int runCheck(const Options& options);

// quillet prune: 0, or 2 when nothing was removed.
int runPrune(const Options& options);

}  // namespace quillet::app
