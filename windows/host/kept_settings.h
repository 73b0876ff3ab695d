// The settings in which places of windows and widths of columns are kept: the host's, in sections
// of our own. With a host that keeps none they last as long as the module.
#pragma once

#include "ports/ports.h"
#include "view/kept_places.h"

namespace quillet::windows {

view::KeptPlaces::Store keptSettings(ServiceObject& host);

}  // namespace quillet::windows
