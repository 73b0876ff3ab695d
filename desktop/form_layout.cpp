#include "desktop/form_layout.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/choice_view.h"
#include "desktop/field_label.h"
#include "desktop/grid_view.h"
#include "desktop/mask_box_view.h"
#include "desktop/quiet_style.h"
#include "desktop/simple_views.h"
#include "desktop/text.h"
#include "desktop/text_box_view.h"
#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

template <class Model, class View>
ControlView* viewOf(Control& control, Stage& stage, QWidget* parent) {
  auto* model = dynamic_cast<Model*>(&control);
  return model ? new View(*model, stage, parent) : nullptr;
}

bool isButton(const Node& node) { return dynamic_cast<const Button*>(node.control) != nullptr; }

bool isTable(const Node& node) {
  return dynamic_cast<const Grid*>(node.control) || dynamic_cast<const ListBox*>(node.control);
}

bool isLine(const Node& node) {
  return dynamic_cast<const TextBox*>(node.control) || dynamic_cast<const MaskBox*>(node.control) ||
         dynamic_cast<const ComboBox*>(node.control);
}

// A drop-down has no place of its own: it lies over the others.
bool hasNoPlace(const Node& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return grid && grid->dropOf;
}

bool hasFixedHeight(const Node& node) {
  const auto* grid = dynamic_cast<const Grid*>(node.control);
  return grid && grid->fixedRows > 0;
}

// Whether the node makes use of more room than it needs.
bool grows(const Node& node, Qt::Orientation direction) {
  if (hasNoPlace(node)) return false;
  switch (node.kind) {
    case Node::Kind::gap:
    case Node::Kind::stack:
      return true;
    case Node::Kind::control:
      if (isTable(node)) return direction == Qt::Horizontal || !hasFixedHeight(node);
      return direction == Qt::Horizontal && node.stretch > 0;
    default:
      return std::any_of(node.children.begin(), node.children.end(),
                         [&](const Node& child) { return grows(child, direction); });
  }
}

bool takesRest(const Node& node, Qt::Orientation direction) {
  return std::any_of(node.children.begin(), node.children.end(), [&](const Node& child) {
    return child.stretch > 0 || grows(child, direction);
  });
}

}  // namespace

ControlView* makeView(Control& control, Stage& stage, QWidget* parent) {
  using Maker = ControlView* (*)(Control&, Stage&, QWidget*);
  static constexpr Maker makers[] = {
      viewOf<TextBox, TextBoxView>, viewOf<MaskBox, MaskBoxView>, viewOf<Grid, GridView>,
      viewOf<Button, ButtonView>,   viewOf<Label, LabelView>,     viewOf<ComboBox, ComboView>,
      viewOf<ListBox, ListView>,    viewOf<CheckBox, ToggleView>, viewOf<OptionButton, ToggleView>,
      viewOf<Frame, FrameView>,
  };
  for (const Maker maker : makers) {
    if (ControlView* view = maker(control, stage, parent)) return view;
  }
  return nullptr;
}

ControlView* FormLayout::addView(Control& control) {
  ControlView* view = makeView(control, stage_, root_);
  if (view) views_.push_back(view);
  return view;
}

void FormLayout::build(const Node& node) {
  auto* layout = new QVBoxLayout(root_);
  const int step = theme::step(*root_);
  layout->setContentsMargins(2 * step, step + step / 2, 2 * step, 2 * step);
  layout->setSpacing(step);
  add(node, *layout, false);
  if (!grows(node, Qt::Vertical) && node.stretch == 0) layout->addStretch();
}

void FormLayout::add(const Node& node, QBoxLayout& into, bool inRow) {
  switch (node.kind) {
    case Node::Kind::gap:
      into.addStretch(std::max(1, node.stretch));
      break;
    case Node::Kind::row:
    case Node::Kind::column: {
      QBoxLayout* box = node.kind == Node::Kind::row ? static_cast<QBoxLayout*>(new QHBoxLayout)
                                                     : new QVBoxLayout;
      box->setSpacing(theme::step(*root_));
      into.addLayout(box, node.stretch);
      addChildren(node, *box);
      break;
    }
    case Node::Kind::frame: {
      auto* frame = static_cast<FrameView*>(addView(*node.control));
      into.addWidget(frame->widget(), node.stretch);
      addChildren(node, *frame->inside());
      break;
    }
    case Node::Kind::stack:
      addStack(node, into);
      break;
    case Node::Kind::control: {
      ControlView* view = sized(node, inRow);
      if (!view) break;
      if (inRow && !node.label.empty()) {
        auto* pair = new QVBoxLayout;
        pair->setSpacing(theme::step(*root_) / 2);
        pair->addWidget(labelFor(node, *view));
        pair->addWidget(view->widget());
        into.addLayout(pair, node.stretch);
      } else {
        into.addWidget(view->widget(), node.stretch,
                       inRow && !isTable(node) ? Qt::AlignBottom : Qt::Alignment());
      }
      break;
    }
  }
}

