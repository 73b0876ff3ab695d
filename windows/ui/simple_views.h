// Views of the controls that are only read or clicked: label, button, option, check box, frame.
#pragma once

#include "controls/basic_controls.h"
#include "windows/ui/control_view.h"

namespace quillet::windows {

class LabelView : public ControlView {
 public:
  LabelView(Label& label, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;
  std::optional<LRESULT> coloured(HDC paper) override;

 protected:
  void draw() override;
  void metricsChanged() override;

 private:
  Label& label_;
};

// What buttons, options and check boxes have in common: a caption and a click.
class ClickView : public ControlView {
 public:
  using ControlView::ControlView;

  void command(WORD code) override;

 protected:
  void draw() override;
  virtual void drawMark() = 0;
};

class ButtonView : public ClickView {
 public:
  ButtonView(Button& button, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;

 protected:
  void drawMark() override;
  std::optional<LRESULT> received(const WindowMessage& message) override;

 private:
  Button& button_;
};

class ToggleView : public ClickView {
 public:
  ToggleView(Toggle& toggle, view::ActionRunner& runner, HWND parent);

  SIZE wantedSize(const Metrics& metrics) const override;

 protected:
  void drawMark() override;

 private:
  Toggle& toggle_;
};

// A group with an optional heading. A frame with a heading has a border, one without only holds
// its controls together and is never seen.
class FrameView : public ControlView {
 public:
  FrameView(Frame& frame, view::ActionRunner& runner, HWND parent);

 protected:
  void draw() override;
  void drawVisible(bool visible) override;
  std::optional<LRESULT> received(const WindowMessage& message) override;

 private:
  void cutOut();
  void paint();

  Frame& frame_;
  bool bordered_;
};

}  // namespace quillet::windows
