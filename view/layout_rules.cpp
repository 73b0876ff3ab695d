#include "view/layout_rules.h"

#include <algorithm>

#include "controls/choice.h"
#include "controls/grid.h"
#include "controls/mask_box.h"
#include "controls/text_box.h"

namespace quillet::view {
namespace {

using Kind = LayoutItem::Kind;

template <class... Models>
bool isOneOf(const LayoutItem& node) {
  return (dynamic_cast<const Models*>(node.control) || ...);
}

}  // namespace

bool hasPlace(const LayoutItem& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return !(grid && grid->dropOf()) && !isOneOf<MenuEntry>(node);
}

bool isButton(const LayoutItem& node) { return isOneOf<Button>(node); }

bool isTable(const LayoutItem& node) { return isOneOf<Grid, ListBox>(node); }

bool isLine(const LayoutItem& node) { return isOneOf<TextBox, MaskBox, ComboBox>(node); }

bool isCombo(const LayoutItem& node) { return isOneOf<ComboBox>(node); }

bool hasFixedHeight(const LayoutItem& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return grid && grid->fixedRows() > 0;
}

bool grows(const LayoutItem& node, Direction direction) {
  if (!hasPlace(node)) return false;
  switch (node.kind) {
    case Kind::gap:
    case Kind::stack:
      return true;
    case Kind::control:
      if (isTable(node)) return direction == Direction::across || !hasFixedHeight(node);
      return direction == Direction::across && node.stretch > 0;
    default:
      return std::any_of(node.children.begin(), node.children.end(),
                         [&](const LayoutItem& child) { return grows(child, direction); });
  }
}

bool takesRest(const LayoutItem& node, Direction direction) {
  return std::any_of(node.children.begin(), node.children.end(), [&](const LayoutItem& child) {
    return child.stretch > 0 || grows(child, direction);
  });
}

std::vector<Part> partsOf(const LayoutItem& node) {
  const bool inRow = node.kind == Kind::row;
  std::vector<Part> parts;
  for (const LayoutItem& child : node.children) {
    if (!hasPlace(child)) continue;
    if (inRow || child.label.empty()) {
      parts.push_back({child});
    } else if (!parts.empty() && parts.back().fields) {
      parts.back().node.children.push_back(child);
    } else {
      parts.push_back({column({child}), true});
    }
  }
  if (!takesRest(node, inRow ? Direction::across : Direction::down)) parts.push_back({gap(0)});
  return parts;
}

Place placeIn(const LayoutItem& node, unsigned frame) {
  const auto& nodes = node.children;
  Place place;
  place.frame = frame;
  place.inRow = node.kind == Kind::row;
  place.besideBoxes = place.inRow && std::any_of(nodes.begin(), nodes.end(), isLine);
  place.inList = !place.inRow && std::count_if(nodes.begin(), nodes.end(), isButton) >= 3;
  return place;
}

Place placeOf(const LayoutItem& child, Place place) {
  place.width = child.width;
  place.stretch = child.stretch;
  return place;
}

LeastWidth leastWidth(const LayoutItem& node, bool inRow) {
  constexpr int ofDate = 11;
  constexpr int ofLineInRow = 16;
  const bool keeps = isLine(node) && node.stretch == 0;
  if (node.width > 0) return {node.width, keeps};
  if (isOneOf<MaskBox>(node)) return {ofDate, keeps};
  return {keeps && inRow ? ofLineInRow : 0, false};
}

}  // namespace quillet::view
