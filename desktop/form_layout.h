// Turns a form's arrangement into widgets and real layouts, for any form alike.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "controls/layout.h"
#include "desktop/control_view.h"

class QBoxLayout;
class QGridLayout;
class QStackedLayout;

namespace quillet::desktop {

// The view that fits the kind of control; null for those without a place of their own.
ControlView* makeView(Control& control, Stage& stage, QWidget* parent);

class FormLayout {
 public:
  FormLayout(Stage& stage, QWidget* root) : stage_(stage), root_(root) {}

  // Builds the arrangement into the root widget.
  void build(const Node& node);
  const std::vector<ControlView*>& views() const { return views_; }
  // Shows in each stack the page that is visible now.
  void refreshStacks();

 private:
  struct Stack {
    QStackedLayout* layout;
    std::vector<Control*> pages;  // null for a page that is no control
  };

  void add(const Node& node, QBoxLayout& into, bool inRow);
  void addChildren(const Node& node, QBoxLayout& into);
  void addFields(const std::vector<Node>& nodes, std::size_t first, std::size_t last,
                 QBoxLayout& into);
  void levelLabels(std::size_t first);
  void addStack(const Node& node, QBoxLayout& into);
  ControlView* addView(Control& control);
  ControlView* sized(const Node& node, bool inRow);
  QWidget* labelFor(const Node& node, ControlView& view);

  Stage& stage_;
  QWidget* root_;
  std::vector<ControlView*> views_;
  std::vector<Stack> stacks_;
};

}  // namespace quillet::desktop
