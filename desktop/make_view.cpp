#include "desktop/make_view.h"

#include <algorithm>

#include "desktop/choice_view.h"
#include "desktop/grid_view.h"
#include "desktop/mask_box_view.h"
#include "desktop/simple_views.h"
#include "desktop/text_box_view.h"

namespace quillet::desktop {
namespace {

template <class Model, class View>
ControlView* viewOf(Control& control, view::ActionRunner& runner, QWidget* parent) {
  auto* model = dynamic_cast<Model*>(&control);
  return model ? new View(*model, runner, parent) : nullptr;
}

bool hasFixedHeight(const LayoutItem& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return grid && grid->fixedRows() > 0;
}

}  // namespace

ControlView* makeView(Control& control, view::ActionRunner& runner, QWidget* parent) {
  using Maker = ControlView* (*)(Control&, view::ActionRunner&, QWidget*);
  static constexpr Maker makers[] = {
      viewOf<TextBox, TextBoxView>, viewOf<MaskBox, MaskBoxView>, viewOf<Grid, GridView>,
      viewOf<Button, ButtonView>,   viewOf<Label, LabelView>,     viewOf<ComboBox, ComboView>,
      viewOf<ListBox, ListView>,    viewOf<CheckBox, ToggleView>, viewOf<OptionButton, ToggleView>,
      viewOf<Frame, FrameView>,
  };
  for (const Maker maker : makers) {
    if (ControlView* view = maker(control, runner, parent)) return view;
  }
  return nullptr;
}

bool hasPlace(const LayoutItem& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return !(grid && grid->dropOf()) && !dynamic_cast<const MenuEntry*>(node.control);
}

bool isButton(const LayoutItem& node) {
  return dynamic_cast<const Button*>(node.control) != nullptr;
}

bool isTable(const LayoutItem& node) {
  return dynamic_cast<const Grid*>(node.control) || dynamic_cast<const ListBox*>(node.control);
}

bool isLine(const LayoutItem& node) {
  return dynamic_cast<const TextBox*>(node.control) || dynamic_cast<const MaskBox*>(node.control) ||
         dynamic_cast<const ComboBox*>(node.control);
}

bool grows(const LayoutItem& node, Qt::Orientation direction) {
  if (!hasPlace(node)) return false;
  switch (node.kind) {
    case LayoutItem::Kind::gap:
    case LayoutItem::Kind::stack:
      return true;
    case LayoutItem::Kind::control:
      if (isTable(node)) return direction == Qt::Horizontal || !hasFixedHeight(node);
      return direction == Qt::Horizontal && node.stretch > 0;
    default:
      return std::any_of(node.children.begin(), node.children.end(),
                         [&](const LayoutItem& child) { return grows(child, direction); });
  }
}

}  // namespace quillet::desktop
