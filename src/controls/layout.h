// How a form arranges its controls: a small tree of rows, columns, framed groups and stacks. A view
// turns it into real layouts; there are no coordinates anywhere.
#pragma once

#include <string>
#include <vector>

#include "controls/basic_controls.h"

namespace quillet {

struct LayoutItem {
  enum class Kind {
    row,      // children side by side
    column,   // children one under the other
    frame,    // one Frame control around its children, laid out as a column
    stack,    // children are frames of which the visible one is shown
    control,  // one control, with a label before it when `label` is not empty
    gap       // empty room that takes the stretch
  };
  Kind kind = Kind::gap;
  Control* control = nullptr;
  unsigned id = 0;    // the control's
  std::string label;  // may carry an access key for the control: "&Group"
  std::string name;  // what a screen reader calls the control in place of its label, marked like it
  int stretch = 0;   // share of the room that is left over; 0 keeps to its own size
  int width = 0;     // preferred width in characters; 0 leaves it to the control
  std::vector<LayoutItem> children;
  bool operator==(const LayoutItem&) const = default;
};

LayoutItem row(std::vector<LayoutItem> children, int stretch = 0);
LayoutItem column(std::vector<LayoutItem> children, int stretch = 0);
// Places the controls inside in the frame, so that they are shown and focused only with it.
LayoutItem framed(Frame& frame, std::vector<LayoutItem> children, int stretch = 0);
LayoutItem stack(std::vector<LayoutItem> children, int stretch = 1);
LayoutItem item(Control& control, int stretch = 0, int width = 0);
// A control under or beside its label.
LayoutItem field(std::string label, Control& control, int width = 0, int stretch = 0);
// A control that has no label, or shares its label with others.
LayoutItem named(std::string name, LayoutItem control);
LayoutItem gap(int stretch = 1);

}  // namespace quillet
