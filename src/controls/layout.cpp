#include "controls/layout.h"

#include <utility>

namespace quillet {
namespace {

LayoutItem box(LayoutItem::Kind kind, std::vector<LayoutItem> children, int stretch) {
  LayoutItem node;
  node.kind = kind;
  node.children = std::move(children);
  node.stretch = stretch;
  return node;
}

// Places every control below in the frame, except those in a frame of their own.
void placeIn(Frame& frame, const LayoutItem& node) {
  if (node.control) node.control->placeIn(&frame);
  if (node.kind == LayoutItem::Kind::frame) return;
  for (const LayoutItem& child : node.children) placeIn(frame, child);
}

}  // namespace

LayoutItem row(std::vector<LayoutItem> children, int stretch) {
  return box(LayoutItem::Kind::row, std::move(children), stretch);
}

LayoutItem column(std::vector<LayoutItem> children, int stretch) {
  return box(LayoutItem::Kind::column, std::move(children), stretch);
}

LayoutItem framed(Frame& frame, std::vector<LayoutItem> children, int stretch) {
  for (const LayoutItem& child : children) placeIn(frame, child);
  LayoutItem node = box(LayoutItem::Kind::frame, std::move(children), stretch);
  node.control = &frame;
  node.id = frame.id();
  return node;
}

LayoutItem stack(std::vector<LayoutItem> children, int stretch) {
  return box(LayoutItem::Kind::stack, std::move(children), stretch);
}

LayoutItem item(Control& control, int stretch, int width) {
  LayoutItem node;
  node.kind = LayoutItem::Kind::control;
  node.control = &control;
  node.id = control.id();
  node.stretch = stretch;
  node.width = width;
  return node;
}

LayoutItem field(std::string label, Control& control, int width, int stretch) {
  LayoutItem node = item(control, stretch, width);
  node.label = std::move(label);
  return node;
}

LayoutItem named(std::string name, LayoutItem control) {
  control.name = std::move(name);
  return control;
}

LayoutItem gap(int stretch) { return box(LayoutItem::Kind::gap, {}, stretch); }

}  // namespace quillet
