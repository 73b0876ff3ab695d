#include "desktop/form_layout.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/field_label.h"
#include "desktop/flat_style.h"
#include "desktop/make_view.h"
#include "desktop/simple_views.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace quillet::desktop {
FormLayout::Box::Box(QBoxLayout* filled) : layout(filled), first(filled ? filled->count() : 0) {}

FormLayout::FormLayout(view::ActionRunner& runner, QWidget& body)
    : runner_(runner), body_(body), step_(theme::spacing(body)), root_(new QVBoxLayout(&body)) {
  root_.layout->setContentsMargins(2 * step_, step_ + step_ / 2, 2 * step_, 2 * step_);
  root_.layout->setSpacing(step_);
}

void FormLayout::arrange(const LayoutItem& node) {
  const LayoutItem whole = column({node});
  enableLayouts(false);
  update(root_, whole, 0);
  removeUnused(whole);
}

void FormLayout::settle() { enableLayouts(true); }

void FormLayout::enableLayouts(bool enabled) {
  root_.layout->setEnabled(enabled);
  for (const auto& [id, frame] : frames_) frame.layout->setEnabled(enabled);
  for (const auto& [key, stack] : stacks_) {
    stack.layout->setEnabled(enabled);
    for (const Box& box : stack.boxes) box.layout->setEnabled(enabled);
  }
}

// Takes the parts out that are no more, and puts the new ones between those that stay.
void FormLayout::update(Box& box, const LayoutItem& node, unsigned frame) {
  if (box.node == node) return;
  const view::Place place = view::placeIn(node, frame);
  const std::vector<view::Part> parts = view::partsOf(node);
  std::vector<bool> isNew(parts.size(), true);
  std::vector<bool> stays(box.parts.size(), false);
  std::size_t from = 0;
  for (std::size_t at = 0; at < parts.size() && box.place == place; ++at) {
    std::size_t same = from;
    while (same < stays.size() && !(box.parts[same] == parts[at])) ++same;
    if (same == stays.size()) continue;
    isNew[at] = false;
    stays[same] = true;
    from = same + 1;
  }
  for (std::size_t at = stays.size(); at-- > 0;) {
    if (stays[at]) continue;
    releaseLabels(box.parts[at].node);
    delete box.layout->takeAt(box.first + static_cast<int>(at));
  }
  for (std::size_t at = 0; at < parts.size(); ++at) {
    if (isNew[at]) insert(parts[at], *box.layout, box.first + static_cast<int>(at), place);
  }
  box.place = place;
  box.node = node;
  box.parts = parts;
}

void FormLayout::insert(const view::Part& part, QBoxLayout& into, int at, view::Place place) {
  const LayoutItem& node = part.node;
  if (part.fields) return insertFields(node, into, at, place);
  switch (node.kind) {
    case LayoutItem::Kind::gap:
      return into.insertStretch(at, node.stretch);
    case LayoutItem::Kind::row:
    case LayoutItem::Kind::column:
      return insertBox(node, into, at, place.frame);
    case LayoutItem::Kind::frame:
      return insertFrame(node, into, at, place);
    case LayoutItem::Kind::stack:
      return insertStack(node, into, at, place.frame);
    case LayoutItem::Kind::control:
      return insertControl(node, into, at, place);
  }
}

void FormLayout::insertBox(const LayoutItem& node, QBoxLayout& into, int at, unsigned frame) {
  QBoxLayout* box = node.kind == LayoutItem::Kind::row ? static_cast<QBoxLayout*>(new QHBoxLayout)
                                                       : new QVBoxLayout;
  box->setSpacing(step_);
  into.insertLayout(at, box, node.stretch);
  const view::Place place = view::placeIn(node, frame);
  for (const view::Part& part : view::partsOf(node)) insert(part, *box, -1, place);
}

// The labels make a column of their own.
void FormLayout::insertFields(const LayoutItem& node, QBoxLayout& into, int at, view::Place place) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(step_ + step_ / 2);
  grid->setVerticalSpacing(step_);
  grid->setColumnStretch(1, 1);
  into.insertLayout(at, grid);
  int line = 0;
  for (const LayoutItem& field : node.children) {
    ControlView& view = viewOf(field, place, into.parentWidget());
    const bool table = view::isTable(field);
    const bool keepsWidth = field.width > 0 && field.stretch == 0;
    grid->addWidget(labelFor(field, view, into.parentWidget()), line, 0,
                    table ? Qt::AlignTop : Qt::AlignVCenter);
    grid->addWidget(view.widget(), line, 1, keepsWidth ? Qt::AlignLeft : Qt::Alignment());
    if (table) {
      grid->setRowStretch(line, std::max(1, field.stretch));
      into.setStretchFactor(grid, std::max(1, field.stretch));
    }
    ++line;
  }
}

void FormLayout::insertFrame(const LayoutItem& node, QBoxLayout& into, int at,
                             const view::Place& place) {
  auto& frame = static_cast<FrameView&>(viewOf(node, place, into.parentWidget()));
  Box& box = frames_[node.id];
  if (box.layout != frame.inside()) box = Box(frame.inside());
  into.insertWidget(at, frame.widget(), node.stretch);
  update(box, node, node.id);
}

