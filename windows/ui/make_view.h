// The view that fits the kind of control.
#pragma once

#include <memory>

#include "windows/ui/control_view.h"

namespace quillet::windows {

// Null for a control without a view of its own: a menu entry.
std::unique_ptr<ControlView> makeView(Control& control, view::ActionRunner& runner, HWND parent);

}  // namespace quillet::windows
