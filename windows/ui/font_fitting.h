// How much smaller a form's fonts have to be on a monitor that has no room for all it shows.
#pragma once

#include <windows.h>

#include "windows/ui/form_views.h"
#include "windows/ui/metrics.h"

namespace quillet::windows {

// The part of the size wanted, 1 where there is room enough. Never so small that it cannot be read.
double fittingPart(const FormViews& views, SIZE room, UINT dpi, Metrics::Wish wish);

bool fits(SIZE wanted, SIZE room);

}  // namespace quillet::windows
