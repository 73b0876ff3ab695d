#include "controls/layout.h"

#include <utility>

namespace quillet {
namespace {

Node box(Node::Kind kind, std::vector<Node> children, int stretch) {
  Node node;
  node.kind = kind;
  node.children = std::move(children);
  node.stretch = stretch;
  return node;
}

// Places every control below in the frame, except those in a frame of their own.
void placeIn(Frame& frame, const Node& node) {
  if (node.control) node.control->placeIn(&frame);
  if (node.kind == Node::Kind::frame) return;
  for (const Node& child : node.children) placeIn(frame, child);
}

}  // namespace

Node row(std::vector<Node> children, int stretch) {
  return box(Node::Kind::row, std::move(children), stretch);
}

Node column(std::vector<Node> children, int stretch) {
  return box(Node::Kind::column, std::move(children), stretch);
}

Node framed(Frame& frame, std::vector<Node> children, int stretch) {
  for (const Node& child : children) placeIn(frame, child);
  Node node = box(Node::Kind::frame, std::move(children), stretch);
  node.control = &frame;
  node.id = frame.id();
  return node;
}

Node stack(std::vector<Node> children, int stretch) {
  return box(Node::Kind::stack, std::move(children), stretch);
}

Node item(Control& control, int stretch, int width) {
  Node node;
  node.kind = Node::Kind::control;
  node.control = &control;
  node.id = control.id();
  node.stretch = stretch;
  node.width = width;
  return node;
}

Node field(std::string label, Control& control, int width, int stretch) {
  Node node = item(control, stretch, width);
  node.label = std::move(label);
  return node;
}

Node gap(int stretch) { return box(Node::Kind::gap, {}, stretch); }

}  // namespace quillet
