// The view that fits the kind of control, and what an arrangement wants to know of the kind.
#pragma once

#include <Qt>

#include "controls/layout.h"
#include "view/action_runner.h"

class QWidget;

namespace quillet::desktop {

class ControlView;

// Null for a control without a view of its own.
ControlView* makeView(Control& control, view::ActionRunner& runner, QWidget* parent);

// A drop-down has no place in the arrangement: it lies over the others.
bool hasPlace(const LayoutItem& node);
bool isButton(const LayoutItem& node);
// A grid or list.
bool isTable(const LayoutItem& node);
// A box of one line.
bool isLine(const LayoutItem& node);
// Whether the node makes use of more room than it needs.
bool grows(const LayoutItem& node, Qt::Orientation direction);

}  // namespace quillet::desktop
