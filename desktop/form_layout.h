// Turns a form's arrangement into widgets and real layouts, for any form alike.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "controls/layout.h"
#include "desktop/control_view.h"
#include "view/layout_rules.h"

class QBoxLayout;
class QStackedLayout;

namespace quillet::desktop {

class FieldLabel;

class FormLayout {
 public:
  FormLayout(view::ActionRunner& runner, QWidget& body);

  // Brings the body into that arrangement. Widgets of controls that stay are kept, and so are the
  // layouts of rows and columns that stay as they are: a form may change it at every key.
  // The layouts rest until settle(), which follows when every widget is shown or hidden as its
  // control is.
  void arrange(const LayoutItem& node);
  void settle();
  // By the id of their controls.
  const std::map<unsigned, ControlView*>& views() const { return views_; }
  // Shows in each stack the page that is visible now.
  void refreshStacks();

 private:
  // A layout that is brought from one arrangement to the next.
  struct Box {
    explicit Box(QBoxLayout* filled = nullptr);
    QBoxLayout* layout;
    int first;  // index of the first part: a frame's heading stands before
    view::Place place;
    LayoutItem node;
    std::vector<view::Part> parts;
  };
  struct Stack {
    QWidget* holder = nullptr;
    QStackedLayout* layout = nullptr;
    std::vector<Control*> pages;  // null for a page that is no control
    std::vector<Box> boxes;
  };
  using StackKey = std::vector<unsigned>;

  static StackKey keyOf(const LayoutItem& stack);

  void update(Box& box, const LayoutItem& node, unsigned frame);
  void insert(const view::Part& part, QBoxLayout& into, int at, view::Place place);
  void insertBox(const LayoutItem& node, QBoxLayout& into, int at, unsigned frame);
  void insertFields(const LayoutItem& node, QBoxLayout& into, int at, view::Place place);
  void insertFrame(const LayoutItem& node, QBoxLayout& into, int at, const view::Place& place);
  void insertStack(const LayoutItem& node, QBoxLayout& into, int at, unsigned frame);
  void insertControl(const LayoutItem& node, QBoxLayout& into, int at, view::Place place);
  Stack makeStack(const LayoutItem& node);
  ControlView& viewOf(const LayoutItem& node, view::Place place, QWidget* parent);
  QWidget* labelFor(const LayoutItem& node, ControlView& view, QWidget* parent);
  void releaseLabels(const LayoutItem& node);
  void enableLayouts(bool enabled);
  void removeUnused(const LayoutItem& node);
  static void collectUsed(const LayoutItem& node, std::set<unsigned>& controls,
                          std::set<StackKey>& stacks);

  view::ActionRunner& runner_;
  QWidget& body_;
  int step_ = 0;
  std::map<unsigned, ControlView*> views_;
  std::map<unsigned, view::Place> places_;
  // Without a field while the arrangement changes: a heading moves on from line to line.
  std::vector<FieldLabel*> freeLabels_;
  Box root_;
  std::map<unsigned, Box> frames_;
  std::map<StackKey, Stack> stacks_;
};

}  // namespace quillet::desktop
