// Views of the controls that are only read or clicked: label, button, option, check box, frame.
#pragma once

#include "controls/basic_controls.h"
#include "desktop/control_view.h"

class QAbstractButton;
class QBoxLayout;
class QLabel;
class QPushButton;

namespace quillet::desktop {

class LabelView : public ControlView {
 public:
  LabelView(Label& label, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;

 private:
  Label& label_;
  QLabel* text_;
};

// What buttons, options and check boxes have in common: a click and an access key.
class ClickView : public ControlView {
 public:
  using ControlView::ControlView;

 protected:
  void adoptButton(QAbstractButton* button);
  bool otherEvent(QObject* target, QEvent& event) override;

 private:
  void click();
};

class ButtonView : public ClickView {
 public:
  ButtonView(Button& button, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;

 private:
  Button& button_;
  QPushButton* push_;
};

class ToggleView : public ClickView {
 public:
  ToggleView(Toggle& toggle, view::ActionRunner& runner, QWidget* parent);

 protected:
  void draw() override;

 private:
  Toggle& toggle_;
  QAbstractButton* box_;
};

// A group with an optional heading. A frame with a heading has a border, one without only holds
// its controls together.
class FrameView : public ControlView {
 public:
  FrameView(Frame& frame, view::ActionRunner& runner, QWidget* parent);
  // Where the controls inside go.
  QBoxLayout* inside() const { return inside_; }
  // A page of a stack is shown and hidden by the stack.
  void becomePage();

 protected:
  void draw() override;
  void drawVisible(bool visible) override;

 private:
  Frame& frame_;
  QLabel* heading_ = nullptr;
  QBoxLayout* inside_;
  bool page_ = false;
};

}  // namespace quillet::desktop