void FormLayout::insertStack(const LayoutItem& node, QBoxLayout& into, int at, unsigned frame) {
  Stack& stack = stacks_[keyOf(node)];
  if (!stack.holder) stack = makeStack(node);
  into.insertWidget(at, stack.holder, std::max(1, node.stretch));
  for (std::size_t page = 0; page < node.children.size(); ++page) {
    LayoutItem inside = node.children[page];
    inside.stretch = std::max(1, inside.stretch);
    update(stack.boxes[page], column({inside}), frame);
    if (inside.kind != LayoutItem::Kind::frame) continue;
    static_cast<FrameView*>(views_.at(inside.id))->becomePage();
  }
}

FormLayout::Stack FormLayout::makeStack(const LayoutItem& node) {
  Stack stack;
  stack.holder = new QWidget(&body_);
  stack.layout = new QStackedLayout(stack.holder);
  for (const LayoutItem& child : node.children) {
    auto* page = new QWidget(stack.holder);
    auto* inside = new QVBoxLayout(page);
    inside->setContentsMargins(0, 0, 0, 0);
    stack.layout->addWidget(page);
    stack.pages.push_back(child.control);
    stack.boxes.emplace_back(inside);
  }
  stack.layout->addWidget(new QWidget(stack.holder));  // nothing to show
  return stack;
}

FormLayout::StackKey FormLayout::keyOf(const LayoutItem& stack) {
  StackKey key;
  for (const LayoutItem& page : stack.children) key.push_back(page.id);
  return key;
}

void FormLayout::refreshStacks() {
  for (const auto& [key, stack] : stacks_) {
    const auto shown = std::find_if(stack.pages.begin(), stack.pages.end(), [](Control* page) {
      return page == nullptr || page->visible();
    });
    stack.layout->setCurrentIndex(static_cast<int>(shown - stack.pages.begin()));
  }
}

void FormLayout::insertControl(const LayoutItem& node, QBoxLayout& into, int at,
                               view::Place place) {
  ControlView& view = viewOf(node, place, into.parentWidget());
  if (place.inRow && !node.label.empty()) {
    auto* pair = new QVBoxLayout;
    pair->setSpacing(step_ / 2);
    into.insertLayout(at, pair, node.stretch);
    pair->addWidget(labelFor(node, view, into.parentWidget()));
    pair->addWidget(view.widget());
  } else {
    into.insertWidget(at, view.widget(), node.stretch,
                      place.inRow && !view::isTable(node) ? Qt::AlignBottom : Qt::Alignment());
  }
}

// --- widgets ------------------------------------------------------------------------------------

ControlView& FormLayout::viewOf(const LayoutItem& node, view::Place place, QWidget* parent) {
  place = view::placeOf(node, place);
  ControlView*& view = views_[node.id];
  view::Place& before = places_[node.id];
  if (view && before == place) return *view;
  if (view) view->discard();
  view = makeView(*node.control, runner_, parent);
  before = place;
  QWidget& widget = *view->widget();
  if (place.inList) widget.setProperty(leadingText, true);
  // So that their texts stand on one line.
  if (place.besideBoxes && dynamic_cast<Label*>(node.control)) {
    widget.setMinimumHeight(QLineEdit(parent).sizeHint().height());
  }
  const auto [characters, kept] = view::leastWidth(node, place.inRow);
  if (characters > 0) {
    widget.setMinimumWidth(theme::characters(widget, characters) + 2 * step_);
    if (kept) widget.setMaximumWidth(widget.minimumWidth());
  }
  return *view;
}

QWidget* FormLayout::labelFor(const LayoutItem& node, ControlView& view, QWidget* parent) {
  const QString text = toQt(node.label);
  const auto known =
      std::find_if(freeLabels_.begin(), freeLabels_.end(), [&](const FieldLabel* label) {
        return label->text() == text && label->parentWidget() == parent;
      });
  FieldLabel* label = nullptr;
  if (known == freeLabels_.end()) {
    label = new FieldLabel(text, runner_, parent);
  } else {
    label = *known;
    freeLabels_.erase(known);
  }
  label->setField(view);
  return label;
}

// What stands in a frame keeps its labels: the frame is arranged by itself.
void FormLayout::releaseLabels(const LayoutItem& node) {
  if (node.kind == LayoutItem::Kind::frame || node.kind == LayoutItem::Kind::stack) return;
  const auto found = views_.find(node.id);
  QWidget* label = found == views_.end() ? nullptr : found->second->takeLabel();
  if (label) freeLabels_.push_back(static_cast<FieldLabel*>(label));
  for (const LayoutItem& child : node.children) releaseLabels(child);
}

void FormLayout::collectUsed(const LayoutItem& node, std::set<unsigned>& controls,
                             std::set<StackKey>& stacks) {
  if (node.control) controls.insert(node.id);
  if (node.kind == LayoutItem::Kind::stack) stacks.insert(keyOf(node));
  for (const LayoutItem& child : node.children) collectUsed(child, controls, stacks);
}

void FormLayout::removeUnused(const LayoutItem& node) {
  std::set<unsigned> controls;
  std::set<StackKey> stacks;
  collectUsed(node, controls, stacks);
  for (FieldLabel* label : std::exchange(freeLabels_, {})) {
    label->hide();
    label->deleteLater();
  }
  std::erase_if(views_, [&](const auto& entry) {
    if (controls.contains(entry.first)) return false;
    entry.second->discard();
    return true;
  });
  std::erase_if(stacks_, [&](const auto& entry) {
    if (stacks.contains(entry.first)) return false;
    entry.second.holder->hide();
    entry.second.holder->deleteLater();
    return true;
  });
  const auto isUnused = [&](const auto& entry) { return !views_.contains(entry.first); };
  std::erase_if(places_, isUnused);
  std::erase_if(frames_, isUnused);
}

}  // namespace quillet::desktop
