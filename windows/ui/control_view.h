// The view of one control: a window that shows the control's state and hands what a person does to
// its form. The window never keeps the focus by itself; the form decides where the focus is, and
// the form's window lets that of Windows follow.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "view/control_tie.h"
#include "windows/ui/keys.h"
#include "windows/ui/metrics.h"
#include "windows/ui/owned_window.h"
#include "windows/ui/tool_tip.h"

namespace quillet::windows {

class ControlView : public OwnedWindow, public view::ControlTie {
 public:
  // A child of the form's window, not shown yet.
  ControlView(Control& control, view::ActionRunner& runner, HWND parent);
  ~ControlView() override;
  // The control has no place any more: the window goes as soon as no message is at work in it.
  static void discard(std::unique_ptr<ControlView> view);

  HWND parent() const { return parent_; }

  // Draws the control when it has changed since it was drawn last.
  void refresh();
  // Draws it in any case.
  void redraw();
  // Whether the focus of Windows is where this control's keys arrive.
  bool hasFocus() const;
  void takeFocus();
  // The label before or above the window, which comes and goes with it; its maker owns it.
  void setLabel(HWND label);
  HWND label() const { return label_; }
  // Its fonts outlive the view, or the next call. Called before the control is drawn first.
  void setMetrics(const Metrics& metrics);

  // The room that it needs by itself, without label.
  virtual SIZE wantedSize(const Metrics& metrics) const;

  // Whether the control uses a key with Ctrl itself, which is no shortcut of the form's menu then.
  virtual bool keepsKey(WPARAM) const { return false; }

  // What the window tells its parent, which passes it on: WM_COMMAND, WM_NOTIFY, and the messages
  // that ask for colours (WM_CTLCOLORSTATIC and its like).
  virtual void command(WORD code);
  virtual std::optional<LRESULT> notified(NMHDR& what);
  virtual std::optional<LRESULT> coloured(HDC) { return {}; }

 protected:
  // Shows the control's state; what all controls have is drawn already.
  virtual void draw() = 0;
  virtual void drawVisible(bool visible);
  virtual void metricsChanged() {}
  // What a control without label and caption is called.
  virtual std::string ownName() const { return control().name(); }
  // To those who read the window to somebody.
  virtual void tellName(const std::wstring& name);
  // A message to the window of an open form. An answer keeps it from the window.
  virtual std::optional<LRESULT> received(const WindowMessage& message);
  // Keys for the form.
  virtual void keysTyped(const std::vector<Key>& typed);
  // A key that is a command, not one of the form's. True when it was used.
  virtual bool commandKey(WPARAM) { return false; }
  // A press of the mouse while the control has the focus. True keeps it from the window. `arrived`:
  // this press brought the focus.
  virtual bool mousePressed(const WindowMessage&, bool) { return false; }

  // While drawing, what the window tells is the view's own doing and not a person's.
  bool drawing() const { return drawing_; }
  // Null before they were set.
  const Metrics* metrics() const { return metrics_; }
  void setFont(HFONT font);

 private:
  std::optional<LRESULT> handle(const WindowMessage& message) final;
  void failed() noexcept override;
  std::optional<LRESULT> keyMessage(const WindowMessage& message);
  std::optional<LRESULT> mouseMessage(const WindowMessage& message);
  std::wstring accessibleName() const;
  void focusGiven();
  void drawState();

  HWND parent_;
  HWND label_ = nullptr;
  const Metrics* metrics_ = nullptr;
  KeyReader keys_;
  ToolTip tip_;
  std::wstring name_;  // as it was given to screen readers
  bool drawing_ = false;
  bool takingFocus_ = false;
};

}  // namespace quillet::windows
