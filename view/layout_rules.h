// What an arrangement asks of the views, by the kinds of its controls: which of them have a place,
// which make use of more room, how wide they are.
#pragma once

#include <vector>

#include "controls/layout.h"

namespace quillet::view {

enum class Direction { across, down };

// A drop-down has no place in the arrangement: it lies over the others.
bool hasPlace(const LayoutItem& node);
bool isButton(const LayoutItem& node);
// A grid or list.
bool isTable(const LayoutItem& node);
// A box of one line.
bool isLine(const LayoutItem& node);
// One of them with a list of its own behind an arrow.
bool isCombo(const LayoutItem& node);
// A grid that always holds few rows.
bool hasFixedHeight(const LayoutItem& node);
// Whether the node makes use of more room than it needs.
bool grows(const LayoutItem& node, Direction direction);
// Whether what is left over goes to one of the children.
bool takesRest(const LayoutItem& node, Direction direction);

// A piece of a row or column: a child, or the fields one under the other, whose labels make a
// column of their own.
struct Part {
  LayoutItem node;
  bool fields = false;
  bool operator==(const Part&) const = default;
};
// A gap at the end takes what is left over, unless a part has a use for it.
std::vector<Part> partsOf(const LayoutItem& node);

// Where a control stands, as far as its looks depend on it.
struct Place {
  unsigned frame = 0;  // id of the frame around it
  bool inRow = false;
  bool besideBoxes = false;  // in a row with boxes of one line: all texts stand on one line
  bool inList = false;       // in a column of buttons: texts begin at the left
  int width = 0;
  int stretch = 0;
  bool operator==(const Place&) const = default;
};
// For the children of the node.
Place placeIn(const LayoutItem& node, unsigned frame);
// For one of them.
Place placeOf(const LayoutItem& child, Place place);

// How wide a control is made at least.
struct LeastWidth {
  int characters = 0;  // 0 leaves it to the control
  bool kept = false;   // no wider, whatever room there is
};
LeastWidth leastWidth(const LayoutItem& node, bool inRow);

}  // namespace quillet::view
