// The view that fits the kind of control, and what an arrangement wants to know of the kind.
#pragma once

#include <Qt>

#include "controls/layout.h"

class QWidget;

namespace quillet::desktop {

class ControlView;
class ActionRunner;

// Null for a control without a view of its own.
ControlView* makeView(Control& control, ActionRunner& runner, QWidget* parent);

// A drop-down has no place in the arrangement: it lies over the others.
bool hasPlace(const Node& node);
bool isButton(const Node& node);
// A grid or list.
bool isTable(const Node& node);
// A box of one line.
bool isLine(const Node& node);
// Whether the node makes use of more room than it needs.
bool grows(const Node& node, Qt::Orientation direction);

}  // namespace quillet::desktop