void FormLayout::addChildren(const Node& node, QBoxLayout& into) {
  const bool inRow = node.kind == Node::Kind::row;
  const auto& nodes = node.children;
  const auto isField = [&](std::size_t at) { return !nodes[at].label.empty(); };
  const std::size_t first = views_.size();
  for (std::size_t at = 0; at < nodes.size();) {
    std::size_t end = at;
    while (!inRow && end < nodes.size() && isField(end)) ++end;
    if (end > at) {
      addFields(nodes, at, end, into);
      at = end;
    } else {
      add(nodes[at++], into, inRow);
    }
  }
  if (!takesRest(node, inRow ? Qt::Horizontal : Qt::Vertical)) into.addStretch();
  if (inRow && std::any_of(nodes.begin(), nodes.end(), isLine)) levelLabels(first);
  const bool list = !inRow && std::count_if(nodes.begin(), nodes.end(), isButton) >= 3;
  for (std::size_t at = first; list && at < views_.size(); ++at) {
    views_[at]->widget()->setProperty(leadingText, true);
  }
}

// Beside boxes a label is as high as they are, so that their texts stand on one line.
void FormLayout::levelLabels(std::size_t first) {
  const int height = QLineEdit(root_).sizeHint().height();
  for (std::size_t at = first; at < views_.size(); ++at) {
    if (dynamic_cast<Label*>(&views_[at]->control())) {
      views_[at]->widget()->setMinimumHeight(height);
    }
  }
}

// Fields one under the other: their labels make a column of their own.
void FormLayout::addFields(const std::vector<Node>& nodes, std::size_t first, std::size_t last,
                           QBoxLayout& into) {
  auto* grid = new QGridLayout;
  const int step = theme::step(*root_);
  grid->setHorizontalSpacing(step + step / 2);
  grid->setVerticalSpacing(step);
  grid->setColumnStretch(1, 1);
  int stretch = 0;
  for (std::size_t at = first; at < last; ++at) {
    const int line = static_cast<int>(at - first);
    ControlView* view = sized(nodes[at], false);
    if (!view) continue;
    const bool keepsWidth = nodes[at].width > 0 && nodes[at].stretch == 0;
    grid->addWidget(labelFor(nodes[at], *view), line, 0,
                    isTable(nodes[at]) ? Qt::AlignTop : Qt::AlignVCenter);
    grid->addWidget(view->widget(), line, 1, keepsWidth ? Qt::AlignLeft : Qt::Alignment());
    if (isTable(nodes[at])) grid->setRowStretch(line, std::max(1, nodes[at].stretch));
    if (isTable(nodes[at])) stretch = std::max(1, nodes[at].stretch);
  }
  into.addLayout(grid, stretch);
}

void FormLayout::addStack(const Node& node, QBoxLayout& into) {
  auto* holder = new QWidget(root_);
  Stack stack{new QStackedLayout(holder), {}};
  for (const Node& child : node.children) {
    stack.pages.push_back(child.control);
    auto* page = new QWidget(holder);
    auto* inside = new QVBoxLayout(page);
    inside->setContentsMargins(0, 0, 0, 0);
    const std::size_t first = views_.size();
    add(child, *inside, false);
    if (child.kind == Node::Kind::frame) static_cast<FrameView*>(views_[first])->becomePage();
    stack.layout->addWidget(page);
  }
  stack.layout->addWidget(new QWidget(holder));  // nothing to show
  stacks_.push_back(stack);
  into.addWidget(holder, std::max(1, node.stretch));
}

void FormLayout::refreshStacks() {
  for (const Stack& stack : stacks_) {
    const auto shown = std::find_if(stack.pages.begin(), stack.pages.end(), [](Control* page) {
      return page == nullptr || page->visible();
    });
    stack.layout->setCurrentIndex(static_cast<int>(shown - stack.pages.begin()));
  }
}

ControlView* FormLayout::sized(const Node& node, bool inRow) {
  if (hasNoPlace(node)) return nullptr;
  ControlView* view = addView(*node.control);
  if (!view) return nullptr;
  QWidget* widget = view->widget();
  const int step = theme::step(*widget);
  const bool line = isLine(node);
  int width = node.width;
  if (width == 0 && dynamic_cast<MaskBox*>(node.control)) width = 11;
  if (width > 0) {
    const int pixels = theme::characters(*widget, width) + 2 * step;
    if (line && node.stretch == 0) {
      widget->setFixedWidth(pixels);
    } else {
      widget->setMinimumWidth(pixels);
    }
  } else if (line && inRow && node.stretch == 0) {
    widget->setMinimumWidth(theme::characters(*widget, 16));
  }
  return view;
}

QWidget* FormLayout::labelFor(const Node& node, ControlView& view) {
  auto* label = new FieldLabel(toQt(node.label), view, stage_);
  view.setLabel(label);
  return label;
}

}  // namespace quillet::desktop
