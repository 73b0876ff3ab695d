// The view that fits the kind of control.
#pragma once

#include "view/action_runner.h"

class QWidget;

namespace quillet {
class Control;
}

namespace quillet::desktop {

class ControlView;

// Null for a control without a view of its own.
ControlView* makeView(Control& control, view::ActionRunner& runner, QWidget* parent);

}  // namespace quillet::desktop
